#include "cpp/Cpp_TreeBuilder.h"

#include <algorithm>
#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

namespace {

/// More of them in a row are a list of macros and no tail of a function.
constexpr int kMaxTailMacros = 16;

bool endsHead(int type) { return type == tkSemicolon || type == tkOpenBrace || type == tkComma; }

} // namespace

TreeBuilder::NodePtr TreeBuilder::parseFunction(Index first, const DeclHead& head) {
    const Index paren = head.at;
    const FunctionTail tail = scanTail(first, paren);
    if (tail.failed || !checkValues(paren, tail)) {
        at_ = tail.next;
        return nullptr;
    }
    Ptr<FunctionHeadNode> node = parseFunctionHead(first, paren, head.op, head.member, tail.last + 1);
    if (!node) {
        at_ = tail.next > at_ ? tail.next : at_ + 1;
        return nullptr;
    }
    return finishFunction(std::move(node), tail);
}

/// Reads the member initialisers and the body that follow a head.
TreeBuilder::NodePtr TreeBuilder::finishFunction(Ptr<FunctionHeadNode> head, const FunctionTail& tail) {
    Ptr<InitializerListNode> inits;
    if (tail.initColon != kNone) inits = parseMemberInits(tail.initColon, tail.next);
    at_ = tail.next;
    if (tail.moreDeclarators) ++at_;
    Ptr<BlockNode> block;
    if (type(at_) == tkOpenBrace && !tail.moreDeclarators) {
        const bool outer = inMacroBody_;
        inMacroBody_ = !head->returnType() && head->name() && looksLikeMacroClass(head->name()->text());
        block = parseBlock();
        inMacroBody_ = outer;
    }
    if (inits) return make<CtorDeclNode>(head.release(), block.release(), inits.release());
    return make<FunctionDeclNode>(head.release(), block.release());
}

/// Looks at what follows the parameters, at `paren`, of the function that starts at `first`. What is no
/// part of the head and yet belongs to the function, such as "override", stays uncovered text.
TreeBuilder::FunctionTail TreeBuilder::scanTail(Index first, Index paren) {
    FunctionTail tail;
    tail.last = t_.mate(paren);
    tail.next = nextSig(tail.last);
    tail.typed = sig(first) < t_.significantBefore(paren);
    while (takeTailPiece(tail, first, paren)) {
    }
    const int stop = type(tail.next);
    const bool goesOn = stop == tkOpenBrace || stop == tkComma || tail.skipped || tail.failed || tail.initColon != kNone;
    // Behind something that belongs to no function the comments in front of it are nodes of their own.
    if (!goesOn) tail.next = std::min<Index>(tail.next, (tail.noted ? t_.significantBefore(tail.next) : tail.last) + 1);
    return tail;
}

/// Takes one piece of a tail. Returns false where the tail ends.
bool TreeBuilder::takeTailPiece(FunctionTail& tail, Index first, Index paren) {
    const Index k = tail.next;
    switch (type(k)) {
    case tkConst: case tkVolatile:
        if (!tail.noted) tail.last = k;
        tail.next = nextSig(k);
        return true;
    case tkThrow:
        return takeThrow(tail);
    case tkColon:
        takeInitializers(tail);
        return false;
    case tkAssign:
        return takeAssign(tail, first, paren);
    case tkComma:
        tail.moreDeclarators = true;
        return false;
    case tkSemicolon: case tkOpenBrace: case tkCloseBrace: case tkEnd: case tkInvalid:
    case tkPublic: case tkPrivate: case tkProtected:
        return false;
    default:
        return skipTailPiece(tail);
    }
}

bool TreeBuilder::takeThrow(FunctionTail& tail) {
    const Index open = nextSig(tail.next);
    if (type(open) != tkOpenParen || t_.mate(open) == kNone) {
        report("Expected '(' as part of exception specification clause 'throw()'. Got: " + t_.spelling(open), open);
        tail.failed = true;
        ++tail.next;
        return false;
    }
    if (!tail.noted) tail.last = t_.mate(open);
    tail.next = nextSig(t_.mate(open));
    return true;
}

/// A "= 0" belongs to the head. Whatever else is assigned, such as "default", is noted and skipped.
bool TreeBuilder::takeAssign(FunctionTail& tail, Index first, Index paren) {
    const Index value = nextSig(tail.next);
    if (type(value) == tkNumber && (isWord(value, "0") || isVirtual(first, paren))) {
        tail.last = value;
        tail.next = nextSig(value);
        return true;
    }
    report(2, tail.next);
    const Index end = findSemicolon(tail.next);
    tail.skipped = end != kNone;
    if (tail.skipped) tail.next = end;
    return false;
}

/// From the colon of a member initialiser list to the brace of the body.
void TreeBuilder::takeInitializers(FunctionTail& tail) {
    const Index brace = findInitBody(tail.next);
    if (type(brace) == tkOpenBrace) {
        tail.initColon = tail.next;
    } else if (type(brace) == tkSemicolon) { // the width of a bit field that a macro names
        report(2, tail.next);
        tail.skipped = true;
    } else {
        reportEnd(brace);
        tail.failed = true;
    }
    tail.next = brace;
}

bool TreeBuilder::isVirtual(Index first, Index paren) const {
    for (Index j = sig(first); j < paren; j = nextSig(j)) {
        if (type(j) == tkVirtual) return true;
    }
    return false;
}

/// A macro that may make a class: in upper case, at least its first part, and no member of anything.
bool TreeBuilder::looksLikeMacroClass(std::string_view name) {
    return looksLikeMacro(name.substr(0, name.find('_'))) && name.find("::") == std::string_view::npos;
}

/// Steps over one piece that the head does not cover, with code 2 at the first of them. Returns false
/// at what belongs to no function.
bool TreeBuilder::skipTailPiece(FunctionTail& tail) {
    Index& k = tail.next;
    if (!tail.noted) report(2, k);
    tail.noted = true;
    const int kind = type(k);
    const Index next = nextSig(k);
    if (kind == tkAmpersand || kind == tkLogicalAnd) {
        k = next;
    } else if (kind == tkArrow) {
        for (k = next; !endsHead(type(k)) && type(k) != tkEnd && type(k) != tkCloseBrace && type(k) != tkAssign; k = nextSig(k)) {
            const bool opens = type(k) == tkOpenParen || type(k) == tkLess || type(k) == tkOpenBracket;
            if (opens && t_.mate(k) != kNone) k = t_.mate(k);
        }
    } else if (isAttribute(k)) {
        k = nextSig(t_.mate(k));
    } else if (isWord(k, "requires")) {
        k = nextSig(skipConstraint(k));
    } else if (isTailWord(t_.text(k)) || kind == tkAsm || isAsm(k) || (kind == tkIdentifier && takesPair(k))) {
        k = type(next) == tkOpenParen && t_.mate(next) != kNone ? nextSig(t_.mate(next)) : next;
    } else {
        const Index behind = kind == tkIdentifier ? skipMacroRun(k, tail.typed) : kNone;
        if (behind == kNone) return false;
        k = behind;
    }
    return true;
}

/// Words behind the parameters that can only be macros: one name; or, behind a function with a type,
/// several that look like macros, each with or without an argument list, up to what ends a head.
/// Returns that end, or kNone.
TreeBuilder::Index TreeBuilder::skipMacroRun(Index k, bool typed) const {
    const Index only = nextSig(k);
    if (type(only) == tkSemicolon || type(only) == tkOpenBrace) return only;
    // In front of member initialisers. An access label would begin its line.
    if (type(only) == tkColon && t_.start(k).line == t_.start(t_.significantBefore(k)).line) return only;
    for (int count = 0; typed && count < kMaxTailMacros && type(k) == tkIdentifier && looksLikeMacro(t_.text(k)); ++count) {
        k = nextSig(k);
        if (type(k) == tkOpenParen && t_.mate(k) != kNone) k = nextSig(t_.mate(k));
        const bool known = isTailWord(t_.text(k));
        if (endsHead(type(k)) || type(k) == tkAssign || type(k) == tkArrow || type(k) == tkColon || known) return k;
    }
    return kNone;
}

/// The brace of the body behind a member initialiser list: the first one that opens no initialiser
/// itself. Where there is none, what ends the search: a ";", a "}" or the end.
TreeBuilder::Index TreeBuilder::findInitBody(Index colon) const {
    Index prev = colon;
    for (Index j = nextSig(colon);; prev = j, j = nextSig(j)) {
        switch (type(j)) {
        case tkSemicolon: case tkCloseBrace: case tkEnd:
            return j;
        case tkOpenBrace:
            if (type(prev) == tkCloseParen || type(prev) == tkCloseBrace || type(prev) == tkDot) return j;
            if (t_.mate(j) == kNone) return t_.size();
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

/// Where the name in front of the "(" starts, or kNone if none stands there.
TreeBuilder::Index TreeBuilder::findFunctionName(Index first, Index paren) const {
    for (Index j = t_.significantBefore(paren); j != kNone && j >= first && isNameBefore(j); j = t_.significantBefore(j)) {
        if (type(j) == tkIdentifier) return nameStart(first, j);
        j = t_.mate(j);
        // An attribute between the name and the "(" is passed over with its word.
        const Index word = t_.significantBefore(j);
        if (word != kNone && word > first && takesPair(word)) j = word;
        if (j <= first) break;
    }
    return kNone;
}

/// Where the name that ends in the token at `at` starts: over "A<T>" in front of a "::", over "~", over the
/// words that dots part in the name of a module.
Index TreeBuilder::nameStart(Index first, Index at) const {
    Index start = at;
    for (;;) {
        const Index before = t_.significantBefore(start);
        if (before == kNone || before < first) return start;
        const std::string_view text = t_.text(start);
        const Index dotted = type(before) == tkDot && before > first ? t_.significantBefore(before) : kNone;
        if (type(before) == tkTilde) {
            start = before;
        } else if (dotted != kNone && dotted >= first && type(dotted) == tkIdentifier) {
            start = dotted;
        } else if (text.substr(0, 2) == "::" || text.empty()) {
            if (type(before) == tkIdentifier && type(start) != tkIdentifier) {
                start = before;
            } else if (type(before) == tkGreater && t_.mate(before) != kNone && t_.mate(before) > first) {
                const Index name = t_.significantBefore(t_.mate(before));
                if (name == kNone || name < first || type(name) != tkIdentifier) return start;
                start = name;
            } else {
                return start;
            }
        } else {
            return start;
        }
    }
}

/// Builds the head from `first` up to but not including `end`, with the parameters at `paren`.
TreeBuilder::Ptr<FunctionHeadNode> TreeBuilder::parseFunctionHead(Index first, Index paren, Index op, bool member, Index end) {
    first = sig(first);
    const Index name = op != kNone && op < paren ? nameStart(first, op) : findFunctionName(first, paren);
    if (name == kNone) {
        report("Expected function name. Got: " + t_.spelling(paren), paren);
        return nullptr;
    }
    auto head = make<FunctionHeadNode>();
    if (name > first) {
        const Index last = t_.significantBefore(name);
        head->setReturnType(part<FunctionReturnNode>(joined(first, name), t_.start(first), t_.end(last)));
    }
    if (op != kNone && op < paren && !checkOperator(op, paren, member)) return nullptr;
    const Index lastOfName = t_.significantBefore(paren);
    head->setName(part<IdNode>(functionName(name, op, paren), t_.start(name), t_.end(lastOfName)));
    head->setParams(parseParameterList(paren, t_.mate(paren)).release());
    if (!parseHeadTail(*head, nextSig(t_.mate(paren)), end)) return nullptr;
    return head;
}

/// The text of the name from `first` up to `paren`. An operator stands directly behind its keyword,
/// and that behind the class; words are kept apart by single blanks.
NodeText TreeBuilder::functionName(Index first, Index op, Index paren) {
    if (op == kNone || op >= paren) return joined(first, paren);
    std::string text;
    const int what = type(nextSig(op));
    for (Index j = first; j < paren; j = nextSig(j)) {
        const bool qualified = j == op && t_.text(j).substr(0, 2) == "::";
        const bool allocation = (what == tkNew || what == tkDelete) && type(j) < tkClass;
        const bool symbol = j > op && type(j) < tkClass && (what < tkClass || allocation);
        if (!text.empty() && !qualified && !symbol) text += ' ';
        t_.appendSpelling(text, j);
    }
    return pool_.keep(text);
}

/// The qualifiers, the exception specification and the "= 0" of a head.
bool TreeBuilder::parseHeadTail(FunctionHeadNode& head, Index from, Index end) {
    for (Index k = from; k < end; k = nextSig(k)) {
        if (type(k) == tkConst || type(k) == tkVolatile) {
            Index last = k;
            while (nextSig(last) < end && (nextType(last) == tkConst || nextType(last) == tkVolatile)) last = nextSig(last);
            head.setQualifiers(part<TextNode>(joined(k, last + 1), t_.start(k), t_.end(last)));
            k = last;
        } else if (type(k) == tkThrow) {
            const Index close = t_.mate(nextSig(k));
            head.setThrowSpec(part<ExprNode>(joined(k, close + 1), t_.start(k), t_.end(close)));
            k = close;
        } else if (type(k) == tkAssign) {
            const Index value = nextSig(k);
            if (!isWord(value, "0")) {
                report("Expected '= 0' to indicate a pure virtual function. Got: " + t_.spelling(value), value);
                return false;
            }
            head.setPureSpec(part<ExprNode>(NodeText::keptBy("= 0"), t_.start(k), t_.end(value)));
            k = value;
        }
    }
    return true;
}

/// True for a "<" with no partner that cannot be a comparison: a type follows it.
bool TreeBuilder::isOpenAngle(Index less) const {
    const Index next = nextSig(less);
    const bool typeWord = (type(next) >= tkChar && type(next) <= tkVoid) || type(next) == tkConst || type(next) == tkUnsigned ||
                          type(next) == tkSigned || type(next) == tkStruct || type(next) == tkClass || type(next) == tkTypename;
    return t_.mate(less) == kNone && typeWord && nextType(next) != tkOpenParen && nextType(next) != tkOpenBrace;
}

/// The parameters between two brackets, and the comments among them, in source order.
TreeBuilder::Ptr<ParameterListNode> TreeBuilder::parseParameterList(Index open, Index close) {
    auto list = make<ParameterListNode>(t_.start(open), t_.end(close));
    Index first = kNone;
    bool openAngle = false;
    const auto flush = [&](Index end) {
        if (first != kNone) {
            const Index last = t_.significantBefore(end);
            list->append(make<ParameterNode>(joined(first, end), t_.start(first), t_.end(last)));
        }
        first = kNone;
    };
    for (Index j = open + 1; j < close; ++j) {
        if (isCommentOrDirective(type(j))) {
            // A comment inside a parameter belongs to its text; one that ends it stands for itself.
            const Index next = sig(j);
            const bool between = first == kNone || next >= close || type(next) == tkComma;
            if (!between || type(j) == tkDirective) continue;
            flush(j);
            list->append(make<CommentNode>(spelled(j), t_.start(j), t_.end(j)));
        } else if (type(j) == tkComma) {
            flush(j);
        } else {
            if (first == kNone) first = j;
            openAngle = openAngle || (type(j) == tkLess && isOpenAngle(j));
            const bool opens = type(j) == tkOpenParen || type(j) == tkOpenBrace || type(j) == tkOpenBracket || type(j) == tkLess;
            if (opens && t_.mate(j) != kNone && t_.mate(j) < close) j = t_.mate(j);
            // A ">>" closes both the argument and the list: its first half is the argument's.
            if (type(j) == tkLess && t_.mate(j) == close) {
                list->append(make<ParameterNode>(pool_.keep(t_.joined(first, close) + " >"), t_.start(first), t_.start(close)));
                return list;
            }
        }
    }
    flush(close);
    if (openAngle) report("Expected '>'. Got: " + t_.spelling(close), close);
    return list;
}

TreeBuilder::Ptr<InitializerListNode> TreeBuilder::parseMemberInits(Index colon, Index brace) {
    auto list = make<InitializerListNode>();
    for (at_ = colon + 1; at_ < brace;) {
        if (isCommentOrDirective(type(at_))) {
            addNote(*list);
        } else if (type(at_) == tkComma || type(at_) == tkDot || type(at_) == tkInvalid) {
            ++at_;
        } else {
            Ptr<InitializerNode> init = parseMemberInit(at_, brace);
            if (!init) return nullptr;
            list->append(std::move(init));
        }
    }
    return list->empty() ? nullptr : std::move(list);
}

TreeBuilder::Ptr<InitializerNode> TreeBuilder::parseMemberInit(Index& at, Index brace) {
    const Index first = at;
    if (type(first) != tkIdentifier && type(first) != tkTypename) {
        report("Expected a variable name for an initializer. Got: \"" + t_.spelling(first) + "\"", first);
        return nullptr;
    }
    Index open = first;
    while (open < brace && type(open) != tkOpenParen && type(open) != tkOpenBrace) {
        if ((type(open) == tkLess || type(open) == tkOpenBracket) && t_.mate(open) != kNone) open = t_.mate(open);
        else if (takesPair(open)) open = skipPair(open); // "decltype(a)(...)": the first pair is a part of the name
        open = nextSig(open);
    }
    if (open >= brace || t_.mate(open) == kNone) {
        report("Expected a (. Got: \"" + t_.spelling(open) + "\"", open);
        return nullptr;
    }
    auto name = make<IdNode>(joined(first, open), t_.start(first), t_.end(t_.significantBefore(open)));
    Ptr<ArgListNode> args = parseArgs(open, t_.mate(open));
    at = t_.mate(open) + 1;
    return make<InitializerNode>(name.release(), args.release());
}

TreeBuilder::Ptr<ArgListNode> TreeBuilder::parseArgs(Index open, Index close) const {
    auto list = make<ArgListNode>(t_.start(open), t_.end(close));
    for (Index j = nextSig(open); j < close;) {
        Index end = firstComma(j, close);
        if (end == kNone) end = close;
        if (j < end)
            list->append(make<ArgNode>(joined(j, end), t_.start(j), t_.end(t_.significantBefore(end))));
        j = end < close ? nextSig(end) : close;
    }
    return list;
}

/// A declarator in parentheses: a pointer to a function, or a function that merely looks so, since
/// a body follows.
TreeBuilder::NodePtr TreeBuilder::parsePointer(Index first, const DeclHead& head) {
    const Index paren = head.at;
    Index end = paren;
    bool initialiser = false;
    for (; type(end) != tkEnd && type(end) != tkInvalid; end = nextSig(end)) {
        const int kind = type(end);
        if (kind == tkSemicolon || kind == tkCloseBrace || isAccessKeyword(kind)) break;
        // Behind a macro that makes all of a member the next one starts.
        if (kind == tkNamespace || kind == tkUsing || (kind == tkTemplate && !initialiser)) break;
        if (kind == tkAssign) initialiser = true;
        if (kind == tkOpenBrace && !initialiser) break;
        const bool opens = kind == tkOpenParen || kind == tkOpenBrace || kind == tkOpenBracket;
        if (opens && t_.mate(end) != kNone) end = t_.mate(end);
    }
    if (!checkPointer(first, paren)) return nullptr;
    if (type(end) != tkOpenBrace) return parseFunctionPtr(first, paren, end);
    // The name is the group itself, unless a name stands in front of it.
    const bool star = type(nextSig(paren)) == tkAsterisk;
    const bool macro = !star && findFunctionName(sig(first), paren) != kNone;
    const Index second = nextSig(t_.mate(paren));
    Ptr<FunctionHeadNode> node;
    if (macro) {
        node = parseFunctionHead(first, paren, kNone, false, t_.mate(paren) + 1);
    } else {
        node = make<FunctionHeadNode>();
        const Index start = sig(first);
        if (start < paren)
            node->setReturnType(part<FunctionReturnNode>(joined(start, paren), t_.start(start), t_.end(t_.significantBefore(paren))));
        node->setName(part<IdNode>(joined(paren, t_.mate(paren) + 1), t_.start(paren), t_.end(t_.mate(paren))));
        if (type(second) == tkOpenParen && t_.mate(second) != kNone)
            node->setParams(parseParameterList(second, t_.mate(second)).release());
    }
    FunctionTail tail;
    tail.next = end;
    return finishFunction(std::move(node), tail);
}

TreeBuilder::NodePtr TreeBuilder::parseFunctionPtr(Index first, Index paren, Index end) {
    first = sig(first);
    const Index close = t_.mate(paren);
    auto node = make<FunctionPtrDeclNode>();
    if (first < paren)
        node->setReturnType(part<FunctionReturnNode>(joined(first, paren), t_.start(first), t_.end(t_.significantBefore(paren))));
    const bool filled = nextSig(paren) < close;
    node->setName(part<IdNode>(filled ? joined(paren + 1, close) : NodeText::keptBy("( )"), t_.start(paren), t_.end(close)));
    Index rest = nextSig(close);
    if (type(rest) == tkOpenParen && t_.mate(rest) != kNone) {
        node->setParams(parseParameterList(rest, t_.mate(rest)).release());
        rest = nextSig(t_.mate(rest));
    }
    if (rest < end) {
        const Index last = t_.significantBefore(end);
        node->setSuffix(part<TextNode>(joined(rest, end), t_.start(rest), t_.end(last)));
        node->setEnd(t_.end(last));
    }
    if (type(end) == tkEnd || type(end) == tkInvalid) {
        reportEnd(end);
        at_ = end;
        return nullptr;
    }
    at_ = t_.significantBefore(end) + 1;
    return node;
}

} // namespace Cpp
