#ifndef KERFLINE_NORVANEUI_STYLESDLG_H
#define KERFLINE_NORVANEUI_STYLESDLG_H

#include "addin/Addin_Settings.h"
#include "files/NorvaneUI_FileSystem.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "ui/NorvaneUI_DialogFace.h"
#include "ui/NorvaneUI_SchemeEdit.h"
#include "ui/NorvaneUI_SchemeFolder.h"
#include "ui/NorvaneUI_StylesSheet.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace NorvaneUI {

/// The dialog in which the user manages schemes.
///
/// It edits copies, so that to cancel it costs nothing. A save reads the folder afresh, carries over
/// only what was edited, removed or added here, and writes that; where another program has been at
/// the same scheme, the user is asked. After a save that failed, every edit is still there.
///
/// A scheme is built-in if its file is read-only or if it is part of the program. It can be tried
/// out like any other, but its changes can only be saved as another scheme.
class StylesDlg {
public:
    struct Item {
        std::string name;
        /// With a mark if there is something to save.
        std::string shown;
        bool builtIn = false;
        bool modified = false;
    };

    /// All but `shipped` outlive the dialog. `store` and `settings` must have been read; the store is
    /// read again after each save. `shipped` are the schemes that are part of the program: one of the
    /// store with the same name stands in front of them.
    StylesDlg(DialogFace& face, NorvaneUI::FileSystem& files, Addin::Settings& settings,
              PropertySetStore& store, std::vector<Norvane::PropertySet> shipped = {});
    StylesDlg(const StylesDlg&) = delete;
    StylesDlg& operator=(const StylesDlg&) = delete;

    StylesSheet& sheet() { return sheet_; }
    /// In the order of their names.
    std::vector<Item> items() const;
    /// The scheme that the sheet shows. Empty: there is none at all.
    const std::string& current() const { return current_; }
    /// As the list shows it.
    std::string currentShown() const;
    /// What is odd about the folder, in words for the user: files with schemes of the same name, of
    /// which only one can be in use; files that cannot be read; lines that do not do what they seem to.
    std::vector<std::string> warnings() const;
    /// Called when the list has changed.
    void setListAction(std::function<void()> action);
    /// What became of schemes on the disk.
    struct Saved {
        /// New names by those before.
        std::map<std::string, std::string> renamed;
        std::set<std::string> removed;
    };
    /// Called when the folder was read again, after a save or because others may have been there.
    void setFolderAction(std::function<void(const Saved&)> action) { folderAction_ = std::move(action); }

    // Each of these asks the user for what it needs, and is false if it was not done: cancelled,
    // refused, or because an entry on the page is no value.
    bool select(const std::string& name);
    /// An empty scheme: it leaves every source as it is.
    bool newScheme();
    /// The scheme as it is edited, under a new name; itself it stays as it is.
    bool copyScheme();
    /// The edits go into a new scheme, and the scheme is again as it was.
    bool saveAs();
    bool renameScheme();
    bool deleteScheme();
    /// Brings back the scheme that was deleted last, also if its file is gone already.
    bool bringBack();
    bool canBringBack() const { return !deleted_.empty(); }
    /// Writes what was edited, without closing.
    bool save();

    // The ways out. False: the dialog stays open, with every edit.
    /// Saves; asks what to do with edits of built-in schemes.
    bool accept();
    /// Asks about all edits.
    bool close();
    /// Drops all edits.
    void cancel();

    /// Takes over what other programs did in the folder. What was edited here is kept, and the user
    /// is told. To be called when the window becomes the active one.
    void rereadFolder();

    /// Where the window was and how it was divided, in its own words; kept with the settings.
    std::string windowState() const;
    void setWindowState(const std::string& state) { settings_.setString(kWindowSetting, state); }

private:
    enum class Origin { folder, shipped, added };
    struct Entry {
        explicit Entry(const Norvane::PropertySet& scheme, Origin from) : edit(scheme), origin(from) {}

        SchemeEdit edit;
        Origin origin;
        bool builtIn = false;
        /// What the folder held when it was looked at last. Only for those from the folder.
        std::optional<Norvane::PropertySet> base = std::nullopt;
        /// The user knows of a conflict with another program.
        bool told = false;

        bool isUnsaved() const { return edit.isModified() || origin == Origin::added; }
    };
    using EntryMap = std::map<std::string, Entry>;
    /// What is to become of the edits of a built-in scheme.
    struct BuiltInChoice {
        std::string scheme;
        /// Nothing: they are discarded.
        std::optional<std::string> newName;
    };

    static constexpr const char* kCurrentSetting = "CurrentPropertySet";
    static constexpr const char* kWindowSetting = "OptionsWindow";

    // The list.
    void fillEntries();
    void addShipped();
    void selectInitial();
    void show(const std::string& name);
    void showAfterLoss();
    void showCurrent();
    void takeFromFolder(Entry& entry, const SchemeEntry& found);
    void tellList();
    Entry* currentEntry();
    void addEntry(const std::string& name, const Norvane::PropertySet& content);
    bool addAsked(const Norvane::PropertySet& content);
    std::optional<std::string> askName(const std::set<std::string>& alsoTaken = {});
    std::string nameFault(const std::string& name, const std::set<std::string>& alsoTaken,
                          const std::string& leaving = {}) const;
    std::string proposedName(const std::set<std::string>& alsoTaken) const;

    // Ways out.
    bool hasOwnEdits() const;
    void discardOwnEdits();
    bool askBuiltIns(std::vector<BuiltInChoice>& choices);
    bool askBuiltIn(const std::string& name, std::vector<BuiltInChoice>& choices);
    void apply(const std::vector<BuiltInChoice>& choices);
    void storeState();

    // Saving.
    std::vector<SchemeChange> changes() const;
    void takeSaved(const std::vector<SchemeChange>& changes, const std::set<std::string>& dropped);
    void forgetFiles(const std::set<std::string>& dropped);
    void tellFolder(const Saved& saved);
    void dropEdits(const std::string& name);

    // The folder.
    void reconcile(const PropertySetStore& fresh);
    void reconcile(const std::string& name, Entry& entry, const SchemeEntry& found);
    void reconcileRemoved(const PropertySetStore& fresh);
    void tellOnce(Entry& entry, std::string_view text, const std::string& name);

    DialogFace& face_;
    Addin::Settings& settings_;
    PropertySetStore& store_;
    SchemeFolder folder_;
    std::vector<Norvane::PropertySet> shipped_;
    std::function<void()> listAction_;
    std::function<void(const Saved&)> folderAction_;

    EntryMap entries_;
    /// Schemes of the folder that are to go, with what they held.
    std::map<std::string, Norvane::PropertySet> erased_;
    /// Names on the disk to new names, until they are saved.
    std::map<std::string, std::string> renaming_;
    /// The last one was deleted last.
    std::vector<std::pair<std::string, Entry>> deleted_;
    std::string current_;
    /// Shows an entry, so it goes before the entries.
    StylesSheet sheet_;
};

} // namespace NorvaneUI

#endif
