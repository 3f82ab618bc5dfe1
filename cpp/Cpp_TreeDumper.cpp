#include "cpp/Cpp_TreeDumper.h"

#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Tokens.h"
#include "streams/Zelmar_SourceText.h"

#include <cstddef>
#include <cstdint>
#include <ostream>

namespace Cpp {

namespace {

// Enough to recognise a text by, and short enough to keep a node on one line.
constexpr std::size_t kMaxTextLength = 72;

std::ostream& operator<<(std::ostream& out, const Trn::Position& position) {
    return out << position.line << ':' << position.column;
}

void writeEscaped(std::ostream& out, char c) {
    static constexpr char kHexDigits[] = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    switch (c) {
    case '\n': out << "\\n"; return;
    case '\t': out << "\\t"; return;
    case '"': out << "\\\""; return;
    case '\\': out << "\\\\"; return;
    default: break;
    }
    // Bytes from 0x80 are parts of characters that terminals can show.
    if (byte >= 0x20 && byte != 0x7F) {
        out << c;
    } else {
        out << "\\x" << kHexDigits[byte >> 4] << kHexDigits[byte & 0xF];
    }
}

std::string_view cut(std::string_view text) {
    if (text.size() <= kMaxTextLength) return text;
    std::size_t length = kMaxTextLength;
    // Not within a character of several bytes.
    const auto isContinuation = [&text](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
    };
    while (length > kMaxTextLength - 4 && isContinuation(length)) --length;
    return text.substr(0, length);
}

std::string_view textBetween(const Zelmar::SourceText& source, const SyntaxNode& node) {
    if (node.start().isNone() || node.end() < node.start()) return {};
    const std::size_t begin = source.offsetOf(node.start());
    const std::size_t last = source.offsetOf(node.end());
    if (begin >= source.size() || last < begin) return {};
    return source.text().substr(begin, last - begin + 1);
}

std::string_view keywordName(std::int32_t keyword) { return keyword == 0 ? "none" : tokenTypeName(keyword); }

} // namespace

void TreeDumper::beginNode(std::string_view className, const SyntaxNode& node) {
    for (int i = 0; i < depth_; ++i) out_ << "  ";
    if (!partName_.empty()) out_ << partName_ << ": ";
    partName_ = {};
    out_ << className << ' ' << node.start() << '-' << node.end();
    ++depth_;
}

void TreeDumper::endNode() { --depth_; }

void TreeDumper::writeText(std::string_view text) {
    const std::string_view shown = cut(text);
    out_ << " \"";
    for (const char c : shown) writeEscaped(out_, c);
    out_ << (shown.size() < text.size() ? "\"..." : "\"");
}

void TreeDumper::writeExpression(const SyntaxNode& node, const std::string& text) {
    writeText(source_ != nullptr ? textBetween(*source_, node) : std::string_view(text));
}

void TreeDumper::writeParts(std::initializer_list<Part> parts) {
    for (const Part& part : parts) {
        if (part.node == nullptr) continue;
        partName_ = part.name;
        part.node->accept(*this);
    }
}

void TreeDumper::dumpList(std::string_view className, InteriorNode& node) {
    beginNode(className, node);
    out_ << '\n';
    for (auto child = node.childBegin(); child != node.childEnd(); ++child) (*child)->accept(*this);
    endNode();
}

void TreeDumper::dumpWithText(std::string_view className, const SyntaxNode& node, std::string_view text) {
    beginNode(className, node);
    writeText(text);
    out_ << '\n';
    endNode();
}

void TreeDumper::dumpParts(std::string_view className, const SyntaxNode& node,
                           std::initializer_list<Part> parts) {
    beginNode(className, node);
    out_ << '\n';
    writeParts(parts);
    endNode();
}

void TreeDumper::visit(RootNode& node) {
    dumpList("RootNode", node);
    for (const CodeInExpression& code : node.code()) writeParts({{"code", code.block.get()}});
}
void TreeDumper::visit(BaseClauseListNode& node) { dumpList("BaseClauseListNode", node); }
void TreeDumper::visit(InitializerListNode& node) { dumpList("InitializerListNode", node); }
void TreeDumper::visit(CtrlStmtNode& node) { dumpList("CtrlStmtNode", node); }
void TreeDumper::visit(ClassBodyNode& node) { dumpList("ClassBodyNode", node); }
void TreeDumper::visit(EnumBodyNode& node) { dumpList("EnumBodyNode", node); }
void TreeDumper::visit(NamespaceBodyNode& node) { dumpList("NamespaceBodyNode", node); }
void TreeDumper::visit(BlockNode& node) { dumpList("BlockNode", node); }
void TreeDumper::visit(ParameterListNode& node) { dumpList("ParameterListNode", node); }
void TreeDumper::visit(LinkageBlockBodyNode& node) { dumpList("LinkageBlockBodyNode", node); }

void TreeDumper::visit(SyntaxNode& node) {
    if (const auto* argument = dynamic_cast<ArgNode*>(&node)) {
        dumpWithText("ArgNode", node, argument->text());
    } else if (auto* arguments = dynamic_cast<ArgListNode*>(&node)) {
        dumpList("ArgListNode", *arguments);
    } else if (auto* list = dynamic_cast<InteriorNode*>(&node)) {
        dumpList("InteriorNode", *list);
    }
}

void TreeDumper::visit(TextNode& node) { dumpWithText("TextNode", node, node.text()); }
void TreeDumper::visit(PreprocDirectiveNode& node) { dumpWithText("PreprocDirectiveNode", node, node.text()); }
void TreeDumper::visit(IdNode& node) { dumpWithText("IdNode", node, node.text()); }
void TreeDumper::visit(TypeNode& node) { dumpWithText("TypeNode", node, node.text()); }
void TreeDumper::visit(FunctionReturnNode& node) { dumpWithText("FunctionReturnNode", node, node.text()); }
void TreeDumper::visit(EnumHeadNode& node) { dumpWithText("EnumHeadNode", node, node.name()); }
void TreeDumper::visit(NamespaceHeadNode& node) { dumpWithText("NamespaceHeadNode", node, node.name()); }
void TreeDumper::visit(ParameterNode& node) { dumpWithText("ParameterNode", node, node.text()); }
void TreeDumper::visit(KeywordNode& node) { dumpWithText("KeywordNode", node, keywordName(node.keyword())); }
void TreeDumper::visit(AccessSpecNode& node) {
    dumpWithText("AccessSpecNode", node, keywordName(node.access()));
}

void TreeDumper::visit(CommentNode& node) {
    beginNode("CommentNode", node);
    if (node.verbatim()) out_ << " verbatim";
    writeText(node.text());
    out_ << '\n';
    endNode();
}

void TreeDumper::visit(ExprNode& node) {
    beginNode("ExprNode", node);
    writeExpression(node, node.text());
    out_ << '\n';
    endNode();
}

void TreeDumper::visit(BaseClauseNode& node) {
    beginNode("BaseClauseNode", node);
    if (node.access() != 0) out_ << ' ' << keywordName(node.access());
    if (node.isVirtual()) out_ << " virtual";
    writeText(node.name());
    out_ << '\n';
    endNode();
}

void TreeDumper::visit(ClassNameNode& node) {
    beginNode("ClassNameNode", node);
    out_ << ' ' << keywordName(node.classKey());
    writeText(node.name());
    out_ << '\n';
    endNode();
}

void TreeDumper::visit(AsmNode& node) {
    beginNode("AsmNode", node);
    out_ << " form " << node.form() << '\n';
    writeParts({{"text", node.text()}, {"block", node.block()}});
    endNode();
}

void TreeDumper::visit(LabelNode& node) {
    dumpParts("LabelNode", node, {{"name", node.name()}});
}

void TreeDumper::visit(CaseNode& node) {
    dumpParts("CaseNode", node, {{"keyword", node.keyword()}, {"expr", node.expr()}});
}

void TreeDumper::visit(CtrlSubStmtHeadNode& node) {
    dumpParts("CtrlSubStmtHeadNode", node, {{"keyword", node.keyword()}, {"condition", node.condition()}});
}

void TreeDumper::visit(CtrlSubStmtNode& node) {
    dumpParts("CtrlSubStmtNode", node, {{"head", node.head()}, {"block", node.block()}});
}

void TreeDumper::visit(TemplateNode& node) {
    dumpParts("TemplateNode", node, {{"keyword", node.keyword()}, {"params", node.params()}});
}

void TreeDumper::visit(ClassHeadNode& node) {
    dumpParts("ClassHeadNode", node, {{"name", node.name()}, {"bases", node.bases()}});
}

void TreeDumper::visit(ClassDeclNode& node) {
    dumpParts("ClassDeclNode", node, {{"head", node.head()}, {"body", node.body()}});
}

void TreeDumper::visit(EnumDeclNode& node) {
    dumpParts("EnumDeclNode", node, {{"head", node.head()}, {"body", node.body()}});
}

void TreeDumper::visit(NamespaceDeclNode& node) {
    dumpParts("NamespaceDeclNode", node, {{"head", node.head()}, {"body", node.body()}});
}

void TreeDumper::visit(LinkageBlockNode& node) {
    dumpParts("LinkageBlockNode", node, {{"linkage", node.linkage()}, {"body", node.body()}});
}

void TreeDumper::visit(DataDeclNode& node) {
    dumpParts("DataDeclNode", node, {{"type", node.type()}, {"name", node.name()}, {"init", node.init()}});
}

void TreeDumper::visit(InitializerNode& node) {
    dumpParts("InitializerNode", node, {{"name", node.name()}, {"args", node.args()}});
}

void TreeDumper::visit(FunctionHeadNode& node) {
    dumpParts("FunctionHeadNode", node,
              {{"returnType", node.returnType()}, {"name", node.name()}, {"params", node.params()},
               {"qualifiers", node.qualifiers()}, {"throwSpec", node.throwSpec()},
               {"pureSpec", node.pureSpec()}});
}

void TreeDumper::visit(FunctionPtrDeclNode& node) {
    dumpParts("FunctionPtrDeclNode", node,
              {{"returnType", node.returnType()}, {"name", node.name()}, {"params", node.params()},
               {"suffix", node.suffix()}});
}

void TreeDumper::visit(FunctionDeclNode& node) {
    dumpParts("FunctionDeclNode", node, {{"head", node.head()}, {"block", node.block()}});
}

void TreeDumper::visit(CtorDeclNode& node) {
    dumpParts("CtorDeclNode", node,
              {{"head", node.head()}, {"initializers", node.initializers()}, {"block", node.block()}});
}

namespace {

void dump(const RootNode& root, const Zelmar::SourceText* source, std::ostream& out) {
    TreeDumper dumper(out, source);
    // Visitors may change nodes, so they take them as changeable. This one does not.
    const_cast<RootNode&>(root).accept(dumper);
}

} // namespace

void dumpTree(const RootNode& root, std::ostream& out) { dump(root, nullptr, out); }

void dumpTree(const RootNode& root, const Zelmar::SourceText& source, std::ostream& out) {
    dump(root, &source, out);
}

} // namespace Cpp
