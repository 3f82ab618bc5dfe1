#ifndef KERFLINE_NORVANEUI_SCHEMEFOLDER_H
#define KERFLINE_NORVANEUI_SCHEMEFOLDER_H

#include "files/NorvaneUI_FileSystem.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "ui/NorvaneUI_DialogFace.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace NorvaneUI {

/// What is to become of one scheme of the folder.
struct SchemeChange {
    std::string name;
    /// What the folder held when the edit began. Nothing: there was no such scheme.
    std::optional<Norvane::PropertySet> before;
    /// What it is to hold. Nothing: the scheme goes.
    std::optional<Norvane::PropertySet> after;
    /// The name of a scheme that goes and lives on in this one: its file is taken along, comments and
    /// all. Empty: there is none.
    std::string like = {};
};

/// The folder of schemes, as one of several programs that may write to it.
///
/// A save reads it afresh, makes the changes and writes that, so that what others did stays. Where
/// both have been at the same scheme, the user decides. Whatever goes wrong, the user is told.
class SchemeFolder {
public:
    /// Both outlive the folder.
    SchemeFolder(DialogFace& face, NorvaneUI::FileSystem& files, std::string directory)
        : face_(face), files_(files), directory_(std::move(directory)) {}

    /// Reads into `store` what the folder holds now, without the files that cannot be read; the user
    /// is told of each once. False, with the store as it was, if the folder as a whole cannot be read.
    bool read(PropertySetStore& store);
    PropertySetStore emptyStore() const { return PropertySetStore(directory_, files_); }
    /// The user knows of these already.
    void setTold(const std::vector<std::string>& paths) { told_ = {paths.begin(), paths.end()}; }

    /// Makes all changes, and returns true; `dropped` gets the names of those that the user gave up
    /// in favour of another program. Or returns false: then some may have been made, and those are
    /// found done by the next save.
    bool save(const std::vector<SchemeChange>& changes, std::set<std::string>& dropped);

private:
    bool settle(const PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped);
    bool make(PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped);
    bool remove(PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped);
    bool add(PropertySetStore& fresh, const SchemeChange& change);
    void tellUnreadable(const std::vector<std::string>& paths);
    bool write(PropertySetStore& fresh);
    bool refuseWrite(const std::string& path);

    DialogFace& face_;
    NorvaneUI::FileSystem& files_;
    std::string directory_;
    /// Files that could not be read the last time.
    std::set<std::string> told_;
};

} // namespace NorvaneUI

#endif
