#ifndef KERFLINE_NORVANE_EXPRTOKENS_H
#define KERFLINE_NORVANE_EXPRTOKENS_H

#include "cpp/Cpp_Scanner.h"
#include "cpp/Cpp_Tokens.h"
#include "src/expr/Norvane_ExprCode.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Norvane {

/// How many brackets of each family have been opened and not closed. Closing what was not opened
/// counts below zero, and angle brackets count whether they are brackets or comparisons.
struct BracketDepths {
    int paren = 0;
    int brace = 0;
    int square = 0;
    int angle = 0;

    bool operator==(const BracketDepths&) const = default;
    /// Takes a token of `kind` into account; returns false if it is no bracket.
    bool count(int kind);
};

/// Keywords that stand in a type: "const", "unsigned", "int".
bool isTypeKeyword(int kind);
/// Those of them that a type can end in; a "*" behind one is never a multiplication.
bool endsType(int kind);

/// The tokens of one piece of text, with the bracket that closes each bracket. Made to be filled
/// again and again: it keeps its memory. The text must outlive its use.
///
/// Each family of brackets is matched by itself, as if the others did not exist. A "<" is matched
/// by counting "<" and ">" behind it; the token behind "&&" or "||" is not counted, so that
/// `a < b && c > d` closes while `a < b && > d` does not. A ">>" closes two of them where all
/// between can only be the arguments of templates.
class ExprTokens {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// `code`, which may be null, tells which braces are not looked into: of these there are but the
    /// two tokens, with all that they hold as the gap between them.
    void assign(std::string_view text, const ExprCode* code = nullptr);

    std::string_view text() const { return text_; }
    std::size_t size() const { return tokens_.size(); }
    /// What a token stands for: its type, but tkIdentifier for each part of an operator's name
    /// ("operator", "<") and of a "<<<" with its ">>>", tkGreater for a ">>" that closes template
    /// arguments, and tkLessEqual for both tokens of a "<=>".
    int kind(std::size_t index) const { return kinds_[index]; }
    std::size_t begin(std::size_t index) const { return tokens_[index].begin; }
    std::size_t end(std::size_t index) const { return tokens_[index].end; }
    /// Offset of the first character that belongs to the gap in front of the token; for size(), the
    /// gap behind the last one.
    std::size_t gapBegin(std::size_t index) const { return index == 0 ? 0 : end(index - 1); }
    std::size_t gapEnd(std::size_t index) const { return index < size() ? begin(index) : text_.size(); }
    std::string_view token(std::size_t index) const {
        return text_.substr(begin(index), end(index) - begin(index));
    }
    std::string_view gap(std::size_t index) const {
        return text_.substr(gapBegin(index), gapEnd(index) - gapBegin(index));
    }
    /// The token that closes the one at `index`, kNone if nothing does or if it opens nothing.
    std::size_t mate(std::size_t index) const { return mates_[index]; }
    /// The line feed is the token's own, as that of a line comment or a directive, or it alone ends
    /// a literal that is not closed.
    bool endsLine(std::size_t index) const;
    /// The token spans lines.
    bool spansLines(std::size_t index) const { return token(index).find('\n') + 1 < token(index).size(); }
    /// The token opens braces that are not looked into.
    bool opensCode(std::size_t index) const;
    /// The token opens braces that hold statements, whether these are looked into or not; the second:
    /// those of a closure or of "requires".
    bool opensStatements(std::size_t index) const { return isAmong(codeBraces_, index); }
    bool opensClosure(std::size_t index) const { return isAmong(closureBraces_, index); }
    /// The token is the "[" of a closure.
    bool startsClosure(std::size_t index) const { return isAmong(closureHeads_, index); }
    /// Where code begins, and where what it belongs to begins, in the order of the text.
    struct CodePlace {
        std::size_t offset = 0;
        std::size_t number = 0;
        std::size_t end = 0; // 0 at the place of the head
    };
    const std::vector<CodePlace>& codePlaces() const { return codePlaces_; }
    /// The token is the ">" of a "<=>".
    bool endsSpaceship(std::size_t index) const;
    /// Literals, block comments and joined words that hold a line feed, in order.
    const std::vector<std::size_t>& multiLineTokens() const { return multiLineTokens_; }

private:
    struct OpenAngle {
        std::size_t index;
        int target; // the count that closes it
    };

    void scan(const ExprCode* code);
    bool takeCode(const Cpp::RawToken& brace, const ExprCode& code);
    bool isAmong(const std::vector<std::size_t>& offsets, std::size_t index) const;
    void classify();
    bool maySpanLines(std::size_t index) const;
    void classifyAngle(std::size_t index);
    void nameLaunch(std::size_t index);
    void trimName(Cpp::RawToken& token) const;
    void nameOperator(std::size_t index);
    void match();
    void matchAngles();
    void closeAngles(std::size_t index, int depth);
    bool closesTwo(std::size_t index) const;

    std::string_view text_;
    std::vector<Cpp::RawToken> tokens_;
    std::vector<std::uint8_t> kinds_;
    std::vector<std::size_t> mates_;
    std::vector<std::size_t> multiLineTokens_;
    std::vector<CodePlace> codePlaces_;
    // Offsets, in order.
    std::vector<std::size_t> codeBraces_;
    std::vector<std::size_t> closureBraces_;
    std::vector<std::size_t> closureHeads_;
    // Only used while the mates are found; kept for their memory.
    std::vector<std::size_t> openParens_;
    std::vector<std::size_t> openBraces_;
    std::vector<std::size_t> openBrackets_;
    std::vector<OpenAngle> openAngles_;
    // Behind the last token that cannot stand between template arguments.
    std::size_t foreignEnd_ = 0;
    bool hasAngles_ = false;
    bool launches_ = false; // behind a "<<<"
};

} // namespace Norvane

#endif
