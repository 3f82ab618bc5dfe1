#ifndef KERFLINE_NORVANE_CPPLINEWRAPPER_H
#define KERFLINE_NORVANE_CPPLINEWRAPPER_H

#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_Nodes.h"
#include "src/expr/Norvane_CppExprFormatter.h"
#include "src/scheme/Norvane_LayoutOptions.h"
#include "src/wrap/Norvane_CppExprLineWrapper.h"
#include "streams/Zelmar_IndentWriter.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Position.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Norvane {

/// Keeps a formatted text within RIGHT_MARGIN.
///
/// The pass copies the text and asks of each construct only whether it touches a line beyond the
/// margin. One that does not is copied as it stands. In one that does, the parts that know how to
/// break are rewritten: expressions, conditions, initialisers, and the comma lists of parameters,
/// base classes, member initialisers, template parameters and enumerators.
///
///     root.accept(wrapper)        // the tree of the formatted text; writes all of it
///
/// No white-space option is applied here: the text went through them before. What indents are for
/// is where new lines start. A part that can't be broken stays too long, and that is no error.
/// A region that is not to be formatted is copied byte for byte.
///
/// The stream is not owned and must outlive the pass. One object serves one text.
class CppLineWrapper : public Cpp::Emitter {
public:
    using Cpp::Emitter::visit;

    CppLineWrapper(const PropertySet& scheme, const std::string& formattedText, std::ostream& wrapped)
        : CppLineWrapper(std::make_shared<const Zelmar::SourceText>(formattedText), readOptions(scheme)) {
        wrapped_ = &wrapped;
    }
    /// Wraps a text at hand. The result stays here.
    CppLineWrapper(std::shared_ptr<const Zelmar::SourceText> formatted, SharedOptions options);

    /// Hands the result over, once the root has been visited. For a wrapper without a stream.
    std::string takeText() { return output_.takeText(); }

    /// True if the pass would write `text` as it stands, since no line of it is beyond the margin:
    /// then it need not be parsed for the pass.
    static bool leavesAsItIs(const LayoutOptions& options, std::string_view text);

    /// True if the pass has rewritten an expression that holds the statements of a closure, of which it has
    /// looked at none.
    bool leavesCode() const { return leavesCode_; }

    /// True if `node` has an extent and a line beyond the margin from its first line to its last.
    /// A node that ends at a line feed has nothing on the line behind it.
    bool overMargin(const Cpp::SyntaxNode& node) const;

    void visit(Cpp::RootNode& node) override;
    void visit(Cpp::NamespaceDeclNode& node) override;
    void visit(Cpp::NamespaceBodyNode& node) override;
    void visit(Cpp::LinkageBlockNode& node) override;
    void visit(Cpp::LinkageBlockBodyNode& node) override;
    void visit(Cpp::TemplateNode& node) override;
    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::ClassHeadNode& node) override;
    void visit(Cpp::ClassBodyNode& node) override;
    void visit(Cpp::BaseClauseListNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::FunctionPtrDeclNode& node) override;
    void visit(Cpp::InitializerListNode& node) override;
    void visit(Cpp::EnumDeclNode& node) override;
    void visit(Cpp::EnumBodyNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::BlockNode& node) override;
    void visit(Cpp::CtrlStmtNode& node) override;
    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::CtrlSubStmtHeadNode& node) override;
    void visit(Cpp::ExprNode& node) override;
    void visit(Cpp::CommentNode& node) override;

    // These know no place to break.
    void visit(Cpp::AsmNode& node) override;
    void visit(Cpp::LabelNode& node) override;
    void visit(Cpp::TextNode& node) override;
    void visit(Cpp::EnumHeadNode& node) override;
    void visit(Cpp::PreprocDirectiveNode& node) override;
    void visit(Cpp::CaseNode& node) override;
    void visit(Cpp::KeywordNode& node) override;
    void visit(Cpp::TypeNode& node) override;
    void visit(Cpp::IdNode& node) override;
    void visit(Cpp::NamespaceHeadNode& node) override;
    void visit(Cpp::AccessSpecNode& node) override;
    void visit(Cpp::ClassNameNode& node) override;

private:
    class ColumnScope;
    class ContentIndent;

    /// Takes a text that stands at the end of the output, and returns it rewritten.
    using Rewrite = std::function<std::string(const std::string&)>;

    const WrapOptions& rules() const { return options_->wrap; }
    void findOverLines();

    // Copies of the formatted text: as it stands, whatever the indent.
    void copyUpTo(const Trn::Position& position) { output_.writeRaw(reader_.readUpTo(position)); }
    void copyThrough(const Trn::Position& position) { output_.writeRaw(reader_.readThrough(position)); }
    void copyNode(const Cpp::SyntaxNode& node) { copyThrough(node.end()); }
    int copyUpToStart(const Cpp::SyntaxNode& node);
    static std::string_view stuckPart(std::string_view text);
    std::string_view follower() const;
    std::string_view followerThrough(std::size_t headEnd) const;
    std::size_t endOfHead(const Trn::Position& headEnd) const;

    int baseColumn() const { return indentColumns_.empty() ? 0 : indentColumns_.back(); }
    std::string indentFor(int column) const;
    std::string continuationIndent() const;
    Zelmar::IndentStreamState state() const;
    Zelmar::IndentStreamState stateWith(const std::string& indent) const;

    void visitChildren(Cpp::InteriorNode& node);
    void writeBody(Cpp::InteriorNode& body, const OptionalString& indent);
    int declarationColumn(const Cpp::SyntaxNode* head);
    void writeSettled(std::string text, const Rewrite& wrap, const Rewrite& layOut);
    void wrapHead(Cpp::FunctionHeadNode& head);
    void wrapParameters(Cpp::ParameterListNode& params, const Trn::Position& headEnd);
    void writeFunctionBody(Cpp::BlockNode* block);
    void wrapCommaList(Cpp::InteriorNode& list, const ListStyle& spacing, const std::string& indent,
                       std::size_t headEnd);
    void wrapEnumerators(Cpp::EnumBodyNode& node);
    void wrapElements(const Cpp::InteriorNode& list, const ListStyle& spacing, const std::string& indent,
                      const Rewrite& wrap, const Rewrite& layOut);
    std::string layOutList(const std::string& text, const ListStyle& spacing);
    std::string joinElements(const std::string& text, const std::string& indent);
    std::optional<std::string> rowIndent(const std::string& text, const Rewrite& layOut);
    std::string wrapInitializer(const std::string& text, const std::optional<std::string>& rows);
    std::string wrapBracedInitializer(const std::string& text, std::string_view open, std::string_view close,
                                      const std::optional<std::string>& rows);
    std::string layOutInitializer(const std::string& text);
    std::vector<const Cpp::CodeInExpression*> codeIn(const Cpp::SyntaxNode& node) const;
    bool isOverInCode(const Cpp::SyntaxNode& node, const std::vector<const Cpp::CodeInExpression*>& codes) const;
    bool holdsRegion(const Cpp::SyntaxNode& node) const;
    int indentOfLine(std::uint32_t line) const;
    bool wrapCodeIn(const Cpp::SyntaxNode& node);
    void visitElseIf(Cpp::BlockNode& block);
    void wrapCondition(const Cpp::ExprNode& condition, bool hasParts);
    std::string layOutCondition(const std::string& text, bool hasParts);
    void moveComment(const Cpp::CommentNode& node);

    SharedOptions options_;
    std::shared_ptr<const Zelmar::SourceText> sharedSource_;
    const Zelmar::SourceText& source_;
    Zelmar::SourceReader reader_;
    // Its mode is always to leave white space alone: the text was converted when it was formatted.
    Zelmar::IndentWriter output_;
    std::ostream* wrapped_ = nullptr; // where the result goes, if it does not stay here
    CppExprFormatter exprFormatter_;
    CppExprLineWrapper exprWrapper_;
    // Made once, then only read: the numbers of the lines beyond the margin, in order.
    std::vector<std::uint32_t> overLines_;
    std::span<const Cpp::CodeInExpression> code_; // of the tree being visited

    bool leavesCode_ = false;

    // Changing from visit to visit. The top is the column of the construct being copied.
    std::vector<int> indentColumns_;
    // The number of columns above which the one of a template head waits for its declaration; 0 if
    // none does.
    std::size_t templateDepth_ = 0;
};

} // namespace Norvane

#endif
