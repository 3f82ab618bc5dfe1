#include "src/format/Norvane_CppCommentWalker.h"

#include "cpp/Cpp_Nodes.h"

namespace Norvane {

void CppCommentWalker::visitChildren(Cpp::InteriorNode& node) {
    for (auto child = node.childBegin(); child != node.childEnd(); ++child) (*child)->accept(*this);
}

void CppCommentWalker::visit(Cpp::FunctionPtrDeclNode& node) {
    if (node.params()) visit(*node.params());
}

void CppCommentWalker::visit(Cpp::LinkageBlockNode& node) {
    if (node.body()) visit(*node.body());
}

void CppCommentWalker::visit(Cpp::EnumDeclNode& node) {
    if (node.body()) visit(*node.body());
}

void CppCommentWalker::visit(Cpp::TemplateNode& node) {
    if (node.params()) visit(*node.params());
}

void CppCommentWalker::visit(Cpp::CtrlSubStmtNode& node) {
    if (node.block()) visit(*node.block());
}

void CppCommentWalker::visit(Cpp::FunctionHeadNode& node) {
    if (node.params()) visit(*node.params());
}

void CppCommentWalker::visit(Cpp::FunctionDeclNode& node) {
    if (node.head()) visit(*node.head());
    if (node.block()) visit(*node.block());
}

void CppCommentWalker::visit(Cpp::CtorDeclNode& node) {
    if (node.initializers()) visit(*node.initializers());
    if (node.head()) visit(*node.head());
    if (node.block()) visit(*node.block());
}

void CppCommentWalker::visit(Cpp::NamespaceDeclNode& node) {
    if (node.body()) visit(*node.body());
}

void CppCommentWalker::visit(Cpp::ClassHeadNode& node) {
    if (node.bases()) visit(*node.bases());
}

void CppCommentWalker::visit(Cpp::ClassDeclNode& node) {
    if (node.head()) visit(*node.head());
    if (node.body()) visit(*node.body());
}

void CppCommentWalker::visit(Cpp::LinkageBlockBodyNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::EnumBodyNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::CtrlStmtNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::InitializerListNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::ParameterListNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::BlockNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::NamespaceBodyNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::ClassBodyNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::BaseClauseListNode& node) { visitChildren(node); }
void CppCommentWalker::visit(Cpp::RootNode& node) { visitChildren(node); }

} // namespace Norvane
