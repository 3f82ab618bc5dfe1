#include "src/format/Norvane_FurtherLines.h"

#include "cpp/Cpp_BraceClassifier.h"
#include "cpp/Cpp_TokenTable.h"
#include "src/expr/Norvane_CppExprFormatterBase.h"
#include "streams/Zelmar_Columns.h"
#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Norvane {

namespace {

using Index = Cpp::TokenTable::Index;

constexpr Index kNone = Cpp::TokenTable::kNone;

std::string_view trimmedSpace(std::string_view text) {
    while (!text.empty() && Zelmar::isSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && Zelmar::isSpace(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view innerText(std::string_view comment) {
    comment.remove_prefix(std::min<std::size_t>(comment.size(), 2));
    if (comment.ends_with("*/")) comment.remove_suffix(2);
    return trimmedSpace(comment);
}

/// What a line stands in: statements between braces, or the elements of a bracket.
struct Frame {
    enum class Kind { code, bracket, list };

    Kind kind = Kind::code;
    Index close = kNone;
    /// By how much the line moved on which it opened.
    int shift = 0;

    // Of a bracket.
    bool hangs = false;  // its line ends behind it
    int openIndent = 0;  // of its line
    int firstColumn = 0; // of its first element
    bool awaitsFirst = false;

    // Of the statement or the element that is being read.
    bool atStart = true;
    bool isPlaceable = true; // no head of a function or class
    int indent = 0;          // of the line on which it starts
    int operandColumn = -1;  // where the operand began that further lines line up under
    int operandIndent = 0;   // of its line
    bool awaitsOperand = false;
    int shiftColumn = -1;    // of the first "<<" or ">>"
    int questionColumn = -1; // of the last "?"
    Index first = kNone;
};

bool endsHead(int keyword) {
    return keyword == Cpp::tkIf || keyword == Cpp::tkFor || keyword == Cpp::tkWhile || keyword == Cpp::tkSwitch ||
           keyword == Cpp::tkCatch;
}

bool holdsTab(const OptionalString& ws) { return ws.value.find('\t') != std::string::npos; }

bool isShift(int type) { return type == Cpp::tkShiftLeft || type == Cpp::tkShiftRight; }
bool isMemberAccess(int type) { return type == Cpp::tkDot || type == Cpp::tkArrow; }

/// What a statement starts with whose further lines are no expression.
bool startsDeclarationHead(int type) {
    return type == Cpp::tkClass || type == Cpp::tkStruct || type == Cpp::tkUnion || type == Cpp::tkEnum ||
           type == Cpp::tkNamespace || type == Cpp::tkTemplate || type == Cpp::tkExtern || type == Cpp::tkAsm;
}

class Pass {
public:
    Pass(const Zelmar::SourceText& source, const LayoutOptions& options, const FormatMarkerTable& markers)
        : source_(source), options_(options), markers_(markers),
          table_(source, Cpp::scanForParser(source).tokens), braces_(table_),
          usesTabs_(options.convertWs == Zelmar::kWsSpacesToTabs || holdsTab(options.indentFurtherLines) ||
                    holdsTab(options.indentFnContent)) {
        step_ = Zelmar::textColumn(options.indentFurtherLines.value, 0, options.tabSize);
        frames_.push_back({});
    }

    std::string run() {
        out_.reserve(source_.size() + source_.size() / 8);
        for (Index i = 0; i < table_.size(); ++i) take(i);
        out_.append(source_.text().substr(copied_));
        return std::move(out_);
    }

private:
    Frame& frame() { return frames_.back(); }

    void take(Index i) {
        const Cpp::ParseToken& token = table_.token(i);
        const bool isNote = Cpp::isCommentOrDirective(token.type);
        beginLine(i);
        if (isNote) {
            if (token.type != Cpp::tkDirective) noteMarker(table_.text(i));
            copyNote(i);
            return;
        }
        noteColumn(i);
        follow(i);
        before_ = i;
    }

    // Where the line of a token goes.
    void beginLine(Index i) {
        const Cpp::ParseToken& token = table_.token(i);
        const std::size_t lineBegin = source_.lineStart(token.line);
        if (lineBegin < lastLine_ || (lineBegin == lastLine_ && i > 0)) return;
        lastLine_ = lineBegin;
        const std::string_view front = source_.text().substr(lineBegin, token.begin - lineBegin);
        place_ = token.begin;
        column_ = Zelmar::textColumn(front, 0, options_.tabSize);
        lineShift_ = 0;
        lineIndent_ = column_;
        if (token.type == Cpp::tkDirective || trimmedSpace(front) != "" || !openMarker_.empty() || joinsLines(lineBegin)) {
            return;
        }
        const int wanted = std::max(wantedColumn(i, column_), 0);
        if (wanted == column_) return;
        out_.append(source_.text().substr(copied_, lineBegin - copied_));
        out_ += indentOf(wanted);
        copied_ = token.begin;
        lineShift_ = wanted - column_;
        column_ = lineIndent_ = wanted;
    }
    bool joinsLines(std::size_t lineBegin) const {
        return lineBegin >= 2 && source_.text().substr(lineBegin - 2, 2) == "\\\n";
    }
    std::string indentOf(int width) const {
        const int tabs = usesTabs_ ? width / options_.tabSize : 0;
        return std::string(static_cast<std::size_t>(tabs), '\t') +
               std::string(static_cast<std::size_t>(width - tabs * options_.tabSize), ' ');
    }
    int wantedColumn(Index i, int column) {
        const Frame& in = frame();
        const bool closes = i == in.close;
        if (in.kind == Frame::Kind::bracket) return closes ? closeColumn(in, column) : elementColumn(in, i, column);
        if (in.kind == Frame::Kind::list || closes || in.atStart || !in.isPlaceable) return column + in.shift;
        return statementColumn(in, i, column);
    }
    int closeColumn(const Frame& in, int column) const {
        return in.hangs && options_.indentFurtherLines.set ? in.openIndent : column + in.shift;
    }
    int stepFrom(int indent, int otherwise) const { return options_.indentFurtherLines.set ? indent + step_ : otherwise; }

    /// A line that begins within brackets.
    int elementColumn(const Frame& in, Index i, int column) {
        const int type = table_.type(i);
        const int left = before_ == kNone ? static_cast<int>(Cpp::tkEnd) : table_.type(before_);
        const int kept = column + in.shift;
        const bool startsElement = in.awaitsFirst || left == Cpp::tkComma || left == Cpp::tkSemicolon;
        // It goes on with the comment behind the line in front.
        if (Cpp::isComment(type) && i > 0 && Cpp::isComment(table_.type(i - 1))) return kept;
        if (in.hangs && startsElement) return stepFrom(in.openIndent, kept);
        if (!options_.alignFurtherLines) return stepFrom(in.hangs ? in.openIndent : statementIndent(), kept);
        if (startsElement) return in.firstColumn;
        if (Cpp::isCommentOrDirective(type)) return kept;
        if (type == Cpp::tkStringLiteral && left == Cpp::tkStringLiteral) return stringColumn_;
        if (isShift(type) && in.shiftColumn >= 0) return in.shiftColumn;
        if (endsChoice(in, type)) return in.questionColumn;
        if (isMemberAccess(type) || type == Cpp::tkQuestion || left == Cpp::tkAssign) return stepFrom(in.operandColumn, kept);
        return in.operandColumn < 0 ? kept : in.operandColumn;
    }
    /// A line that begins within no bracket of its statement.
    int statementColumn(const Frame& in, Index i, int column) {
        const int type = table_.type(i);
        const int left = table_.type(before_);
        const int kept = column + in.shift;
        // A brace on a line of its own stands where the options for braces have put it.
        if (Cpp::isCommentOrDirective(type) || type == Cpp::tkOpenBrace) return kept;
        const bool aligns = options_.alignFurtherLines;
        if (aligns && type == Cpp::tkStringLiteral && left == Cpp::tkStringLiteral) return stringColumn_;
        if (aligns && isShift(type) && in.shiftColumn >= 0) return in.shiftColumn;
        if (left == Cpp::tkAssign || left == Cpp::tkReturn || left == Cpp::tkComma) return stepFrom(in.indent, kept);
        if (aligns && endsChoice(in, type)) return in.questionColumn;
        if (isMemberAccess(type)) return stepFrom(in.operandIndent, kept);
        if (type == Cpp::tkQuestion || endsChoice(in, type)) {
            return stepFrom(aligns && in.operandColumn >= 0 ? in.operandColumn : in.indent, kept);
        }
        const bool isOperator = goesOn(type) || goesOn(left);
        if (!isOperator && !(type == Cpp::tkStringLiteral && left == Cpp::tkStringLiteral)) return kept;
        if (type == Cpp::tkAssign) return stepFrom(in.indent, kept);
        if (aligns && in.operandColumn >= 0) return in.operandColumn;
        return stepFrom(in.indent, kept);
    }
    /// The ":" of a conditional expression.
    static bool endsChoice(const Frame& in, int type) { return type == Cpp::tkColon && in.questionColumn >= 0; }
    /// An operator with two operands. A mark of a pointer may be the end of a type, and a colon all
    /// kinds of things.
    static bool goesOn(int type) {
        return CppExprFormatterBase::isBinaryOperator(type) && !CppExprFormatterBase::isPointerOperator(type) &&
               type != Cpp::tkColon && type != Cpp::tkGreater && type != Cpp::tkTilde;
    }
    int statementIndent() const {
        for (auto in = frames_.rbegin(); in != frames_.rend(); ++in) {
            if (in->kind == Frame::Kind::code) return in->indent;
        }
        return 0;
    }

    // What a token is to the lines behind it.
    void noteColumn(Index i) {
        const Cpp::ParseToken& token = table_.token(i);
        if (token.begin > place_) {
            column_ = Zelmar::textColumn(source_.text().substr(place_, token.begin - place_), column_, options_.tabSize);
            place_ = token.begin;
        }
        Frame& in = frame();
        const int type = token.type;
        if (type == Cpp::tkStringLiteral && (before_ == kNone || table_.type(before_) != Cpp::tkStringLiteral)) stringColumn_ = column_;
        if (i == in.close) return;
        if (in.kind == Frame::Kind::bracket) {
            if (in.awaitsFirst) in.firstColumn = column_;
            if (in.awaitsFirst || in.awaitsOperand) in.operandColumn = column_;
            in.awaitsFirst = in.awaitsOperand = false;
        } else if (in.kind == Frame::Kind::code) {
            if (in.atStart) beginStatement(in, i);
            if (in.awaitsOperand) {
                in.operandColumn = column_;
                in.operandIndent = lineIndent_;
            }
            in.awaitsOperand = false;
        }
        if (isShift(type) && in.shiftColumn < 0) in.shiftColumn = column_;
        if (type == Cpp::tkQuestion) in.questionColumn = column_;
    }
    void beginStatement(Frame& in, Index i) {
        in.atStart = false;
        in.isPlaceable = !startsDeclarationHead(table_.type(i));
        in.indent = in.operandIndent = lineIndent_;
        in.operandColumn = in.shiftColumn = -1;
        in.questionColumn = -1;
        in.first = i;
    }

    void follow(Index i) {
        const int type = table_.type(i);
        const Index mate = table_.mate(i);
        if (i == frame().close) return leave(i);
        if (mate != kNone && mate > i) return enter(i, mate);
        Frame& in = frame();
        switch (type) {
        case Cpp::tkComma:
        case Cpp::tkSemicolon:
            in.awaitsOperand = in.kind == Frame::Kind::bracket;
            in.shiftColumn = -1;
            in.questionColumn = -1;
            if (type == Cpp::tkSemicolon && in.kind == Frame::Kind::code) in.atStart = true;
            break;
        case Cpp::tkAssign:
        case Cpp::tkReturn:
            in.awaitsOperand = in.awaitsOperand || in.kind == Frame::Kind::code;
            break;
        case Cpp::tkElse:
        case Cpp::tkDo:
        case Cpp::tkTry:
            if (in.kind == Frame::Kind::code) in.atStart = true;
            break;
        case Cpp::tkColon: followColon(in, i); break;
        default: break;
        }
    }
    /// Behind a label a statement starts; behind the parameters of a function stand initialisers.
    void followColon(Frame& in, Index i) {
        if (in.kind != Frame::Kind::code || in.questionColumn >= 0) return;
        const int first = table_.type(in.first);
        const bool isLabel = first == Cpp::tkCase || first == Cpp::tkDefault || first == Cpp::tkPublic ||
                             first == Cpp::tkPrivate || first == Cpp::tkProtected ||
                             table_.significantBefore(i) == in.first;
        if (isLabel) in.atStart = true;
        else in.isPlaceable = false;
    }
    void enter(Index i, Index mate) {
        Frame inner;
        inner.close = mate;
        inner.shift = lineShift_;
        inner.indent = inner.openIndent = lineIndent_;
        const Cpp::Brace brace = table_.type(i) == Cpp::tkOpenBrace ? braces_.kind(i) : Cpp::Brace::None;
        if (table_.type(i) != Cpp::tkOpenBrace) {
            inner.kind = Frame::Kind::bracket;
            const Index next = table_.significant(i + 1);
            inner.hangs = next < table_.size() && table_.token(next).line != table_.token(i).line;
            inner.awaitsFirst = true;
            inner.atStart = false;
        } else if (brace == Cpp::Brace::Values || brace == Cpp::Brace::Enumerators) {
            inner.kind = Frame::Kind::list;
            // Outside of brackets the rows of a list count from the statement, wherever its brace stands.
            if (frame().kind == Frame::Kind::code) inner.shift = frame().shift;
        } else if (!Cpp::holdsCode(brace)) {
            inner.shift = frame().shift;
        }
        frames_.push_back(inner);
    }
    void leave(Index i) {
        const Frame left = frame();
        // A ">>" closes two.
        while (frame().close == i) frames_.pop_back();
        Frame& in = frame();
        if (in.kind != Frame::Kind::code) return;
        const Index open = table_.mate(i);
        const Index head = table_.significantBefore(open);
        if (left.kind == Frame::Kind::code && !Cpp::isInExpression(braces_.kind(open)) &&
            braces_.kind(open) != Cpp::Brace::Class) {
            in.atStart = true;
        } else if (left.kind == Frame::Kind::bracket && head != kNone) {
            const Index word = table_.text(head) == "constexpr" ? table_.significantBefore(head) : head;
            if (word != kNone && endsHead(table_.type(word))) in.atStart = true;
            if (table_.type(head) == Cpp::tkTemplate) in.atStart = true;
        }
    }

    // Comments.
    void noteMarker(std::string_view comment) {
        const std::string_view inner = innerText(comment);
        if (!openMarker_.empty()) {
            if (inner == openMarker_) openMarker_.clear();
            return;
        }
        const auto marker = std::find_if(markers_.begin(), markers_.end(), [&](const FormatMarker& one) { return one.first == inner; });
        if (marker != markers_.end()) openMarker_ = marker->second;
    }
    /// The further lines of a comment go along with its first.
    void copyNote(Index i) {
        const Cpp::ParseToken& token = table_.token(i);
        if (lineShift_ == 0 || token.type != Cpp::tkBlockComment) return;
        std::string_view rest = table_.text(i);
        std::size_t feed = rest.find('\n');
        if (feed == std::string_view::npos) return;
        out_.append(source_.text().substr(copied_, token.begin - copied_));
        while (feed != std::string_view::npos) {
            out_.append(rest.substr(0, feed + 1));
            rest.remove_prefix(feed + 1);
            const std::size_t blanks = std::min(rest.find_first_not_of(" \t"), rest.size());
            const int width = Zelmar::textColumn(rest.substr(0, blanks), 0, options_.tabSize);
            if (blanks < rest.size() && rest[blanks] != '\n') out_ += indentOf(std::max(width + lineShift_, 0));
            rest.remove_prefix(blanks);
            feed = rest.find('\n');
        }
        out_.append(rest);
        copied_ = token.end;
    }

    const Zelmar::SourceText& source_;
    const LayoutOptions& options_;
    const FormatMarkerTable& markers_;
    Cpp::TokenTable table_;
    Cpp::BraceClassifier braces_;
    const bool usesTabs_;
    int step_ = 0;

    std::vector<Frame> frames_;
    Index before_ = kNone; // the last token that is no comment and no directive
    std::size_t lastLine_ = 0;
    int lineIndent_ = 0;
    int lineShift_ = 0;
    // The column of the byte at place_, in the text as it is written.
    std::size_t place_ = 0;
    int column_ = 0;
    int stringColumn_ = 0;
    std::string openMarker_; // what ends the stretch that is left alone

    std::string out_;
    std::size_t copied_ = 0;
};

} // namespace

std::string placeFurtherLines(std::string text, const LayoutOptions& options, const FormatMarkerTable& markers) {
    if (!options.indentFurtherLines.set && !options.alignFurtherLines) return text;
    const Zelmar::SourceText source(std::move(text));
    return Pass(source, options, markers).run();
}

} // namespace Norvane
