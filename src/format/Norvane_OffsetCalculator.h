#ifndef KERFLINE_NORVANE_OFFSETCALCULATOR_H
#define KERFLINE_NORVANE_OFFSETCALCULATOR_H

#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_Nodes.h"
#include "src/scheme/Norvane_LayoutOptions.h"
#include "trn/Trn_Position.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace Norvane {

/// Finds the columns in which declarations line up, before the first of them is written.
///
/// Declarations that follow each other form a group, and a group shares one column: the next tab
/// stop behind its widest member and one blank. This base says where a group ends: at any statement
/// and at any construct with a body, but not at a comment, a directive or a label. What is measured
/// is up to the derived classes.
///
///     int a;            // measures 3
///     double b;         // measures 6, so with tabs of 4 both names go to column 8
///     void f() { }      // ends the group
///
/// Widths are those of the source, where a tab is one column wide, and a range over several lines
/// has none. Columns count from the start of the declaration. A calculator serves one tree, which
/// it does not change and which must outlive the columns that are keyed by its nodes.
class OffsetCalculator : public Cpp::Emitter {
public:
    using Columns = std::unordered_map<const Cpp::SyntaxNode*, int>;
    using Cpp::Emitter::visit;

    explicit OffsetCalculator(SharedOptions options) : options_(std::move(options)) {}

    /// The columns of the nodes met so far whose group has ended.
    const Columns& columns() const { return columns_; }

    void visit(Cpp::LinkageBlockBodyNode& node) override;
    void visit(Cpp::LinkageBlockNode& node) override;
    void visit(Cpp::EnumDeclNode& node) override;
    void visit(Cpp::TemplateNode& node) override;
    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::CtrlStmtNode& node) override;
    void visit(Cpp::ExprNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::BlockNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::NamespaceBodyNode& node) override;
    void visit(Cpp::NamespaceDeclNode& node) override;
    void visit(Cpp::AccessSpecNode& node) override;
    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::ClassBodyNode& node) override;
    void visit(Cpp::RootNode& node) override;
    void visit(Cpp::SyntaxNode& node) override;

    /// Ends the group: gives its members their column.
    virtual void flushGroup();

protected:
    const LayoutOptions& options() const { return *options_; }
    /// True if the names of data, or of functions, have a column of their own here.
    bool alignsDataNames() const { return options().alignDdNamesLeft || alignsMembers(); }
    bool alignsFnNames() const { return options().alignFnDeclNamesLeft || alignsMembers(); }
    bool alignsMembers() const { return options().alignClassMemberNamesLeft && inClassBody_; }

    /// Lets each child of `node` accept this pass.
    void walkChildren(Cpp::InteriorNode& node);
    /// Ends the group and lets `body` accept this pass; a missing body only ends the group.
    void flushAndEnter(Cpp::SyntaxNode* body);

    /// The column of a group whose widest member measures `widest`.
    int groupColumn(int widest) const;
    static void assignColumn(int column, std::vector<const Cpp::SyntaxNode*>& nodes, Columns& columns);

    // Filled as groups end.
    Columns columns_;

    // The group being collected. The widest measure so far is 0 at its start.
    std::vector<const Cpp::SyntaxNode*> pending_;
    int widest_ = 0;

    // Changing from visit to visit. The start of a template head counts as the start of the
    // declaration that it waits for. While afterClassBody_ is true, the next data declaration
    // holds the declarators of a class; it lasts for one child, and nothing here sets it.
    bool templatePending_ = false;
    Trn::Position templateStart_;
    bool afterClassBody_ = false;
    bool inClassBody_ = false;

private:
    SharedOptions options_;
};

} // namespace Norvane

#endif
