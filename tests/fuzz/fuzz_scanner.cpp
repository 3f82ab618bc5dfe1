#include "cpp/Cpp_Scanner.h"
#include "guard/Guard_Reader.h"
#include "tests/fuzz/Fuzz_Input.h"
#include "tests/fuzz/Fuzz_Report.h"
#include "tests/fuzz/Fuzz_Soundness.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Guard::Item;
using Guard::Kind;

std::string_view spelling(std::string_view text, const Item& item) { return text.substr(item.begin, item.end - item.begin); }

/// Reads a text with both, the engine's scanner and the reader of the guard.
class Comparison {
public:
    explicit Comparison(std::string_view text)
        : text_(text), isInside_(text.size() + 1), inDirective_(text.size() + 1), isCovered_(text.size() + 1) {
        Guard::Reader reader(text);
        Item item;
        for (reader.next(item); item.kind != Kind::end; reader.next(item)) items_.push_back(item);
        Cpp::scanAll(text, tokens_);
    }

    void check() {
        markItems();
        for (const Cpp::RawToken& token : tokens_) checkToken(token);
        for (const Item& item : items_) {
            const bool leavesNoToken = item.kind == Kind::splice || item.kind == Kind::directiveEnd;
            Fuzz::require(leavesNoToken || isCovered_[item.begin], "the scanner leaves a token out", where(item.begin));
        }
    }

private:
    void markItems() {
        std::size_t directive = text_.size();
        for (const Item& item : items_) {
            std::fill(isInside_.begin() + offset(item.begin + 1), isInside_.begin() + offset(std::max(item.end, item.begin + 1)), true);
            if (item.kind == Kind::literal) openEdges(item);
            if (isSplitByScanner(item)) std::fill(isInside_.begin() + offset(item.begin), isInside_.begin() + offset(item.end), false);
            if (item.kind == Kind::directive) directive = item.begin;
            if (item.kind == Kind::directiveEnd) {
                std::fill(inDirective_.begin() + offset(directive), inDirective_.begin() + offset(item.begin), true);
            }
        }
    }

    // To the parser these are operators one behind the other.
    bool isSplitByScanner(const Item& item) const {
        const std::string_view token = spelling(text_, item);
        return token == "..." || token == "<=>";
    }

    // The scanner reads a prefix and a suffix as words.
    void openEdges(const Item& item) {
        const std::string_view token = spelling(text_, item);
        isInside_[item.begin + token.find_first_of("\"'<")] = false;
        isInside_[item.begin + token.find_last_of("\"'>") + 1] = false;
    }

    void checkToken(const Cpp::RawToken& token) {
        if (token.begin == token.end) return;
        Fuzz::require(!isInside_[token.begin], "a token of the scanner begins inside one", where(token.begin));
        Fuzz::require(!isInside_[token.end], "a token of the scanner ends inside one", where(token.end));
        const bool isDirective = token.type == Cpp::tkDirective;
        const bool isComment = token.type == Cpp::tkBlockComment || token.type == Cpp::tkLineComment;
        Fuzz::require(isComment || isDirective == inDirective_[token.begin], "only one reads a directive", where(token.begin));
        for (std::size_t at = token.begin; at < token.end; ++at) {
            const bool leavesDirective = isDirective && !inDirective_[at] && text_[at] != '\n';
            Fuzz::require(!leavesDirective, "a directive of the scanner goes on", where(at));
            isCovered_[at] = true;
        }
    }

    static std::ptrdiff_t offset(std::size_t value) { return static_cast<std::ptrdiff_t>(value); }

    std::string where(std::size_t place) const {
        return std::string(text_.substr(0, place)) + "<HERE>" + std::string(text_.substr(place));
    }

    std::string_view text_;
    std::vector<Item> items_;
    std::vector<Cpp::RawToken> tokens_;
    // Of each byte of the text: in front of it an item goes on; a directive holds it; the scanner has read it.
    std::vector<bool> isInside_;
    std::vector<bool> inDirective_;
    std::vector<bool> isCovered_;
};

} // namespace

// The scanner of the engine and the reader of the guard know nothing of each other: where they do not
// agree on a text that a compiler takes, one of them is wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = Fuzz::textOf(data, size);
    Comparison comparison(text);
    if (Fuzz::isSound(text)) comparison.check();
    return 0;
}
