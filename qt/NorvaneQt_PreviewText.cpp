#include "qt/NorvaneQt_PreviewText.h"

#include "qt/NorvaneQt_Palettes.h"

#include <QFontDatabase>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextOption>

#include <algorithm>
#include <utility>

namespace NorvaneQt {

namespace {

/// More lines than this are not told apart by colour any more, and each costs time.
constexpr std::size_t kMostMarked = 2000;

double columnWidth(const QPlainTextEdit& text) {
    return QFontMetricsF(text.font()).horizontalAdvance(QLatin1Char(' '));
}

} // namespace

PreviewText::PreviewText(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Tab leads on: there is nothing to type here.
    setTabChangesFocus(true);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void PreviewText::showText(const QString& text, const std::vector<std::size_t>& touched) {
    if (text == shown_ && touched == touched_) return;
    const int horizontal = horizontalScrollBar()->value();
    const int vertical = verticalScrollBar()->value();
    replaceText(text);
    horizontalScrollBar()->setValue(horizontal);
    verticalScrollBar()->setValue(vertical);
    mark(touched);
    bringIntoView(touched);
}

/// Only what differs: laying out thousands of lines again can be felt.
void PreviewText::replaceText(const QString& text) {
    const QString before = std::exchange(shown_, text);
    const auto [oldEnd, newEnd] = std::mismatch(before.begin(), before.end(), text.begin(), text.end());
    const auto front = static_cast<int>(oldEnd - before.begin());
    const auto room = static_cast<std::ptrdiff_t>(std::min(before.size(), text.size())) - front;
    const auto back = std::mismatch(before.rbegin(), before.rbegin() + room, text.rbegin()).first - before.rbegin();
    if (front == before.size() && front == text.size()) return;
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.setPosition(front);
    cursor.setPosition(static_cast<int>(before.size() - back), QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(front, text.size() - back - front));
    cursor.endEditBlock();
}

void PreviewText::mark(const std::vector<std::size_t>& lines) {
    touched_ = lines;
    QList<QTextEdit::ExtraSelection> marks;
    for (const std::size_t line : lines) {
        if (static_cast<std::size_t>(marks.size()) == kMostMarked) break;
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(document()->findBlockByNumber(static_cast<int>(line)));
        selection.format.setBackground(touchedColor(palette()));
        selection.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks.append(selection);
    }
    setExtraSelections(marks);
}

void PreviewText::bringIntoView(const std::vector<std::size_t>& lines) {
    if (lines.empty()) return;
    const int first = verticalScrollBar()->value();
    const int last = first + verticalScrollBar()->pageStep() - 1;
    const auto next = std::lower_bound(lines.begin(), lines.end(), static_cast<std::size_t>(first));
    if (next != lines.end() && static_cast<int>(*next) <= last) return;
    constexpr int linesInFront = 2;
    verticalScrollBar()->setValue(static_cast<int>(lines.front()) - linesInFront);
}

void PreviewText::setWhiteSpaceVisible(bool visible) {
    QTextOption option = document()->defaultTextOption();
    option.setFlags(visible ? QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators
                            : QTextOption::Flags());
    document()->setDefaultTextOption(option);
}

void PreviewText::setTabSize(int columns) {
    const double distance = columnWidth(*this) * columns;
    if (tabStopDistance() != distance) setTabStopDistance(distance);
}

void PreviewText::setMargin(int columns) {
    if (columns == margin_) return;
    margin_ = columns;
    viewport()->update();
}

void PreviewText::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) mark(touched_);
}

void PreviewText::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    if (margin_ == 0) return;
    const double x = contentOffset().x() + document()->documentMargin() + columnWidth(*this) * margin_;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::PlaceholderText), 1, Qt::DotLine));
    painter.drawLine(QPointF(x, 0), QPointF(x, viewport()->height()));
}

} // namespace NorvaneQt
