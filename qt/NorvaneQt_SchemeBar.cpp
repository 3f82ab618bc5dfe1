#include "qt/NorvaneQt_SchemeBar.h"

#include "qt/NorvaneQt_Palettes.h"
#include "qt/NorvaneQt_Text.h"
#include "qt/NorvaneQt_Widgets.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace NorvaneQt {

namespace {

using Item = NorvaneUI::StylesDlg::Item;

template <class Action> QPushButton* addButton(QHBoxLayout& row, const char* text, const char* name, Action action) {
    QPushButton* button = makeButton(QString::fromUtf8(text), name, row.parentWidget());
    row.addWidget(button);
    QObject::connect(button, &QPushButton::clicked, button, action);
    return button;
}

QString noteOn(const std::vector<Item>& items, const std::string& current) {
    const auto isCurrent = [&](const Item& item) { return item.name == current; };
    const auto item = std::find_if(items.begin(), items.end(), isCurrent);
    if (item == items.end()) return QStringLiteral("There is no scheme yet. Choose New to make one.");
    if (!item->builtIn) return {};
    return QStringLiteral("This scheme is built-in. Try out what you like: changes can be saved as a new scheme.");
}

} // namespace

SchemeBar::SchemeBar(NorvaneUI::StylesDlg& dialog, QWidget* parent)
    : QWidget(parent), dialog_(dialog), schemes_(new QComboBox), note_(new QLabel),
      warnings_(new QLabel) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    // In a row of their own: beside the list they would make the window wider than small screens are.
    auto* buttons = new QHBoxLayout;
    column->addLayout(buttons);
    column->addWidget(note_);
    column->addWidget(warnings_);
    auto* label = new QLabel(QStringLiteral("Sche&me:"));
    label->setBuddy(schemes_);
    schemes_->setObjectName(QStringLiteral("schemes"));
    schemes_->setMinimumContentsLength(18);
    note_->setObjectName(QStringLiteral("schemeNote"));
    note_->setWordWrap(true);
    warnings_->setObjectName(QStringLiteral("schemeWarnings"));
    warnings_->setWordWrap(true);
    warnings_->setTextFormat(Qt::PlainText);
    row->addWidget(label);
    row->addWidget(schemes_, 1);
    addButton(*buttons, "&New...", "new", [this] { dialog_.newScheme(); });
    needScheme_ = {
        addButton(*buttons, "&Copy...", "copy", [this] { dialog_.copyScheme(); }),
        addButton(*buttons, "&Rename...", "rename", [this] { dialog_.renameScheme(); }),
        addButton(*buttons, "De&lete", "delete", [this] { dialog_.deleteScheme(); }),
        addButton(*row, "&Save", "save", [this] { save(); }),
        addButton(*row, "Save &As...", "saveAs", [this] { saveAs(); }),
    };
    bringBack_ = addButton(*buttons, "&Bring Back", "bringBack", [this] { dialog_.bringBack(); });
    bringBack_->setToolTip(QStringLiteral("Brings back the scheme that was deleted last"));
    restore_ = addButton(*buttons, "Res&tore", "restore", [this] { restore(); });
    buttons->addStretch(1);
    restore_->setToolTip(QStringLiteral("Takes all changes of this scheme back"));
    needScheme_[3]->setToolTip(QStringLiteral("Writes all schemes that were changed"));
    QObject::connect(schemes_, &QComboBox::activated, this, [this](int index) {
        dialog_.select(names_[static_cast<std::size_t>(index)]);
        refresh();
    });
}

void SchemeBar::refresh() {
    const std::vector<Item> items = dialog_.items();
    showItems(items);
    note_->setText(noteOn(items, dialog_.current()));
    note_->setVisible(!note_->text().isEmpty());
    NorvaneUI::SchemeEdit* edit = dialog_.sheet().scheme();
    for (QPushButton* button : needScheme_) button->setEnabled(edit != nullptr);
    bringBack_->setEnabled(dialog_.canBringBack());
    showWarnings();
    restore_->setEnabled(edit != nullptr && edit->isModified());
}

void SchemeBar::showItems(const std::vector<Item>& items) {
    const QSignalBlocker blocker(schemes_);
    names_.clear();
    for (const Item& item : items) {
        const int index = static_cast<int>(names_.size());
        if (index == schemes_->count()) schemes_->addItem({});
        if (schemes_->itemText(index) != toQt(item.shown)) schemes_->setItemText(index, toQt(item.shown));
        names_.push_back(item.name);
    }
    while (schemes_->count() > static_cast<int>(items.size())) schemes_->removeItem(schemes_->count() - 1);
    const auto current = std::find(names_.begin(), names_.end(), dialog_.current());
    schemes_->setCurrentIndex(current == names_.end() ? -1 : static_cast<int>(current - names_.begin()));
}

/// No more than a few, since they take room from the pages; the others can be pointed at.
void SchemeBar::showWarnings() {
    constexpr qsizetype mostLines = 3;
    QStringList lines;
    for (const std::string& warning : dialog_.warnings()) lines += toQt(warning);
    const QString all = lines.join(QLatin1Char('\n'));
    const qsizetype left = lines.size() - mostLines;
    if (left > 0) lines = lines.mid(0, mostLines) << QStringLiteral("... and %1 more").arg(left);
    warnings_->setText(lines.join(QLatin1Char('\n')));
    warnings_->setToolTip(all);
    warnings_->setVisible(!lines.isEmpty());
    setTextColor(*warnings_, problemColor(palette()));
}

void SchemeBar::save() {
    const std::vector<Item> items = dialog_.items();
    const auto isEditedBuiltIn = [this](const Item& item) {
        return item.name == dialog_.current() && item.builtIn && item.modified;
    };
    if (std::any_of(items.begin(), items.end(), isEditedBuiltIn)) saveAs();
    else dialog_.save();
    refresh();
}

void SchemeBar::saveAs() {
    if (dialog_.saveAs()) dialog_.save();
    refresh();
}

/// As a step like any other, so that it can be undone.
void SchemeBar::restore() {
    NorvaneUI::SchemeEdit* edit = dialog_.sheet().scheme();
    if (edit == nullptr) return;
    edit->change(edit->original(), dialog_.sheet().currentPage().doNotFormatKey());
    dialog_.sheet().reload();
}

} // namespace NorvaneQt
