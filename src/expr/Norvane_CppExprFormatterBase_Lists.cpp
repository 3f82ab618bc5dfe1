#include "src/expr/Norvane_CppExprFormatterBase.h"

#include "src/expr/Norvane_ExprCopier.h"
#include "src/expr/Norvane_Gap.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <optional>

namespace Norvane {

namespace {

/// Writes one list. The separators at depth 0 are met from the front to the back; all else is
/// copied.
class ListWriter {
public:
    ListWriter(const ExprTokens& tokens, const OptionalString& wsBefore, const OptionalString& wsBetween,
               const DirectivePlace& place, Zelmar::IndentWriter& output)
        : tokens_(tokens), before_(wsBefore), between_(wsBetween), place_(place), output_(output),
          copier_(tokens, output), alignColumn_(output.indentWidth()) {}

    void write(int separatorKind, bool aligned);

private:
    bool breaks() const { return before_.breaksLine() || between_.breaksLine(); }
    bool hasNext(std::size_t separator) const { return separator + 1 < tokens_.size(); }
    /// Between two separators it is the second that says what stands there.
    bool nextSaysAll(std::size_t separator) const {
        return before_.set && hasNext(separator) && tokens_.kind(separator + 1) == tokens_.kind(separator);
    }
    void writeSeparator(std::size_t index);
    void writeAlignedSeparator(std::size_t index);
    void measureFirst(int separatorKind);
    int lineColumn(std::size_t separator) const;
    void writeGapBehind(std::size_t separator, bool keepsBlockComments);
    void writeSourceGap(std::size_t index);
    void writeDirectiveBehind(std::size_t separator);
    void writeAlignedNext(std::size_t index);

    const ExprTokens& tokens_;
    const OptionalString& before_;
    const OptionalString& between_;
    const DirectivePlace& place_;
    Zelmar::IndentWriter& output_;
    ExprCopier copier_;
    int alignColumn_;
};

void ListWriter::write(int separatorKind, bool aligned) {
    if (aligned) measureFirst(separatorKind);
    BracketDepths depths;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        const int kind = tokens_.kind(i);
        const bool isNew = tokens_.begin(i) >= copier_.offset();
        if (kind == Cpp::tkDirective && isNew) copier_.copyDirective(i, place_);
        if (depths.count(kind) || kind != separatorKind || depths != BracketDepths()) continue;
        if (aligned) {
            writeAlignedSeparator(i);
        } else {
            writeSeparator(i);
        }
    }
    copier_.copyRest();
}

void ListWriter::writeSeparator(std::size_t index) {
    if (before_.set) copier_.replaceGap(index, before_.value, true);
    copier_.copyTo(tokens_.end(index));
    writeGapBehind(index, true);
}

/// The gap behind a separator. In a plain list a block comment stays where it is.
void ListWriter::writeGapBehind(std::size_t separator, bool keepsBlockComments) {
    const std::size_t next = separator + 1;
    const int kind = hasNext(separator) ? tokens_.kind(next) : static_cast<int>(Cpp::tkEnd);
    if (kind == Cpp::tkDirective) return writeDirectiveBehind(separator);
    if (nextSaysAll(separator)) return;
    if (kind == Cpp::tkBlockComment && keepsBlockComments && between_.set) return copier_.copyMoved(next);
    if (between_.set && kind != Cpp::tkLineComment && copier_.isReplaceable(next)) {
        copier_.replaceGap(next, between_.value, true);
    } else if (breaks()) {
        writeSourceGap(next);
    }
}

/// Copies a gap of the source in which a line may break: the white space in front of the next line
/// is no part of what the line's indent adds.
void ListWriter::writeSourceGap(std::size_t index) {
    const bool startsLine = output_.column() == 0 || hasLineFeed(tokens_.gap(index));
    const Zelmar::KeepWsGuard keep(output_, output_.keepLeadingWs() && !startsLine);
    copier_.copyTo(tokens_.gapEnd(index));
}

/// A directive starts a line, whatever stands between two elements. Behind the line feed the
/// indentation of the source is left to the rules of directives.
void ListWriter::writeDirectiveBehind(std::size_t separator) {
    const std::size_t next = separator + 1;
    const std::string_view gap = tokens_.gap(next);
    if (between_.set && isBlank(gap)) {
        const std::size_t feed = gap.rfind('\n');
        // A line that starts in the column of the list has its indent from there.
        const bool inColumn = place_.found && breaks();
        output_.writeExact(between_.breaksLine() ? std::string_view(between_.value) : "\n");
        copier_.skipTo(inColumn || feed == std::string_view::npos ? tokens_.begin(next)
                                                                  : tokens_.gapBegin(next) + feed + 1);
    }
    copier_.copyDirective(next, place_);
}

void ListWriter::writeAlignedSeparator(std::size_t index) {
    copier_.copyTo(tokens_.gapBegin(index));
    std::optional<ColumnGuard> column;
    if (breaks()) column.emplace(output_, lineColumn(index));
    if (before_.set && copier_.isReplaceable(index)) {
        copier_.replaceGap(index, before_.value, true);
    } else if (breaks()) {
        writeSourceGap(index);
    }
    copier_.copyTo(tokens_.end(index));
    writeGapBehind(index, false);
    if (breaks() && hasNext(index) && !nextSaysAll(index)) writeAlignedNext(index + 1);
}

/// The elements line up under the first character of the first one, unless that is nothing but
/// comments that lie in front of a separator.
void ListWriter::measureFirst(int separatorKind) {
    std::size_t real = 0;
    while (real < tokens_.size() && Cpp::isCommentOrDirective(tokens_.kind(real))) ++real;
    if (real == tokens_.size() || tokens_.kind(real) == separatorKind) return;
    if (tokens_.kind(0) == Cpp::tkDirective) return;
    copier_.copyTo(tokens_.begin(0));
    alignColumn_ = copier_.column();
}

/// Where the line of the next element starts.
int ListWriter::lineColumn(std::size_t separator) const {
    std::string hanging(tokens_.token(separator));
    if (nextSaysAll(separator)) {
        // Nothing of its own stands behind it.
    } else if (between_.set && copier_.isReplaceable(separator + 1)) {
        hanging.append(between_.value);
    } else if (!hasLineFeed(tokens_.gap(separator + 1))) {
        hanging.append(tokens_.gap(separator + 1));
    }
    return hangingColumn(before_, hanging, alignColumn_, output_.tabSize());
}

void ListWriter::writeAlignedNext(std::size_t index) {
    if (copier_.offset() >= tokens_.end(index)) return;
    if (tokens_.kind(index) == Cpp::tkBlockComment) return copier_.copyMoved(index);
    copier_.copyTo(tokens_.end(index));
}

} // namespace

std::string CppExprFormatterBase::writeList(std::string_view text, int separatorKind, bool aligned,
                                            const OptionalString& wsBefore, const OptionalString& wsBetween,
                                            const Zelmar::IndentStreamState& state) {
    listTokens_.assign(text);
    Zelmar::IndentWriter output(state);
    ListWriter(listTokens_, wsBefore, wsBetween, options().directives, output).write(separatorKind, aligned);
    return output.takeText();
}

std::string CppExprFormatterBase::formatAlignedList(const std::string& text, int separatorKind,
                                                    const OptionalString& wsBefore,
                                                    const OptionalString& wsBetween,
                                                    const Zelmar::IndentStreamState& state) {
    return writeList(text, separatorKind, true, wsBefore, wsBetween, state);
}

std::string CppExprFormatterBase::formatList(const std::string& text, int separatorKind,
                                             const OptionalString& wsBefore, const OptionalString& wsBetween,
                                             const Zelmar::IndentStreamState& state) {
    return writeList(text, separatorKind, false, wsBefore, wsBetween, state);
}

} // namespace Norvane
