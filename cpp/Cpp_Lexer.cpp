#include "cpp/Cpp_Lexer.h"

namespace Cpp {

namespace {

// A name in front of a "::operator" is not the name of anything, so it has no value. No other name
// is directly followed by "::", but one that itself ends in it.
bool isSplitOff(const std::string& name, std::string_view behind) {
    return name.empty() || (name.back() != ':' && behind.substr(0, 2) == "::");
}

// The last character goes even if it is no quote: a string that the end of the text cuts short is
// not told from others.
std::string_view withoutEnds(std::string_view literal) {
    return literal.size() < 2 ? std::string_view() : literal.substr(1, literal.size() - 2);
}

} // namespace

Trn::Token Lexer::nextToken() {
    source();
    RawToken raw;
    return scanner_->next(raw) ? makeToken(raw) : Trn::Token();
}

std::ostream& Lexer::print(std::ostream& out) const {
    const std::uint32_t line = scanner_ ? scanner_->line() : 1;
    const std::size_t column = scanner_ ? scanner_->offset() - source_->lineStart(line) : 0;
    // As finished texts, since numbers written to a stream are grouped as its locale wants.
    return out << "line:\t" << std::to_string(line) << "\tcol:\t" << std::to_string(column)
               << "\tlastlinecol:\t" << std::to_string(columnBeforeLast()) << '\n';
}

const std::shared_ptr<const Zelmar::SourceText>& Lexer::sharedSource() {
    if (!source_) {
        source_ = std::make_shared<const Zelmar::SourceText>(Zelmar::readAll(*stream_));
        scanner_.emplace(source_->text(), Scanner::LineComments::byLine);
    }
    return source_;
}

std::string Lexer::unescape(std::string_view text) {
    static constexpr std::string_view kNames = "\\nrtv";
    static constexpr std::string_view kMeanings = "\\\n\r\t\v";
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result.push_back(text[i]);
        } else if (++i < text.size()) {
            const std::size_t known = kNames.find(text[i]);
            result.push_back(known == std::string_view::npos ? text[i] : kMeanings[known]);
        }
    }
    return result;
}

Trn::Token Lexer::makeToken(const RawToken& raw) const {
    const std::string text = spelling(source_->text(), raw);
    const Trn::Position start = startOf(*source_, raw);
    const Trn::Position end = endOf(*source_, raw);
    switch (raw.type) {
    case tkIdentifier:
        if (isSplitOff(text, source_->text().substr(raw.end))) break;
        return {raw.type, start, end, text, text};
    case tkStringLiteral: return {raw.type, start, end, text, unescape(withoutEnds(text))};
    case tkCharLiteral: return {raw.type, start, end, text, unescape(withoutEnds(text)).front()};
    default: break;
    }
    return {raw.type, start, end, text};
}

int Lexer::columnBeforeLast() const {
    if (!scanner_ || scanner_->offset() == 0) return -1;
    const std::size_t last = scanner_->offset() - 1;
    const Trn::Position place = source_->positionOf(last);
    const std::uint32_t line = place.column == 0 ? place.line - 1 : place.line;
    return static_cast<int>(last - source_->lineStart(line));
}

} // namespace Cpp
