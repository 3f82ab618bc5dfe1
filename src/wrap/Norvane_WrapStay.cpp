#include "src/wrap/Norvane_WrapStay.h"

#include "cpp/Cpp_Scanner.h"
#include "src/wrap/Norvane_WrapText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace Norvane {

namespace {

/// Finds the gaps of a text that has the tokens of another one, without a scan of its own.
class GapFinder {
public:
    explicit GapFinder(std::string_view text) : text_(text) {}

    /// Steps over the gap, which is what it returns, and `token` behind it; false if something else
    /// stands there, such as a comment whose lines have moved.
    bool pass(std::string_view token, std::string_view& gap) {
        const std::size_t begin = at_;
        while (at_ < text_.size() && Cpp::isSpace(text_[at_])) ++at_;
        gap = text_.substr(begin, at_ - begin);
        if (text_.compare(at_, token.size(), token) != 0) return false;
        at_ += token.size();
        return true;
    }
    bool isAtEnd() const { return at_ == text_.size(); }

private:
    std::string_view text_;
    std::size_t at_ = 0;
};

/// The same where each text has to be scanned.
class ScannedGaps {
public:
    explicit ScannedGaps(std::string_view text) : text_(text, WrapText::Brackets::kUnmatched) {}

    bool pass(std::string_view, std::string_view& gap) {
        if (at_ > text_.size()) return false;
        gap = text_.gap(at_++);
        return true;
    }
    bool isAtEnd() const { return at_ == text_.size() + 1; }

private:
    WrapText text_;
    std::size_t at_ = 0;
};

/// None if the texts do not hold the same tokens, as far as `Gaps` can tell.
template <class Gaps>
std::optional<std::string> withStayingBreaks(const WrapText& before, Gaps broken, Gaps after, std::size_t size) {
    std::string result;
    result.reserve(size);
    bool endsLine = false;
    for (std::size_t i = 0; i <= before.size(); ++i) {
        const std::string_view token = before.token(i);
        std::string_view brokenGap;
        std::string_view afterGap;
        if (!broken.pass(token, brokenGap) || !after.pass(token, afterGap)) return std::nullopt;
        const bool startsLine = endsLine || afterGap.find('\n') != std::string_view::npos;
        const bool stays = startsLine && brokenGap != before.gap(i);
        result += stays ? afterGap : before.gap(i);
        result += token;
        endsLine = token.ends_with('\n');
    }
    if (!broken.isAtEnd() || !after.isAtEnd()) return std::nullopt;
    return result;
}

} // namespace

std::string keepStayingBreaks(const std::string& text, const std::string& wrapped, const std::string& again) {
    const WrapText before(text, WrapText::Brackets::kUnmatched);
    const std::size_t size = std::max(text.size(), again.size());
    auto result = withStayingBreaks(before, GapFinder(wrapped), GapFinder(again), size);
    if (!result) result = withStayingBreaks(before, ScannedGaps(wrapped), ScannedGaps(again), size);
    return result ? std::move(*result) : text;
}

std::optional<std::string> indentOfFirstBreak(const std::string& text, const std::string& broken) {
    const auto inBroken = std::mismatch(text.begin(), text.end(), broken.begin(), broken.end()).second;
    const auto isIndent = [](char c) { return c == ' ' || c == '\t'; };
    const auto feed = std::find(inBroken, broken.end(), '\n');
    if (feed == broken.end()) return std::nullopt;
    return std::string(feed + 1, std::find_if_not(feed + 1, broken.end(), isIndent));
}

} // namespace Norvane
