#include "src/format/Norvane_DataOffsetCalculator.h"

#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Norvane {

namespace {

/// The number of columns from the first to the last character; 1 if they are on different lines.
int inclusiveWidth(const Trn::Position& first, const Trn::Position& last) {
    return Zelmar::columnsBetween(first, last) + 1;
}

} // namespace

void DataOffsetCalculator::visit(Cpp::CtrlSubStmtNode& node) { flushAndEnter(node.block()); }

void DataOffsetCalculator::visit(Cpp::FunctionDeclNode& node) {
    templatePending_ = false;
    flushAndEnter(node.block());
}

void DataOffsetCalculator::visit(Cpp::CtorDeclNode& node) {
    templatePending_ = false;
    flushAndEnter(node.block());
}

/// What stands in front of the initializer, as far as it moves with the column.
int DataOffsetCalculator::measure(const Cpp::DataDeclNode& node) const {
    const Cpp::TypeNode* type = node.type();
    const Cpp::IdNode* name = node.name();
    if (!name) return type ? inclusiveWidth(type->start(), type->end()) : 0;
    const bool fromName = !type || alignsDataNames();
    return inclusiveWidth(fromName ? name->start() : type->start(), name->end());
}

void DataOffsetCalculator::visit(Cpp::DataDeclNode& node) {
    templatePending_ = false;
    if (node.type() && !node.init()) return;
    pending_.push_back(&node);
    widest_ = std::max(widest_, measure(node));
}

} // namespace Norvane
