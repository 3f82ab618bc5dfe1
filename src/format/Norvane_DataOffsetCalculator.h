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

    explicit DataOffsetCalculator(SharedOptions options) : OffsetCalculator(std::move(options)) {}
    explicit DataOffsetCalculator(const PropertySet& scheme) : DataOffsetCalculator(readOptions(scheme)) {}

    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;

private:
    int measure(const Cpp::DataDeclNode& node) const;
};

} // namespace Norvane

#endif
