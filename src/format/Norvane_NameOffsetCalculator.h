#ifndef KERFLINE_NORVANE_NAMEOFFSETCALCULATOR_H
#define KERFLINE_NORVANE_NAMEOFFSETCALCULATOR_H

#include "src/format/Norvane_OffsetCalculator.h"

#include <string>
#include <vector>

namespace Norvane {

/// Finds the columns in which the names of data and of function declarations line up.
///
/// The two kinds have a column each, except that the members of a class may share one. An access
/// label does not end a group here. A pointer mark that is anchored to the name stands in the name
/// column, and so does not count as part of the type.
class NameOffsetCalculator : public OffsetCalculator {
public:
    using OffsetCalculator::visit;

    explicit NameOffsetCalculator(SharedOptions options);
    explicit NameOffsetCalculator(const PropertySet& scheme) : NameOffsetCalculator(readOptions(scheme)) {}

    const Columns& dataColumns() const { return dataColumns_; }
    const Columns& fnColumns() const { return fnColumns_; }

    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::AccessSpecNode& node) override;
    void visit(Cpp::ClassBodyNode& node) override;

    void flushGroup() override;

private:
    /// How a scheme places one kind of pointer mark.
    struct Anchor {
        int place = -1; // 1 at the name, 0 at the type, -1 as in the source
        int gap = -1;   // columns between the mark and what it is anchored to; -1 if not set
        bool hanging = false;
    };

    Anchor anchorAt(int place, const OptionalString& gap, bool hanging) const;
    const Anchor& anchorOf(const std::string& type) const;
    void addFunction(const Cpp::FunctionDeclNode& node);
    Trn::Position declarationStart(const Cpp::SyntaxNode& node) const;
    /// The columns from `start` to the place that the name column has to leave behind it.
    int measureType(const Cpp::TypeNode& type, const Trn::Position& start) const;
    int measureUpToMark(const std::string& type, int startColumn, bool hanging) const;

    // Fixed at construction.
    Anchor asterisk_;
    Anchor ampersand_;
    Anchor noMark_;

    // The group being collected; that of the functions is as wide as the base says.
    std::vector<const Cpp::SyntaxNode*> dataPending_;
    std::vector<const Cpp::SyntaxNode*> fnPending_;
    int widestData_ = 0;
    // True while the group that a class body leaves behind is flushed.
    bool classBodyEnded_ = false;

    // Filled as groups end.
    Columns dataColumns_;
    Columns fnColumns_;
};

} // namespace Norvane

#endif
