#ifndef KERFLINE_NORVANE_WRAPLAYOUT_H
#define KERFLINE_NORVANE_WRAPLAYOUT_H

#include "src/wrap/Norvane_WrapIndexSet.h"
#include "src/wrap/Norvane_WrapText.h"
#include "streams/Zelmar_IndentWriter.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Norvane {

/// Where the tokens of a text stand while breaks are put into it, line by line.
///
/// A break takes the place of the white space in front of a token; everything else stays as it is in
/// the text. So a break moves what follows on its own line and nothing else: a later line keeps the
/// column that it has. Widths are sums over the tokens, so asking for a column or setting a break
/// takes the same few steps in a text of ten tokens and in one of a hundred thousand.
///
/// The text stands at the column of `state`, in front of which something may stand already. Behind
/// it comes `follower`, what is stuck to it and can't go to another line, such as ");". Columns count
/// from 0; tabs run to the tab stops of `state`. The text must outlive the layout.
class WrapLayout {
public:
    WrapLayout(std::string_view text, const Zelmar::IndentStreamState& state, int rightMargin,
               std::string_view follower);

    const WrapText& text() const { return text_; }
    const Zelmar::IndentStreamState& state() const { return state_; }

    /// The column at which a token stands now.
    int column(std::size_t index) const;
    /// The column behind a token, or behind its first line if it has several.
    int endColumn(std::size_t index) const;
    /// The column at which the line of a token ends.
    int lineEndColumn(std::size_t index) const { return endColumn(lineEnd(lineStart(index)) - 1); }
    /// The number of tokens on the line of a token, behind it and what is stuck to it.
    std::size_t countLooseBehind(std::size_t index) const;
    /// The white space of a token's width up to the next one, if they share a line; the token's own
    /// width otherwise. What hangs in front of a column when `index` starts the line.
    int leadWidth(std::size_t index) const;

    /// How far the last line of a range counts when it is measured.
    enum class Tail {
        kStuck, // up to and with the close bracket behind the range and what is stuck to that
        kLine   // all of it: what follows is known to have no place to break any more
    };
    void setTail(Tail tail) { tail_ = tail; }

    /// True if some line on which tokens of the range stand is beyond the margin.
    bool isOver(const WrapRange& range) const { return isOver(range, tailBehind(range.end)); }
    /// The same with the last line counted up to the token `tail`, exclusive.
    bool isOver(const WrapRange& range, std::size_t tail) const;
    /// The range with nothing behind it.
    bool isOverAlone(const WrapRange& range) const { return isOver(range, range.end); }

    /// Starts a new line with `indent` in front of a token. Does nothing where no line may end: in
    /// front of the first token, of a directive and of what shares the line of a directive.
    void breakBefore(std::size_t index, std::string_view indent);

    /// True if nothing but white space stands in front of a token on its line.
    bool startsLine(std::size_t index) const { return index > 0 && lineStarts_.contains(index); }

    /// The text with its breaks.
    std::string result() const;

private:
    struct Place {
        int offset = 0;      // of the token on an endless line, with the text's own white space
        int width = 0;       // of its first line
        int startColumn = 0; // if it starts a line
        bool innerOver = false; // has a line beyond the margin between its first and its last
        std::uint32_t indent = kNoBreak;
        std::size_t tailEnd = 0; // behind the tokens that are stuck to each other from this one on
    };
    static constexpr std::uint32_t kNoBreak = static_cast<std::uint32_t>(-1);

    void placeTokens();
    void startLines();
    bool startsLineInText(std::size_t index) const;
    int sourceColumn(std::size_t index) const;
    void measureLine(std::size_t start);
    std::size_t lineStart(std::size_t index) const { return lineStarts_.previous(index); }
    std::size_t lineEnd(std::size_t start) const;
    int advance(std::size_t from, int column, std::size_t to) const;
    std::string_view lineOf(std::size_t index) const;
    int widthAt(std::size_t index, int column) const;
    int trailingBlanks(std::size_t nextStart) const;
    bool innerLinesOver(std::string_view token) const;
    bool mayBreakBefore(std::size_t index) const;
    std::size_t tailOf(std::size_t end) const;
    std::size_t tailBehind(std::size_t end) const;
    bool isStuck(std::size_t index) const;
    int spanWidth(std::string_view span, int column) const;
    int columnBehind(std::string_view text) const;
    std::size_t headOfCode(std::size_t open) const;
    int shiftOfCode(std::size_t open) const;
    void addGap(std::size_t index, int shift, std::string& result) const;
    void addToken(std::size_t index, std::string& result) const;
    void addMovedLine(std::string_view line, int from, int to, std::string& result) const;

    WrapText text_;
    Zelmar::IndentStreamState state_;
    int rightMargin_;
    Tail tail_ = Tail::kStuck;
    std::string_view follower_;
    std::vector<Place> places_; // one for the end of the text, too
    WrapIndexSet elastic_;      // tokens with a tab in them or in the gap in front
    WrapIndexSet lineStarts_;
    WrapIndexSet overLines_; // by the token that starts the line
    std::vector<std::string> indents_;
};

} // namespace Norvane

#endif
