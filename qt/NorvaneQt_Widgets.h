#ifndef KERFLINE_NORVANEQT_WIDGETS_H
#define KERFLINE_NORVANEQT_WIDGETS_H

#include <QString>

class QPushButton;
class QWidget;

namespace NorvaneQt {

/// Wheel turns that are meant for the page must not change the value that the pointer happens to
/// stand on.
void leaveWheelToPage(QWidget& widget);

/// Undo and redo go to the window, which takes back steps of the scheme and not letters of a field.
void leaveUndoToWindow(QWidget& field);

/// Return goes to no button that the user does not stand on. The button is owned by `parent`.
QPushButton* makeButton(const QString& text, const char* name, QWidget* parent);

} // namespace NorvaneQt

#endif
