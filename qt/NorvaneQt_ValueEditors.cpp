#include "qt/NorvaneQt_ValueEditors.h"

#include "qt/NorvaneQt_Text.h"
#include "qt/NorvaneQt_WhiteSpacePicture.h"
#include "qt/NorvaneQt_Widgets.h"
#include "ui/NorvaneUI_WhiteSpaceEntry.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <utility>

namespace NorvaneQt {

namespace {

/// What a spin box has below its smallest value, for "not set".
constexpr int kNoCount = -1;

QString asInSource() { return QStringLiteral("as in the source"); }
QString notSet() { return QStringLiteral("not set"); }

QHBoxLayout* makeRow(QWidget* parent) {
    auto* row = new QHBoxLayout(parent);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

QLineEdit* makeEscapeField(QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // Wide enough for the words that stand there when nothing does.
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(asInSource()) + field->fontMetrics().height());
    leaveUndoToWindow(*field);
    return field;
}

/// Keeps the cursor where it is while the user types what is shown.
void showText(QLineEdit& field, const QString& text) {
    if (field.text() == text) return;
    const QSignalBlocker blocker(field);
    field.setText(text);
}

/// A box that can say in words that there is no number.
class NumberBox : public QSpinBox {
public:
    using QSpinBox::QSpinBox;

protected:
    /// The words are no part of a number that is typed behind them: they give way to it.
    void keyPressEvent(QKeyEvent* event) override {
        const bool isDigit = !event->text().isEmpty() && event->text().front().isDigit();
        const bool isWords = value() == minimum();
        if (isWords && (isDigit || event->matches(QKeySequence::Paste))) selectAll();
        QSpinBox::keyPressEvent(event);
    }
};

QSpinBox* makeSpinBox(QWidget* parent, int smallest, int largest, const QString& wordsForNone) {
    auto* box = new NumberBox(parent);
    box->setRange(smallest - 1, largest);
    box->setSpecialValueText(wordsForNone);
    leaveWheelToPage(*box);
    leaveUndoToWindow(*box);
    return box;
}

} // namespace

WhiteSpaceEditor::WhiteSpaceEditor(NorvaneUI::StylesBasePage& page, std::string option)
    : OptionEditor(page, std::move(option)), text_(makeEscapeField(this)), picture_(new WhiteSpacePicture(this)) {
    auto* row = makeRow(this);
    row->addWidget(text_);
    row->addWidget(picture_);
    QObject::connect(text_, &QLineEdit::textEdited, this, [this](const QString& typed) {
        this->page().typeText(this->option(), fromQt(typed));
        tellEdited();
    });
    QObject::connect(text_, &QLineEdit::editingFinished, this, [this] {
        this->page().endTyping();
        tellEdited();
    });
}

void WhiteSpaceEditor::show(const NorvaneUI::Field& field) {
    showText(*text_, toQt(field.text));
    text_->setPlaceholderText(field.set ? QStringLiteral("nothing") : asInSource());
    const bool hasValue = field.set && field.problem.empty();
    picture_->setValue(hasValue ? std::optional(NorvaneUI::decodeWhiteSpace(field.text)) : std::nullopt);
}

QWidget* WhiteSpaceEditor::input() { return text_; }

IndentEditor::IndentEditor(NorvaneUI::StylesBasePage& page, std::string option)
    : OptionEditor(page, std::move(option)), count_(makeSpinBox(this, 0, 99, asInSource())),
      kind_(new QComboBox(this)), text_(makeEscapeField(this)) {
    kind_->addItems({QStringLiteral("blanks"), QStringLiteral("tabs")});
    kind_->setObjectName(toQt(this->option() + ":kind"));
    kind_->setAccessibleName(QStringLiteral("Blanks or tabs"));
    leaveWheelToPage(*kind_);
    auto* row = makeRow(this);
    row->addWidget(text_, 1);
    row->addWidget(count_);
    row->addWidget(kind_);
    row->addStretch(1);
    text_->hide();
    QObject::connect(count_, &QSpinBox::valueChanged, this, [this] { store(); });
    QObject::connect(count_, &QSpinBox::editingFinished, this, [this] { this->page().endTyping(); });
    QObject::connect(kind_, &QComboBox::activated, this, [this] { store(); });
    QObject::connect(text_, &QLineEdit::textEdited, this, [this](const QString& typed) {
        this->page().typeText(this->option(), fromQt(typed));
        tellEdited();
    });
    QObject::connect(text_, &QLineEdit::editingFinished, this, [this] {
        this->page().endTyping();
        tellEdited();
    });
}

void IndentEditor::store() {
    const bool tabs = kind_->currentIndex() == 1;
    if (count_->value() == kNoCount) page().setAsInSource(option());
    else page().setCount(option(), count_->value(), tabs);
    tellEdited();
}

void IndentEditor::show(const NorvaneUI::Field& field) {
    const QSignalBlocker countBlocker(count_);
    count_->setMaximum(field.maximum);
    count_->setValue(field.set ? field.count : kNoCount);
    // Nothing but a count tells blanks from tabs, so at 0 the choice of the user stays.
    if (field.set && field.count > 0) kind_->setCurrentIndex(field.tabs ? 1 : 0);
    kind_->setEnabled(field.set && field.enabled);
    // The field must not vanish under the hands of somebody who clears it to type something else.
    const bool asText = !field.text.empty() || text_->hasFocus();
    showText(*text_, toQt(field.text));
    text_->setVisible(asText);
    count_->setVisible(!asText);
    kind_->setVisible(!asText);
}

QWidget* IndentEditor::input() { return count_->isHidden() ? static_cast<QWidget*>(text_) : count_; }

ChoiceEditor::ChoiceEditor(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field)
    : OptionEditor(page, std::string(field.option)), isSwitch_(field.kind == NorvaneUI::ControlKind::Switch),
      box_(new QComboBox(this)) {
    if (isSwitch_) {
        box_->addItem(QStringLiteral("yes"), 1);
        box_->addItem(QStringLiteral("no"), 0);
    }
    for (const Norvane::PropertyChoice& choice : field.choices) box_->addItem(toQt(choice.words), choice.value);
    ownItems_ = box_->count();
    box_->setPlaceholderText(isSwitch_ ? asInSource() : notSet());
    box_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    leaveWheelToPage(*box_);
    auto* row = makeRow(this);
    row->addWidget(box_);
    row->addStretch(1);
    QObject::connect(box_, &QComboBox::activated, this, [this](int item) { choose(item); });
}

void ChoiceEditor::choose(int item) {
    const int value = box_->itemData(item).toInt();
    if (isSwitch_) page().setSwitch(option(), value != 0);
    else page().setNumber(option(), value);
    tellEdited();
}

void ChoiceEditor::show(const NorvaneUI::Field& field) {
    while (box_->count() > ownItems_) box_->removeItem(ownItems_);
    if (!field.text.empty()) box_->addItem(toQt(field.text), field.value);
    const int value = isSwitch_ ? (field.on ? 1 : 0) : field.value;
    box_->setCurrentIndex(field.set ? box_->findData(value) : -1);
}

QWidget* ChoiceEditor::input() { return box_; }

NumberEditor::NumberEditor(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field)
    : OptionEditor(page, std::string(field.option)),
      number_(makeSpinBox(this, field.minimum, field.maximum, notSet())) {
    auto* row = makeRow(this);
    row->addWidget(number_);
    row->addStretch(1);
    QObject::connect(number_, &QSpinBox::valueChanged, this, [this](int value) {
        if (value == number_->minimum()) this->page().setAsInSource(this->option());
        else this->page().setNumber(this->option(), value);
        tellEdited();
    });
    QObject::connect(number_, &QSpinBox::editingFinished, this, [this] { this->page().endTyping(); });
}

void NumberEditor::show(const NorvaneUI::Field& field) {
    const QSignalBlocker blocker(number_);
    const int smallest = field.set ? std::min(field.minimum, field.value) : field.minimum;
    // A value of a hand-written scheme may lie outside of what can be entered.
    number_->setRange(smallest - 1, std::max(field.maximum, field.value));
    number_->setValue(field.set ? field.value : number_->minimum());
}

QWidget* NumberEditor::input() { return number_; }

} // namespace NorvaneQt
