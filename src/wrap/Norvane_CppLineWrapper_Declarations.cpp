#include "src/wrap/Norvane_CppLineWrapper.h"

#include "cpp/Cpp_Tokens.h"
#include "src/wrap/Norvane_CppLineWrapper_Scope.h"
#include "src/wrap/Norvane_WrapStay.h"
#include "src/wrap/Norvane_WrapText.h"

#include <algorithm>
#include <optional>

namespace Norvane {

namespace {

bool isElement(const Cpp::SyntaxNode* node) {
    return dynamic_cast<const Cpp::CommentNode*>(node) == nullptr &&
           dynamic_cast<const Cpp::PreprocDirectiveNode*>(node) == nullptr;
}

bool isRegion(const Cpp::SyntaxNode* node) {
    const auto* comment = dynamic_cast<const Cpp::CommentNode*>(node);
    return comment != nullptr && comment->verbatim();
}

bool startsBracket(int kind) {
    return kind == Cpp::tkOpenBrace || kind == Cpp::tkOpenParen;
}

struct Extent {
    Trn::Position start;
    Trn::Position end;
};

// From the first element to the last. None if there is no element, or if a region lies among them,
// of which not a byte may change.
std::optional<Extent> elementsOf(const Cpp::InteriorNode& list) {
    std::optional<Extent> extent;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const Cpp::SyntaxNode* child = list.child(i);
        if (isRegion(child)) return std::nullopt;
        if (!isElement(child) || child->start().isNone()) continue;
        if (!extent) extent = Extent{child->start(), child->end()};
        if (child->start() < extent->start) extent->start = child->start();
        if (extent->end < child->end()) extent->end = child->end();
    }
    return extent;
}

} // namespace

// The column of a class or a function: that of the template head in front of it, if there is one,
// which it takes over whether or not it is too long itself.
int CppLineWrapper::declarationColumn(const Cpp::SyntaxNode* head) {
    const int column = baseColumn();
    if (templateDepth_ != 0 && templateDepth_ == indentColumns_.size()) {
        templateDepth_ = 0;
        indentColumns_.pop_back();
        return column;
    }
    return head != nullptr ? copyUpToStart(*head) : column;
}

void CppLineWrapper::visit(Cpp::NamespaceDeclNode& node) {
    if (!overMargin(node)) return copyNode(node);
    const int column = node.head() != nullptr ? copyUpToStart(*node.head()) : baseColumn();
    const ColumnScope scope(*this, column);
    if (node.body() != nullptr) node.body()->accept(*this);
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::NamespaceBodyNode& node) { writeBody(node, rules().namespaceIndent); }

void CppLineWrapper::visit(Cpp::LinkageBlockNode& node) {
    if (!overMargin(node)) return copyNode(node);
    const int column = node.linkage() != nullptr ? copyUpToStart(*node.linkage()) : baseColumn();
    if (node.linkage() != nullptr) copyNode(*node.linkage());
    const ColumnScope scope(*this, column);
    if (node.body() != nullptr) node.body()->accept(*this);
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::LinkageBlockBodyNode& node) { writeBody(node, rules().blockIndent); }

void CppLineWrapper::visit(Cpp::TemplateNode& node) {
    indentColumns_.push_back(copyUpToStart(node));
    templateDepth_ = indentColumns_.size();
    if (overMargin(node) && node.params() != nullptr) {
        copyThrough(node.params()->start());
        wrapCommaList(*node.params(), rules().templateParameters, continuationIndent(), source_.offsetOf(node.end()));
    }
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::ClassDeclNode& node) {
    const int column = declarationColumn(node.head());
    if (!overMargin(node)) return copyNode(node);
    if (node.head() != nullptr) node.head()->accept(*this);
    const ColumnScope scope(*this, column);
    if (node.body() != nullptr) node.body()->accept(*this);
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::ClassHeadNode& node) {
    if (node.bases() != nullptr) node.bases()->accept(*this);
}

void CppLineWrapper::visit(Cpp::ClassBodyNode& node) { writeBody(node, rules().classIndent); }

void CppLineWrapper::visit(Cpp::BaseClauseListNode& node) {
    wrapCommaList(node, rules().bases, continuationIndent(), endOfHead(node.end()));
}

void CppLineWrapper::visit(Cpp::FunctionDeclNode& node) {
    const int column = declarationColumn(node.head());
    if (!overMargin(node)) return copyNode(node);
    const ColumnScope scope(*this, column);
    if (node.head() != nullptr) wrapHead(*node.head());
    writeFunctionBody(node.block());
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::CtorDeclNode& node) {
    const int column = declarationColumn(node.head());
    if (!overMargin(node)) return copyNode(node);
    const ColumnScope scope(*this, column);
    if (node.head() != nullptr) wrapHead(*node.head());
    if (node.initializers() != nullptr) node.initializers()->accept(*this);
    writeFunctionBody(node.block());
    copyNode(node);
}

void CppLineWrapper::writeFunctionBody(Cpp::BlockNode* block) {
    if (block != nullptr) writeBody(*block, rules().functionIndent);
}

void CppLineWrapper::wrapHead(Cpp::FunctionHeadNode& head) {
    if (head.params() != nullptr) wrapParameters(*head.params(), head.end());
    copyNode(head);
}

void CppLineWrapper::wrapParameters(Cpp::ParameterListNode& params, const Trn::Position& headEnd) {
    if (!overMargin(params)) return;
    copyThrough(params.start());
    wrapCommaList(params, rules().parameters, continuationIndent(), endOfHead(headEnd));
}

void CppLineWrapper::visit(Cpp::FunctionPtrDeclNode& node) {
    if (!overMargin(node)) return copyNode(node);
    const ColumnScope scope(*this, copyUpToStart(node));
    if (node.params() != nullptr) wrapParameters(*node.params(), node.end());
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::InitializerListNode& node) {
    if (wrapCodeIn(node)) return;
    wrapCommaList(node, rules().initializers, continuationIndent(), endOfHead(node.end()));
}

void CppLineWrapper::visit(Cpp::EnumDeclNode& node) {
    if (!overMargin(node)) return copyNode(node);
    const int column = node.head() != nullptr ? copyUpToStart(*node.head()) : baseColumn();
    const ColumnScope scope(*this, column);
    if (node.body() != nullptr) node.body()->accept(*this);
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::EnumBodyNode& node) {
    const ContentIndent indent(*this, rules().enumIndent, baseColumn());
    wrapEnumerators(node);
}

void CppLineWrapper::wrapCommaList(Cpp::InteriorNode& list, const ListStyle& spacing,
                                   const std::string& indent, std::size_t headEnd) {
    const auto wrap = [this, &indent, headEnd](const std::string& text) {
        return exprWrapper_.wrapList(text, stateWith(indent), false, followerThrough(headEnd));
    };
    // With no value for them the gaps stay as they are, and so do the columns that are chosen here.
    const auto layOut = [this, &spacing](const std::string& text) {
        return spacing.between.set ? layOutList(text, spacing) : text;
    };
    wrapElements(list, spacing, indent, wrap, layOut);
}

// Enumerators stand at the indent of the content, to which WRAP_INDENT adds nothing.
void CppLineWrapper::wrapEnumerators(Cpp::EnumBodyNode& node) {
    const auto wrap = [this, &node](const std::string& text) {
        return exprWrapper_.wrapList(text, state(), true, followerThrough(source_.offsetOf(node.end())));
    };
    const auto layOut = [this](const std::string& text) { return layOutList(text, rules().enumerators); };
    wrapElements(node, rules().enumerators, output_.indent(), wrap, layOut);
}

void CppLineWrapper::wrapElements(const Cpp::InteriorNode& list, const ListStyle& spacing,
                                  const std::string& indent, const Rewrite& wrap, const Rewrite& layOut) {
    if (!overMargin(list)) return;
    const std::optional<Extent> elements = elementsOf(list);
    if (!elements) return;
    copyUpTo(elements->start);
    std::string text(reader_.readThrough(elements->end));
    if (rules().listStrategy != ListStrategy::kKeepLines && !spacing.isSet()) text = joinElements(text, indent);
    writeSettled(std::move(text), wrap, layOut);
}

std::string CppLineWrapper::layOutList(const std::string& text, const ListStyle& spacing) {
    const std::string laidOut = exprFormatter_.format(text, state());
    if (!spacing.isSet()) return laidOut;
    return exprWrapper_.formatAlignedList(laidOut, Cpp::tkComma, spacing.beforeComma, spacing.between, state());
}

// With no value for the gaps they are made alike, so that it does not hang on the lines of the
// source which elements share one.
std::string CppLineWrapper::joinElements(const std::string& text, const std::string& indent) {
    const OptionalString blank{true, " "};
    const OptionalString before = rules().commasStick ? OptionalString{true, ""} : blank;
    Zelmar::IndentStreamState state = stateWith(output_.column() > 0 ? indent : std::string());
    state.keepLeadingWs = false;
    return exprWrapper_.formatList(text, Cpp::tkComma, before, blank, state);
}

void CppLineWrapper::visit(Cpp::DataDeclNode& node) {
    if (!overMargin(node) || node.init() == nullptr) return copyNode(node);
    if (wrapCodeIn(node)) return;
    const int column = copyUpToStart(node);
    copyUpTo(node.init()->start());
    if (overMargin(*node.init())) {
        const ContentIndent indent(*this, rules().dataIndent, column);
        const std::string text(reader_.readThrough(node.init()->end()));
        const auto layOut = [this](const std::string& wrapped) { return layOutInitializer(wrapped); };
        const std::optional<std::string> rows = rowIndent(text, layOut);
        writeSettled(text, [this, &rows](const std::string& joined) { return wrapInitializer(joined, rows); },
                     layOut);
    }
    copyNode(node);
}

std::string CppLineWrapper::layOutInitializer(const std::string& text) {
    if (text.front() != '(') return exprFormatter_.formatDeclaration(text, state(), rules().afterTypeId);
    // Laid out as the call of a function whose name is one letter long.
    Zelmar::IndentStreamState call = state();
    call.column = std::max(call.column - 1, 0);
    const std::string laidOut = exprFormatter_.formatDeclaration("f" + text, call, rules().afterTypeId);
    return laidOut.substr(laidOut.find('f') + 1);
}

// Where the next run leaves the rows of a list on lines of their own it also chooses where they start.
// They are filled from there on at once, or rows would have room for more than they hold.
std::optional<std::string> CppLineWrapper::rowIndent(const std::string& text, const Rewrite& layOut) {
    const bool keepsRows = options_->keepLineBreaks && options_->keepShape;
    if (keepsRows || !exprWrapper_.fillsLists()) return std::nullopt;
    const std::string wrapped = wrapInitializer(text, std::nullopt);
    if (wrapped == text) return std::nullopt;
    return indentOfFirstBreak(text, keepStayingBreaks(text, wrapped, layOut(wrapped)));
}

std::string CppLineWrapper::wrapInitializer(const std::string& text, const std::optional<std::string>& rows) {
    const WrapText tokens(text);
    std::size_t first = 0;
    while (first < tokens.size() && !startsBracket(tokens.kind(first))) ++first;
    const bool isBraced = tokens.kind(first) == Cpp::tkOpenBrace && tokens.mate(first) != WrapText::npos &&
                          !tokens.inCode(first + 1);
    if (!isBraced) return exprWrapper_.wrap(text, state(), false, false, follower());
    return wrapBracedInitializer(text, tokens.token(first), tokens.token(tokens.mate(first)), rows);
}

// The lines between the braces belong to the declaration, and WRAP_INDENT has no part in them.
std::string CppLineWrapper::wrapBracedInitializer(const std::string& text, std::string_view open,
                                                  std::string_view close,
                                                  const std::optional<std::string>& rows) {
    const auto begin = static_cast<std::size_t>(open.data() + open.size() - text.data());
    const auto end = static_cast<std::size_t>(close.data() - text.data());
    Zelmar::IndentWriter written(state());
    written.setWsMode(Zelmar::kWsKeep);
    const auto here = [this, &written] {
        Zelmar::IndentStreamState place = state();
        place.column = written.column();
        return place;
    };
    written.writeRaw(std::string_view(text).substr(0, begin));
    const std::string behind = text.substr(end) + std::string(follower());
    const std::string inner = text.substr(begin, end - begin);
    Zelmar::IndentStreamState place = here();
    if (rows) place.indent = *rows;
    written.writeRaw(rows ? exprWrapper_.wrapRows(inner, place, stuckPart(behind))
                          : exprWrapper_.wrapList(inner, place, true, stuckPart(behind)));
    written.writeRaw(close);
    written.writeRaw(exprWrapper_.wrap(text.substr(end + close.size()), here(), false, false, follower()));
    return written.takeText();
}

} // namespace Norvane
