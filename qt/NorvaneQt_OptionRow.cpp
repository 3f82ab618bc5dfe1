#include "qt/NorvaneQt_OptionRow.h"

#include "qt/NorvaneQt_Palettes.h"
#include "qt/NorvaneQt_Text.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

#include <utility>

namespace NorvaneQt {

OptionRow::OptionRow(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field, QGridLayout& grid)
    : QObject(grid.parentWidget()), page_(page), option_(field.option), tick_(new QCheckBox(literal(field.label))),
      editor_(makeEditor(page, field).release()), problem_(new QLabel) {
    tick_->setObjectName(toQt(option_ + ":set"));
    const QString tip = toQt(option_ + '\n' + std::string(field.explanation));
    tick_->setToolTip(tip);
    editor_->setToolTip(tip);
    problem_->setObjectName(toQt(option_ + ":problem"));
    problem_->setTextFormat(Qt::PlainText);
    problem_->setWordWrap(true);
    problem_->hide();
    const int row = grid.rowCount();
    grid.addWidget(tick_, row, 0);
    grid.addWidget(editor_, row, 1);
    grid.addWidget(problem_, row + 1, 0, 1, 2);
    QObject::connect(tick_, &QCheckBox::toggled, this, [this](bool on) { tick(on); });
    for (QObject* part : {static_cast<QObject*>(tick_), static_cast<QObject*>(editor_)}) part->installEventFilter(this);
    for (QWidget* part : editor_->findChildren<QWidget*>()) part->installEventFilter(this);
}

void OptionRow::setEditedAction(std::function<void()> action) {
    editedAction_ = std::move(action);
    editor_->setEditedAction(editedAction_);
}

void OptionRow::tick(bool on) {
    if (on) page_.setFirstValue(option_);
    else page_.setAsInSource(option_);
    if (editedAction_) editedAction_();
    if (on) takeFocus();
}

void OptionRow::show(const NorvaneUI::Field& field) {
    const QSignalBlocker blocker(tick_);
    tick_->setChecked(field.set || !field.problem.empty());
    tick_->setEnabled(field.enabled);
    showEdited(field.edited);
    editor_->setEnabled(field.enabled);
    editor_->show(field);
    problem_->setText(toQt(field.problem));
    problem_->setVisible(!field.problem.empty());
    setTextColor(*problem_, problemColor(problem_->palette()));
}

int OptionRow::labelWidth() const { return tick_->sizeHint().width(); }

void OptionRow::setLabelWidth(int width) { tick_->setMinimumWidth(width); }

/// By colour: a bold label would be wider, and move the whole column.
void OptionRow::showEdited(bool edited) {
    QPalette palette;
    if (edited) palette.setColor(QPalette::Active, QPalette::WindowText, palette.color(QPalette::Link));
    if (edited) palette.setColor(QPalette::Inactive, QPalette::WindowText, palette.color(QPalette::Link));
    tick_->setPalette(palette);
}

void OptionRow::takeFocus() { editor_->input()->setFocus(Qt::OtherFocusReason); }

bool OptionRow::eventFilter(QObject* object, QEvent* event) {
    const bool turnsToRow = event->type() == QEvent::FocusIn || event->type() == QEvent::Enter;
    if (turnsToRow && hintAction_) hintAction_(option_);
    return QObject::eventFilter(object, event);
}

} // namespace NorvaneQt
