#ifndef KERFLINE_NORVANE_CPPLINEWRAPPER_SCOPE_H
#define KERFLINE_NORVANE_CPPLINEWRAPPER_SCOPE_H

#include "src/wrap/Norvane_CppLineWrapper.h"

namespace Norvane {

/// Makes a column the base for the length of a scope. At its end all columns are gone that came in
/// since, also those of template heads that no declaration took over.
class CppLineWrapper::ColumnScope {
public:
    ColumnScope(CppLineWrapper& wrapper, int column)
        : wrapper_(wrapper), depth_(wrapper.indentColumns_.size()), templateDepth_(wrapper.templateDepth_) {
        wrapper_.indentColumns_.push_back(column);
        wrapper_.templateDepth_ = 0;
    }
    ~ColumnScope() {
        wrapper_.indentColumns_.resize(depth_);
        wrapper_.templateDepth_ = templateDepth_;
    }
    ColumnScope(const ColumnScope&) = delete;
    ColumnScope& operator=(const ColumnScope&) = delete;

private:
    CppLineWrapper& wrapper_;
    std::size_t depth_;
    std::size_t templateDepth_;
};

/// Makes an option the indent of what a construct at a column holds, for the length of a scope. If the
/// option is not set, the indent around it stays in force.
class CppLineWrapper::ContentIndent {
public:
    ContentIndent(CppLineWrapper& wrapper, const OptionalString& option, int column)
        : keep_(wrapper.output_, wrapper.output_.keepLeadingWs() && !option.set),
          indent_(wrapper.output_,
                  option.set ? wrapper.indentFor(column) + option.value : wrapper.output_.indent()) {}

private:
    Zelmar::KeepWsGuard<Zelmar::IndentWriter> keep_;
    Zelmar::IndentGuard<Zelmar::IndentWriter> indent_;
};

} // namespace Norvane

#endif
