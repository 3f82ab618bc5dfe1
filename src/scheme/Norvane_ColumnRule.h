#ifndef KERFLINE_NORVANE_COLUMNRULE_H
#define KERFLINE_NORVANE_COLUMNRULE_H

namespace Norvane {

/// Which white space within a line lines something up, and stays.
struct ColumnRule {
    bool kept = false;
    /// A tab alone does. Where tabs become blanks it may come out as a single one.
    bool byTab = false;
};

} // namespace Norvane

#endif
