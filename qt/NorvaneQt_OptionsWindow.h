#ifndef KERFLINE_NORVANEQT_OPTIONSWINDOW_H
#define KERFLINE_NORVANEQT_OPTIONSWINDOW_H

#include "qt/NorvaneQt_Face.h"
#include "ui/NorvaneUI_OptionsDlg.h"
#include "ui/NorvaneUI_StylesDlg.h"

#include <QDialog>

#include <functional>
#include <string>
#include <string_view>

class QHBoxLayout;
class QPushButton;
class QTabWidget;

namespace NorvaneQt {

class SchemesView;
class SettingsView;

/// The window of all options: the schemes, and the settings that say when they are applied.
///
/// It is left in two ways. OK saves everything; Cancel, the cross and Escape ask what to do with
/// edits, if there are any. Whoever shows it takes the settings over if keepsSettings() then.
class OptionsWindow : public QDialog {
public:
    using HelpAction = std::function<void(const std::string& topic)>;
    using SchemeList = std::function<NorvaneUI::PropertySetStore::SchemeMap()>;

    /// `face`, `styles` and `settings` outlive the window; `settings` is open. `saved` tells the
    /// schemes that are saved now.
    OptionsWindow(Face& face, NorvaneUI::StylesDlg& styles, NorvaneUI::OptionsDlg& settings, SchemeList saved,
                  HelpAction help);
    ~OptionsWindow() override;

    bool keepsSettings() const { return keepsSettings_; }
    void showPage(NorvaneUI::PageId id);
    void showSettings();

    void accept() override;
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void addButtons(QHBoxLayout& row);
    void addShortcuts();
    void refreshButtons();
    void focusControl(std::string_view control);
    void showHelp();
    void togglePreview();
    /// What the controls of the settings say.
    std::string shownSettings() const;
    bool settleSettings();
    void followRenames();
    void reread();

    Face& face_;
    NorvaneUI::StylesDlg& styles_;
    NorvaneUI::OptionsDlg& settings_;
    SchemeList saved_;
    HelpAction help_;
    std::string settingsAtFirst_;
    bool keepsSettings_ = false;
    bool rereadWaits_ = false;
    // Owned by this widget.
    QTabWidget* tabs_;
    SchemesView* schemesView_;
    SettingsView* settingsView_;
    QPushButton* preview_ = nullptr;
    QPushButton* undo_ = nullptr;
    QPushButton* redo_ = nullptr;
};

} // namespace NorvaneQt

#endif
