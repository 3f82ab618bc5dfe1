#include "src/format/Norvane_NameOffsetCalculator.h"

#include "src/expr/Norvane_Gap.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <utility>

namespace Norvane {

namespace {

enum AnchorPlace : int { kAtType = 0, kAtName = 1 };

} // namespace

NameOffsetCalculator::NameOffsetCalculator(SharedOptions shared) : OffsetCalculator(std::move(shared)) {
    const LayoutOptions& from = options();
    asterisk_ = anchorAt(from.asteriskAnchor, from.wsBetweenAsteriskAnchor, from.hangingAsterisk);
    ampersand_ = anchorAt(from.ampersandAnchor, from.wsBetweenAmpersandAnchor, from.hangingAmpersand);
}

// A place that means nothing leaves the mark where it is.
NameOffsetCalculator::Anchor NameOffsetCalculator::anchorAt(int place, const OptionalString& gap,
                                                            bool hanging) const {
    Anchor anchor;
    anchor.hanging = hanging;
    if (place != kAtType && place != kAtName) return anchor;
    anchor.place = place;
    if (gap.set) anchor.gap = Zelmar::textColumn(gap.value, 0, options().tabSize);
    return anchor;
}

void NameOffsetCalculator::flushGroup() {
    int dataColumn = groupColumn(widestData_);
    int fnColumn = groupColumn(widest_);
    if (options().alignClassMemberNamesLeft && (inClassBody_ || classBodyEnded_)) {
        classBodyEnded_ = false;
        dataColumn = fnColumn = std::max(dataColumn, fnColumn);
    }
    assignColumn(dataColumn, dataPending_, dataColumns_);
    assignColumn(fnColumn, fnPending_, fnColumns_);
    widest_ = 0;
    widestData_ = 0;
}

void NameOffsetCalculator::visit(Cpp::AccessSpecNode&) {}

void NameOffsetCalculator::visit(Cpp::ClassBodyNode& node) {
    const bool outer = inClassBody_;
    inClassBody_ = true;
    walkChildren(node);
    inClassBody_ = outer;
    // Left to the next flush, the members would share their group with what follows the class.
    classBodyEnded_ = true;
    flushGroup();
    classBodyEnded_ = false;
}

void NameOffsetCalculator::visit(Cpp::CtrlSubStmtNode& node) { flushAndEnter(node.block()); }

void NameOffsetCalculator::visit(Cpp::CtorDeclNode& node) { addFunction(node); }

void NameOffsetCalculator::visit(Cpp::FunctionDeclNode& node) { addFunction(node); }

void NameOffsetCalculator::addFunction(const Cpp::FunctionDeclNode& node) {
    const Trn::Position start = declarationStart(node);
    templatePending_ = false;
    if (node.block()) {
        flushAndEnter(node.block());
        return;
    }
    if (!alignsFnNames()) return;
    const Cpp::FunctionReturnNode* returnType = node.head() ? node.head()->returnType() : nullptr;
    if (returnType && holdsComment(returnType->text())) return;
    fnPending_.push_back(&node);
    // Without a return type there is nothing for the name to keep clear of: a constructor stands in
    // the column of the group and does not widen it.
    if (returnType) widest_ = std::max(widest_, measureType(*returnType, start));
}

void NameOffsetCalculator::visit(Cpp::DataDeclNode& node) {
    if (alignsDataNames() && !afterClassBody_) {
        // A type with a comment in it is written as it stands, and so is what a template head in
        // front of it waits for.
        if (node.type() && holdsComment(node.type()->text())) return;
        dataPending_.push_back(&node);
        if (node.type()) {
            widestData_ = std::max(widestData_, measureType(*node.type(), declarationStart(node)));
        }
    }
    templatePending_ = false;
}

Trn::Position NameOffsetCalculator::declarationStart(const Cpp::SyntaxNode& node) const {
    return templatePending_ ? templateStart_ : node.start();
}

const NameOffsetCalculator::Anchor& NameOffsetCalculator::anchorOf(const std::string& type) const {
    if (endsInAsterisk(type)) return asterisk_;
    if (endsInAmpersand(type)) return ampersand_;
    return noMark_;
}

int NameOffsetCalculator::measureType(const Cpp::TypeNode& type, const Trn::Position& start) const {
    const std::string text = type.text();
    const Anchor& anchor = anchorOf(text);
    const int lead = Zelmar::columnsBetween(start, type.start());
    const int toEnd = Zelmar::columnsBetween(start, type.end());
    if (&anchor == &noMark_) return toEnd + 1;
    if (anchor.place == kAtName) return measureUpToMark(text, lead, anchor.hanging);
    // A mark in place ends the type by itself: the blank behind it is not wanted twice.
    if (anchor.gap < 0) return toEnd;
    return lead + Zelmar::textColumn(text, 0, options().tabSize) + anchor.gap;
}

int NameOffsetCalculator::measureUpToMark(const std::string& type, int startColumn, bool hanging) const {
    std::string_view head = trimmedRight(type);
    head.remove_suffix(1);
    int width = startColumn + Zelmar::textColumn(trimmedRight(head), 0, options().tabSize);
    if (!hanging) return width;
    // A mark that hangs in front of the column needs a place between the type and itself.
    const int next = Zelmar::roundUpToMultiple(width + 1, options().tabSize);
    if (next - width <= 1) width += options().tabSize;
    return width;
}

} // namespace Norvane
