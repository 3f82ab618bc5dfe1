#include "src/wrap/Norvane_CppLineWrapper.h"

#include "cpp/Cpp_Tokens.h"
#include "src/wrap/Norvane_CppLineWrapper_Scope.h"
#include "src/wrap/Norvane_WrapStay.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <utility>

namespace Norvane {

namespace {

std::string_view firstLine(std::string_view text) {
    return text.substr(0, text.find('\n'));
}

/// `line` has no line feed. Only a line with tabs is wider than it is long.
bool isBeyond(std::string_view line, int margin, int tabSize) {
    const bool mayBe = line.size() > static_cast<std::size_t>(margin) || line.find('\t') != std::string_view::npos;
    return mayBe && Zelmar::textColumn(line, 0, tabSize) > margin;
}

} // namespace

CppLineWrapper::CppLineWrapper(std::shared_ptr<const Zelmar::SourceText> formatted, SharedOptions options)
    : options_(std::move(options)), sharedSource_(std::move(formatted)), source_(*sharedSource_), reader_(source_),
      exprFormatter_(options_), exprWrapper_(options_) {
    if (rules().isOn) findOverLines();
    output_.setTabSize(options_->tabSize);
    output_.reserve(source_.size() + source_.size() / 16);
}

bool CppLineWrapper::leavesAsItIs(const LayoutOptions& options, std::string_view text) {
    if (!options.wrap.isOn) return true;
    while (!text.empty()) {
        const std::string_view line = firstLine(text);
        if (isBeyond(line, options.rightMargin, options.tabSize)) return false;
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return true;
}

void CppLineWrapper::findOverLines() {
    std::string_view rest = source_.text();
    for (std::uint32_t line = 1; !rest.empty(); ++line) {
        const std::string_view text = firstLine(rest);
        if (isBeyond(text, rules().rightMargin, options_->tabSize)) overLines_.push_back(line);
        rest.remove_prefix(std::min(text.size() + 1, rest.size()));
    }
}

bool CppLineWrapper::overMargin(const Cpp::SyntaxNode& node) const {
    const Trn::Position start = node.start();
    const Trn::Position end = node.end();
    if (start.line == 0 || end.line == 0 || end < start) return false;
    const std::uint32_t lastLine = end.column == 0 ? end.line - 1 : end.line;
    const auto over = std::lower_bound(overLines_.begin(), overLines_.end(), start.line);
    return over != overLines_.end() && *over <= lastLine;
}

int CppLineWrapper::copyUpToStart(const Cpp::SyntaxNode& node) {
    copyUpTo(node.start());
    return output_.column();
}

// Close brackets and the punctuation behind them have no place on a line of their own.
std::string_view CppLineWrapper::stuckPart(std::string_view text) {
    const std::string_view stuck = text.substr(0, text.find_first_not_of(")]};,{ \t"));
    return stuck.substr(0, stuck.find_last_not_of(" \t") + 1);
}

std::string_view CppLineWrapper::follower() const {
    return stuckPart(source_.text().substr(reader_.offset()));
}

// For a list in a head nothing behind the list can go to another line, up to the end of the head.
std::string_view CppLineWrapper::followerThrough(std::size_t headEnd) const {
    const std::string_view rest = source_.text().substr(reader_.offset());
    if (headEnd == Zelmar::SourceText::npos || headEnd < reader_.offset()) return stuckPart(rest);
    const std::size_t length = std::min(headEnd + 1 - reader_.offset(), rest.size());
    if (rest.substr(0, length).find('\n') != std::string_view::npos) return firstLine(rest);
    return rest.substr(0, length + stuckPart(rest.substr(length)).size());
}

// The last character of a head with what belongs to it though the tree doesn't know it: "noexcept",
// attributes, macros. A list of its own or a comment on the same line isn't part of it.
std::size_t CppLineWrapper::endOfHead(const Trn::Position& headEnd) const {
    const std::size_t end = source_.offsetOf(headEnd);
    if (end == Zelmar::SourceText::npos) return end;
    const std::string_view behind = source_.text().substr(end + 1);
    const std::size_t words = std::min(behind.find_first_of("{;:/\n"), behind.size());
    const bool isHead = words == behind.size() || (behind[words] != ':' && behind[words] != '/');
    return isHead ? end + words : end;
}

// Statements may share a line that is as long as the text: what each costs must not grow with its column.
std::string CppLineWrapper::indentFor(int column) const {
    static constexpr int kMostColumns = 16384;
    return Zelmar::makeIndent(output_.indent(), options_->convertWs, options_->tabSize, std::min(column, kMostColumns));
}

std::string CppLineWrapper::continuationIndent() const {
    return rules().style == WrapStyle::kIndented ? indentFor(baseColumn()) + rules().indent.value : indentFor(baseColumn());
}

Zelmar::IndentStreamState CppLineWrapper::state() const {
    return stateWith(output_.indent());
}

Zelmar::IndentStreamState CppLineWrapper::stateWith(const std::string& indent) const {
    Zelmar::IndentStreamState state = output_.state();
    state.indent = indent;
    state.wsMode = options_->convertWs;
    return state;
}

void CppLineWrapper::visitChildren(Cpp::InteriorNode& node) {
    for (auto child = node.childBegin(); child != node.childEnd(); ++child) (*child)->accept(*this);
}

void CppLineWrapper::visit(Cpp::RootNode& node) {
    code_ = node.code();
    if (overMargin(node)) {
        output_.setIndent(rules().leftMargin.value);
        output_.setKeepLeadingWs(!rules().leftMargin.set);
        visitChildren(node);
    }
    output_.writeRaw(reader_.readRest());
    output_.sync();
    if (wrapped_ == nullptr) return;
    const std::string_view text = output_.text();
    wrapped_->write(text.data(), static_cast<std::streamsize>(text.size()));
    wrapped_->flush();
}

// Where a body has an indent of its own its lines were laid out from the base column.
void CppLineWrapper::writeBody(Cpp::InteriorNode& body, const OptionalString& indent) {
    if (!overMargin(body)) return copyNode(body);
    const bool hasBrace = body.empty() || body.start() != body.child(0)->start();
    if (hasBrace) copyThrough(body.start());
    const ColumnScope scope(*this, baseColumn());
    const ContentIndent content(*this, indent, baseColumn());
    visitChildren(body);
    copyNode(body);
}

void CppLineWrapper::visit(Cpp::ExprNode& node) {
    copyUpTo(node.start());
    if (!overMargin(node)) return copyNode(node);
    if (wrapCodeIn(node)) return;
    const std::string text(reader_.readThrough(node.end()));
    const auto wrap = [this](const std::string& joined) {
        return exprWrapper_.wrap(joined, state(), false, false, follower());
    };
    const auto layOut = [this](const std::string& wrapped) { return exprFormatter_.format(wrapped, state()); };
    writeSettled(text, wrap, layOut);
}

// The next run joins most of the lines broken here and leaves some alone, with an indent of its own. Then
// there may be room for what was broken, and it would come out otherwise. So the next run is taken in
// advance, from the lines that stay, until no more of them come in. A run that keeps breaks and shapes
// has nothing to join.
void CppLineWrapper::writeSettled(std::string text, const Rewrite& wrap, const Rewrite& layOut) {
    static constexpr int kMostRounds = 6;
    // What reaches beyond the margin for sure is enough: the rest of a line may be a whole file.
    const std::size_t most = static_cast<std::size_t>(rules().rightMargin) + 1;
    const std::string_view behind = firstLine(source_.text().substr(reader_.offset(), most));
    std::string wrapped = wrap(text);
    if (options_->keepLineBreaks && options_->keepShape) {
        for (int round = 0; round < kMostRounds && wrapped != text; ++round) {
            text = std::move(wrapped);
            wrapped = exprWrapper_.fits(text, state(), behind) ? text : wrap(text);
        }
        return output_.writeRaw(wrapped);
    }
    for (int round = 0; round < kMostRounds && wrapped != text; ++round) {
        std::string next = keepStayingBreaks(text, wrapped, layOut(wrapped));
        if (next == text) break;
        text = std::move(next);
        wrapped = exprWrapper_.fits(text, state(), behind) ? text : wrap(text);
    }
    output_.writeRaw(wrapped);
}

void CppLineWrapper::visit(Cpp::CommentNode& node) {
    copyUpTo(node.start());
    const bool spansLines = node.start().line < node.end().line && node.end().column > 0;
    if (spansLines && !node.verbatim()) return moveComment(node);
    copyNode(node);
}

// A comment whose first line has moved takes its other lines along.
void CppLineWrapper::moveComment(const Cpp::CommentNode& node) {
    const std::size_t lineStart = source_.lineStart(node.start().line);
    const std::string_view inFront = source_.text().substr(lineStart, reader_.offset() - lineStart);
    if (Zelmar::textColumn(inFront, 0, options_->tabSize) == output_.column()) return copyNode(node);
    output_.setWsMode(options_->convertWs);
    exprWrapper_.formatMultiLineToken(node.start(), node.end(), reader_, output_);
    output_.setWsMode(Zelmar::kWsKeep);
}

void CppLineWrapper::visit(Cpp::AsmNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::LabelNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::TextNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::EnumHeadNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::PreprocDirectiveNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::CaseNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::KeywordNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::TypeNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::IdNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::NamespaceHeadNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::AccessSpecNode& node) { copyNode(node); }
void CppLineWrapper::visit(Cpp::ClassNameNode& node) { copyNode(node); }

} // namespace Norvane
