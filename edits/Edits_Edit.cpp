#include "edits/Edits_Edit.h"

#include <algorithm>

namespace Edits {

namespace {

std::size_t endOfSpace(std::string_view text, std::size_t at) {
    while (at < text.size() && isWhite(text[at])) ++at;
    return at;
}

std::string_view cut(std::string_view text, Range range) {
    return text.substr(range.begin, range.end - range.begin);
}

Edit smallestEdit(std::string_view source, std::string_view result, const Gap& gap) {
    const std::string_view before = cut(source, gap.source);
    const std::string_view after = cut(result, gap.result);
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
    return {{gap.source.begin + head, gap.source.end - tail},
            std::string(after.substr(head, after.size() - head - tail))};
}

} // namespace

std::vector<Gap> differingGaps(std::string_view source, std::string_view result) {
    std::vector<Gap> gaps;
    std::size_t i = 0;
    std::size_t j = 0;
    while (true) {
        // Most of a text does not change, and equal bytes need no look at their kind.
        const std::size_t same = std::min(source.size() - i, result.size() - j);
        const auto parted = std::mismatch(source.begin() + static_cast<std::ptrdiff_t>(i),
                                          source.begin() + static_cast<std::ptrdiff_t>(i + same),
                                          result.begin() + static_cast<std::ptrdiff_t>(j));
        const auto step = static_cast<std::size_t>(parted.first - source.begin()) - i;
        i += step;
        j += step;
        if (i == source.size() && j == result.size()) return gaps;
        // The place where two gaps part may lie within both.
        std::size_t back = 0;
        while (back < i && back < j && isWhite(source[i - back - 1])) ++back;
        const Gap gap{{i - back, endOfSpace(source, i)}, {j - back, endOfSpace(result, j)}};
        if (gap.source.end - i == 0 && gap.result.end - j == 0) return gaps; // not the same text
        gaps.push_back(gap);
        i = gap.source.end;
        j = gap.result.end;
        if (i < source.size() && (j == result.size() || source[i] != result[j])) return gaps;
    }
}

EditList editsBetween(std::string_view source, std::string_view result) {
    EditList edits;
    for (const Gap& gap : differingGaps(source, result)) edits.push_back(smallestEdit(source, result, gap));
    return edits;
}

std::string applied(std::string_view source, const EditList& edits) {
    std::string text;
    std::size_t at = 0;
    for (const Edit& edit : edits) {
        text.append(source, at, edit.range.begin - at);
        text += edit.text;
        at = edit.range.end;
    }
    text.append(source, at, std::string_view::npos);
    return text;
}

} // namespace Edits
