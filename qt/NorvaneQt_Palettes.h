#ifndef KERFLINE_NORVANEQT_PALETTES_H
#define KERFLINE_NORVANEQT_PALETTES_H

#include <QColor>
#include <QPalette>

class QWidget;

namespace NorvaneQt {

/// For those who want another one than that of their desktop.
QPalette lightPalette();
QPalette darkPalette();

// Colours that a palette does not have, made so that they can be read on it.
QColor problemColor(const QPalette& palette);
/// Behind lines of text that have changed.
QColor touchedColor(const QPalette& palette);

void setTextColor(QWidget& widget, const QColor& color);

} // namespace NorvaneQt

#endif
