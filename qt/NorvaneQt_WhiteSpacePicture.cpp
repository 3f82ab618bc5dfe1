#include "qt/NorvaneQt_WhiteSpacePicture.h"

#include "qt/NorvaneQt_Text.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace NorvaneQt {

namespace {

/// Marks that have room; what is more becomes an ellipsis.
constexpr int kMostMarks = 4;
constexpr double kMarkWidth = 0.9;
constexpr double kBlockWidth = 0.8;

/// All in parts of the cell, so that the picture grows with the font.
QPainterPath tray() {
    QPainterPath path(QPointF(0.2, 0.55));
    path.lineTo(0.2, 0.75);
    path.lineTo(0.8, 0.75);
    path.lineTo(0.8, 0.55);
    return path;
}

QPainterPath arrow() {
    QPainterPath path(QPointF(0.1, 0.5));
    path.lineTo(0.85, 0.5);
    path.moveTo(0.6, 0.3);
    path.lineTo(0.85, 0.5);
    path.lineTo(0.6, 0.7);
    return path;
}

QPainterPath bentArrow() {
    QPainterPath path(QPointF(0.85, 0.2));
    path.lineTo(0.85, 0.6);
    path.lineTo(0.15, 0.6);
    path.moveTo(0.4, 0.4);
    path.lineTo(0.15, 0.6);
    path.lineTo(0.4, 0.8);
    return path;
}

} // namespace

WhiteSpacePicture::WhiteSpacePicture(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void WhiteSpacePicture::setValue(const std::optional<std::string>& value) {
    if (value == value_) return;
    value_ = value;
    const QString words = value ? whiteSpaceWords(*value) : QString();
    setAccessibleName(words);
    setToolTip(words);
    update();
}

QSize WhiteSpacePicture::sizeHint() const {
    const int height = fontMetrics().height();
    return {static_cast<int>(height * (kMostMarks * kMarkWidth + 2 * kBlockWidth + 0.5)), height + 2};
}

void WhiteSpacePicture::drawMark(QPainter& painter, const QRectF& cell, char c) const {
    const QTransform toCell(cell.width(), 0, 0, cell.height(), cell.x(), cell.y());
    if (c == ' ') painter.drawPath(toCell.map(tray()));
    else if (c == '\t') painter.drawPath(toCell.map(arrow()));
    else if (c == '\n') painter.drawPath(toCell.map(bentArrow()));
    else painter.drawText(cell, Qt::AlignCenter, QStringLiteral("?"));
}

void WhiteSpacePicture::paintEvent(QPaintEvent*) {
    if (!value_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = fontMetrics().height();
    const double top = (height() - unit) / 2;
    QColor code = palette().color(QPalette::WindowText);
    code.setAlphaF(0.35F);
    const QRectF block(0, top + unit * 0.2, unit * kBlockWidth, unit * 0.6);
    painter.fillRect(block, code);
    painter.setPen(QPen(palette().color(QPalette::WindowText), unit / 14));
    const int count = static_cast<int>(std::min<std::size_t>(value_->size(), kMostMarks));
    const bool cut = value_->size() > kMostMarks;
    double x = block.right() + (count == 0 ? unit / 14 : 0);
    for (int i = 0; i < count; ++i, x += unit * kMarkWidth) {
        const QRectF cell(x, top, unit * kMarkWidth, unit);
        if (cut && i == count - 1) painter.drawText(cell, Qt::AlignCenter, QStringLiteral("\u2026"));
        else drawMark(painter, cell, (*value_)[static_cast<std::size_t>(i)]);
    }
    painter.fillRect(block.translated(x - block.left(), 0), code);
}

} // namespace NorvaneQt
