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
/// edits, if there are any. Whoever shows it takes the settings over if keepsSettings() then. It opens
/// where it was left, and divided as it was.
class OptionsWindow : public QDialog {
public:
    using HelpAction = std::function<void(const std::string& topic)>;
    using SchemeList = std::function<NorvaneUI::PropertySetStore::SchemeMap()>;

    /// `face`, `styles` and `settings` outlive the window; `settings` is open. `help` gets a page, and
    /// behind a "#" the option that the user is at. `saved` tells the
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
    void followFolder(const NorvaneUI::StylesDlg::Saved& saved);
    void reread();
    void openAsLeft();
    void keepPlace();

    Face& face_;
    NorvaneUI::StylesDlg& styles_;
    NorvaneUI::OptionsDlg& settings_;
    SchemeList saved_;
    HelpAction help_;
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
