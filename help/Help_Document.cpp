#include "help/Help_Document.h"

#include <algorithm>

namespace Help {

namespace {

/// Cuts what is marked off the front of `rest`. Leaves `rest` alone if no mark is closed there.
bool takeMarked(std::string_view& rest, Piece& piece) {
    constexpr std::string_view kTurn = "](";
    if (rest.front() == '`') {
        const std::size_t end = rest.find('`', 1);
        if (end == std::string_view::npos) return false;
        piece = {Piece::Kind::code, rest.substr(1, end - 1), {}};
        rest.remove_prefix(end + 1);
        return true;
    }
    const std::size_t turn = rest.find(kTurn);
    const std::size_t end = turn == std::string_view::npos ? turn : rest.find(')', turn);
    if (end == std::string_view::npos) return false;
    const std::size_t target = turn + kTurn.size();
    piece = {Piece::Kind::link, rest.substr(1, turn - 1), rest.substr(target, end - target)};
    rest.remove_prefix(end + 1);
    return true;
}

} // namespace

std::vector<Piece> inlinePieces(std::string_view text) {
    std::vector<Piece> pieces;
    while (!text.empty()) {
        Piece piece{Piece::Kind::text, {}, {}};
        const bool atMark = text.front() == '`' || text.front() == '[';
        if (!atMark || !takeMarked(text, piece)) {
            const std::size_t end = text.find_first_of("`[", 1);
            piece.text = text.substr(0, end);
            text.remove_prefix(piece.text.size());
        }
        pieces.push_back(piece);
    }
    return pieces;
}

std::string inOneLine(std::string_view lines) {
    std::string joined;
    for (std::size_t start = 0; start < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', start), lines.size());
        if (start != 0) joined += ", ";
        joined += lines.substr(start, end - start);
        start = end + 1;
    }
    return joined;
}

std::string withoutMarks(std::string_view text) {
    std::string plain;
    for (const Piece& piece : inlinePieces(text)) {
        plain += piece.kind == Piece::Kind::link ? withoutMarks(piece.text) : std::string(piece.text);
    }
    return plain;
}

} // namespace Help
