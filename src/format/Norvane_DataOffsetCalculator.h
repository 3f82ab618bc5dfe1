#ifndef KERFLINE_NORVANE_DATAOFFSETCALCULATOR_H
#define KERFLINE_NORVANE_DATAOFFSETCALCULATOR_H

#include "src/format/Norvane_OffsetCalculator.h"

namespace Norvane {

/// Finds the columns in which initializers line up.
///
/// Where names are aligned as well, a column counts from the name, otherwise from the type. A
/// declaration without an initializer stands in a group without a part in it.
class DataOffsetCalculator : public OffsetCalculator {
public:
    using OffsetCalculator::visit;

    explicit DataOffsetCalculator(const PropertySet& scheme);

    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;

private:
    bool namesAligned() const { return alignDataNames_ || (alignClassMembers_ && inClassBody_); }
    int measure(const Cpp::DataDeclNode& node) const;

    bool alignDataNames_ = false;
    bool alignClassMembers_ = false;
};

} // namespace Norvane

#endif
