#include "help/Help_Difference.h"

namespace Help {

namespace {

Range runOfSpaceAt(std::string_view text, std::size_t start) {
    const std::size_t end = text.find_first_not_of(" \t\n", start);
    return {start, end == std::string_view::npos ? text.size() : end};
}

std::string_view cut(std::string_view text, Range range) {
    return text.substr(range.start, range.end - range.start);
}

} // namespace

Differences whiteSpaceDifferences(std::string_view before, std::string_view after) {
    Differences differences;
    std::size_t left = 0;
    std::size_t right = 0;
    while (left < before.size() && right < after.size()) {
        const Range old = runOfSpaceAt(before, left);
        const Range now = runOfSpaceAt(after, right);
        if (cut(before, old) != cut(after, now)) {
            differences.before.push_back(old);
            differences.after.push_back(now);
        }
        left = old.end + 1;
        right = now.end + 1;
    }
    return differences;
}

} // namespace Help
