#include "cpp/Cpp_TreeBuilder.h"

#include <algorithm>
#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

namespace {

bool endsHead(int type) { return type == tkSemicolon || type == tkOpenBrace || type == tkComma; }

} // namespace

TreeBuilder::NodePtr TreeBuilder::parseFunction(Index first, const DeclHead& head) {
    const Index paren = head.at;
    const FunctionTail tail = scanTail(nextSig(t_.mate(paren)));
    if (tail.failed) {
        at_ = tail.next;
        return nullptr;
    }
    Ptr<FunctionHeadNode> node = parseFunctionHead(first, paren, head.op, tail.headEnd);
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
    if (type(at_) == tkOpenBrace && !tail.moreDeclarators) block = parseBlock();
    if (inits) return std::make_unique<CtorDeclNode>(head.release(), block.release(), inits.release());
    return std::make_unique<FunctionDeclNode>(head.release(), block.release());
}

/// Looks at what follows the parameters of a function, from `k` on. What is no part of the head and
/// yet belongs to the function, such as "override" or "noexcept", stays uncovered text.
TreeBuilder::FunctionTail TreeBuilder::scanTail(Index k) {
    FunctionTail tail;
    Index last = t_.significantBefore(k);
    bool noted = false;
    for (;;) {
        const int kind = type(k);
        if (kind == tkConst || kind == tkVolatile) {
            if (!noted) last = k;
            k = nextSig(k);
        } else if (kind == tkThrow) {
            const Index open = nextSig(k);
            if (type(open) != tkOpenParen || t_.mate(open) == kNone) {
                report("Expected '(' as part of exception specification clause 'throw()'. Got: " + t_.spelling(open), open);
                tail.failed = true;
                tail.next = k + 1;
                return tail;
            }
            if (!noted) last = t_.mate(open);
            k = nextSig(t_.mate(open));
        } else if (kind == tkColon) {
            const Index brace = findInitBody(k);
            if (brace == kNone) {
                reportEnd(t_.size());
                tail.failed = true;
                tail.next = k + 1;
                return tail;
            }
            tail.initColon = k;
            k = brace;
            break;
        } else if (kind == tkComma) {
            tail.moreDeclarators = true;
            break;
        } else if (kind == tkAssign) {
            const Index value = nextSig(k);
            if (type(value) == tkNumber && !noted) {
                last = value;
                k = nextSig(value);
                continue;
            }
            report(2, k);
            const Index end = findSemicolon(k);
            k = end == kNone ? k : end;
            break;
        } else if (kind == tkSemicolon || kind == tkOpenBrace || kind == tkEnd || kind == tkInvalid ||
                   kind == tkCloseBrace || isAccessKeyword(kind) || !skipTailPiece(k, noted)) {
            break;
        }
    }
    tail.headEnd = last + 1;
    tail.next = k;
    // Behind something that belongs to no function the comments in front of it are nodes of their own.
    const int stop = type(k);
    const bool goesOn = stop == tkSemicolon || stop == tkOpenBrace || stop == tkComma;
    if (!goesOn && tail.initColon == kNone) tail.next = std::min<Index>(k, (noted ? t_.significantBefore(k) : last) + 1);
    return tail;
}

/// Steps over one piece of a tail. Returns false, with code 2, at what is none.
bool TreeBuilder::skipTailPiece(Index& k, bool& noted) {
    const auto note = [&] {
        if (!noted) report(2, k);
        noted = true;
    };
    const int kind = type(k);
    const Index next = nextSig(k);
    if (kind == tkAmpersand || kind == tkLogicalAnd) {
        note();
        k = next;
        return true;
    }
    if (kind == tkArrow) {
        note();
        for (k = next; !endsHead(type(k)) && type(k) != tkEnd && type(k) != tkCloseBrace && type(k) != tkAssign; k = nextSig(k)) {
            const bool opens = type(k) == tkOpenParen || type(k) == tkLess || type(k) == tkOpenBracket;
            if (opens && t_.mate(k) != kNone) k = t_.mate(k);
        }
        return true;
    }
    if (isAttribute(k)) {
        note();
        k = nextSig(t_.mate(k));
        return true;
    }
    const bool word = kind == tkIdentifier || kind == tkAsm;
    if (!word) {
        note();
        return false;
    }
    const std::string_view text = t_.text(k);
    const bool known = text == "override" || text == "final" || text == "noexcept" || text == "requires" || kind == tkAsm ||
                       takesPair(k) || isAsm(k);
    if (known) {
        note();
        k = type(next) == tkOpenParen && t_.mate(next) != kNone ? nextSig(t_.mate(next)) : next;
        return true;
    }
    const Index behind = skipMacroRun(k);
    note();
    if (behind == kNone) return false;
    k = behind;
    return true;
}

/// Words behind the parameters that can only be macros: one name, or several that look like macros,
/// each with or without an argument list, up to what ends a head. Returns that end, or kNone.
Index TreeBuilder::skipMacroRun(Index k) const {
    const Index only = nextSig(k);
    if (type(only) == tkSemicolon || type(only) == tkOpenBrace) return only;
    while (type(k) == tkIdentifier && looksLikeMacro(t_.text(k))) {
        k = nextSig(k);
        if (type(k) == tkOpenParen && t_.mate(k) != kNone) k = nextSig(t_.mate(k));
        const bool known = type(k) == tkIdentifier && (t_.text(k) == "override" || t_.text(k) == "final" || t_.text(k) == "noexcept");
        if (endsHead(type(k)) || type(k) == tkAssign || type(k) == tkArrow || type(k) == tkColon || known) return k;
    }
    return kNone;
}

/// The brace of the body behind a member initialiser list: the first one that opens no initialiser
/// itself. kNone if there is none.
Index TreeBuilder::findInitBody(Index colon) const {
    Index prev = colon;
    for (Index j = nextSig(colon); j < t_.size(); prev = j, j = nextSig(j)) {
        switch (type(j)) {
        case tkSemicolon: case tkCloseBrace:
            return kNone;
        case tkOpenBrace:
            if (type(prev) == tkCloseParen || type(prev) == tkCloseBrace || type(prev) == tkDot) return j;
            if (t_.mate(j) == kNone) return kNone;
            j = t_.mate(j);
            break;
        case tkOpenParen: case tkOpenBracket: case tkLess:
            if (t_.mate(j) != kNone) j = t_.mate(j);
            break;
        default:
            break;
        }
    }
    return kNone;
}

/// The last name in front of the "(", or kNone. A name that begins with "::" reaches left over the
/// template that it belongs to.
Index TreeBuilder::findFunctionName(Index first, Index paren) const {
    for (Index j = t_.significantBefore(paren); j != kNone && j >= first; j = t_.significantBefore(j)) {
        if ((type(j) == tkGreater || type(j) == tkShiftRight || type(j) == tkCloseParen || type(j) == tkCloseBracket) &&
            t_.mate(j) != kNone && t_.mate(j) >= first) {
            j = t_.mate(j);
        } else if (type(j) == tkIdentifier && !takesPair(j)) {
            return operatorNameStart(first, j);
        }
        if (j == 0) break;
    }
    return kNone;
}

/// Where the name that ends in the token at `at` starts: over "A<T>" in front of a "::", over "~".
Index TreeBuilder::operatorNameStart(Index first, Index at) const {
    Index start = at;
    for (;;) {
        const Index before = t_.significantBefore(start);
        if (before == kNone || before < first) return start;
        const std::string_view text = t_.text(start);
        if (type(before) == tkTilde) {
            start = before;
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
TreeBuilder::Ptr<FunctionHeadNode> TreeBuilder::parseFunctionHead(Index first, Index paren, Index op, Index end) {
    first = sig(first);
    const Index name = op != kNone && op < paren ? operatorNameStart(first, op) : findFunctionName(first, paren);
    if (name == kNone) {
        report("Expected function name. Got: " + t_.spelling(paren), paren);
        return nullptr;
    }
    auto head = std::make_unique<FunctionHeadNode>();
    if (name > first) {
        const Index last = t_.significantBefore(name);
        head->setReturnType(new FunctionReturnNode(joined(first, name), t_.start(first), t_.end(last)));
    }
    const Index lastOfName = t_.significantBefore(paren);
    head->setName(new IdNode(joined(name, paren), t_.start(name), t_.end(lastOfName)));
    head->setParams(parseParameterList(paren, t_.mate(paren)).release());
    parseHeadTail(*head, nextSig(t_.mate(paren)), end);
    return head;
}

/// The qualifiers, the exception specification and the "= 0" of a head.
void TreeBuilder::parseHeadTail(FunctionHeadNode& head, Index from, Index end) {
    for (Index k = from; k < end; k = nextSig(k)) {
        if (type(k) == tkConst || type(k) == tkVolatile) {
            Index last = k;
            while (nextSig(last) < end && (nextType(last) == tkConst || nextType(last) == tkVolatile)) last = nextSig(last);
            head.setQualifiers(new TextNode(joined(k, last + 1), t_.start(k), t_.end(last)));
            k = last;
        } else if (type(k) == tkThrow) {
            const Index close = t_.mate(nextSig(k));
            head.setThrowSpec(new ExprNode(joined(k, close + 1), t_.start(k), t_.end(close)));
            k = close;
        } else if (type(k) == tkAssign) {
            const Index value = nextSig(k);
            if (!isWord(value, "0")) {
                report("Expected '= 0' to indicate a pure virtual function. Got: " + t_.spelling(value), value);
                return;
            }
            head.setPureSpec(new ExprNode("= 0", t_.start(k), t_.end(value)));
            k = value;
        }
    }
}

/// The parameters between two brackets, and the comments among them, in source order.
TreeBuilder::Ptr<ParameterListNode> TreeBuilder::parseParameterList(Index open, Index close) {
    auto list = std::make_unique<ParameterListNode>(t_.start(open), t_.end(close));
    Index first = kNone;
    const auto flush = [&](Index end) {
        if (first != kNone) {
            const Index last = t_.significantBefore(end);
            list->append(std::make_unique<ParameterNode>(joined(first, end), t_.start(first), t_.end(last)));
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
            list->append(std::make_unique<CommentNode>(std::string(t_.text(j)), t_.start(j), t_.end(j)));
        } else if (type(j) == tkComma) {
            flush(j);
        } else {
            if (first == kNone) first = j;
            const bool opens = type(j) == tkOpenParen || type(j) == tkOpenBrace || type(j) == tkOpenBracket || type(j) == tkLess;
            if (opens && t_.mate(j) != kNone && t_.mate(j) < close) j = t_.mate(j);
            // A ">>" closes both the argument and the list: its first half is the argument's.
            if (type(j) == tkLess && t_.mate(j) == close && first != kNone) {
                list->append(std::make_unique<ParameterNode>(joined(first, close) + " >", t_.start(first), t_.start(close)));
                return list;
            }
        }
    }
    flush(close);
    return list;
}

TreeBuilder::Ptr<InitializerListNode> TreeBuilder::parseMemberInits(Index colon, Index brace) {
    auto list = std::make_unique<InitializerListNode>();
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
        open = nextSig(open);
    }
    if (open >= brace || t_.mate(open) == kNone) {
        report("Expected a (. Got: \"" + t_.spelling(open) + "\"", open);
        return nullptr;
    }
    auto name = std::make_unique<IdNode>(joined(first, open), t_.start(first), t_.end(t_.significantBefore(open)));
    Ptr<ArgListNode> args = parseArgs(open, t_.mate(open));
    at = t_.mate(open) + 1;
    return std::make_unique<InitializerNode>(name.release(), args.release());
}

TreeBuilder::Ptr<ArgListNode> TreeBuilder::parseArgs(Index open, Index close) const {
    auto list = std::make_unique<ArgListNode>(t_.start(open), t_.end(close));
    for (Index j = nextSig(open); j < close;) {
        Index end = firstComma(j, close);
        if (end == kNone) end = close;
        if (j < end)
            list->append(std::make_unique<ArgNode>(joined(j, end), t_.start(j), t_.end(t_.significantBefore(end))));
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
        if (kind == tkAssign) initialiser = true;
        if (kind == tkOpenBrace && !initialiser) break;
        const bool opens = kind == tkOpenParen || kind == tkOpenBrace || kind == tkOpenBracket;
        if (opens && t_.mate(end) != kNone) end = t_.mate(end);
    }
    const Index second = nextSig(t_.mate(paren));
    if (type(end) != tkOpenBrace && !(second < end && type(second) == tkOpenParen && findFunctionName(sig(first), paren) != kNone &&
                                      type(nextSig(paren)) != tkAsterisk))
        return parseFunctionPtr(first, paren, end);
    if (type(end) != tkOpenBrace) return parseFunctionPtr(first, paren, end);
    // The name is the group itself, unless a name stands in front of it.
    const bool star = type(nextSig(paren)) == tkAsterisk;
    const bool macro = !star && findFunctionName(sig(first), paren) != kNone;
    Ptr<FunctionHeadNode> node;
    if (macro) {
        node = parseFunctionHead(first, paren, kNone, t_.mate(paren) + 1);
    } else {
        node = std::make_unique<FunctionHeadNode>();
        const Index start = sig(first);
        if (start < paren)
            node->setReturnType(new FunctionReturnNode(joined(start, paren), t_.start(start), t_.end(t_.significantBefore(paren))));
        node->setName(new IdNode(joined(paren, t_.mate(paren) + 1), t_.start(paren), t_.end(t_.mate(paren))));
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
    auto node = std::make_unique<FunctionPtrDeclNode>();
    if (first < paren)
        node->setReturnType(new FunctionReturnNode(joined(first, paren), t_.start(first), t_.end(t_.significantBefore(paren))));
    node->setName(new IdNode(joined(paren, close + 1), t_.start(paren), t_.end(close)));
    Index rest = nextSig(close);
    if (type(rest) == tkOpenParen && t_.mate(rest) != kNone) {
        node->setParams(parseParameterList(rest, t_.mate(rest)).release());
        rest = nextSig(t_.mate(rest));
    }
    if (rest < end) {
        const Index last = t_.significantBefore(end);
        node->setSuffix(new TextNode(joined(rest, end), t_.start(rest), t_.end(last)));
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
