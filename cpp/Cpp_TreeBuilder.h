#ifndef KERFLINE_CPP_TREEBUILDER_H
#define KERFLINE_CPP_TREEBUILDER_H

#include "cpp/Cpp_BraceClassifier.h"
#include "cpp/Cpp_Names.h"
#include "cpp/Cpp_NodePool.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Recovery.h"
#include "cpp/Cpp_TokenTable.h"
#include "trn/Trn_Message.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Cpp {

/// One parse of one table of tokens. Each parse function reads from the read point `at_` on and
/// leaves it behind what it took; on failure it returns null after reporting.
///
/// Nothing is copied: a construct is a range of token indexes, and questions about brackets are
/// answered by the table. Nesting is limited, so that no input can exhaust the stack.
class TreeBuilder {
public:
    using Index = TokenTable::Index;

    /// With `recovery` each item of a body that cannot be read is left alone, and its messages go there;
    /// without, all is reported to `messages`.
    TreeBuilder(const TokenTable& table, NodePool& pool, Trn::MessageList& messages, Recovery* recovery = nullptr)
        : t_(table), braces_(table), pool_(pool), messages_(messages), recovery_(recovery),
          codeTaken_(braces_.codeBraces().size()) {}

    void parseRoot(RootNode& root);
    /// True if a "}" was met that closes nothing.
    bool hasStrayBrace() const { return strayBrace_; }

private:
    static constexpr Index kNone = TokenTable::kNone;
    // Deep enough for generated code; a level of the passes needs up to some kB of stack.
    static constexpr int kMaxDepth = 1000;
    // More closures in closures than anybody writes. Each pass looks at the text around once a level.
    static constexpr int kMaxCodeDepth = 32;

    template <class T> using Ptr = OwnedNode<T>;
    using NodePtr = Ptr<SyntaxNode>;

    /// What a body may hold.
    enum class Body { Root, Class, Namespace, CLinkage, CppLinkage };

    /// How a declaration goes on, and where its kind was decided.
    enum class DeclKind { Failed, Function, Data, Class, Enum, BraceInit };
    struct DeclHead {
        DeclKind kind = DeclKind::Failed;
        Index at = 0;        // the "(" of a function, the "{" of a class, the token that ends the scan
        bool pointer = false; // a declarator in parentheses
        Index op = kNone;    // the keyword "operator"
        bool member = false; // of a class
    };
    /// What a scan over the first tokens of a declaration has met so far.
    struct HeadScan {
        Index prev = kNone;
        bool colon = false;
        bool enumKey = false;
        bool classKey = false;
        int names = 0; // behind the class key
        bool macroInHead = false; // and in front of the name a macro with arguments
    };
    /// Where a run of data tokens ends.
    struct DataRun {
        Index end = 0; // one past the last token of the declarator
        bool hasTerminator = false; // `end` is a ";" or a "," that belongs to it
        bool initialised = false;   // a "=" was met
    };
    /// Whether the declarators of one declaration are declarations of their own.
    enum class Declarators { Apart, Together };
    /// What follows the parameters of a function.
    struct FunctionTail {
        Index last = 0; // the last token that the head node covers
        Index next = 0; // where parsing goes on
        Index initColon = kNone;
        bool typed = false;   // the function has a type
        bool noted = false;   // something that the head does not cover was met
        bool skipped = false; // so is the rest up to the ";"
        bool moreDeclarators = false;
        bool failed = false;
    };

    class Depth;

    /// What had been read when an item of a body began.
    struct Turn {
        Index first = 0;
        std::size_t children = 0;
        std::size_t messages = 0;
        std::size_t code = 0;
        std::size_t errors = 0;
        Index failedAt = 0; // of the item around it
        Index reached = 0;
    };

    // Reporting.
    void report(std::int32_t code, Index at);
    void report(std::string text, Index at);
    void addMessage(std::int32_t code, std::string text, Index at);
    void reportEnd(Index before) { report(1, lastTaken(before)); }
    void noteFailure(std::int32_t code, Index at);
    Index lastTaken(Index before) const;
    bool tooDeep(Index at);
    void giveUp();

    // Recovering.
    Turn beginTurn(const InteriorNode& body);
    bool endTurn(InteriorNode& body, const Turn& turn);
    bool isUnclosed(Index brace);
    void appendStretch(InteriorNode& body, Trn::Position start, Trn::Position end) const;

    // What nodes are made of.
    template <class Node, class... Arguments> Ptr<Node> make(Arguments&&... arguments) const {
        return pool_.make<Node>(std::forward<Arguments>(arguments)...);
    }
    /// The same for a part that is handed to a node as a pointer.
    template <class Node, class... Arguments> Node* part(Arguments&&... arguments) const {
        return pool_.make<Node>(std::forward<Arguments>(arguments)...).release();
    }
    NodeText joined(Index first, Index last) const { return NodeText::joined(t_, first, last); }
    NodeText spelled(Index i) const { return NodeText::spelling(t_, i); }

    // Small questions.
    int type(Index i) const { return t_.type(i); }
    Index sig(Index i) const { return t_.significant(i); }
    Index nextSig(Index i) const { return i < t_.size() ? t_.significant(i + 1) : t_.size(); }
    int nextType(Index i) const { return type(nextSig(i)); }
    bool isWord(Index i, std::string_view word) const { return t_.text(i) == word; }
    bool isValueBrace(Index i) const { return isInExpression(braces_.kind(i)); }
    bool isBehindBody(Index i) const;
    bool isAsm(Index i) const;
    bool takesPair(Index i) const;
    bool isAttribute(Index i) const;
    Index skipAttributes(Index i) const;
    Index skipSpecifiers(Index i) const;
    Index skipPair(Index i) const;
    Index findSemicolon(Index from) const;
    bool isMacroRun(Index first, Index last) const;
    bool endsInColons(Index i) const;
    bool continuesName(Index i) const;
    static bool hasWord(std::string_view name, std::string_view word);
    bool isLoneMacro(Index i) const;
    bool isMacroCall(Index name) const;

    // Bodies and what all of them share.
    bool parseBody(InteriorNode& body, Body kind);
    bool parseBodyItem(InteriorNode& body, Body kind);
    void addNote(InteriorNode& body);
    void addNotes(InteriorNode& body);
    void skipThroughSemicolon(InteriorNode* notes);
    void parseMember(InteriorNode& body, Body kind);
    void parseSpecified(InteriorNode& body, Body kind);
    void parseWord(InteriorNode& body, Body kind);
    bool isBehindComma(Index i) const;
    bool isBitfieldWidth(Index i) const;
    bool parseAccess(InteriorNode& body, Body kind);
    void parseControl(InteriorNode& body, Body kind);
    void addUnlessNull(InteriorNode& body, NodePtr node) { if (node) body.append(std::move(node)); }

    // Declarations.
    NodePtr parseDeclaration(bool allowBitfield);
    DeclHead scanHead(Index first) const;
    Index skipConstraint(Index requires_) const;
    bool endsScan(Index first, Index& j, HeadScan& met, DeclHead& head) const;
    void takeHeadWord(Index& j, HeadScan& met, DeclHead& head) const;
    bool endsAtBracket(Index& j, const DeclHead& head, const HeadScan& met) const;
    bool endsAtParen(Index first, Index& j, HeadScan& met, DeclHead& head) const;
    bool isMacroInClassHead(const HeadScan& met, Index paren) const;
    bool isSpecifierMacro(Index first, Index paren, Index prev) const;
    bool opensDeclarator(Index paren, Index prev) const;
    bool isNameBefore(Index prev) const;
    NodePtr parseDataFrom(Index first, Index scanned, bool allowBitfield);
    NodePtr parseData(Index first, Index last, const DataRun& run, bool allowBitfield);
    DataRun collectData(Index first, Index from, Declarators declarators = Declarators::Apart) const;
    Index firstComma(Index first, Index last) const;
    Index findHeadEnd(Index first, Index last, bool allowBitfield) const;
    Index findName(Index first, Index last) const;
    bool splitBitfield(Index first, Index last, DataDeclNode& node) const;
    void splitDeclarator(Index first, Index last, DataDeclNode& node) const;
    NodePtr parseBraceInit(Index first, const DeclHead& head, bool allowBitfield);
    void endAtSemicolon(SyntaxNode& node);

    // Classes, enums, namespaces, templates, linkage.
    NodePtr parseClassDecl(Index first, Index brace);
    Ptr<ClassHeadNode> parseClassHead(Index first, Index brace);
    Index skipGroup(Index i) const;
    Ptr<BaseClauseListNode> parseBaseClauses(Index first, Index last);
    Ptr<BaseClauseNode> parseBaseClause(Index first, Index end, bool compares);
    NodePtr parseAccessLabel();
    NodePtr parseEnumDecl(Index first, Index brace);
    Ptr<EnumBodyNode> parseEnumBody(Index brace);
    NodePtr parseNamespace();
    NodePtr parseTemplate();
    NodePtr parseExtern();
    NodePtr parseLinkageBlock(Index lastOfHead);

    // Functions.
    NodePtr parseFunction(Index first, const DeclHead& head);
    FunctionTail scanTail(Index first, Index paren);
    bool takeTailPiece(FunctionTail& tail, Index first, Index paren);
    bool takeThrow(FunctionTail& tail);
    bool takeAssign(FunctionTail& tail, Index first, Index paren);
    void takeInitializers(FunctionTail& tail);
    bool isVirtual(Index first, Index paren) const;
    static bool looksLikeMacroClass(std::string_view name);
    bool skipTailPiece(FunctionTail& tail);
    Index skipMacroRun(Index k, bool typed) const;
    Index findInitBody(Index colon) const;
    Ptr<FunctionHeadNode> parseFunctionHead(Index first, Index paren, Index op, bool member, Index end);
    Index findFunctionName(Index first, Index paren) const;
    Index nameStart(Index first, Index at) const;
    NodeText functionName(Index first, Index op, Index paren);
    bool isOpenAngle(Index less) const;
    bool parseHeadTail(FunctionHeadNode& head, Index from, Index end);
    Ptr<ParameterListNode> parseParameterList(Index open, Index close);
    Ptr<InitializerListNode> parseMemberInits(Index colon, Index brace);
    Ptr<InitializerNode> parseMemberInit(Index& at, Index brace);
    Ptr<ArgListNode> parseArgs(Index open, Index close) const;
    NodePtr parseFunctionPtr(Index first, Index paren, Index end);
    NodePtr parsePointer(Index first, const DeclHead& head);
    NodePtr finishFunction(Ptr<FunctionHeadNode> head, const FunctionTail& tail);

    // Code in expressions.
    void takeCode(Index first, Index end);
    void parseCode(Index brace);

    // Checks.
    Index endOfGroup(Index i) const;
    bool checkOperator(Index op, Index paren, bool member);
    bool checkConversion(Index first, Index paren);
    bool checkIndexOperator(const DeclHead& head);
    bool checkBitfield(Index colon, Index last);
    bool checkColon(Index first, Index headEnd, Index last, bool allowBitfield);
    bool checkBraceHead(Index first, Index brace);
    bool checkPointer(Index first, Index paren);
    bool checkValues(Index paren, const FunctionTail& tail);

    // Statements.
    Ptr<BlockNode> parseBlock();
    void parseCompound(BlockNode& block);
    void parseSingleStatement(BlockNode& block);
    void takeBraces(BlockNode& block);
    bool continuesValue(Index close, Index next) const;
    void parseStatement(BlockNode& block);
    void parseDeclarationStatement(BlockNode& block);
    void parseStatementWord(BlockNode& block);
    void parseDataStatement(BlockNode& block, Declarators declarators);
    void noteUnterminated(Index first, const DataRun& run);
    NodePtr parseCtrlStmt();
    bool continues(int keyword, bool directiveBetween, Index next) const;
    Ptr<CtrlSubStmtNode> parseCtrlSub(int before);
    Ptr<CtrlSubStmtHeadNode> parseCtrlSubHead();
    void takeTryInits(CtrlSubStmtHeadNode& head);
    Index lastOfKeyword(Index keyword) const;
    Ptr<ExprNode> parseCondition();
    NodePtr parseCase();
    NodePtr parseLabel();
    NodePtr parseAsm();
    NodePtr parseAsmBlock(Ptr<TextNode> word, Index brace);
    Index findAsmEnd(Index keyword, std::int32_t& form) const;
    bool beginsStatement(Index j, Index prev, bool isTemplate) const;
    NodePtr parseExpressionStatement();

    const TokenTable& t_;
    const BraceClassifier braces_;
    NodePool& pool_;
    Trn::MessageList& messages_;
    std::vector<CodeInExpression> code_;
    Recovery* recovery_;
    std::size_t errors_ = 0; // without the notes
    // Of the item at hand: the last token that an error is about, and how far one has looked for an end.
    Index failedAt_ = 0;
    Index reached_ = 0;
    Index at_ = 0;
    int depth_ = 0;
    bool strayBrace_ = false;
    bool refused_ = false; // nothing is read and reported any more
    std::vector<bool> codeTaken_; // by the number of the brace
    int codeDepth_ = 0;
    // In the innermost block: from here on no statement has a ";". kNone if that is not known.
    Index unterminatedFrom_ = kNone;
    // In the body of what looks like a function without a type and may be a class made by a macro.
    bool inMacroBody_ = false;
};

/// Counts a level of nesting for the length of a scope.
class TreeBuilder::Depth {
public:
    explicit Depth(TreeBuilder& builder) : builder_(builder) { ++builder_.depth_; }
    ~Depth() { --builder_.depth_; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

private:
    TreeBuilder& builder_;
};

} // namespace Cpp

#endif
