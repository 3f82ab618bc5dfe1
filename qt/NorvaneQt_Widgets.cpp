#include "qt/NorvaneQt_Widgets.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>

namespace NorvaneQt {

namespace {

class WheelFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() != QEvent::Wheel || widget == nullptr || widget->hasFocus()) return false;
        event->ignore();
        return true;
    }
};

class UndoFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo)) return false;
        event->ignore();
        return true;
    }
};

} // namespace

void leaveWheelToPage(QWidget& widget) {
    widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(new WheelFilter(&widget));
}

void leaveUndoToWindow(QWidget& field) { field.installEventFilter(new UndoFilter(&field)); }

QPushButton* makeButton(const QString& text, const char* name, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace NorvaneQt
