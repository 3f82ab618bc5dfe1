#include "cpp/Cpp_TreeBuilder.h"

#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

namespace {

bool isBuiltinType(int type) { return type >= tkChar && type < tkFloat; }

bool isDeclSpecifier(int type) {
    return type == tkConst || type == tkMutable || type == tkVolatile || type == tkSigned || type == tkUnsigned ||
           type == tkRegister || type == tkExtern;
}

/// Keywords that a type is made of.
bool isTypeWord(int type) {
    return (type >= tkChar && type <= tkVoid) || type == tkConst || type == tkVolatile || type == tkSigned ||
           type == tkUnsigned || type == tkStruct || type == tkUnion || type == tkEnum;
}

/// More words than any type has: behind them no name is looked for.
constexpr int kMaxTypeWords = 8;

bool endsDeclarator(int type) { return type == tkSemicolon || type == tkComma; }

/// Tokens at the start of the width of a bit field.
bool startsWidth(int type) {
    return type == tkNumber || type == tkIdentifier || type == tkOpenParen || type == tkSizeof || type == tkCharLiteral;
}

bool isClassKey(int type) { return type == tkClass || type == tkStruct || type == tkUnion; }

} // namespace

/// Reads one declaration, of which kind whatever. Null after reporting, or if nothing could be made
/// of it; the read point may have moved then.
TreeBuilder::NodePtr TreeBuilder::parseDeclaration(bool allowBitfield) {
    const Index first = at_;
    DeclHead head = scanHead(first);
    head.member = allowBitfield;
    if (!checkIndexOperator(head)) return nullptr;
    switch (head.kind) {
    case DeclKind::Failed:
        reportEnd(head.at);
        at_ = head.at;
        return nullptr;
    case DeclKind::Function:
        return head.pointer ? parsePointer(first, head) : parseFunction(first, head);
    case DeclKind::Class:
        return parseClassDecl(first, head.at);
    case DeclKind::Enum:
        return parseEnumDecl(first, head.at);
    case DeclKind::BraceInit:
        return parseBraceInit(first, head, allowBitfield);
    case DeclKind::Data:
        break;
    }
    return parseDataFrom(first, head.at, allowBitfield);
}

/// Walks over the first tokens of a declaration until one tells what it is. Template arguments and
/// attributes are stepped over.
TreeBuilder::DeclHead TreeBuilder::scanHead(Index first) const {
    DeclHead head;
    HeadScan met;
    for (Index j = sig(first);; met.prev = j, j = nextSig(j)) {
        head.at = j;
        if (endsScan(first, j, met, head)) return head;
    }
}

/// Whether the token at `j` tells what the declaration is. If not, `j` may have moved to the end of a
/// group that it opens.
bool TreeBuilder::endsScan(Index first, Index& j, HeadScan& met, DeclHead& head) const {
    const int prevType = met.prev == kNone ? int(tkEnd) : type(met.prev);
    bool ends = false;
    switch (type(j)) {
    case tkEnd: case tkInvalid:
        // The last line of a file may be a macro that needs no ";".
        if (isMacroRun(first, j)) head.kind = DeclKind::Data;
        return true;
    case tkOpenBrace:
        head.kind = met.enumKey ? DeclKind::Enum : met.classKey && !isValueBrace(j) ? DeclKind::Class : DeclKind::BraceInit;
        return true;
    case tkOpenParen:
        return endsAtParen(first, j, met, head);
    case tkSemicolon: case tkCloseBrace: case tkNamespace: case tkUsing:
        ends = true;
        break;
    case tkTemplate:
        ends = met.prev != kNone && prevType != tkExtern && !continuesName(met.prev);
        break;
    case tkAssign:
        ends = head.op == kNone || (prevType != tkOperator && nextType(j) != tkOpenParen);
        break;
    case tkOpenBracket:
        ends = endsAtBracket(j, head, met);
        break;
    case tkPublic: case tkPrivate: case tkProtected:
        ends = !met.colon;
        break;
    case tkLess:
        if (prevType != tkOperator && t_.mate(j) != kNone) j = t_.mate(j);
        break;
    default:
        takeHeadWord(j, met, head);
        break;
    }
    if (ends) head.kind = DeclKind::Data;
    return ends;
}

/// Notes a token that only matters for what a later one means.
void TreeBuilder::takeHeadWord(Index& j, HeadScan& met, DeclHead& head) const {
    switch (type(j)) {
    case tkColon:
        met.colon = true;
        break;
    case tkEnum:
        met.enumKey = true;
        break;
    case tkOperator:
        head.op = j;
        break;
    case tkClass: case tkStruct: case tkUnion:
        met.classKey = true;
        met.names = 0;
        break;
    case tkIdentifier: case tkExplicit:
        if (takesPair(j)) j = skipPair(j);
        else ++met.names;
        if (isWord(j, "requires")) j = skipConstraint(j);
        break;
    default:
        break;
    }
}

/// Whether a "[" begins the bounds of an array: it is no attribute and belongs to no operator.
bool TreeBuilder::endsAtBracket(Index& j, const DeclHead& head, const HeadScan& met) const {
    const int prevType = met.prev == kNone ? int(tkEnd) : type(met.prev);
    const bool leads = met.prev == kNone && t_.mate(j) != kNone; // "[uuid(x)] interface I {"
    if (isAttribute(j) || leads) {
        j = t_.mate(j);
        return false;
    }
    if (prevType == tkOperator && nextType(j) == tkCloseBracket) {
        j = nextSig(j);
        return false;
    }
    return head.op == kNone || (prevType != tkNew && prevType != tkDelete);
}

/// From "requires" to the last token of its clause: operands between "&&" and "||".
TreeBuilder::Index TreeBuilder::skipConstraint(Index requires_) const {
    Index last = requires_;
    for (Index j = nextSig(requires_);;) {
        while (type(j) == tkExclamation) j = nextSig(j);
        const bool expression = isWord(j, "requires");
        if (type(j) == tkIdentifier) {
            last = j;
            if (nextType(j) == tkLess && t_.mate(nextSig(j)) != kNone) last = t_.mate(nextSig(j));
            if (type(nextSig(last)) == tkIdentifier && t_.text(nextSig(last)).substr(0, 2) == "::") last = nextSig(last);
            if (nextType(last) == tkOpenParen && t_.mate(nextSig(last)) != kNone) last = t_.mate(nextSig(last));
            if (expression && nextType(last) == tkOpenBrace && t_.mate(nextSig(last)) != kNone) last = t_.mate(nextSig(last));
        } else if (type(j) == tkOpenParen && t_.mate(j) != kNone) {
            last = t_.mate(j);
        } else if (type(j) == tkTrue || type(j) == tkFalse) {
            last = j;
        } else {
            return last;
        }
        const Index next = nextSig(last);
        if (type(next) != tkLogicalAnd && type(next) != tkLogicalOr) return last;
        j = nextSig(next);
    }
}

/// True for names alone that can only be macros: what needs no ";" and no type.
bool TreeBuilder::isMacroRun(Index first, Index last) const {
    Index j = sig(first);
    if (type(last) == tkCloseBrace) {
        const Index end = t_.significantBefore(last);
        return type(end) == tkIdentifier && (j == end || looksLikeMacro(t_.text(end)));
    }
    while (j < last && type(j) == tkIdentifier && looksLikeMacro(t_.text(j))) j = nextSig(j);
    return j == last && sig(first) < last;
}

/// "A::", "." and "->", behind which "template" is a part of the name.
bool TreeBuilder::continuesName(Index i) const {
    return type(i) == tkDot || type(i) == tkArrow || endsInColons(i);
}

bool TreeBuilder::endsInColons(Index i) const {
    const std::string name = t_.spelling(i);
    return name.size() > 2 && name.compare(name.size() - 2, 2, "::") == 0;
}

/// Decides on a "(". Returns true if that ends the scan, otherwise `j` may have moved behind a pair.
bool TreeBuilder::endsAtParen(Index first, Index& j, HeadScan& met, DeclHead& head) const {
    const Index close = t_.mate(j);
    if (met.colon && (!met.classKey || close == kNone)) { // the width of a bit field
        head.kind = DeclKind::Data;
        return true;
    }
    const bool callOperator = head.op != kNone && met.prev == head.op && close != kNone && nextSig(j) == close;
    const bool behindKey = met.prev != kNone && isClassKey(type(met.prev)) && close != kNone;
    const bool macroInHead = met.classKey && !met.colon && head.op == kNone && isMacroInClassHead(met, j);
    met.macroInHead = met.macroInHead || macroInHead;
    const bool specifier = !met.classKey && head.op == kNone && isSpecifierMacro(first, j, met.prev);
    if (met.colon || callOperator || behindKey || macroInHead || specifier) { // behind a colon a macro among the base classes
        j = close;
        return false;
    }
    head.at = close == kNone ? t_.size() : j;
    if (close == kNone) return true;
    head.kind = DeclKind::Function;
    head.pointer = head.op == kNone && opensDeclarator(j, met.prev);
    return true;
}

/// Whether the "(" at `paren` belongs to a macro that is, or stands in front of, the name of a class. Further
/// macros may follow, "class A(x) B C(y) Name : Base {"; behind a name in front of it the name of a function
/// would look the same, so there both must look like macros and the name of the class must not.
bool TreeBuilder::isMacroInClassHead(const HeadScan& met, Index paren) const {
    const Index prev = met.prev;
    const Index close = t_.mate(paren);
    if (close == kNone || prev == kNone || type(prev) != tkIdentifier) return false;
    Index word = prev;
    Index last = close;
    for (int count = 0; count < kMaxTypeWords && nextType(last) == tkIdentifier; ++count) {
        word = last = nextSig(last);
        if (nextType(word) == tkOpenParen && t_.mate(nextSig(word)) != kNone) last = t_.mate(nextSig(word));
    }
    const bool isNamed = last == word; // else the last word is a macro with arguments
    const bool isFirst = met.names == 1 || met.macroInHead;
    const Index before = t_.significantBefore(prev);
    const bool looksLikeOne = met.names == 2 && type(before) == tkIdentifier && looksLikeMacro(t_.text(before)) &&
                              looksLikeMacro(t_.text(prev)) && isNamed && !looksLikeMacro(t_.text(last));
    if (!isFirst && !looksLikeOne) return false;
    switch (nextType(last)) {
    case tkOpenBrace: case tkColon: return isNamed || last == close || looksLikeMacro(t_.text(word));
    case tkSemicolon: case tkLess: return isNamed;
    default: return false;
    }
}

/// A macro with an argument in the place of a specifier or a type, as in "static API(int) f() {": behind
/// it the name, the parameters and the body of a function follow. Without a specifier in front of it a
/// keyword must show that the argument is a type, since macros that need no ";" look the same.
bool TreeBuilder::isSpecifierMacro(Index first, Index paren, Index prev) const {
    const Index close = t_.mate(paren);
    if (prev == kNone || close == kNone) return false;
    if (type(prev) != tkIdentifier || !looksLikeMacro(t_.text(prev))) return false;
    if (prev == sig(first) && !isTypeWord(nextType(paren))) return false;
    const auto isWordOfHead = [this](Index j) {
        return isTypeWord(type(j)) || type(j) == tkIdentifier || type(j) == tkAsterisk;
    };
    int count = 0;
    Index name = close;
    for (Index j = nextSig(close); isWordOfHead(j); j = nextSig(j)) {
        const bool ofTail = isTailWord(t_.text(j)) || isWord(j, "requires") || isAsm(j) || takesPair(j);
        if (ofTail || ++count > kMaxTypeWords) return false;
        name = j;
    }
    const Index params = nextSig(name);
    const bool called = type(name) == tkIdentifier && type(params) == tkOpenParen && t_.mate(params) != kNone;
    if (!called) return false;
    // A macro with an argument list behind the parameters belongs to the tail.
    return !looksLikeMacro(t_.text(name)) && nextType(t_.mate(params)) == tkOpenBrace;
}

/// Whether the pair at `paren` holds a declarator and not parameters: it opens with a pointer, no name
/// stands in front of it, or a second pair follows, as in "int (*f)(int)" in its other spellings.
bool TreeBuilder::opensDeclarator(Index paren, Index prev) const {
    const Index inner = nextSig(paren);
    const bool memberPointer = type(inner) == tkIdentifier && nextType(inner) == tkAsterisk && endsInColons(inner);
    if (memberPointer || (type(inner) == tkAsterisk && nextType(inner) != tkComma)) return true;
    const int behind = nextType(t_.mate(paren));
    if (prev == kNone) return behind == tkOpenParen; // "(f)(int)", which no macro can replace
    const bool reference = type(inner) == tkAmpersand || type(inner) == tkLogicalAnd;
    return behind == tkOpenParen || (reference && behind == tkOpenBracket) || !isNameBefore(prev);
}

/// Whether a function may be named by what ends at `prev`.
bool TreeBuilder::isNameBefore(Index prev) const {
    if (type(prev) == tkIdentifier) return !takesPair(prev);
    const bool bracket = type(prev) == tkGreater || type(prev) == tkShiftRight || type(prev) == tkCloseBracket ||
                         type(prev) == tkCloseParen;
    return bracket && t_.mate(prev) != kNone;
}

/// The first "," from `first` on that is in no bracket and stands in front of `last`, or kNone.
Index TreeBuilder::firstComma(Index first, Index last) const {
    for (Index j = sig(first); j < last; j = nextSig(j)) {
        if (type(j) == tkComma) return j;
        if (type(j) == tkOpenParen || type(j) == tkOpenBracket || type(j) == tkOpenBrace || type(j) == tkLess) {
            if (t_.mate(j) != kNone) j = t_.mate(j);
        }
    }
    return kNone;
}

/// Finds the end of the declarator that starts at `first`; what lies in front of `from` is known to
/// hold no end. A "," ends it unless an initialiser has begun.
TreeBuilder::DataRun TreeBuilder::collectData(Index first, Index from, Declarators declarators) const {
    bool initialiser = false;
    Index prev = t_.significantBefore(from);
    if (prev != kNone && prev < first) prev = kNone;
    for (Index j = sig(from);; prev = j, j = nextSig(j)) {
        const int prevType = prev == kNone ? int(tkEnd) : type(prev);
        switch (type(j)) {
        case tkEnd: case tkInvalid: case tkCloseBrace: case tkPublic: case tkPrivate: case tkProtected:
        case tkNamespace: case tkUsing:
            return {j, false, initialiser};
        case tkTemplate:
            if (initialiser || prev == kNone || continuesName(prev)) break;
            return {j, false, initialiser};
        case tkSemicolon:
            return {j, true, initialiser};
        case tkComma:
            if (!initialiser && declarators == Declarators::Apart) return {j, true, false};
            break;
        case tkAssign:
            if (prevType != tkOperator) initialiser = true;
            break;
        case tkOpenBrace:
            if (t_.mate(j) == kNone) return {t_.size(), false, initialiser};
            if (!initialiser && (!isValueBrace(j) || !endsDeclarator(nextType(t_.mate(j))))) return {j, false, false};
            j = t_.mate(j);
            break;
        case tkOpenParen: case tkOpenBracket: case tkLess:
            if (t_.mate(j) != kNone) j = t_.mate(j);
            break;
        default:
            break;
        }
    }
}

/// A data declaration whose first tokens have been looked at up to `scanned`.
TreeBuilder::NodePtr TreeBuilder::parseDataFrom(Index first, Index scanned, bool allowBitfield) {
    DataRun run;
    if (type(scanned) == tkAssign) {
        const Index comma = firstComma(first, scanned);
        run = comma == kNone ? collectData(first, scanned) : DataRun{comma, true, false};
    } else {
        run = collectData(first, scanned);
    }
    return parseData(first, run.end, run, allowBitfield);
}

/// Builds the node of the tokens from `first` up to `last`, with or without a terminator at `last`.
TreeBuilder::NodePtr TreeBuilder::parseData(Index first, Index last, const DataRun& run, bool allowBitfield) {
    at_ = last;
    const bool unfinished = type(last) == tkEnd || type(last) == tkCloseBrace;
    if ((unfinished && !isMacroRun(first, last)) || (type(last) == tkInvalid && sig(first) != last)) {
        reportEnd(last);
        return nullptr;
    }
    const Index headEnd = findHeadEnd(first, last, allowBitfield);
    if (sig(first) >= headEnd || type(sig(first)) == tkComma) {
        if (run.hasTerminator) at_ = last + 1;
        return nullptr;
    }
    auto node = make<DataDeclNode>();
    const bool bitfield = headEnd < last && type(headEnd) == tkColon;
    if (!bitfield || !splitBitfield(first, headEnd, *node)) splitDeclarator(first, headEnd, *node);
    if (type(headEnd) == tkOpenParen && headEnd < last && !node->name()) return nullptr;
    if (bitfield ? !checkBitfield(headEnd, last) : !checkColon(first, headEnd, last, allowBitfield)) return nullptr;
    if (headEnd < last) {
        const Index lastOfInit = t_.significantBefore(last);
        node->setInit(part<ExprNode>(joined(headEnd, last), t_.start(headEnd), t_.end(lastOfInit)));
    }
    const Index end = run.hasTerminator ? last : t_.significantBefore(last);
    node->setEnd(t_.end(end));
    at_ = run.hasTerminator ? last + 1 : end + 1;
    return node;
}

/// Where the type and the name of a declarator end: at its initialiser, its bit field, or `last`.
Index TreeBuilder::findHeadEnd(Index first, Index last, bool allowBitfield) const {
    Index prev = kNone;
    for (Index j = sig(first); j < last; prev = j, j = nextSig(j)) {
        switch (type(j)) {
        case tkAssign:
            return j;
        case tkOpenBrace:
            return j;
        case tkOpenParen:
            if (prev != kNone && type(prev) != tkAsterisk) return j;
            if (prev == kNone) return j;
            if (t_.mate(j) != kNone) j = t_.mate(j);
            break;
        case tkColon: {
            const int next = nextType(j);
            if (allowBitfield && startsWidth(next)) return j;
            break;
        }
        case tkOpenBracket: case tkLess:
            if (t_.mate(j) != kNone) j = t_.mate(j);
            break;
        default:
            if (takesPair(j)) j = skipPair(j);
            break;
        }
    }
    return last;
}

/// The identifier that is declared: the last one in no bracket from `last` backwards, or kNone.
Index TreeBuilder::findName(Index first, Index last) const {
    for (Index j = t_.significantBefore(last); j != kNone && j >= first; j = t_.significantBefore(j)) {
        const int kind = type(j);
        if (kind == tkIdentifier) {
            if (!takesPair(j)) return j;
        } else if (kind == tkCloseBracket || kind == tkGreater || kind == tkShiftRight || kind == tkCloseParen ||
                   kind == tkCloseBrace) {
            if (t_.mate(j) != kNone && t_.mate(j) >= first) j = t_.mate(j);
        }
        if (j == 0) break;
    }
    return kNone;
}

void TreeBuilder::splitDeclarator(Index first, Index last, DataDeclNode& node) const {
    first = sig(first);
    const Index comma = firstComma(first, last);
    const Index end = comma == kNone ? last : comma;
    Index name = findName(first, end);
    name = name == kNone ? first : nameStart(first, name);
    // "struct A;" declares no name: the whole of it is a type.
    const Index second = nextSig(first);
    const bool onlyKeyAndName = (isClassKey(type(first)) || type(first) == tkEnum) && name == second && nextSig(name) >= end;
    if (onlyKeyAndName && comma == kNone && last == end && type(last) == tkSemicolon) {
        node.setType(part<TypeNode>(joined(first, end), t_.start(first), t_.end(name)));
        return;
    }
    if (name > first)
        node.setType(part<TypeNode>(joined(first, name), t_.start(first), t_.end(t_.significantBefore(name))));
    const Index lastOfName = t_.significantBefore(end);
    if (end > name && lastOfName != kNone && lastOfName >= name)
        node.setName(part<IdNode>(joined(name, end), t_.start(name), t_.end(lastOfName)));
}

/// Type and name in front of the ":" of a bit field. Returns false if that is left to the general rule.
bool TreeBuilder::splitBitfield(Index first, Index last, DataDeclNode& node) const {
    first = sig(first);
    Index j = first;
    while (j < last && (isBuiltinType(type(j)) || isDeclSpecifier(type(j)))) j = nextSig(j);
    if (j >= last) {
        node.setType(part<TypeNode>(joined(first, last), t_.start(first), t_.end(t_.significantBefore(last))));
        return true;
    }
    const Index name = t_.significantBefore(last);
    if (name == first) { // nothing but one word: an unnamed field of a named type
        node.setType(part<TypeNode>(joined(first, last), t_.start(first), t_.end(name)));
        return true;
    }
    if (type(name) != tkIdentifier) return false;
    node.setType(part<TypeNode>(joined(first, name), t_.start(first), t_.end(t_.significantBefore(name))));
    node.setName(part<IdNode>(spelled(name), t_.start(name), t_.end(name)));
    return true;
}

/// A "{" with neither class nor enum in front of it: an initialiser if a name stands before it and
/// the declaration goes on behind it, otherwise some macro that heads a block.
TreeBuilder::NodePtr TreeBuilder::parseBraceInit(Index first, const DeclHead& head, bool allowBitfield) {
    const Index close = t_.mate(head.at);
    const Index behind = close == kNone ? kNone : nextSig(close);
    const Index start = sig(first);
    if (start < head.at && !checkBraceHead(start, head.at)) return nullptr;
    const bool twoTokens = nextSig(start) < head.at || (start < head.at && isBehindComma(start));
    const Index comma = firstComma(first, head.at);
    if (twoTokens && comma != kNone) return parseData(first, comma, {comma, true, false}, allowBitfield);
    if (behind != kNone && twoTokens && (type(behind) == tkSemicolon || type(behind) == tkComma))
        return parseData(first, behind, {behind, true, true}, allowBitfield);
    if (start == head.at) return parseBlock();
    const Index last = t_.significantBefore(head.at);
    auto node = make<ExprNode>(joined(start, head.at), t_.start(start), t_.end(last));
    at_ = last + 1;
    return node;
}

} // namespace Cpp
