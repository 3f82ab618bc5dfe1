#include "qt/NorvaneQt_SettingsView.h"

#include "qt/NorvaneQt_Text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace NorvaneQt {

namespace {

using Action = NorvaneUI::OptionsDlg::Action;

constexpr Action kActions[] = {Action::Format, Action::Open, Action::Close};

void showText(QLineEdit& field, const std::string& text) {
    if (field.text() != toQt(text)) field.setText(toQt(text));
}

} // namespace

SettingsView::SettingsView(NorvaneUI::OptionsDlg& dialog, QWidget* parent) : QWidget(parent), dialog_(dialog) {
    auto* form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    addScheme(*form, "Scheme of the &format commands:", Action::Format);
    addScheme(*form, "Scheme when a document is &opened:", Action::Open);
    addScheme(*form, "Scheme before a document is &closed:", Action::Close);
    fileExtensions_ = addExtensions(*form, "File &extensions:", "fileExtensions");
    form->addRow({}, new QLabel(QStringLiteral("Files of other kinds are formatted only after a question.")));
    promptUnsaved_ = addBox(*form, "&Ask before an unsaved document is formatted", "promptUnsaved");
    createBackups_ = addBox(*form, "Keep a &backup of each file that is formatted", "createBackups");
    backupExtension_ = addExtensions(*form, "Extension of bac&kups:", "backupExtension");
    threshold_ = new QComboBox;
    threshold_->setObjectName(QStringLiteral("messagesThreshold"));
    for (const std::string& item : NorvaneUI::OptionsDlg::thresholdItems()) threshold_->addItem(toQt(item));
    form->addRow(QStringLiteral("&Messages:"), threshold_);

    QObject::connect(fileExtensions_, &QLineEdit::textEdited, this,
                     [this](const QString& text) { dialog_.typeFileExtensions(fromQt(text)); });
    QObject::connect(backupExtension_, &QLineEdit::textEdited, this,
                     [this](const QString& text) { dialog_.typeBackupExtension(fromQt(text)); });
    QObject::connect(promptUnsaved_, &QCheckBox::toggled, this, [this](bool on) { dialog_.checkPromptUnsaved(on); });
    QObject::connect(createBackups_, &QCheckBox::toggled, this, [this](bool on) {
        dialog_.checkCreateBackups(on);
        refresh();
    });
    QObject::connect(threshold_, &QComboBox::activated, this,
                     [this](int item) { dialog_.chooseThreshold(static_cast<std::size_t>(item)); });
    refresh();
}

void SettingsView::addScheme(QFormLayout& form, const char* label, Action action) {
    auto* box = new QComboBox;
    const auto index = static_cast<std::size_t>(action);
    box->setObjectName(QStringLiteral("scheme%1").arg(index));
    box->setMinimumContentsLength(24);
    form.addRow(QString::fromUtf8(label), box);
    schemes_[index] = box;
    QObject::connect(box, &QComboBox::activated, this,
                     [this, action](int item) { dialog_.chooseScheme(action, static_cast<std::size_t>(item)); });
}

QLineEdit* SettingsView::addExtensions(QFormLayout& form, const char* label, const char* name) {
    auto* field = new QLineEdit;
    field->setObjectName(QLatin1String(name));
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 40);
    form.addRow(QString::fromUtf8(label), field);
    return field;
}

QCheckBox* SettingsView::addBox(QFormLayout& form, const char* label, const char* name) {
    auto* box = new QCheckBox(QString::fromUtf8(label));
    box->setObjectName(QLatin1String(name));
    form.addRow({}, box);
    return box;
}

void SettingsView::refresh() {
    for (const Action action : kActions) {
        QComboBox& box = *schemes_[static_cast<std::size_t>(action)];
        box.clear();
        for (const auto& item : dialog_.schemeItems()) box.addItem(toQt(item.shown));
        box.setCurrentIndex(static_cast<int>(dialog_.chosenScheme(action)));
    }
    showText(*fileExtensions_, dialog_.shownFileExtensions());
    showText(*backupExtension_, dialog_.shownBackupExtension());
    backupExtension_->setEnabled(dialog_.isBackupExtensionEnabled());
    const QSignalBlocker promptBlocker(promptUnsaved_);
    promptUnsaved_->setChecked(dialog_.shownPromptUnsaved());
    const QSignalBlocker backupsBlocker(createBackups_);
    createBackups_->setChecked(dialog_.shownCreateBackups());
    threshold_->setCurrentIndex(static_cast<int>(dialog_.chosenThreshold()));
}

bool SettingsView::focusControl(std::string_view control) {
    QLineEdit* field = nullptr;
    if (control == "fileExtensions") field = fileExtensions_;
    if (control == "backupExtension") field = backupExtension_;
    if (field == nullptr) return false;
    refresh();
    field->setFocus(Qt::OtherFocusReason);
    field->selectAll();
    return true;
}

} // namespace NorvaneQt
