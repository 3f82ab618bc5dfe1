#include "cpp/Cpp_TreeBuilder.h"

#include "cpp/Cpp_Parser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

void TreeBuilder::report(std::int32_t code, Index at) { addMessage(code, Parser::messageText(code), at); }

void TreeBuilder::report(std::string text, Index at) { addMessage(0, std::move(text), at); }

/// What is missing at the end of the text is missing behind its last token: an editor can go there.
void TreeBuilder::addMessage(std::int32_t code, std::string text, Index at) {
    if (refused_) return;
    const Trn::Position place = t_.start(type(at) == tkEnd ? lastTaken(at) : at);
    if (code != Parser::kNoteCode) noteFailure(code, at);
    messages_.push_back({Trn::kSeverityError, place, code, std::move(text)});
}

/// A missing end tells nothing of how far the item reaches that lacks it.
void TreeBuilder::noteFailure(std::int32_t code, Index at) {
    ++errors_;
    Index& last = code == Parser::kEndCode ? reached_ : failedAt_;
    last = std::max(last, at);
}

/// The last token in front of `before`; the end itself in a text without tokens.
Index TreeBuilder::lastTaken(Index before) const {
    const Index last = t_.significantBefore(before);
    return last == kNone ? t_.size() : last;
}

bool TreeBuilder::tooDeep(Index at) {
    if (depth_ < kMaxDepth) return false;
    report(7, at);
    giveUp();
    return true;
}

/// Nothing is read and reported any more, up to the end of the item that is left alone, or of the text.
void TreeBuilder::giveUp() {
    refused_ = true;
    at_ = t_.size();
}

TreeBuilder::Turn TreeBuilder::beginTurn(const InteriorNode& body) {
    const Turn turn = {at_, body.size(), messages_.size(), code_.size(), errors_, failedAt_, reached_};
    failedAt_ = reached_ = at_;
    return turn;
}

/// Puts one stretch in the place of all that came of an item in which something could not be read. Returns
/// whether all of it was read.
bool TreeBuilder::endTurn(InteriorNode& body, const Turn& turn) {
    const bool isLeft = recovery_ && errors_ > turn.errors;
    if (isLeft) {
        code_.resize(turn.code);
        body.erase(body.childBegin() + static_cast<std::ptrdiff_t>(turn.children), body.childEnd());
        const Index reached = std::max(refused_ ? turn.first : at_, reached_);
        const Index end = recovery_->leaveAlone(turn.first, failedAt_, reached, messages_, turn.messages);
        appendStretch(body, t_.start(turn.first), t_.end(end - 1));
        at_ = end;
        errors_ = turn.errors;
        refused_ = false;
    }
    failedAt_ = turn.failedAt;
    reached_ = turn.reached;
    return !isLeft;
}

void TreeBuilder::appendStretch(InteriorNode& body, Trn::Position start, Trn::Position end) const {
    auto stretch = make<CommentNode>(NodeText(), start, end);
    stretch->setVerbatim(true);
    body.append(std::move(stretch));
}

/// Whether nothing closes the brace at `brace`. Then there is no body that could be read, and what cannot
/// be read is left alone.
bool TreeBuilder::isUnclosed(Index brace) {
    if (!recovery_ || t_.mate(brace) != kNone) return false;
    report(Parser::kEndCode, brace);
    giveUp();
    return true;
}

bool TreeBuilder::isAsm(Index i) const {
    static constexpr std::array<std::string_view, 8> words = {"asm",   "_asm",  "__asm",   "asm_",
                                                              "asm__", "_asm_", "__asm__", "___asm"};
    if (type(i) != tkAsm && type(i) != tkIdentifier) return false;
    return std::find(words.begin(), words.end(), t_.text(i)) != words.end();
}

/// Whether what starts at `i` declares an object of the class or enumeration whose body stands in front.
bool TreeBuilder::isBehindBody(Index i) const {
    const Index close = t_.significantBefore(i);
    if (close == kNone || type(close) != tkCloseBrace || t_.mate(close) == kNone) return false;
    const Brace kind = braces_.kind(t_.mate(close));
    const int first = type(i);
    const bool declares = first == tkIdentifier || first == tkAsterisk || first == tkConst || first == tkOpenParen;
    return declares && (kind == Brace::Class || kind == Brace::Enumerators);
}

/// True for a word whose bracketed argument is no parameter list.
bool TreeBuilder::takesPair(Index i) const {
    static constexpr std::array<std::string_view, 18> words = {
        "__based",     "_based",   "__assume",     "__declspec",         "alignas",         "_Alignas",
        "decltype",    "typeof",   "typeof_unqual", "__typeof__",        "__typeof",        "__typeof_unqual__",
        "_Atomic",     "_BitInt",  "__attribute__", "__attribute",       "STDMETHODIMP_",   "__launch_bounds__"};
    if (type(i) == tkExplicit) return true;
    return type(i) == tkIdentifier && std::find(words.begin(), words.end(), t_.text(i)) != words.end();
}

/// Whether `word` is one of the words that underscores part in `name`.
bool TreeBuilder::hasWord(std::string_view name, std::string_view word) {
    for (std::size_t at = name.find(word); at != std::string_view::npos; at = name.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || name[at - 1] == '_') && (end == name.size() || name[end] == '_')) return true;
    }
    return false;
}

/// "[[...]]".
bool TreeBuilder::isAttribute(Index i) const {
    if (type(i) != tkOpenBracket || type(i + 1) != tkOpenBracket || t_.mate(i) == kNone) return false;
    return t_.mate(i + 1) != kNone && nextSig(t_.mate(i + 1)) == t_.mate(i);
}

/// The first token at or behind `i` that belongs to no attribute.
TreeBuilder::Index TreeBuilder::skipAttributes(Index i) const {
    while (isAttribute(i)) i = nextSig(t_.mate(i));
    return i;
}

/// From a word that takes a pair to the last token that belongs to it.
Index TreeBuilder::skipPair(Index i) const {
    const Index paren = nextSig(i);
    return type(paren) == tkOpenParen && t_.mate(paren) != kNone ? t_.mate(paren) : i;
}

/// The first ";" from `from` on that is in no bracket, or kNone.
Index TreeBuilder::findSemicolon(Index from) const {
    for (Index j = sig(from); j < t_.size(); j = nextSig(j)) {
        if (type(j) == tkSemicolon) return j;
        if (type(j) == tkCloseBrace) return kNone;
        const bool opens = type(j) == tkOpenParen || type(j) == tkOpenBrace || type(j) == tkOpenBracket;
        if (opens && t_.mate(j) != kNone) j = t_.mate(j);
    }
    return kNone;
}

void TreeBuilder::parseRoot(RootNode& root) {
    parseBody(root, Body::Root);
    const auto isBefore = [](const CodeInExpression& a, const CodeInExpression& b) {
        return a.block->start() < b.block->start();
    };
    std::sort(code_.begin(), code_.end(), isBefore);
    root.code() = std::move(code_);
}

/// Reads the code in the expressions between `first` and `end` that no statement within has taken: by
/// then the depth is that of the statement which holds it.
void TreeBuilder::takeCode(Index first, Index end) {
    const std::vector<Index>& braces = braces_.codeBraces();
    auto brace = std::lower_bound(braces.begin(), braces.end(), first);
    for (; brace != braces.end() && *brace < end; ++brace) {
        const auto number = static_cast<std::size_t>(brace - braces.begin());
        if (codeTaken_[number]) continue;
        codeTaken_[number] = true;
        parseCode(*brace);
    }
}

/// Reads the code in one pair of braces. What cannot be read as statements stays a part of the expression,
/// and is no reason to refuse the text.
void TreeBuilder::parseCode(Index brace) {
    if (refused_ || codeDepth_ >= kMaxCodeDepth || depth_ + 1 >= kMaxDepth) return;
    const Depth depth(*this);
    const Index outer = at_;
    const std::size_t reported = messages_.size();
    const std::size_t taken = code_.size();
    const std::size_t errors = errors_;
    Recovery* const recovery = std::exchange(recovery_, nullptr); // what cannot be read stays text
    ++codeDepth_;
    Ptr<BlockNode> block = make<BlockNode>();
    block->setStart(t_.start(brace));
    at_ = brace + 1;
    parseCompound(*block);
    --codeDepth_;
    recovery_ = recovery;
    errors_ = errors;
    auto message = messages_.rbegin();
    bool isWhole = at_ == t_.mate(brace) + 1;
    for (std::size_t left = messages_.size() - reported; left > 0; --left) isWhole = (message++)->code == Parser::kNoteCode && isWhole;
    if (isWhole) {
        code_.push_back({t_.start(braces_.head(brace)), Cpp::NodePtr<BlockNode>(std::move(block)), false});
    } else {
        messages_.resize(reported);
        code_.resize(taken);
        refused_ = false;
    }
    at_ = outer;
}

/// Reads what stands in a body, up to its "}" or the end of the text. Returns whether it is closed;
/// the "}" is left unread. Each turn takes something: what no rule takes is dropped.
bool TreeBuilder::parseBody(InteriorNode& body, Body kind) {
    for (;;) {
        addNotes(body);
        const Index before = at_;
        if (type(at_) == tkEnd) {
            if (kind != Body::Root) reportEnd(at_);
            return kind == Body::Root;
        }
        if (type(at_) == tkCloseBrace && kind != Body::Root) return true;
        const Turn turn = beginTurn(body);
        if (!parseBodyItem(body, kind) && at_ == before) return false;
        const bool isRead = endTurn(body, turn);
        if (at_ == before) ++at_;
        if (isRead) takeCode(before, at_);
    }
}

void TreeBuilder::addNote(InteriorNode& body) {
    const Trn::Position start = t_.start(at_);
    const Trn::Position end = t_.end(at_);
    NodeText text = t_.isRegion(at_) ? NodeText() : spelled(at_);
    if (t_.isLeftAlone(at_))
        appendStretch(body, start, end);
    else if (type(at_) == tkDirective)
        body.append(make<PreprocDirectiveNode>(std::move(text), start, end));
    else
        body.append(make<CommentNode>(std::move(text), start, end));
    ++at_;
}

void TreeBuilder::addNotes(InteriorNode& body) {
    while (isCommentOrDirective(type(at_)) || t_.isLeftAlone(at_)) addNote(body);
}

void TreeBuilder::skipThroughSemicolon(InteriorNode* notes) {
    const Index end = findSemicolon(at_);
    if (end == kNone) {
        // The text is refused: to read on behind each such word would look at the rest again and again.
        reportEnd(t_.size());
        at_ = t_.size();
        return;
    }
    while (at_ < end) {
        if (notes && isCommentOrDirective(type(at_))) addNote(*notes);
        else ++at_;
    }
    ++at_;
}

/// One construct of a body. Returns false only if the body cannot go on.
bool TreeBuilder::parseBodyItem(InteriorNode& body, Body kind) {
    switch (type(at_)) {
    case tkInvalid:
        if (kind != Body::Root || recovery_) reportEnd(at_);
        ++at_;
        return true;
    case tkCloseBrace:
        strayBrace_ = true;
        ++at_;
        return true;
    case tkSemicolon:
        ++at_;
        return true;
    case tkComma: // between the rows of a table that some other file includes
        if (type(lastTaken(at_)) == tkCloseBrace) return ++at_, true;
        parseMember(body, kind);
        return true;
    case tkOpenBrace:
        addUnlessNull(body, parseBlock());
        return true;
    case tkNamespace:
        if (kind == Body::Class) report("Namespace declaration illegal inside class declaration.", at_), ++at_;
        else addUnlessNull(body, parseNamespace());
        return true;
    case tkInline: case tkExport:
        parseSpecified(body, kind);
        return true;
    case tkUsing:
        skipThroughSemicolon(kind == Body::Root ? nullptr : &body);
        return true;
    case tkTemplate:
        if (kind == Body::CLinkage) report("templates cannot be declared to have 'C' linkage.", at_), ++at_;
        else addUnlessNull(body, parseTemplate());
        return true;
    case tkAsm:
        addUnlessNull(body, parseAsm());
        return true;
    case tkThrow: case tkContinue: case tkBreak: case tkGoto: case tkReturn:
        addUnlessNull(body, parseExpressionStatement());
        return true;
    case tkExtern:
        addUnlessNull(body, parseExtern());
        return true;
    case tkIf: case tkElse: case tkFor: case tkDo: case tkWhile: case tkTry: case tkCatch: case tkSwitch:
        parseControl(body, kind);
        return true;
    case tkPublic: case tkPrivate: case tkProtected:
        return parseAccess(body, kind);
    case tkIdentifier:
        parseWord(body, kind);
        return true;
    default:
        parseMember(body, kind);
        return true;
    }
}

/// What "inline" or "export" stands in front of: these two do not tell what it is.
void TreeBuilder::parseSpecified(InteriorNode& body, Body kind) {
    const int specified = type(skipSpecifiers(at_));
    if (specified == tkNamespace && kind != Body::Class) addUnlessNull(body, parseNamespace());
    else if (specified == tkTemplate) addUnlessNull(body, parseTemplate());
    else if (specified == tkOpenBrace) addUnlessNull(body, parseLinkageBlock(at_));
    else if (specified == tkExtern) addUnlessNull(body, parseExtern());
    else parseMember(body, kind);
}

TreeBuilder::Index TreeBuilder::skipSpecifiers(Index i) const {
    while (type(i) == tkInline || type(i) == tkExport) i = nextSig(i);
    return i;
}

bool TreeBuilder::parseAccess(InteriorNode& body, Body kind) {
    if (kind == Body::Class) {
        addUnlessNull(body, parseAccessLabel());
        return true;
    }
    if (kind == Body::CLinkage || kind == Body::CppLinkage)
        report("public: protected: private: labels are illegal inside linkage blocks.", at_);
    else
        report(7, at_);
    ++at_;
    return true;
}

void TreeBuilder::parseControl(InteriorNode& body, Body kind) {
    const bool linkage = kind == Body::CLinkage || kind == Body::CppLinkage;
    const bool functionTry = type(at_) == tkTry || type(at_) == tkCatch;
    if (linkage && !functionTry) {
        report("control statements (e.g. if, else, while) are illegal inside linkage blocks.", at_);
        ++at_;
        return;
    }
    addUnlessNull(body, parseCtrlStmt());
}

/// A name at the start of a construct: assembler, an access label of some framework, a macro that
/// is used as the head of a block, or the first word of a declaration.
void TreeBuilder::parseWord(InteriorNode& body, Body kind) {
    if (isAsm(at_)) {
        const Index before = at_;
        addUnlessNull(body, parseAsm());
        if (at_ == before) ++at_;
        return;
    }
    const int next = nextType(at_);
    if (isLoneMacro(at_)) {
        body.append(make<ExprNode>(spelled(at_), t_.start(at_), t_.end(at_)));
        ++at_;
    } else if (kind == Body::Class && next == tkColon && !isBitfieldWidth(nextSig(nextSig(at_)))) {
        addUnlessNull(body, parseAccessLabel());
    } else if (next == tkOpenBrace && !isBehindComma(at_)) {
        body.append(make<ExprNode>(spelled(at_), t_.start(at_), t_.end(at_)));
        ++at_;
        addNotes(body);
        addUnlessNull(body, parseBlock());
    } else {
        parseMember(body, kind);
    }
}

/// Whether the name at `i` is a macro that stands for itself on a line of its own: one that opens or closes
/// something, or one in front of a macro with arguments. As the return type of what follows, that would be
/// drawn up to its line.
bool TreeBuilder::isLoneMacro(Index i) const {
    static constexpr std::array<std::string_view, 5> parts = {"BEGIN", "END", "OBJECT", "GADGET", "NAMESPACE"};
    const std::string_view name = t_.text(i);
    const Index next = nextSig(i);
    const int kind = type(next);
    if (!looksLikeMacro(name) || t_.token(next).line == t_.token(i).line) return false;
    if (kind == tkIdentifier && isMacroCall(next)) return true;
    const bool keyword = (kind >= tkClass && kind <= tkExtern) || (kind >= tkChar && kind <= tkVoid);
    const auto isIn = [name](std::string_view part) { return hasWord(name, part); };
    return (keyword || kind == tkIdentifier) && std::any_of(parts.begin(), parts.end(), isIn);
}

/// A macro with arguments and neither a body nor a tail, which may be a function: a type can stand alone on
/// the line in front of that.
bool TreeBuilder::isMacroCall(Index name) const {
    const Index open = nextSig(name);
    if (!looksLikeMacro(t_.text(name)) || type(open) != tkOpenParen || t_.mate(open) == kNone) return false;
    const Index close = t_.mate(open);
    const Index behind = nextSig(close);
    if (type(behind) == tkOpenBrace || type(behind) == tkColon || type(behind) == tkConst) return false;
    return type(behind) != tkIdentifier || t_.token(behind).line > t_.token(close).line;
}

/// Whether what starts at `i` is a further declarator of the declaration that the "," in front has cut.
bool TreeBuilder::isBehindComma(Index i) const { return type(lastTaken(i)) == tkComma; }

/// Whether a width stands behind the colon in front of `i`, so that the name in front of that is the type
/// of a field without a name.
bool TreeBuilder::isBitfieldWidth(Index i) const {
    return type(i) == tkNumber || (type(i) == tkIdentifier && nextType(i) == tkSemicolon);
}

void TreeBuilder::parseMember(InteriorNode& body, Body kind) {
    const Index first = at_;
    NodePtr node = parseDeclaration(kind == Body::Class);
    if (!node) {
        report(7, first);
        return;
    }
    addUnlessNull(body, std::move(node));
}

/// Lets a class or an enum reach up to the ";" that follows it, if one does.
void TreeBuilder::endAtSemicolon(SyntaxNode& node) {
    const Index semicolon = sig(at_);
    if (type(semicolon) != tkSemicolon) return;
    // A comment in between stays within the extent, where nobody looks for it.
    node.setEnd(t_.end(semicolon));
    at_ = semicolon + 1;
}

} // namespace Cpp
