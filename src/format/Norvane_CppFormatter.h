#ifndef KERFLINE_NORVANE_CPPFORMATTER_H
#define KERFLINE_NORVANE_CPPFORMATTER_H

#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_Nodes.h"
#include "src/expr/Norvane_CppExprFormatter.h"
#include "src/expr/Norvane_ExprCode.h"
#include "src/scheme/Norvane_LayoutOptions.h"
#include "src/scheme/Norvane_PropertySet.h"
#include "streams/Zelmar_IndentWriter.h"
#include "streams/Zelmar_SourceText.h"

#include <cstddef>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Norvane {

/// The pass that makes the formatted text. It prints no tree: it copies the source from the read
/// point to the place of a node, and only where the scheme holds a value for a gap does the value
/// take the place of the white space there.
///
///     std::ostringstream out;
///     CppFormatter formatter(source, out, scheme);
///     root.accept(formatter);                       // `out` holds the whole text now
///
/// Whatever is not white space comes out as it went in, in its order: a gap may hold a lone ";", a
/// "using" that has no node, a comment or a directive. A directive keeps its own line, and nothing
/// is written behind a line comment. An empty scheme gives the source back.
///
/// While the writer keeps leading white space under an empty indent, the left edge belongs to the
/// source. A value that breaks a line then has to bring an indentation along: that of the line on
/// which the construct starts.
///
/// One object serves one source and one tree, which must belong to that source. Raises no error.
class CppFormatter : public Cpp::Emitter, private ExprCode {
public:
    /// Formats under an empty scheme. Reads `source` to its end at once; `output` is not owned and
    /// must outlive the pass.
    CppFormatter(std::istream& source, std::ostream& output);
    CppFormatter(std::istream& source, std::ostream& output, const PropertySet& scheme);
    /// Lays out a text at hand. The result stays here.
    CppFormatter(std::shared_ptr<const Zelmar::SourceText> source, SharedOptions options);

    /// Hands the result over, once the root has been visited. For a formatter without a stream.
    std::string takeText() { return std::move(result_); }

    using Cpp::Emitter::visit;
    void visit(Cpp::AsmNode& node) override;
    void visit(Cpp::LabelNode& node) override;
    void visit(Cpp::TextNode& node) override;
    void visit(Cpp::FunctionPtrDeclNode& node) override;
    void visit(Cpp::LinkageBlockBodyNode& node) override;
    void visit(Cpp::LinkageBlockNode& node) override;
    void visit(Cpp::EnumBodyNode& node) override;
    void visit(Cpp::EnumHeadNode& node) override;
    void visit(Cpp::EnumDeclNode& node) override;
    void visit(Cpp::PreprocDirectiveNode& node) override;
    void visit(Cpp::CommentNode& node) override;
    void visit(Cpp::TemplateNode& node) override;
    void visit(Cpp::CaseNode& node) override;
    void visit(Cpp::KeywordNode& node) override;
    void visit(Cpp::CtrlSubStmtHeadNode& node) override;
    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::CtrlStmtNode& node) override;
    void visit(Cpp::ExprNode& node) override;
    void visit(Cpp::TypeNode& node) override;
    void visit(Cpp::InitializerNode& node) override;
    void visit(Cpp::InitializerListNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::ParameterNode& node) override;
    void visit(Cpp::IdNode& node) override;
    void visit(Cpp::BlockNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::NamespaceBodyNode& node) override;
    void visit(Cpp::NamespaceHeadNode& node) override;
    void visit(Cpp::NamespaceDeclNode& node) override;
    void visit(Cpp::AccessSpecNode& node) override;
    void visit(Cpp::ClassNameNode& node) override;
    void visit(Cpp::ClassHeadNode& node) override;
    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::ClassBodyNode& node) override;
    void visit(Cpp::BaseClauseListNode& node) override;
    void visit(Cpp::BaseClauseNode& node) override;
    void visit(Cpp::RootNode& node) override;

private:
    using ColumnMap = std::unordered_map<const Cpp::SyntaxNode*, int>;
    using Position = Trn::Position;

    /// Where a construct begins. Everything in it is indented from here and not from the start of
    /// the line. If the left edge was the source's there, the indentation of the line is a piece of
    /// the output, so that tabs stay tabs.
    struct Base {
        int column = 0; // from 0
        std::size_t lineBegin = 0;
        std::size_t indentSize = 0;
        bool ofSource = false;
    };

    /// White space that the next construct puts in the place of the gap in front of it.
    struct PendingWs {
        std::string_view value;
        /// Source offset behind the template head that left it, or npos. Such a value is only meant
        /// for a declaration that follows the head at once.
        std::size_t templateEnd = std::string_view::npos;
    };

    /// A gap whose white space at the end gives way to `value`.
    struct GapEnd {
        std::string_view kept;
        std::string_view value;
    };

    /// The options of a braced body.
    struct BodyStyle {
        const OptionalString& indent;
        const OptionalString& wsAfterOpen;
        const OptionalString& wsBeforeClose;
    };

    /// The options of a comma list.
    struct ListStyle {
        const OptionalString& wsComma;
        const OptionalString& wsBetween;
        /// The elements line up, in the lines that they have in the source.
        bool rows = false;
    };

    /// A stretch between format-off markers, with both of them, by source offsets.
    struct Region {
        std::size_t begin = 0;
        std::size_t end = 0; // one past the last character
        Position start;
        Position last;

        bool holds(std::size_t offset) const { return begin <= offset && offset < end; }
    };

    /// A statement that shares its line with what stands in front of it, such as a case label.
    struct LineNote {
        std::size_t begin = std::string_view::npos; // source offset of what stands in front
        int line = 0;                               // of the output
    };

    /// Code in an expression, by source offsets.
    struct Code {
        std::size_t head = 0;
        std::size_t begin = 0;
        std::size_t end = 0; // one past the closing brace
        Cpp::BlockNode* block = nullptr;
        std::vector<Region> regions; // of its own, in order
    };

    struct FnHead;
    struct DataLine;

    class RegionFinder;

    class Edge;
    class ShapeScope;
    class BaseScope;
    class PendingScope;
    class CodeScope;
    class ChildScope;

    // The text: copying it, and the white space in it.
    bool sourceOwnsEdge() const;
    std::string_view sourceText() const { return source_.text(); }
    std::size_t offsetIn(std::string_view piece) const;
    char sourceChar(const Position& position) const;
    std::string_view sourceFrom(const Position& position) const;
    bool isDirective(const Cpp::SyntaxNode& node) const;
    bool isNote(const Cpp::SyntaxNode& node) const;
    bool isLineComment(const Cpp::SyntaxNode& node) const;
    bool startsLine(const Position& position) const;
    std::string_view readUpTo(const Position& position);
    std::string_view readThrough(const Position& position);
    std::string_view readRest();
    void copyUpTo(const Position& position) { writeSource(readUpTo(position)); }
    void copyThrough(const Position& position) { writeSource(readThrough(position)); }
    std::string_view readToRegionOr(const Position& position);
    std::string_view wholeTokens(std::string_view read);
    void writeNextRegion();
    bool isInRegion(const Position& position) const;
    void copyNode(const Cpp::SyntaxNode& node);
    void copyAssembler(const Position& start, const Position& end);
    void noteLineEnd();
    bool isOutputLineBlank() const;
    void writeSource(std::string_view text);
    void writeSourceTokens(std::string_view text);
    void writeDirective(const Position& start, const Position& end, Zelmar::SourceReader& input);
    void writeDirectiveOf(std::size_t lineBegin, std::size_t begin, std::size_t end);
    bool staysBroken(std::string_view gap, std::string_view value) const;
    bool staysInColumn(std::string_view gap, std::string_view value) const;
    GapEnd splitGapEnd(std::string_view gap, std::string_view value) const;
    void writeGapEnd(std::string_view gap, std::string_view value, const Base& base);
    void moveGapEnd(std::string_view gap, std::string_view value, const Base& base);
    void writeAtBase(std::string_view value, const Base& base);
    void writeInPlace(std::string_view value);
    void writeInPlace(std::string_view value, const Cpp::SyntaxNode& child);
    void writeKept(std::string_view text, const OptionalString& indent);
    bool leavesIndent(const Cpp::SyntaxNode& child, std::string_view value) const;
    std::string_view readGapBefore(const Cpp::SyntaxNode& child, std::string_view value);
    bool ownsGap(const Cpp::SyntaxNode& child) const;
    Position lineOrStart(const Cpp::SyntaxNode& child) const;
    void padColumns(int count);
    void padToColumn(int target, int indentWidth, bool hanging, std::string_view next);

    // Where constructs begin.
    Base baseHere();
    Base beginAt(const Position& position);
    Base constructHere();
    Base constructAt(const Position& position);
    const Base& base() const;
    const Base& scopeBase() const;
    std::string baseIndent(const Base& base) const;
    std::string bodyIndent(const OptionalString& spec) const;

    // The shape of statements that take several lines.
    void armShape(const Cpp::SyntaxNode& node);
    void beginShape();
    void beginChild(const Cpp::SyntaxNode& child);
    void endChild(const Cpp::SyntaxNode& child);
    void endShapes(const Position& end, const OptionalString& indent);
    bool writeLooseStart(const Position& first, const BodyStyle& style);
    void copyLooseStatements(const Position& end);
    int sourceColumn(std::size_t offset);
    void beginRead();
    /// In code within an expression a statement owns its shape whatever the scheme says.
    bool ownsShape() const { return options_.keepShape || inCode_; }
    bool keepsShape() const { return ownsShape() && !sourceOwnsEdge(); }
    int closeColumn() const;
    void writeCloseBraceOnLine(const Cpp::InteriorNode& node, int column);

    // Constructs that stay on one line.
    class OneLine;
    class Checkpoint;
    void writeText(Cpp::RootNode& node);
    void writePass(Cpp::RootNode& node);
    void writeTopLevel(Cpp::RootNode& node);
    bool isSettled() const;
    bool hasToGoBack();
    bool isOneLiner(const Position& start, const Position& end) const;
    bool isOneLiner(const Cpp::SyntaxNode& node) const;
    std::string_view onOneLine(std::string_view value, std::string_view gap, bool oneLine) const;
    const OptionalString& onOneLine(const OptionalString& option, bool oneLine) const;
    const OptionalString& withinBraces(const OptionalString& option) const;
    void noteLine(std::size_t begin, int line, bool isList = false);
    void noteLists(const Checkpoint& from);
    void settleLineNote();

    // What constructs hand on to each other.
    void pushPending(const OptionalString& option);
    bool takePending(const Position& start, std::string_view& value);
    void beginDeclaration(const Cpp::SyntaxNode& node);
    bool takeTemplateBase(const Position& start, Base& base);
    bool onlyNotesBetween(std::size_t begin, const Position& end) const;

    // Bodies and lists.
    static bool hasBrace(const Cpp::InteriorNode& node);
    void writeChildren(Cpp::InteriorNode& node, const OptionalString& indent);
    void writeChild(Cpp::InteriorNode& node, Cpp::InteriorNode::iterator child);
    void writeBehindLabel(const Cpp::SyntaxNode& label, const Cpp::SyntaxNode& next);
    void writeBody(Cpp::InteriorNode& node, const BodyStyle& style);
    void writeBracedBody(Cpp::InteriorNode& node, const BodyStyle& style);
    void writeBodyStart(const Cpp::InteriorNode& node, const BodyStyle& style, bool braced);
    bool isHeadNote(const Cpp::InteriorNode& body) const;
    void writeOpenBrace(const Cpp::InteriorNode& node, const BodyStyle& style);
    void writeCloseBrace(const Cpp::InteriorNode& node, const BodyStyle& style, int column);
    void writeEmptyBraces(const Cpp::InteriorNode& node, const BodyStyle& style);
    void writeAfterOpen(std::string_view gap, std::string_view value);
    void writeList(Cpp::InteriorNode& list, const ListStyle& style);
    void writeListOf(const std::vector<Cpp::SyntaxNode*>& elements, const ListStyle& style);
    void writeElementsOf(const std::vector<Cpp::SyntaxNode*>& elements, const ListStyle& style);
    void writeListGap(const Cpp::SyntaxNode& element, const Cpp::SyntaxNode& next, const ListStyle& style);
    void writePlainListGap(std::string_view gap, const ListStyle& style);
    void writeKeptListGap(std::string_view gap, const ListStyle& style);

    // Classes.
    bool endsWithBody(const Cpp::ClassDeclNode& node) const;
    void writeColonOf(const Cpp::InteriorNode& list, const OptionalString& wsBefore, const OptionalString& wsAfter);
    void writeColon(std::string_view gap, const OptionalString& wsBefore, const OptionalString& wsAfter,
                    const Base& base);
    void writeFrontEnd(std::string_view front, const std::string& value, const Base& base);
    void writeAccessLabel(std::string_view label, std::string_view sourceIndent);

    // Functions.
    Base writeFnHead(Cpp::FunctionDeclNode& node);
    void writeFnName(const Cpp::FunctionDeclNode& node, FnHead& fn);
    void writeNameWithoutType(FnHead& fn);
    const OptionalString& wsAfterReturnType(const FnHead& fn);
    void writeReturnType(FnHead& fn, std::string_view text);
    void writePointerReturn(FnHead& fn, std::string_view text);
    void writeAlignedReturn(FnHead& fn, std::string_view text);
    void writeFnParams(const Cpp::FunctionHeadNode& head);
    void writeParams(Cpp::ParameterListNode& list);
    void writeFnBody(Cpp::BlockNode& body);
    bool isAnchoredMark(std::string_view text) const;
    bool isHangingMark(std::string_view text) const;
    bool alignsFnNames() const;

    // Data.
    bool alignsDataNames() const;
    bool isFurtherPointer(const Cpp::DataDeclNode& node) const;
    bool followsCommaOnLine(const Cpp::DataDeclNode& node) const;
    void writeFurtherPointer(const Cpp::DataDeclNode& node, DataLine& line);
    void writePlainName(const Cpp::DataDeclNode& node, DataLine& line);
    void writeDataType(std::string_view text, const DataLine& line);
    void writeAlignedName(const Cpp::DataDeclNode& node, DataLine& line);
    void padName(const Cpp::DataDeclNode& node, DataLine& line, std::string_view marks, bool hanging);
    void writeInitializer(const Cpp::DataDeclNode& node, const DataLine& line);
    void writeNameText(std::string_view text, char initStart, const DataLine& line);
    void fixBrackets(std::string& text) const;
    void padInitializer(const Cpp::DataDeclNode& node, const DataLine& line);
    std::string formatBehind(char lead, std::string_view text);

    // Enumerations.
    bool onSeparateLines(const Cpp::EnumBodyNode& node) const;
    bool ownsRows(const Cpp::EnumBodyNode& node, const BodyStyle& style) const;
    void writeShapedEnum(const Cpp::EnumBodyNode& node, const BodyStyle& style);
    void writeElements(const Cpp::EnumBodyNode& node, const OptionalString& indent);

    // Templates.
    void writeTemplateParams(Cpp::ParameterListNode& list);
    void writeTemplateClose(const Cpp::ParameterListNode& list);

    // Statements.
    Base beginBlock(const Cpp::BlockNode& node);
    void writeBlockOnNewLine(const Cpp::BlockNode& node);
    Base lineBase();
    void breakParts(const Cpp::CtrlStmtNode& node);
    bool isFunctionTry(const Cpp::CtrlStmtNode& node) const;
    void joinElseIf(const Position& start);
    const OptionalString& separatorOf(const Cpp::CtrlStmtNode& node) const;
    void writeCtrlBody(Cpp::BlockNode& body, const Cpp::CtrlSubStmtHeadNode* head);
    void writeCondition(int keyword, std::string_view text, bool sourceEdge);
    void writeInParens(int keyword, std::string_view inner, const Base& paren);
    bool writeForClauses(std::string_view inner, const Base& paren);
    void writeForGap(std::string_view gap, std::string_view clause, const OptionalString& wsBefore);
    void writeForClause(std::string_view clause, const OptionalString& wsBefore, bool isDeclaration);
    void formatCondition(int keyword, std::string_view text);

    // Code in expressions.
    void takeCode(const Cpp::RootNode& root);
    std::vector<Region> findRegions(Cpp::SyntaxNode& node) const;
    bool isApart(const Code& code) const;
    std::optional<Extent> find(const char* brace) const override;
    void noteHead(std::size_t number) override;
    int headColumn(std::size_t number) const override;
    void writeCode(std::size_t number) override;
    const OptionalString& closureIndent() const;
    Base codeBase();

    // Fixed at construction.
    SharedOptions sharedOptions_;
    const LayoutOptions& options_;
    std::shared_ptr<const Zelmar::SourceText> sharedSource_;
    const Zelmar::SourceText& source_;
    std::string result_;
    std::ostream* destination_ = nullptr; // where the result goes, too
    CppExprFormatter exprFormatter_;

    // Changing from visit to visit.
    Zelmar::SourceReader input_;
    Zelmar::IndentWriter output_;
    /// The top belongs to the innermost construct.
    std::vector<Base> baseColumns_;
    std::vector<PendingWs> pendingWs_;
    /// Nothing below belongs to the construct being written.
    std::size_t pendingFloor_ = 0;
    /// The bases below belong to the constructs around the innermost list of children.
    std::size_t scopeBases_ = 0;
    /// The indents that the open edges put back, in reused strings: the walk is deep and its frames
    /// have to stay small.
    std::vector<std::string> savedIndents_;
    std::size_t openEdges_ = 0;
    /// Source offset behind the last token that took the line feed of its line with it.
    std::size_t lineEnd_ = std::string_view::npos;
    /// The statement that was written last has not ended yet.
    bool statementOpen_ = false;
    /// The line of the output in which it begins, 0 if there is none, and the indentation there.
    int statementLine_ = 0;
    int statementColumn_ = 0;
    /// Source offset of the statement that is to keep its shape from its first character on, or npos.
    std::size_t shapeStart_ = std::string_view::npos;
    /// The place whose column was asked for last: the next one on its line is counted from there.
    std::size_t columnOffset_ = 0;
    int columnThere_ = 0;
    /// The first region that is still to come.
    std::size_t nextRegion_ = 0;
    /// What was read up to last lies in a region, and the gap in front of it too.
    bool gapIsInRegion_ = false;
    bool inClassBody_ = false;
    bool inCode_ = false;
    bool afterClassBody_ = false;
    bool afterCaseLabel_ = false;
    bool inElseIf_ = false;
    /// A template head has left its column on baseColumns_ for the declaration that it heads.
    bool templateColumnPending_ = false;
    std::size_t templateBases_ = 0;
    std::size_t templateEnd_ = 0;

    /// Source offsets of the constructs that the passes so far have found too long for one line, and
    /// of those that the current pass finds.
    std::unordered_set<std::size_t> broken_;
    std::vector<LineNote> overlong_;
    int pass_ = 1; // over what is being written
    /// The colon of the list to come stays on its line.
    bool joinsColon_ = false;
    LineNote lineNote_;
    std::vector<LineNote> listLines_; // in the order of the lines
    /// Where the heads of code stand, as far as they have been written.
    std::vector<Base> codeBases_;

    // Filled at the root, only read afterwards.
    std::vector<Code> code_; // in the order of the text
    std::vector<Region> regions_; // in the order of the text
    ColumnMap nameColumns_;
    ColumnMap initializerColumns_;
    ColumnMap fnNameColumns_;
};

} // namespace Norvane

#endif
