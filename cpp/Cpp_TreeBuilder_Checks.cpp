#include "cpp/Cpp_TreeBuilder.h"

namespace Cpp {

using Index = TreeBuilder::Index;

// What no compiler accepts, wherever it can be told from what some do. Each check reports and returns false.

namespace {

/// Words of a declaration in front of its name, but for those of a class.
bool isTypeWord(int type) {
    return (type >= tkChar && type <= tkVoid) || type == tkConst || type == tkVolatile || type == tkMutable ||
           type == tkSigned || type == tkUnsigned || type == tkRegister || type == tkStatic || type == tkTypedef;
}

bool isLiteral(int type) { return type == tkNumber || type == tkStringLiteral || type == tkCharLiteral; }

bool opensGroup(int type) {
    return type == tkOpenParen || type == tkOpenBracket || type == tkOpenBrace || type == tkLess;
}

} // namespace

/// From a token to the last one of the group that it opens, or to itself.
Index TreeBuilder::endOfGroup(Index i) const { return opensGroup(type(i)) && t_.mate(i) != kNone ? t_.mate(i) : i; }

/// Checks what follows the keyword "operator" up to the parameters at `paren`.
bool TreeBuilder::checkOperator(Index op, Index paren, bool member) {
    const Index what = nextSig(op);
    const int kind = type(what);
    if (kind == tkOpenParen) {
        // A plain "operator" is a name that C allows; only a member must be an operator.
        if (what != paren || (!member && t_.spelling(op) == "operator")) return true;
        report("Expected ')'. As part of overloaded function call operator.", nextSig(what));
        return false;
    }
    if (kind == tkNew || kind == tkDelete) {
        Index list = nextSig(what);
        if (type(list) == tkOpenBracket && nextType(list) == tkCloseBracket) list = nextSig(nextSig(list));
        if (list == paren) return true;
        report("Expected (.", list);
        return false;
    }
    const bool symbol = kind == tkComma || kind == tkOpenBracket || (kind >= tkAssign && kind < tkClass && kind != tkDot && kind != tkQuestion);
    if (!symbol && kind >= tkClass) return checkConversion(what, paren);
    if (symbol || kind == tkStringLiteral) return true;
    report("Could not recognize overloaded operator.", what);
    return false;
}

/// The type that an operator converts to: each "<" of it opens a list of arguments.
bool TreeBuilder::checkConversion(Index first, Index paren) {
    for (Index j = first; j < paren; j = nextSig(endOfGroup(j))) {
        if (type(j) != tkLess || t_.mate(j) != kNone) continue;
        report("Expected \"<\".", j);
        return false;
    }
    return true;
}

/// "operator [" without its "]". In C an array may have that name.
bool TreeBuilder::checkIndexOperator(const DeclHead& head) {
    const bool isOne = head.op != kNone && nextSig(head.op) == head.at && type(head.at) == tkOpenBracket;
    if (!isOne || t_.mate(head.at) != kNone) return true;
    report("Expected [.", nextSig(head.at));
    at_ = head.at + 1;
    return false;
}

/// Checks the further declarators behind the first bit field. They may be plain or unnamed ones.
bool TreeBuilder::checkBitfield(Index colon, Index last) {
    for (Index j = firstComma(nextSig(colon), last); j != kNone; j = firstComma(nextSig(j), last)) {
        const Index name = nextSig(j);
        if (type(name) == tkColon || type(name) == tkAsterisk || type(name) == tkOpenParen) continue;
        if (type(name) != tkIdentifier) {
            report("Bad looking bitfield. Expected an Identifier. Got: '" + t_.spelling(name) + "'.", name);
            return false;
        }
        const int behind = nextType(name);
        if (behind == tkNumber || behind == tkStringLiteral || behind == tkIdentifier) {
            report("Bad looking bitfield. Expected ':'. Got: '" + t_.spelling(nextSig(name)) + "'.", nextSig(name));
            return false;
        }
    }
    return true;
}

/// The first ":" of what is no bit field. At the top of a text there may be fields that a class in some other text
/// includes.
bool TreeBuilder::checkColon(Index first, Index headEnd, Index last, bool allowBitfield) {
    Index colon = sig(first);
    while (colon < headEnd && type(colon) != tkColon) colon = nextSig(endOfGroup(colon));
    if (colon >= headEnd || colon == sig(first)) return true;
    const Index width = nextSig(colon);
    const bool lacksWidth = width >= last || type(width) == tkStringLiteral || type(width) == tkAssign;
    if (allowBitfield && lacksWidth) {
        report("Bad looking bitfield. Expected an identifier or an integer literal. Got: '" + t_.spelling(width) + "'.", width);
        return false;
    }
    if (!allowBitfield && depth_ > 0 && type(width) == tkNumber && nextSig(width) == last) {
        report(3, colon);
        return false;
    }
    return true;
}

/// What stands in front of a brace that belongs to no class and no enum: a macro, at least some name.
bool TreeBuilder::checkBraceHead(Index first, Index brace) {
    for (Index j = first; j < brace; j = nextSig(j)) {
        if (!isTypeWord(type(j))) return true;
    }
    report("Expected an identifier for the class name.", brace);
    at_ = brace + 1;
    return false;
}

/// What follows a declarator in parentheses: parameters, or what else there is but a value.
bool TreeBuilder::checkPointer(Index first, Index paren) {
    const Index behind = nextSig(t_.mate(paren));
    const Index before = t_.significantBefore(paren);
    const bool typed = sig(first) < paren && (isTypeWord(type(before)) || type(before) == tkAsterisk);
    if (!typed || type(nextSig(paren)) != tkAsterisk || !isLiteral(type(behind))) return true;
    report("Expected \"(\" as part of pointer-to-function declaration. Got: " + t_.spelling(behind), behind);
    at_ = behind;
    return false;
}

/// "int x(1; 2);" reads as a function until its values tell. Among the arguments of a macro anything may stand, and
/// in front of a ";" among parameters those that they depend on.
bool TreeBuilder::checkValues(Index paren, const FunctionTail& tail) {
    const Index before = t_.significantBefore(paren);
    const Index inner = nextSig(paren);
    const bool isValue = isLiteral(type(inner)) && tail.typed && type(tail.next) == tkSemicolon;
    if (!isValue || type(before) != tkIdentifier || looksLikeMacro(t_.text(before))) return true;
    for (Index j = inner; j < t_.mate(paren); j = nextSig(endOfGroup(j))) {
        if (type(j) != tkSemicolon) continue;
        report(5, j);
        return false;
    }
    return true;
}

} // namespace Cpp
