#include "ui/NorvaneUI_Preview.h"

#include "src/Norvane_FormatDriver.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <algorithm>
#include <exception>
#include <sstream>

namespace NorvaneUI {

namespace {

class StopIfOutdated : public Norvane::UpdateFunctor {
public:
    StopIfOutdated(std::uint64_t generation, const std::atomic<std::uint64_t>* newest)
        : generation_(generation), newest_(newest) {}

    bool operator()(const std::string&) override {
        return newest_ == nullptr || newest_->load() <= generation_;
    }

private:
    std::uint64_t generation_;
    const std::atomic<std::uint64_t>* newest_;
};

std::string shownMessage(const Trn::Message& message) {
    const Trn::Position place = message.position;
    if (place.line == 0) return message.text;
    const std::string line = std::to_string(place.line);
    return "Line " + line + ", column " + std::to_string(place.column) + ": " + message.text;
}

void format(const PreviewJob& job, Norvane::UpdateFunctor& update, PreviewResult& result) {
    const Norvane::FormatOptions options(job.scheme, Norvane::defaultFormatMarkers());
    std::istringstream in(job.text);
    std::ostringstream out;
    Trn::MessageList messages;
    // As in an editor, where the rest of a text is of use while a line of it is being typed.
    Norvane::FormatDriver driver(Norvane::FormatDriver::Unreadable::LeaveAlone);
    result.formatted = driver.format(options, in, out, messages, update) == 0;
    if (result.formatted) result.text = std::move(out).str();
    for (const Trn::Message& message : messages) result.messages.push_back(shownMessage(message));
}

bool isSpace(char c) { return std::string_view("\t\n\v\f\r ").find(c) != std::string_view::npos; }

/// Goes through a text from one stretch of white space to the next, and counts lines on the way.
class GapWalk {
public:
    explicit GapWalk(std::string_view text) : text_(text) {}

    /// The white space at this place, possibly none.
    std::string_view gap() const {
        std::size_t end = place_;
        while (end < text_.size() && isSpace(text_[end])) ++end;
        return text_.substr(place_, end - place_);
    }
    bool isAtEnd() const { return place_ == text_.size(); }
    char character() const { return text_[place_]; }
    std::size_t line() const { return line_; }
    void skip(std::size_t count) {
        for (; count > 0; --count) {
            if (text_[place_++] == '\n') ++line_;
        }
    }

private:
    std::string_view text_;
    std::size_t place_ = 0;
    std::size_t line_ = 0;
};

void addLines(std::vector<std::size_t>& lines, std::size_t first, std::size_t last) {
    if (!lines.empty()) first = std::max(first, lines.back() + 1);
    for (; first <= last; ++first) lines.push_back(first);
}

/// Moves both walks behind the gap that they are at, and adds the lines where the two gaps differ.
void compareGaps(GapWalk& before, GapWalk& after, std::vector<std::size_t>& lines) {
    const std::string_view old = before.gap();
    const std::string_view now = after.gap();
    const auto differs = std::mismatch(old.begin(), old.end(), now.begin(), now.end()).second;
    const auto common = static_cast<std::size_t>(differs - now.begin());
    before.skip(old.size());
    after.skip(common);
    const std::size_t first = after.line();
    after.skip(now.size() - common);
    if (old != now) addLines(lines, first, after.line());
}

} // namespace

PreviewResult runPreview(const PreviewJob& job, const std::atomic<std::uint64_t>* newest) {
    PreviewResult result{job.generation, job.text, false, {}};
    StopIfOutdated update(job.generation, newest);
    try {
        format(job, update, result);
    } catch (const std::exception& fault) {
        result.messages.push_back(fault.what());
    } catch (...) {
        result.messages.push_back("Unknown");
    }
    return result;
}

std::vector<std::size_t> touchedLines(std::string_view before, std::string_view after) {
    std::vector<std::size_t> lines;
    GapWalk old(before);
    GapWalk now(after);
    for (;;) {
        compareGaps(old, now, lines);
        if (old.isAtEnd() || now.isAtEnd()) break;
        if (old.character() != now.character()) return {};
        old.skip(1);
        now.skip(1);
    }
    if (!old.isAtEnd() || !now.isAtEnd()) return {};
    return lines;
}

std::string withVisibleWhiteSpace(std::string_view text) {
    std::string shown;
    for (const char c : text) {
        if (c == ' ') shown += "\u00b7";
        else if (c == '\t') shown += "\u2192\t";
        else if (c == '\n') shown += "\u00b6\n";
        else shown += c;
    }
    return shown;
}

} // namespace NorvaneUI
