#ifndef KERFLINE_NORVANEUI_OPTIONSDLG_H
#define KERFLINE_NORVANEUI_OPTIONSDLG_H

#include "addin/Addin_Options.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "ui/NorvaneUI_DialogFace.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// The settings of the add-in as a dialog edits them.
///
///     OptionsDlg dialog;
///     dialog.take(options, store.schemes());  // or fill the members
///     dialog.open();                          // from the members into the controls
///     ...                                     // the user edits the controls
///     if (dialog.accept(face)) dialog.giveTo(options);
///
/// A choice that the user does not make again is kept even where a list cannot show it: the name of
/// a scheme that is not there today, a threshold that has no name.
class OptionsDlg {
public:
    // What the dialog edits. The caller fills it, and reads it after acceptance.
    PropertySetStore::SchemeMap schemes;
    /// Names of schemes. Empty: the action does not format.
    std::string onFormat;
    std::string onOpen;
    std::string onClose;
    std::string fileExtensions;
    bool promptUnsaved = true;
    bool createBackups = true;
    std::string backupExtension;
    int messagesThreshold = 1;

    /// Names of schemes that are part of the program. One of the store with the same name stands in
    /// front of them.
    std::vector<std::string> shipped;

    void take(const Addin::AddInOptions& options, const PropertySetStore::SchemeMap& known);
    /// Requires: accepted.
    void giveTo(Addin::AddInOptions& options) const;

    enum class Action { Format, Open, Close };
    /// One entry of the three lists.
    struct SchemeItem {
        std::string shown;
        /// Empty for the entry that stands for no scheme. Never taken from what is shown.
        std::string name;
    };

    /// Makes the lists and shows the members in the controls.
    void open();
    /// Another part of the window has changed the schemes. What the user has chosen stays chosen.
    void changeSchemes(const PropertySetStore::SchemeMap& known);
    /// The scheme has another name from now on; choices follow it.
    void renameScheme(const std::string& before, const std::string& after);
    /// The scheme is no more; what it was chosen for has none, unless another one has its name.
    void removeScheme(const std::string& name);

    const std::vector<SchemeItem>& schemeItems() const { return schemeItems_; }
    /// Index of the item that is shown for an action.
    std::size_t chosenScheme(Action action) const;
    static std::vector<std::string> thresholdItems();
    std::size_t chosenThreshold() const;
    const std::string& shownFileExtensions() const { return fileExtensions_; }
    const std::string& shownBackupExtension() const { return backupExtension_; }
    bool shownPromptUnsaved() const { return promptUnsaved_; }
    bool shownCreateBackups() const { return createBackups_; }
    bool isBackupExtensionEnabled() const { return backupExtensionEnabled_; }

    /// Also for the item that is shown already: then the user means it.
    void chooseScheme(Action action, std::size_t item);
    void chooseThreshold(std::size_t item);
    void typeFileExtensions(const std::string& text) { fileExtensions_ = text; }
    void typeBackupExtension(const std::string& text) { backupExtension_ = text; }
    void checkPromptUnsaved(bool on) { promptUnsaved_ = on; }
    void checkCreateBackups(bool on);

    /// The controls say something else than the members.
    bool isModified() const;
    /// Where an extension cannot be one, tells the user, puts the focus there ("fileExtensions",
    /// "backupExtension") and returns false.
    bool check(DialogFace& face);
    /// Reads the controls back into the members. Requires: they passed the check.
    void commit();
    /// Both, in one; members and controls stay as they are if it is false.
    bool accept(DialogFace& face);

private:
    std::string& chosenName(Action action);
    const std::string& chosenName(Action action) const;
    void makeSchemeItems();
    bool isListed(const std::string& name) const;
    bool refuseExtension(DialogFace& face, std::string_view control) const;

    std::vector<SchemeItem> schemeItems_;
    // What the controls say. A scheme that has no item is shown as none.
    std::string onFormat_;
    std::string onOpen_;
    std::string onClose_;
    std::string fileExtensions_;
    bool promptUnsaved_ = true;
    bool createBackups_ = true;
    bool backupExtensionEnabled_ = true;
    std::string backupExtension_;
    int messagesThreshold_ = 1;
};

} // namespace NorvaneUI

#endif
