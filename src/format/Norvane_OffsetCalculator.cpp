#include "src/format/Norvane_OffsetCalculator.h"

#include "streams/Zelmar_Columns.h"

namespace Norvane {

void OffsetCalculator::walkChildren(Cpp::InteriorNode& node) {
    for (auto child = node.childBegin(); child != node.childEnd(); ++child) {
        const bool declarators = afterClassBody_ && dynamic_cast<Cpp::DataDeclNode*>(child->get()) != nullptr;
        if (!declarators) afterClassBody_ = false;
        (*child)->accept(*this);
        if (declarators) afterClassBody_ = false;
    }
}

void OffsetCalculator::flushAndEnter(Cpp::SyntaxNode* body) {
    flushGroup();
    if (body) body->accept(*this);
}

int OffsetCalculator::groupColumn(int widest) const {
    return Zelmar::roundUpToMultiple(widest > 0 ? widest + 1 : widest, options().tabSize);
}

void OffsetCalculator::assignColumn(int column, std::vector<const Cpp::SyntaxNode*>& nodes, Columns& columns) {
    for (const Cpp::SyntaxNode* node : nodes) columns[node] = column;
    nodes.clear();
}

void OffsetCalculator::flushGroup() {
    assignColumn(groupColumn(widest_), pending_, columns_);
    widest_ = 0;
}

void OffsetCalculator::visit(Cpp::SyntaxNode&) { flushGroup(); }

void OffsetCalculator::visit(Cpp::AccessSpecNode&) { flushGroup(); }

void OffsetCalculator::visit(Cpp::ExprNode&) { flushGroup(); }

void OffsetCalculator::visit(Cpp::CtrlSubStmtNode&) { flushGroup(); }

void OffsetCalculator::visit(Cpp::EnumDeclNode&) { flushGroup(); }

void OffsetCalculator::visit(Cpp::RootNode& node) {
    walkChildren(node);
    flushGroup();
    for (Cpp::CodeInExpression& code : node.code()) flushAndEnter(code.block.get());
}

void OffsetCalculator::visit(Cpp::ClassBodyNode& node) {
    const bool outer = inClassBody_;
    inClassBody_ = true;
    walkChildren(node);
    flushGroup();
    inClassBody_ = outer;
}

void OffsetCalculator::visit(Cpp::NamespaceBodyNode& node) {
    walkChildren(node);
    flushGroup();
}

void OffsetCalculator::visit(Cpp::CtrlStmtNode& node) {
    walkChildren(node);
    flushGroup();
}

void OffsetCalculator::visit(Cpp::LinkageBlockBodyNode& node) {
    walkChildren(node);
    flushGroup();
}

void OffsetCalculator::visit(Cpp::BlockNode& node) {
    flushGroup();
    walkChildren(node);
    flushGroup();
}

void OffsetCalculator::visit(Cpp::ClassDeclNode& node) {
    templatePending_ = false;
    flushAndEnter(node.body());
}

void OffsetCalculator::visit(Cpp::NamespaceDeclNode& node) { flushAndEnter(node.body()); }

void OffsetCalculator::visit(Cpp::LinkageBlockNode& node) { flushAndEnter(node.body()); }

void OffsetCalculator::visit(Cpp::FunctionDeclNode&) {
    templatePending_ = false;
    flushGroup();
}

void OffsetCalculator::visit(Cpp::CtorDeclNode&) {
    templatePending_ = false;
    flushGroup();
}

void OffsetCalculator::visit(Cpp::DataDeclNode&) {
    templatePending_ = false;
    flushGroup();
}

void OffsetCalculator::visit(Cpp::TemplateNode& node) {
    templatePending_ = true;
    templateStart_ = node.start();
}

} // namespace Norvane
