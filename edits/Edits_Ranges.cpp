#include "edits/Edits_Ranges.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace Edits {

namespace {

std::string_view cut(std::string_view text, Range range) {
    return text.substr(range.begin, range.end - range.begin);
}

std::size_t countLineFeeds(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::size_t widthOf(std::string_view indent, std::size_t tabSize) {
    std::size_t column = 0;
    for (const char c : indent) column = c == '\t' ? (column / tabSize + 1) * tabSize : column + 1;
    return column;
}

/// The text behind the first `count` line feeds; empty if there are not as many.
std::string_view behindLines(std::string_view text, std::size_t count) {
    for (; count > 0; --count) {
        const std::size_t feed = text.find('\n');
        if (feed == std::string_view::npos) return {};
        text.remove_prefix(feed + 1);
    }
    return text;
}

/// The first `count` lines of `text` with their line feeds.
std::string_view firstLines(std::string_view text, std::size_t count) {
    return text.substr(0, text.size() - behindLines(text, count).size());
}

/// Knows which bytes may change. Asked from the front of the text to its end.
class Selection {
public:
    Selection(std::string_view text, const std::vector<Range>& ranges) : text_(text), ranges_(ranges) {}

    /// The part of `gap` that may change: its first stretch that lies within a range. It is empty where
    /// text stands, or may come to stand, without white space. Nothing if all of it has to stay.
    /// Requires: no call before was for a gap further on.
    std::optional<Range> selectedOf(Range gap) {
        while (next_ < ranges_.size() && ranges_[next_].end < gap.begin) ++next_;
        for (std::size_t i = next_; i < ranges_.size() && ranges_[i].begin <= gap.end; ++i) {
            const Range common{std::max(gap.begin, ranges_[i].begin), std::min(gap.end, ranges_[i].end)};
            if (common.begin < common.end || holds(ranges_[i], common.begin)) return common;
        }
        return std::nullopt;
    }

private:
    /// Between two characters, both have to be inside. The start of a line belongs to it.
    bool holds(const Range& range, std::size_t offset) const {
        const bool behindStart = range.begin < offset || startsLine(offset);
        const bool beforeEnd = offset < range.end || range.end == text_.size();
        return range.begin <= offset && behindStart && beforeEnd;
    }
    bool startsLine(std::size_t offset) const { return offset == 0 || text_[offset - 1] == '\n'; }

    const std::string_view text_;
    const std::vector<Range>& ranges_;
    std::size_t next_ = 0;
};

/// The indents of the lines around the place that is being written: where they stand in the result
/// of the whole, and where they come to stand now.
class EnclosingLines {
public:
    explicit EnclosingLines(std::size_t tabSize) : tabSize_(tabSize) {}

    /// The indent with which a line comes out that has `wanted` in the result of the whole.
    std::string indentFor(std::string_view wanted) {
        leaveTo(widthOf(wanted, tabSize_));
        if (open_.empty() || open_.back().wanted == open_.back().actual) return std::string(wanted);
        const Line& around = open_.back();
        if (wanted.starts_with(around.wanted)) return around.actual + std::string(wanted.substr(around.wanted.size()));
        const std::size_t further = widthOf(wanted, tabSize_) - widthOf(around.wanted, tabSize_);
        return around.actual + std::string(further, ' ');
    }
    /// From now on further lines are seen from this one.
    void enter(std::string_view wanted, std::string_view actual) {
        const std::size_t width = widthOf(wanted, tabSize_);
        leaveTo(width);
        open_.push_back({width, std::string(wanted), std::string(actual)});
    }

private:
    struct Line {
        std::size_t width;
        std::string wanted;
        std::string actual;
    };

    void leaveTo(std::size_t width) {
        while (!open_.empty() && open_.back().width >= width) open_.pop_back();
    }

    const std::size_t tabSize_;
    std::vector<Line> open_;
};

/// Directives, labels and code behind "//" stand to the left of the code around them and enclose nothing.
bool enclosesLines(std::string_view line) {
    if (line.empty() || line.front() == '#' || line.starts_with("//") || line.starts_with("/*")) return false;
    std::size_t end = 0;
    while (end < line.size() && (line[end] == '_' || std::isalnum(static_cast<unsigned char>(line[end])) != 0)) ++end;
    return !(end > 0 && line.substr(end, 1) == ":" && line.substr(end + 1, 1) != ":");
}

/// Walks over source and result at once, gap by gap.
class PartialLayout {
public:
    PartialLayout(std::string_view source, std::string_view result, const std::vector<Range>& ranges, int tabSize)
        : source_(source), result_(result), selection_(source, ranges),
          lines_(static_cast<std::size_t>(std::max(tabSize, 1))) {}

    std::string run() {
        text_.reserve(result_.size());
        std::size_t i = 0;
        std::size_t j = 0;
        while (true) {
            Gap gap{{i, i}, {j, j}};
            while (gap.source.end < source_.size() && isWhite(source_[gap.source.end])) ++gap.source.end;
            while (gap.result.end < result_.size() && isWhite(result_[gap.result.end])) ++gap.result.end;
            writeGap(gap);
            i = gap.source.end;
            j = gap.result.end;
            if (i == source_.size()) return std::move(text_);
            const std::size_t inkBegin = i;
            // One character at a time where a gap opens in only one of the two.
            do {
                ++i;
                ++j;
            } while (i < source_.size() && !isWhite(source_[i]) && (j >= result_.size() || !isWhite(result_[j])));
            text_.append(source_, inkBegin, i - inkBegin);
        }
    }

private:
    void writeGap(const Gap& gap) {
        const std::string_view before = cut(source_, gap.source);
        const std::string_view after = cut(result_, gap.result);
        const std::string text = textOf(gap, before, after);
        text_ += text;
        const bool startsLine = text_.size() == text.size() || text.find('\n') != std::string::npos;
        const bool startedLine = gap.result.begin == 0 || after.find('\n') != std::string_view::npos;
        if (!startsLine || !startedLine || gap.source.end == source_.size()) return;
        if (!enclosesLines(lineAt(gap.source.end))) return;
        lines_.enter(lastLine(after), lastLine(text));
    }
    std::string textOf(const Gap& gap, std::string_view before, std::string_view after) {
        const auto selected = selection_.selectedOf(gap.source);
        if (!selected) return std::string(before);
        if (*selected == gap.source) return reindented(after, gap.result.begin == 0);
        const std::string_view head = cut(source_, {gap.source.begin, selected->begin});
        const std::string_view middle = cut(source_, *selected);
        const std::string_view tail = cut(source_, {selected->end, gap.source.end});
        const bool startsWithLine = head.empty() || head.ends_with('\n');
        const bool endsWithLine = tail.empty() || middle.ends_with('\n');
        const std::size_t wanted = countLineFeeds(after);
        const std::size_t kept = countLineFeeds(head) + countLineFeeds(tail);
        if (!startsWithLine || !endsWithLine || wanted == 0) return std::string(before);
        std::string text(head);
        if (tail.empty()) {
            text += reindented(behindLines(after, std::min(wanted, kept)), true);
        } else {
            const std::size_t least = head.empty() ? 1 : 0;
            const std::size_t lines = wanted > kept ? std::max(wanted - kept, least) : least;
            text += head.empty() ? std::string(firstLines(after, lines)) : std::string(lines, '\n');
        }
        return text.append(tail);
    }
    /// `gap` as it stands in the result of the whole, with the indent that its last line gets here.
    std::string reindented(std::string_view gap, bool atLineStart) {
        if (!atLineStart && gap.find('\n') == std::string_view::npos) return std::string(gap);
        const std::string_view indent = lastLine(gap);
        return std::string(gap.substr(0, gap.size() - indent.size())) + lines_.indentFor(indent);
    }
    static std::string_view lastLine(std::string_view gap) {
        const std::size_t feed = gap.rfind('\n');
        return feed == std::string_view::npos ? gap : gap.substr(feed + 1);
    }
    std::string_view lineAt(std::size_t offset) const {
        return source_.substr(offset, std::min(source_.find('\n', offset), source_.size()) - offset);
    }

    const std::string_view source_;
    const std::string_view result_;
    Selection selection_;
    EnclosingLines lines_;
    std::string text_;
};

} // namespace

std::vector<Range> bytesOf(std::string_view text, const std::vector<LineRange>& lines) {
    std::vector<std::size_t> starts{0};
    for (std::size_t feed = text.find('\n'); feed != std::string_view::npos; feed = text.find('\n', feed + 1)) {
        starts.push_back(feed + 1);
    }
    const auto startOf = [&](std::size_t line) { return line <= starts.size() ? starts[line - 1] : text.size(); };
    std::vector<Range> ranges;
    for (const LineRange& range : lines) {
        if (range.first < 1 || range.last < range.first) continue;
        ranges.push_back({startOf(range.first), range.last < starts.size() ? startOf(range.last + 1) : text.size()});
    }
    return merged(std::move(ranges));
}

std::vector<Range> merged(std::vector<Range> ranges) {
    std::erase_if(ranges, [](const Range& range) { return range.begin >= range.end; });
    std::sort(ranges.begin(), ranges.end(), [](const Range& a, const Range& b) { return a.begin < b.begin; });
    std::vector<Range> joined;
    for (const Range& range : ranges) {
        if (!joined.empty() && range.begin <= joined.back().end) {
            joined.back().end = std::max(joined.back().end, range.end);
        } else {
            joined.push_back(range);
        }
    }
    return joined;
}

std::string layOutWithin(std::string_view source, std::string_view result, const std::vector<Range>& ranges,
                         int tabSize) {
    const std::vector<Range> selected = merged(ranges);
    if (selected.empty()) return std::string(source);
    if (selected.front() == Range{0, source.size()}) return std::string(result);
    return PartialLayout(source, result, selected, tabSize).run();
}

} // namespace Edits
