#include "cpp/Cpp_BraceClassifier.h"

#include "cpp/Cpp_Names.h"

#include <algorithm>
#include <unordered_map>

namespace Cpp {

namespace {

using Index = TokenTable::Index;
constexpr Index kNone = TokenTable::kNone;

/// More tokens than stand between the parameters of a closure and its body.
constexpr int kMaxClosureTail = 64;

/// The head of a control statement, whose parentheses a statement follows.
bool opensControl(int type) {
    return type == tkIf || type == tkFor || type == tkWhile || type == tkCatch || type == tkSwitch;
}

/// Keywords that another statement follows at once.
bool isBareControl(int type) { return type == tkElse || type == tkDo || type == tkTry; }

bool isClassKey(int type) { return type == tkClass || type == tkStruct || type == tkUnion; }

bool isAssignment(int type) { return type == tkAssign || (type >= tkMulAssign && type <= tkOrAssign); }

/// Tokens at the start of a value, but not of a member.
bool startsValue(int type) {
    switch (type) {
    case tkNumber: case tkCharLiteral: case tkStringLiteral: case tkTrue: case tkFalse: case tkDot: case tkOpenBrace:
    case tkAmpersand: case tkMinus:
        return true;
    default:
        return false;
    }
}

bool isCoroutineWord(std::string_view word) {
    return word == "co_return" || word == "co_yield" || word == "co_await";
}

/// Behind these tokens an operand is complete: a "[" indexes, and a "(" calls.
bool endsOperand(int type) {
    switch (type) {
    case tkIdentifier: case tkCloseParen: case tkCloseBracket: case tkGreater: case tkNumber: case tkStringLiteral:
    case tkCharLiteral: case tkThis: case tkTrue: case tkFalse: case tkDelete: case tkOperator: case tkAuto: case tkCloseBrace:
        return true;
    default:
        return type >= tkChar && type <= tkVoid;
    }
}

/// What can follow a value, but no block, whatever the line.
bool followsValue(int type) {
    switch (type) {
    case tkSemicolon: case tkComma: case tkDot: case tkArrow: case tkCloseParen: case tkCloseBracket: case tkQuestion:
    case tkShiftLeft: case tkShiftRight: case tkGreater: case tkLogicalAnd: case tkLogicalOr: case tkSlash: case tkPercent:
        return true;
    default:
        return isAssignment(type) || (type >= tkLess && type <= tkBar);
    }
}

/// Words between the parameters of a closure and its body, besides those of a type.
bool isClosureWord(int type) {
    switch (type) {
    case tkIdentifier: case tkMutable: case tkConst: case tkVolatile: case tkStatic: case tkThrow: case tkArrow:
    case tkTypename: case tkStruct: case tkClass: case tkEnum: case tkUnion: case tkUnsigned: case tkSigned:
    case tkAsterisk: case tkAmpersand: case tkLogicalAnd: case tkAuto: case tkDot: case tkTemplate:
        return true;
    default:
        return type >= tkChar && type <= tkVoid;
    }
}

} // namespace

/// The walk over the table. A frame is a bracket that it is in, or the whole text.
class BraceClassifier::Pass {
public:
    Pass(const TokenTable& table, BraceClassifier& result) : t_(table), result_(result) {}

    void run() {
        findCode();
        frames_.push_back({});
        frame().holdsStatements = true;
        for (Index i = t_.significant(0); i < t_.size(); i = next(i)) {
            take(i);
            prev_ = i;
        }
    }

private:
    struct Frame {
        Index close = kNone;
        bool holdsStatements = false;
        bool ofFunction = false; // statements, not members or declarations
        // Of the statement that is being read.
        Index first = kNone;
        int count = 0;
        int names = 0; // behind the key of a class
        bool classKey = false;
        bool enumKey = false;
        bool bases = false;    // behind the ":" of a class head
        bool inits = false;    // behind that of a constructor
        bool assigned = false; // an operand follows
    };

    Index next(Index i) const { return i < t_.size() ? t_.significant(i + 1) : t_.size(); }
    Index before(Index i) const { return i == kNone ? kNone : t_.significantBefore(i); }
    Index mate(Index i) const { return i == kNone ? kNone : t_.mate(i); }
    int type(Index i) const { return i == kNone ? int(tkEnd) : t_.type(i); }
    int prevType() const { return type(prev_); }
    bool isWord(Index i, std::string_view word) const { return type(i) == tkIdentifier && t_.text(i) == word; }
    Frame& frame() { return frames_.back(); }
    const Frame& frame() const { return frames_.back(); }

    // Finds which braces hold a ";" of their own or begin with the keyword of a statement.
    void findCode() {
        isCode_.assign(t_.size() + 1, false);
        std::vector<Index> open;
        for (Index i = t_.significant(0); i < t_.size(); i = next(i)) {
            while (!open.empty() && t_.mate(open.back()) <= i) open.pop_back();
            const int kind = type(i);
            if (kind == tkSemicolon && !open.empty()) isCode_[open.back()] = true;
            const bool opens = kind == tkOpenParen || kind == tkOpenBrace || kind == tkOpenBracket;
            if (!opens || mate(i) == kNone) continue;
            if (beginsControl(type(next(i)))) isCode_[i] = true;
            open.push_back(i);
        }
    }

    void take(Index i) {
        const int kind = type(i);
        switch (kind) {
        case tkSemicolon:
            return beginStatement();
        case tkOpenBrace:
            return enterBrace(i);
        case tkOpenBracket:
            findClosure(i);
            return enter(i, false);
        case tkOpenParen:
            return enter(i, false);
        case tkCloseBrace: case tkCloseBracket: case tkCloseParen:
            return leave(i);
        case tkColon:
            return takeColon(i);
        default:
            if (frame().holdsStatements) takeWord(i, kind);
        }
    }

    void takeWord(Index i, int kind) {
        if (isBareControl(kind)) return beginStatement();
        Frame& in = frame();
        begin(i);
        // What stands among the arguments of a template says nothing of the statement.
        if (i < argumentsEnd_) return;
        switch (kind) {
        case tkLess:
            if (mate(i) != kNone) argumentsEnd_ = mate(i);
            return;
        case tkClass: case tkStruct: case tkUnion:
            in.classKey = true;
            in.names = 0;
            return;
        case tkEnum:
            in.enumKey = true;
            return;
        case tkReturn: case tkThrow: case tkNew: case tkDelete: case tkCase: case tkQuestion:
            in.assigned = true;
            return;
        default:
            if (kind == tkIdentifier && type(next(i)) != tkOpenParen) ++in.names;
            const bool assigns = isAssignment(kind) && prevType() != tkOperator;
            if (assigns || (kind == tkIdentifier && isCoroutineWord(t_.text(i)))) in.assigned = true;
        }
    }

    void begin(Index i) {
        Frame& in = frame();
        if (in.first == kNone) in.first = i;
        ++in.count;
    }

    void beginStatement() {
        Frame fresh;
        fresh.close = frame().close;
        fresh.holdsStatements = frame().holdsStatements;
        fresh.ofFunction = frame().ofFunction;
        frame() = fresh;
    }

    // The end of a label, or the start of base classes or of the initialisers of members.
    void takeColon(Index i) {
        Frame& in = frame();
        if (!in.holdsStatements) return;
        const int first = type(in.first);
        const bool isCase = first == tkCase || first == tkDefault || (first >= tkPublic && first <= tkProtected);
        if (in.classKey || in.enumKey) {
            in.bases = true;
        } else if (prevType() == tkTry) {
            begin(i);
            in.inits = true;
        } else if (isCase || (in.count == 1 && !in.inits)) {
            beginStatement();
        } else {
            in.inits = !in.assigned;
        }
    }

    void enter(Index open, bool holdsStatements) {
        if (frame().holdsStatements) begin(open);
        if (mate(open) == kNone) return;
        Frame inner;
        inner.close = mate(open);
        inner.holdsStatements = holdsStatements;
        frames_.push_back(inner);
    }

    // A bracket that closes one further out closes those inside it, too.
    void leave(Index close) {
        if (mate(close) == kNone) return;
        while (frames_.size() > 1 && frame().close < close) frames_.pop_back();
        if (frames_.size() < 2 || frame().close != close) return;
        frames_.pop_back();
        if (!frame().holdsStatements) return;
        const Brace kind = result_.kinds_[mate(close)];
        if (kind == Brace::Class || kind == Brace::Enumerators) {
            frame().classKey = frame().enumKey = frame().bases = false;
        } else if (kind == Brace::Block || kind == Brace::Linkage || (type(close) == tkCloseParen && isHead(mate(close)))) {
            beginStatement();
        }
    }

    // Whether the parentheses at `open` belong to the keyword of a control statement.
    bool isHead(Index open) const {
        const Index word = before(open);
        return opensControl(type(word)) || (type(word) == tkIdentifier && type(before(word)) == tkIf);
    }

    void enterBrace(Index i) {
        if (mate(i) == kNone) return;
        const Brace kind = classify(i);
        result_.kinds_[i] = kind;
        if (holdsCode(kind)) {
            result_.codeBraces_.push_back(i);
            result_.heads_.push_back(headOf(i, kind));
        }
        const bool isFunction = holdsCode(kind) || (kind == Brace::Block && !isNamespace(frame().first));
        const bool holdsStatements = isFunction || kind == Brace::Block || kind == Brace::Class || kind == Brace::Linkage;
        enter(i, holdsStatements);
        frame().ofFunction = isFunction;
    }

    bool isNamespace(Index first) const {
        const bool specified = type(first) == tkInline && type(next(first)) == tkNamespace;
        return specified || type(first) == tkNamespace || type(first) == tkExport;
    }

    Index headOf(Index i, Brace kind) const {
        if (kind == Brace::Closure) return closureHeads_.at(i);
        if (kind != Brace::Requirements) return i;
        return prevType() == tkCloseParen ? before(mate(prev_)) : prev_;
    }

    Brace classify(Index i) const {
        if (closureHeads_.count(i) != 0) return Brace::Closure;
        if (isRequirement()) return Brace::Requirements;
        if (!frame().holdsStatements || frame().assigned) return isCode_[i] ? Brace::Statements : Brace::Values;
        if (frame().first == kNone) return isCompoundRequirement(i) ? Brace::Values : Brace::Block;
        return classifyBehind(i);
    }

    // Not the constraint of a function, whose body the braces would be.
    bool isRequirement() const {
        const Index word = prevType() == tkCloseParen ? before(mate(prev_)) : prev_;
        if (!isWord(word, "requires")) return false;
        if (word == prev_) return true;
        switch (type(before(word))) {
        case tkAssign: case tkLogicalAnd: case tkLogicalOr: case tkOpenParen: case tkExclamation: case tkComma: case tkReturn:
            return true;
        default:
            return isWord(before(word), "requires");
        }
    }

    // "{ a() } -> C;" in the braces of "requires".
    bool isCompoundRequirement(Index i) const {
        const Index open = frames_.size() > 1 ? mate(frame().close) : kNone;
        return open != kNone && result_.kinds_[open] == Brace::Requirements && !isCode_[i];
    }

    // Within a statement that has begun, outside of brackets.
    Brace classifyBehind(Index i) const {
        const Frame& in = frame();
        if (isNamespace(in.first)) return Brace::Block;
        if (type(in.first) == tkExtern && prevType() == tkStringLiteral) return Brace::Linkage;
        if (in.enumKey && prevType() != tkCloseParen) return Brace::Enumerators;
        if (in.bases || isClassKey(prevType())) return Brace::Class;
        if (isFunctionTail()) return Brace::Block;
        switch (prevType()) {
        case tkIdentifier: case tkGreater: case tkShiftRight:
            if (in.classKey) return holdsMembers(i) ? Brace::Class : Brace::Values;
            return in.inits || isValue(i) ? Brace::Values : Brace::Block;
        case tkCloseBracket:
            if (isAttribute(mate(prev_))) return in.classKey ? Brace::Class : Brace::Block;
            return isValue(i) ? Brace::Values : Brace::Block;
        case tkCloseParen:
            return in.classKey && !in.inits && isBehindKey(prev_) ? Brace::Class : Brace::Block;
        default:
            return prevType() >= tkChar && prevType() <= tkVoid && isValue(i) ? Brace::Values : Brace::Block;
        }
    }

    // Whether the name in front of the brace stands behind parameters.
    bool isFunctionTail() const {
        const Index close = before(prev_);
        return type(prev_) == tkIdentifier && type(close) == tkCloseParen && endsHead(t_.text(prev_)) && !isBehindKey(close);
    }

    static bool endsHead(std::string_view name) { return isTailWord(name) || looksLikeMacro(name); }

    // "struct API(x) S {": whether the macro whose argument ends at `close` follows the key of a class.
    bool isBehindKey(Index close) const { return isClassKey(type(before(before(mate(close))))); }

    // Not the values of an object, as in "struct S s{1, 2};": a member ends in a ";" or a "}". Empty braces
    // tell nothing, but a macro in front of the name of a class is seldom in lower case.
    bool holdsMembers(Index i) const {
        const Index close = mate(i);
        const Index first = next(i);
        const int behind = type(next(close));
        if (isCode_[i] || frame().names < 2 || (behind != tkSemicolon && behind != tkComma)) return true;
        if (type(prev_) == tkIdentifier && endsHead(t_.text(prev_))) return true;
        if (first == close) return frame().names != 2 || looksLikeMacro(t_.text(before(prev_)));
        return !startsValue(type(first)) && !isList(first, close);
    }

    // Whether commas part what stands between the braces, or nothing does.
    bool isList(Index first, Index close) const {
        if (type(before(close)) == tkCloseBrace) return false;
        if (next(first) == close) return !looksLikeMacro(t_.text(first));
        for (Index j = first; j < close; j = next(mate(j) != kNone && mate(j) < close ? mate(j) : j)) {
            if (type(j) == tkComma) return true;
        }
        return false;
    }

    // Whether what follows the braces shows that they hold values. A block stands for itself.
    bool isValue(Index i) const {
        if (isCode_[i]) return false;
        const Index behind = next(mate(i));
        const bool named = frame().count > 1 || frame().ofFunction;
        if (named && followsValue(type(behind))) return true;
        const bool touches = behind < t_.size() && t_.token(behind).begin == t_.token(mate(i)).end;
        return touches && (type(behind) == tkOpenParen || type(behind) == tkOpenBracket);
    }

    bool isAttribute(Index open) const {
        if (type(open) != tkOpenBracket || type(open + 1) != tkOpenBracket || mate(open) == kNone) return false;
        return mate(open + 1) != kNone && next(mate(open + 1)) == mate(open);
    }

    // Looks from the "[" of what may be a closure for the brace of its body.
    void findClosure(Index open) {
        const bool startsStatement = frame().holdsStatements && frame().first == kNone;
        if (mate(open) == kNone || isAttribute(open)) return;
        if (!startsStatement && endsOperand(prevType()) && !isCoroutine(prev_)) return;
        const Index brace = skipClosureHead(open);
        if (brace == kNone) return;
        // "new T *[2]{a, b}" and "auto &[a, b]{c}" look the same.
        const bool mark = prevType() == tkAsterisk || prevType() == tkAmpersand || prevType() == tkLogicalAnd;
        if (mark && before(brace) == mate(open) && !isCode_[brace]) return;
        closureHeads_[brace] = open;
    }

    bool isCoroutine(Index word) const { return type(word) == tkIdentifier && isCoroutineWord(t_.text(word)); }

    Index skipClosureHead(Index open) const {
        Index k = skipTemplateParams(next(mate(open)));
        bool params = false;
        for (int left = kMaxClosureTail; left > 0; --left) {
            if (type(k) == tkOpenBrace) return mate(k) == kNone ? kNone : k;
            const bool group = type(k) == tkOpenParen || type(k) == tkLess || isAttribute(k);
            const bool word = isClosureWord(type(k)) && (params || type(k) != tkIdentifier || isBareWord(k));
            if ((group && mate(k) == kNone) || (!group && !word)) return kNone;
            params = params || type(k) == tkOpenParen || type(k) == tkArrow;
            k = next(group ? mate(k) : k);
        }
        return kNone;
    }

    // A "<" behind a bracket compares more often, so it has no partner.
    Index skipTemplateParams(Index k) const {
        if (type(k) != tkLess) return k;
        int depth = 0;
        for (int left = kMaxClosureTail; left > 0 && type(k) != tkEnd; --left) {
            const int kind = type(k);
            depth += kind == tkLess ? 1 : kind == tkGreater ? -1 : kind == tkShiftRight ? -2 : 0;
            k = next(kind == tkOpenParen && mate(k) != kNone ? mate(k) : k);
            if (depth <= 0) break;
        }
        return k;
    }

    // What may stand behind the captures though there are no parameters.
    bool isBareWord(Index k) const {
        const std::string_view word = t_.text(k);
        return word == "noexcept" || word == "constexpr" || word == "consteval" || word == "requires";
    }

    const TokenTable& t_;
    BraceClassifier& result_;
    std::vector<bool> isCode_; // by the bracket that opens
    std::vector<Frame> frames_;
    std::unordered_map<Index, Index> closureHeads_; // by the brace of the body
    Index argumentsEnd_ = 0; // the end of the last list of template arguments
    Index prev_ = kNone;
};

BraceClassifier::BraceClassifier(const TokenTable& table) : kinds_(table.size() + 1, Brace::None) {
    Pass(table, *this).run();
}

BraceClassifier::Index BraceClassifier::head(Index i) const {
    const auto found = std::lower_bound(codeBraces_.begin(), codeBraces_.end(), i);
    const bool isCode = found != codeBraces_.end() && *found == i;
    return isCode ? heads_[static_cast<std::size_t>(found - codeBraces_.begin())] : i;
}

} // namespace Cpp
