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

    /// As it is now. Nothing, after telling the user, if it cannot be read.
    std::optional<PropertySetStore> read();
    /// The same without a word; `unreadable` gets the path of what cannot be read.
    std::optional<PropertySetStore> read(std::string& unreadable) const;
    void tellUnreadable(const std::string& path);

    /// Makes all changes, and returns true; `dropped` gets the names of those that the user gave up
    /// in favour of another program. Or returns false: then some may have been made, and those are
    /// found done by the next save.
    bool save(const std::vector<SchemeChange>& changes, std::set<std::string>& dropped);

private:
    bool settle(const PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped);
    bool make(PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped);
    bool remove(PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped);
    bool add(PropertySetStore& fresh, const Norvane::PropertySet& scheme);
    bool write(PropertySetStore& fresh);
    bool refuseWrite(const std::string& path);

    DialogFace& face_;
    NorvaneUI::FileSystem& files_;
    std::string directory_;
};

} // namespace NorvaneUI

#endif
