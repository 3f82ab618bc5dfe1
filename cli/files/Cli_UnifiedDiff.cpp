#include "cli/files/Cli_UnifiedDiff.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Cli {

namespace {

constexpr std::size_t kContext = 3;

struct Line {
    /// With its line feed, if it has one.
    std::string_view text;
    /// How many characters that are not white space stand in front of it in the whole text.
    std::size_t inkBefore = 0;
    bool isBlank = true;
};

bool isInk(char c) { return c != ' ' && (c < '\t' || c > '\r'); }

std::vector<Line> linesOf(std::string_view text) {
    std::vector<Line> lines;
    lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    std::size_t ink = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string_view line = text.substr(0, end);
        const auto count = static_cast<std::size_t>(std::count_if(line.begin(), line.end(), isInk));
        lines.push_back({line, ink, count == 0});
        ink += count;
        text.remove_prefix(end);
    }
    return lines;
}

bool isSame(const Line& a, const Line& b) { return a.inkBefore == b.inkBefore && a.text == b.text; }

/// Lines that are removed and those that take their place. Both stand between lines that stay.
struct Change {
    std::size_t before = 0;
    std::size_t beforeEnd = 0;
    std::size_t after = 0;
    std::size_t afterEnd = 0;
};

/// Walks over both texts at once; the one with less ink in front goes first.
class Comparison {
public:
    Comparison(const std::vector<Line>& before, const std::vector<Line>& after)
        : before_(before), after_(after) {}

    std::vector<Change> changes() {
        while (i_ < before_.size() || j_ < after_.size()) {
            if (i_ < before_.size() && j_ < after_.size() && isSame(before_[i_], after_[j_])) {
                finishChange();
                ++i_;
                ++j_;
                open_ = {i_, i_, j_, j_};
            } else {
                stepOver();
            }
        }
        finishChange();
        return std::move(changes_);
    }

private:
    void stepOver() {
        if (j_ == after_.size() || (i_ < before_.size() && takesOldFirst(before_[i_], after_[j_]))) {
            ++i_;
        } else {
            ++j_;
        }
    }
    /// With as much ink in front of both, a blank line goes first: the other may still find its like.
    static bool takesOldFirst(const Line& a, const Line& b) {
        if (a.inkBefore != b.inkBefore) return a.inkBefore < b.inkBefore;
        return a.isBlank || !b.isBlank;
    }
    void finishChange() {
        open_.beforeEnd = i_;
        open_.afterEnd = j_;
        if (open_.before != i_ || open_.after != j_) changes_.push_back(open_);
    }

    const std::vector<Line>& before_;
    const std::vector<Line>& after_;
    std::size_t i_ = 0;
    std::size_t j_ = 0;
    Change open_;
    std::vector<Change> changes_;
};

/// A path as git writes it: between quotes if a reader of the patch would stumble over it.
std::string shownPath(std::string_view prefix, std::string_view name) {
    std::string path(prefix);
    bool needsQuotes = false;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            path += '\\';
            path += c;
        } else if (byte < 0x20 || byte == 0x7f) {
            const char digits[] = {'\\', static_cast<char>('0' + (byte >> 6)),
                                   static_cast<char>('0' + ((byte >> 3) & 7)),
                                   static_cast<char>('0' + (byte & 7))};
            path.append(digits, sizeof digits);
        } else {
            path += c;
            continue;
        }
        needsQuotes = true;
    }
    if (needsQuotes) return '"' + path + '"';
    // A tab ends a path that holds blanks.
    return name.find(' ') == std::string_view::npos ? path : path + '\t';
}

class PatchWriter {
public:
    PatchWriter(const std::vector<Line>& before, const std::vector<Line>& after, bool isColored)
        : before_(before), after_(after), isColored_(isColored) {}

    std::string write(std::string_view name, const std::vector<Change>& changes) {
        colored("\x1b[1m", "--- " + shownPath("a/", name));
        colored("\x1b[1m", "+++ " + shownPath("b/", name));
        for (auto first = changes.begin(); first != changes.end();) {
            auto last = first + 1;
            while (last != changes.end() && last->before - (last - 1)->beforeEnd <= 2 * kContext) ++last;
            writeHunk(first, last);
            first = last;
        }
        return std::move(patch_);
    }

private:
    using ChangeIterator = std::vector<Change>::const_iterator;

    void writeHunk(ChangeIterator first, ChangeIterator last) {
        const std::size_t lead = std::min(kContext, first->before);
        const std::size_t end = std::min((last - 1)->beforeEnd + kContext, before_.size());
        const std::size_t afterEnd = (last - 1)->afterEnd + (end - (last - 1)->beforeEnd);
        colored("\x1b[36m", "@@ -" + span(first->before - lead, end) + " +" +
                                span(first->after - lead, afterEnd) + " @@");
        std::size_t at = first->before - lead;
        for (auto change = first; change != last; ++change) {
            lines(' ', "", before_, at, change->before);
            lines('-', "\x1b[31m", before_, change->before, change->beforeEnd);
            lines('+', "\x1b[32m", after_, change->after, change->afterEnd);
            at = change->beforeEnd;
        }
        lines(' ', "", before_, at, end);
    }
    /// First line and count; an empty span is named by the line in front of it.
    static std::string span(std::size_t begin, std::size_t end) {
        const std::size_t count = end - begin;
        return std::to_string(count == 0 ? begin : begin + 1) +
               (count == 1 ? "" : ',' + std::to_string(count));
    }
    void lines(char mark, std::string_view color, const std::vector<Line>& from, std::size_t begin,
               std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            std::string_view text = from[i].text;
            const bool hasLineFeed = text.ends_with('\n');
            if (hasLineFeed) text.remove_suffix(1);
            colored(color, std::string(1, mark).append(text));
            if (!hasLineFeed) patch_ += "\\ No newline at end of file\n";
        }
    }
    void colored(std::string_view color, std::string_view text) {
        const bool colors = isColored_ && !color.empty();
        if (colors) patch_ += color;
        patch_ += text;
        if (colors) patch_ += "\x1b[0m";
        patch_ += '\n';
    }

    const std::vector<Line>& before_;
    const std::vector<Line>& after_;
    const bool isColored_;
    std::string patch_;
};

} // namespace

std::string unifiedDiff(std::string_view name, std::string_view before, std::string_view after,
                        bool isColored) {
    if (before == after) return {};
    const std::vector<Line> oldLines = linesOf(before);
    const std::vector<Line> newLines = linesOf(after);
    return PatchWriter(oldLines, newLines, isColored).write(name, Comparison(oldLines, newLines).changes());
}

} // namespace Cli
