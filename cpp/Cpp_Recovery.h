#ifndef KERFLINE_CPP_RECOVERY_H
#define KERFLINE_CPP_RECOVERY_H

#include "cpp/Cpp_TokenTable.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Message.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace Cpp {

/// Decides how much of a text is left alone where a construct cannot be read, and keeps what was said
/// of it, as warnings.
///
///     int a;  x = = [ 3 ; int b;        the stretch reaches from "x" through the first ";"
///     void f() {  g( }  h();            from "void" through the "}" of the body
///
/// A stretch is a whole item of a body: a statement, or a declaration with all that it holds. Behind a
/// brace that nothing closes it ends where a line starts no further right than the item does, or with the
/// body around it. All stretches together are found in time linear in the text: when the parser has read
/// too much of it twice, the rest of the text is one stretch.
class Recovery {
public:
    using Index = TokenTable::Index;

    /// `table` is one of `source`. Both outlive this.
    Recovery(const Zelmar::SourceText& source, const TokenTable& table) : source_(source), t_(table) {}

    /// Leaves the item alone that starts at `first`, and returns the first token behind it. `failedAt` is
    /// the last token of it that a message is about, `reached` the first one that nothing has looked at.
    /// The messages behind the first `known` ones of `messages` become warnings of this object. A place
    /// outside of the item is that of its start.
    Index leaveAlone(Index first, Index failedAt, Index reached, Trn::MessageList& messages, std::size_t known);

    /// How many tokens all stretches hold: the fewer, the better the text was read.
    std::size_t tokensLeftAlone() const { return tokensLeftAlone_; }
    Trn::MessageList& warnings() { return warnings_; }

private:
    static constexpr Index kNone = TokenTable::kNone;

    struct Item {
        Index first = 0;
        bool endsInSemicolon = false; // names may follow its braces: a class, or a value that is assigned
    };

    Index next(Index i) const { return i < t_.size() ? t_.significant(i + 1) : t_.size(); }
    static bool isBracket(int type);
    bool endsBody(Index i, Index first) const;
    bool continuesBehindBrace(Index close, const Item& item) const;
    bool continuesBehindSemicolon(Index semicolon) const;
    Index findEnd(Index first, Index failedAt) const;
    Index findLineBehind(Index brace, Index first) const;
    void take(Trn::MessageList& messages, std::size_t known, Index first, Index end);

    const Zelmar::SourceText& source_;
    const TokenTable& t_;
    Trn::MessageList warnings_;
    std::size_t tokensLeftAlone_ = 0;
    // Tokens that were read a second time, since they lie behind a stretch.
    std::size_t readTwice_ = 0;
};

/// Some brace is not closed, or closes nothing.
bool hasUnevenBraces(std::span<const ParseToken> tokens);

/// Marks the braces that nothing closes, told from how the lines are indented, if `tokens` hold more of
/// them than are closed. By their order alone it would always be the first ones of a text.
void markUnclosedBraces(const Zelmar::SourceText& source, std::vector<ParseToken>& tokens);

/// Makes one region of each Objective-C declaration: from "@interface" and the like through "@end", from
/// "@class" through its ";". Returns the index of each in `tokens`.
std::vector<std::size_t> foldObjectiveC(std::string_view source, std::vector<ParseToken>& tokens);

/// Makes tokens that cannot be read of the strings that their lines do not close, each with the rest of its
/// line, and of a raw one with the rest of the text: what looks like code there may be none.
void foldUnclosedStrings(const Zelmar::SourceText& source, std::vector<ParseToken>& tokens);

} // namespace Cpp

#endif
