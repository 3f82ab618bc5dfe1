#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"

#include <algorithm>

namespace Norvane {

/// A function head while it is written.
struct CppFormatter::FnHead {
    const Cpp::FunctionDeclNode& node;
    const Cpp::IdNode& name;
    bool isDefinition;
    bool hadTemplate;
    /// Where the function begins. With a template head it is known from the start.
    Base column;
};

namespace {

/// Removes the white space behind the first and in front of the last character of `text`, and puts
/// a value there, where the option of that side is set.
void wrapDelimiters(std::string& text, const OptionalString& afterOpen, const OptionalString& beforeClose) {
    if (text.size() < 2) return;
    std::string inner = text.substr(1, text.size() - 2);
    const bool blank = isBlank(inner);
    if (afterOpen.set) replaceGapStart(inner, afterOpen.value);
    if (beforeClose.set && !(blank && afterOpen.set)) replaceGapEnd(inner, beforeClose.value);
    text.replace(1, text.size() - 2, inner);
}

/// Where the first element starts: a comment inside it may stand in front of it in the tree.
Trn::Position firstStart(const Cpp::InteriorNode& list) {
    Trn::Position first = list.child(0)->start();
    for (auto it = list.childBegin(); it != list.childEnd(); ++it) first = std::min(first, (*it)->start());
    return first;
}

} // namespace

bool CppFormatter::alignsFnNames() const {
    return options_.alignFnDeclNamesLeft || (options_.alignClassMemberNamesLeft && inClassBody_);
}

bool CppFormatter::isAnchoredMark(std::string_view text) const {
    return (endsInAsterisk(text) && options_.asteriskAnchor == 1) ||
           (endsInAmpersand(text) && options_.ampersandAnchor == 1);
}

bool CppFormatter::isHangingMark(std::string_view text) const {
    return (endsInAsterisk(text) && options_.asteriskAnchor == 1 && options_.hangingAsterisk) ||
           (endsInAmpersand(text) && options_.ampersandAnchor == 1 && options_.hangingAmpersand);
}

CppFormatter::Base CppFormatter::writeFnHead(Cpp::FunctionDeclNode& node) {
    beginDeclaration(node);
    Base column = base();
    const bool hadTemplate = takeTemplateBase(node.start(), column);
    Cpp::FunctionHeadNode* head = node.head();
    if (head == nullptr) return column;
    if (const Cpp::IdNode* name = head->name()) {
        FnHead fn{node, *name, node.block() != nullptr, hadTemplate, column};
        writeFnName(node, fn);
        column = fn.column;
    }
    const BaseScope scope(*this, column);
    if (head->params() != nullptr) writeFnParams(*head);
    exprFormatter_.formatTo(readThrough(head->end()), output_);
    return column;
}

void CppFormatter::writeFnName(const Cpp::FunctionDeclNode& node, FnHead& fn) {
    const Cpp::FunctionReturnNode* type = node.head()->returnType();
    if (type == nullptr) {
        writeNameWithoutType(fn);
    } else {
        copyUpTo(type->start());
        if (!fn.hadTemplate) fn.column = constructHere();
        writeReturnType(fn, readUpTo(fn.name.start()));
    }
    copyThrough(fn.name.end());
}

// Where the source owns the edge the name stands in its column already, and padding it once more
// would push it on with each run.
void CppFormatter::writeNameWithoutType(FnHead& fn) {
    const std::string_view gap = readUpTo(fn.name.start());
    writeSource(gap);
    if (!fn.isDefinition && alignsFnNames() && !holdsComment(gap) && !sourceOwnsEdge()) {
        const auto column = fnNameColumns_.find(&fn.node);
        padToColumn(column == fnNameColumns_.end() ? 1 : column->second, output_.indentWidth(), false,
                    sourceFrom(fn.name.start()));
    }
    if (!fn.hadTemplate) fn.column = constructHere();
}

const OptionalString& CppFormatter::wsAfterReturnType(const FnHead& fn) {
    const OptionalString& option = fn.isDefinition ? options_.wsAfterFnDefnReturnType : options_.wsAfterFnDeclReturnType;
    const bool oneLine = isOneLiner(fn.node);
    if (oneLine && option.breaksLine()) lineNote_ = {source_.offsetOf(fn.node.start()), output_.line()};
    return onOneLine(option, oneLine);
}

void CppFormatter::writeReturnType(FnHead& fn, std::string_view text) {
    if (options_.fnDoNotFormat) return writeSource(text);
    const bool joined = text.find('\\') != std::string_view::npos;
    const bool aligned = !fn.isDefinition && alignsFnNames() && !holdsComment(text) && !joined && !staysBroken(text, {});
    if (aligned) return writeAlignedReturn(fn, text);
    const OptionalString& option = wsAfterReturnType(fn);
    if (endsInMark(text) && staysBroken(text, option.value)) {
        return exprFormatter_.formatDeclarationTo(text, output_, option);
    }
    if (endsInMark(text)) return writePointerReturn(fn, text);
    if (option.set) {
        writeGapEnd(text, option.value, fn.column);
    } else {
        writeSource(text);
    }
}

// A mark that is anchored to the name has its white space in front already, so only a value that
// breaks the line goes behind it.
void CppFormatter::writePointerReturn(FnHead& fn, std::string_view text) {
    const OptionalString& option = wsAfterReturnType(fn);
    std::string formatted = exprFormatter_.formatDeclaration(std::string(text), output_.state(), option);
    if (fn.isDefinition && option.set && (!isAnchoredMark(text) || option.breaksLine())) {
        replaceGapEnd(formatted, option.value);
    }
    if (!option.breaksLine()) return output_.writeRaw(formatted);
    const std::string_view type = trimmedRight(formatted);
    output_.writeRaw(type);
    writeAtBase(std::string_view(formatted).substr(type.size()), fn.column);
}

void CppFormatter::writeAlignedReturn(FnHead& fn, std::string_view text) {
    std::string type(text);
    const bool anchored = isAnchoredMark(text);
    const bool hanging = isHangingMark(text);
    trimGapRight(type);
    joinLines(type);
    if (endsInMark(text)) {
        type = exprFormatter_.formatDeclaration(type, output_.state(), noWs());
        trimGapRight(type);
        output_.writeRaw(std::string_view(type).substr(0, anchored ? trailingMarks(type) : type.size()));
    } else {
        output_.write(type);
    }
    const std::size_t marks = anchored ? trailingMarks(type) : type.size();
    const std::string_view tail = trimmedLeft(std::string_view(type).substr(marks));
    const auto column = fnNameColumns_.find(&fn.node);
    padToColumn(column == fnNameColumns_.end() ? 1 : column->second,
                fn.column.ofSource ? fn.column.column : output_.indentWidth(), hanging,
                tail.empty() ? sourceFrom(fn.name.start()) : tail);
    output_.write(tail);
}

void CppFormatter::writeFnParams(const Cpp::FunctionHeadNode& head) {
    const std::string_view gap = readUpTo(head.params()->start());
    if (!options_.wsAfterFnName.set || gapIsInRegion_ || staysBroken(gap, options_.wsAfterFnName.value)) {
        writeSource(gap);
    } else if (isBlank(gap)) {
        writeGapEnd(gap, options_.wsAfterFnName.value, base());
    } else if (startsInLineComment(gap) || endsInLineComment(gap)) {
        writeSource(gap);
    } else {
        const bool goesOnWithWord = Cpp::isOneWord(output_.text(), gap);
        if (!goesOnWithWord) writeAtBase(options_.wsAfterFnName.value, base());
        writeSource(trimmedBoth(gap));
    }
    writeParams(*head.params());
}

void CppFormatter::writeParams(Cpp::ParameterListNode& list) {
    const OptionalString& after = options_.wsAfterFnOpenParen;
    const OptionalString& before = options_.wsBeforeFnCloseParen;
    copyThrough(list.start());
    if (list.empty()) {
        const std::string_view gap = readUpTo(list.end());
        if ((after.set || before.set) && !startsInLineComment(gap) && !staysBroken(gap, {})) {
            writeSource(trimmedLeft(gap));
        } else {
            writeSource(gap);
        }
        return;
    }
    const std::string_view open = readUpTo(firstStart(list));
    if (after.set) {
        writeGapEnd(open, after.value, base());
    } else {
        writeSource(open);
    }
    writeList(list, {options_.wsBeforeFnComma, options_.wsBetweenFnParams,
                     options_.alignFnParamsLeft && options_.keepLineBreaks});
    const std::string_view close = readUpTo(list.end());
    if (staysBroken(close, before.value)) {
        exprFormatter_.formatDeclarationTo(close, output_, options_.wsAfterParamTypeId);
    } else if (before.set && isBlank(close)) {
        writeGapEnd(close, before.value, base());
    } else if (before.set) {
        const OptionalString& separator = options_.wsAfterParamTypeId;
        std::string text = exprFormatter_.formatDeclaration(std::string(close), output_.state(), separator);
        replaceGapEnd(text, before.value);
        output_.writeRaw(text);
    } else {
        exprFormatter_.formatDeclarationTo(close, output_, options_.wsAfterParamTypeId);
    }
}

// Without a name the marks end the parameter, and whatever is set for the white space between them
// and a name has no place.
void CppFormatter::visit(Cpp::ParameterNode& node) {
    copyUpTo(node.start());
    const std::string_view text = readThrough(node.end());
    const OptionalString& separator = options_.wsAfterParamTypeId;
    if (!endsInMark(text)) return exprFormatter_.formatDeclarationTo(text, output_, separator);
    std::string formatted = exprFormatter_.formatDeclaration(std::string(text), output_.state(), separator);
    trimGapRight(formatted);
    output_.writeRaw(formatted);
}

void CppFormatter::visit(Cpp::FunctionDeclNode& node) {
    const BaseScope scope(*this, writeFnHead(node));
    const PendingScope pending(*this);
    if (node.block() == nullptr) return;
    pushPending(options_.wsBeforeFnOpenBrace);
    writeFnBody(*node.block());
}

void CppFormatter::writeFnBody(Cpp::BlockNode& body) {
    writeBody(body, {options_.indentFnContent, options_.wsAfterFnOpenBrace, options_.wsBeforeFnCloseBrace});
}

// A list takes the white space of the brace for its colon where it has none of its own.
void CppFormatter::visit(Cpp::CtorDeclNode& node) {
    const BaseScope scope(*this, writeFnHead(node));
    const PendingScope pending(*this);
    const bool hasList = node.initializers() != nullptr && !node.initializers()->empty();
    if (hasList) {
        const OptionalString& ofList = options_.wsBeforeClassInitList;
        pushPending(ofList.set ? ofList : options_.wsBeforeFnOpenBrace);
        node.initializers()->accept(*this);
    }
    if (node.block() == nullptr) return;
    pushPending(hasList ? options_.wsAfterClassInitList : options_.wsBeforeFnOpenBrace);
    writeFnBody(*node.block());
}

void CppFormatter::visit(Cpp::FunctionPtrDeclNode& node) {
    beginDeclaration(node);
    Base column = base();
    const bool hadTemplate = takeTemplateBase(node.start(), column);
    const Base here = constructAt(node.start());
    if (!hadTemplate) column = here;
    if (const Cpp::IdNode* name = node.name()) {
        if (const Cpp::FunctionReturnNode* type = node.returnType()) {
            copyUpTo(type->start());
            exprFormatter_.formatDeclarationTo(readUpTo(name->start()), output_, noWs());
        }
        copyUpTo(name->start());
        std::string text(readThrough(name->end()));
        wrapDelimiters(text, options_.wsAfterFnOpenParen, options_.wsBeforeFnCloseParen);
        output_.write(text);
    }
    const BaseScope scope(*this, column);
    if (node.params() != nullptr) {
        copyUpTo(node.params()->start());
        writeParams(*node.params());
    }
    copyThrough(node.end());
}

} // namespace Norvane
