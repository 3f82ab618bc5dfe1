#include "qt/NorvaneQt_Palettes.h"

#include <QWidget>

namespace NorvaneQt {

namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor mixed(const QColor& a, const QColor& b, float partOfA) {
    const float partOfB = 1 - partOfA;
    return QColor::fromRgbF(a.redF() * partOfA + b.redF() * partOfB, a.greenF() * partOfA + b.greenF() * partOfB,
                            a.blueF() * partOfA + b.blueF() * partOfB);
}

struct Tones {
    QColor window;
    QColor base;
    QColor button;
    QColor text;
    QColor highlight;
    QColor link;
};

QPalette paletteOf(const Tones& tones) {
    QPalette palette(tones.text, tones.button, tones.button.lighter(120), tones.button.darker(160),
                     tones.button.darker(120), tones.text, Qt::white, tones.base, tones.window);
    palette.setColor(QPalette::AlternateBase, tones.window);
    palette.setColor(QPalette::ToolTipBase, tones.base);
    palette.setColor(QPalette::ToolTipText, tones.text);
    palette.setColor(QPalette::Highlight, tones.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, tones.link);
    palette.setColor(QPalette::PlaceholderText, mixed(tones.text, tones.base, 0.6F));
    const QColor faint = mixed(tones.text, tones.window, 0.45F);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

} // namespace

QPalette lightPalette() {
    return paletteOf({QColor(0xef, 0xef, 0xef), Qt::white, QColor(0xe4, 0xe4, 0xe4), QColor(0x1a, 0x1a, 0x1a),
                      QColor(0x2a, 0x6c, 0xb8), QColor(0x0b, 0x57, 0xb0)});
}

QPalette darkPalette() {
    // Boxes without a tick are drawn in the base alone, so it stands well apart from the window.
    return paletteOf({QColor(0x3a, 0x3d, 0x41), QColor(0x1c, 0x1d, 0x20), QColor(0x4c, 0x50, 0x55),
                      QColor(0xdf, 0xe1, 0xe5), QColor(0x2f, 0x65, 0xa8), QColor(0x7f, 0xb4, 0xf0)});
}

QColor problemColor(const QPalette& palette) {
    return isDark(palette) ? QColor(0xff, 0x9a, 0x8f) : QColor(0xa8, 0x1c, 0x12);
}

QColor touchedColor(const QPalette& palette) {
    return mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), isDark(palette) ? 0.4F : 0.2F);
}

void setTextColor(QWidget& widget, const QColor& color) {
    QPalette palette = widget.palette();
    if (palette.color(QPalette::WindowText) == color) return;
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

} // namespace NorvaneQt
