#ifndef KERFLINE_NORVANEQT_SETTINGSVIEW_H
#define KERFLINE_NORVANEQT_SETTINGSVIEW_H

#include "ui/NorvaneUI_OptionsDlg.h"

#include <QWidget>

#include <array>
#include <string_view>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;

namespace NorvaneQt {

/// The settings that say when and which files are formatted.
class SettingsView : public QWidget {
public:
    /// The dialog is open, and outlives the view.
    SettingsView(NorvaneUI::OptionsDlg& dialog, QWidget* parent);

    /// Shows what the dialog holds now.
    void refresh();
    /// "fileExtensions" or "backupExtension". False for any other control.
    bool focusControl(std::string_view control);

private:
    void addScheme(QFormLayout& form, const char* label, NorvaneUI::OptionsDlg::Action action);
    QLineEdit* addExtensions(QFormLayout& form, const char* label, const char* name);
    QCheckBox* addBox(QFormLayout& form, const char* label, const char* name);

    NorvaneUI::OptionsDlg& dialog_;
    // Owned by this widget.
    std::array<QComboBox*, 3> schemes_{};
    QLineEdit* fileExtensions_;
    QCheckBox* promptUnsaved_;
    QCheckBox* createBackups_;
    QLineEdit* backupExtension_;
    QComboBox* threshold_;
};

} // namespace NorvaneQt

#endif
