#ifndef KERFLINE_NORVANE_CPPPREFORMATTER_H
#define KERFLINE_NORVANE_CPPPREFORMATTER_H

#include "cpp/Cpp_NodeRangeRemover.h"
#include "src/format/Norvane_CppCommentWalker.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <string>
#include <vector>

namespace Norvane {

/// Collapses the stretches between two marker comments: each becomes one comment node that is
/// copied from the source by its extent. Let a root accept it; the tree is changed in place.
///
///     a();  /* KL-FORMAT-OFF */  b  ( ) ;  /* KL-FORMAT-ON */  c();
///     a();  [--------------- one verbatim comment ---------]  c();
///
/// Markers count where a comment is a node of a list: among declarations, statements, enumerators,
/// parameters, base classes and member initializers. Within an expression or a data declaration a
/// comment is only text. A stretch that is not closed has no effect.
///
/// One object may serve several trees, one after the other.
class CppPreFormatter : public CppCommentWalker {
public:
    explicit CppPreFormatter(const FormatMarkerTable& markers) : markers_(markers) {}

    using CppCommentWalker::visit;
    void visit(Cpp::CommentNode& node) override;
    void visit(Cpp::RootNode& node) override;

private:
    void visitCode(Cpp::RootNode& node);
    void openRegion(Cpp::CommentNode& comment, const std::string& inner);
    void closeRegion(Cpp::CommentNode& comment);

    FormatMarkerTable markers_;

    // The comment that opened the region at hand, and the text that closes it; null and empty
    // outside of regions.
    const Cpp::CommentNode* regionFirst_ = nullptr;
    std::string pendingEnd_;
    // The regions of the tree that were closed so far.
    std::vector<Cpp::NodeRangeRemover::Range> regions_;
};

} // namespace Norvane

#endif
