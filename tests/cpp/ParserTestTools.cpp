#include "ParserTestTools.h"

#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Parser.h"
#include "cpp/Cpp_Tokens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <sstream>

using namespace Cpp;

namespace {

class Viewer : public Emitter {
public:
    NodeView view;

    void visit(AsmNode& n) override { parts("Asm", {n.text(), n.block()}, std::to_string(n.form())); }
    void visit(LabelNode& n) override { parts("Label", {n.name()}); }
    void visit(TextNode& n) override { leaf("Text", n.text()); }
    void visit(FunctionPtrDeclNode& n) override {
        parts("FunctionPtrDecl", {n.returnType(), n.name(), n.params(), n.suffix()});
    }
    void visit(LinkageBlockBodyNode& n) override { list("LinkageBlockBody", n); }
    void visit(LinkageBlockNode& n) override { parts("LinkageBlock", {n.linkage(), n.body()}); }
    void visit(EnumBodyNode& n) override { list("EnumBody", n); }
    void visit(EnumHeadNode& n) override { leaf("EnumHead", n.name()); }
    void visit(EnumDeclNode& n) override { parts("EnumDecl", {n.head(), n.body()}); }
    void visit(PreprocDirectiveNode& n) override { leaf("Directive", n.text()); }
    void visit(CommentNode& n) override { leaf("Comment", n.text()); }
    void visit(TemplateNode& n) override { parts("Template", {n.keyword(), n.params()}); }
    void visit(CaseNode& n) override { parts("Case", {n.keyword(), n.expr()}); }
    void visit(KeywordNode& n) override { leaf("Keyword", std::string(tokenTypeName(n.keyword()))); }
    void visit(CtrlSubStmtHeadNode& n) override { parts("Head", {n.keyword(), n.condition()}); }
    void visit(CtrlSubStmtNode& n) override { parts("CtrlSubStmt", {n.head(), n.block()}); }
    void visit(CtrlStmtNode& n) override { list("CtrlStmt", n); }
    void visit(ExprNode& n) override { leaf("Expr", n.text()); }
    void visit(TypeNode& n) override { leaf("Type", n.text()); }
    void visit(InitializerNode& n) override { parts("Initializer", {n.name(), n.args()}); }
    void visit(InitializerListNode& n) override { list("InitializerList", n); }
    void visit(DataDeclNode& n) override { parts("DataDecl", {n.type(), n.name(), n.init()}); }
    void visit(ParameterListNode& n) override { list("ParameterList", n); }
    void visit(ParameterNode& n) override { leaf("Parameter", n.text()); }
    void visit(IdNode& n) override { leaf("Id", n.text()); }
    void visit(FunctionReturnNode& n) override { leaf("Return", n.text()); }
    void visit(BlockNode& n) override { list("Block", n); }
    void visit(FunctionHeadNode& n) override {
        parts("FunctionHead",
              {n.returnType(), n.name(), n.params(), n.qualifiers(), n.throwSpec(), n.pureSpec()});
    }
    void visit(FunctionDeclNode& n) override { parts("FunctionDecl", {n.head(), n.block()}); }
    void visit(CtorDeclNode& n) override { parts("CtorDecl", {n.head(), n.initializers(), n.block()}); }
    void visit(NamespaceBodyNode& n) override { list("NamespaceBody", n); }
    void visit(NamespaceHeadNode& n) override { leaf("NamespaceHead", n.name()); }
    void visit(NamespaceDeclNode& n) override { parts("NamespaceDecl", {n.head(), n.body()}); }
    void visit(AccessSpecNode& n) override {
        leaf("AccessSpec", n.access() == 0 ? std::string() : std::string(tokenTypeName(n.access())));
    }
    void visit(ClassNameNode& n) override {
        leaf("ClassName", std::string(tokenTypeName(n.classKey())) + "|" + n.name());
    }
    void visit(ClassHeadNode& n) override { parts("ClassHead", {n.name(), n.bases()}); }
    void visit(ClassDeclNode& n) override { parts("ClassDecl", {n.head(), n.body()}); }
    void visit(ClassBodyNode& n) override { list("ClassBody", n); }
    void visit(BaseClauseListNode& n) override { list("BaseClauseList", n); }
    void visit(BaseClauseNode& n) override {
        const std::string access = n.access() == 0 ? "" : std::string(tokenTypeName(n.access())) + " ";
        leaf("BaseClause", access + (n.isVirtual() ? "virtual " : "") + n.name());
    }
    void visit(RootNode& n) override { list("Root", n); }
    void visit(SyntaxNode& n) override {
        if (auto* arg = dynamic_cast<ArgNode*>(&n)) leaf("Arg", arg->text());
        if (auto* args = dynamic_cast<ArgListNode*>(&n)) list("ArgList", *args);
    }

private:
    void leaf(const char* name, std::string text) { view = {name, std::move(text), {}}; }
    void parts(const char* name, std::initializer_list<SyntaxNode*> nodes, std::string text = {}) {
        view = {name, std::move(text), {}};
        std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(view.children),
                     [](const SyntaxNode* node) { return node != nullptr; });
    }
    void list(const char* name, const InteriorNode& node) {
        view = {name, {}, {}};
        for (std::size_t i = 0; i < node.size(); ++i) view.children.push_back(node.child(i));
    }
};

std::string place(const SyntaxNode& node) {
    std::ostringstream out;
    out << node.start().line << ":" << node.start().column << "-" << node.end().line << ":" << node.end().column;
    return out.str();
}

// A child with no extent, such as an empty block, is nowhere and so in nobody's way.
std::string faultIn(SyntaxNode& node, bool isRoot) {
    const NodeView view = viewOf(node);
    const SyntaxNode* before = nullptr;
    for (SyntaxNode* child : view.children) {
        const std::string fault = faultIn(*child, false);
        if (!fault.empty()) return fault;
        const std::string pair = view.name + " " + place(node) + " / " + viewOf(*child).name + " " + place(*child);
        if (child->start().isNone()) return pair + " has no place";
        if (child->end() < child->start()) return pair + " is inverted";
        if (!isRoot && child->start() < node.start()) return pair + " starts outside";
        if (!isRoot && node.end() < child->end()) return pair + " ends outside";
        if (before && child->start() <= before->end()) return pair + " overlaps " + place(*before);
        before = child;
    }
    return {};
}

} // namespace

Parsed::Parsed(const std::string& text) : source(text) {
    std::istringstream in(text);
    Lexer lexer(in);
    Parser().parse(lexer, root, messages);
}

NodeView viewOf(SyntaxNode& node) {
    Viewer viewer;
    node.accept(viewer);
    return viewer.view;
}

std::string treeAsText(SyntaxNode& node) {
    const NodeView view = viewOf(node);
    std::string text = view.name;
    if (!view.text.empty()) text += "'" + view.text + "'";
    if (view.children.empty()) return text;
    text += "{";
    for (SyntaxNode* child : view.children) text += (child == view.children[0] ? "" : " ") + treeAsText(*child);
    return text + "}";
}

std::string errorsAsText(const Parsed& parsed) {
    std::ostringstream out;
    for (const Trn::Message& message : parsed.messages) {
        if (message.code == 2) continue;
        if (out.tellp() > 0) out << "; ";
        out << message.position.line << ":" << message.position.column << " " << message.text;
    }
    return out.str();
}

std::string coveredText(const Parsed& parsed, const SyntaxNode& node) {
    const std::size_t begin = parsed.source.offsetOf(node.start());
    return std::string(parsed.source.text().substr(begin, parsed.source.offsetOf(node.end()) - begin + 1));
}

SyntaxNode* findNode(SyntaxNode& root, const std::string& name) {
    const NodeView view = viewOf(root);
    if (view.name == name) return &root;
    for (SyntaxNode* child : view.children) {
        if (SyntaxNode* found = findNode(*child, name)) return found;
    }
    return nullptr;
}

std::string extentFault(const Parsed& parsed) {
    return faultIn(const_cast<RootNode&>(parsed.root), true);
}

void checkTree(const ParseCase& row) {
    SCOPED_TRACE(row.source);
    Parsed parsed(row.source);
    EXPECT_EQ(errorsAsText(parsed), "");
    EXPECT_EQ(treeAsText(parsed.root), row.tree);
    EXPECT_EQ(extentFault(parsed), "");
}

void checkStatements(const ParseCase& row) {
    SCOPED_TRACE(row.source);
    Parsed parsed("void f() {\n" + std::string(row.source) + "\n}\n");
    EXPECT_EQ(errorsAsText(parsed), "");
    SyntaxNode* block = findNode(parsed.root, "Block");
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(treeAsText(*block), row.tree);
    EXPECT_EQ(extentFault(parsed), "");
    EXPECT_EQ(parsed.root.size(), 1u);
}

void checkMessages(const MessageCase& row) {
    SCOPED_TRACE(row.source);
    const Parsed parsed(row.source);
    EXPECT_EQ(errorsAsText(parsed), row.errors);
    for (const Trn::Message& message : parsed.messages) EXPECT_EQ(message.severity, Trn::kSeverityError);
}
