#include "ui/NorvaneUI_StylesDlg.h"

#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "schemes/NorvaneUI_SchemeConversion.h"
#include "ui/NorvaneUI_Texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace NorvaneUI {

namespace {

/// What goes to the disk. Without the version, the next start would take the scheme for an old one
/// and convert it, against what the preview has shown.
Norvane::PropertySet withVersion(Norvane::PropertySet scheme) {
    scheme.setString(kVersionKey, kCurrentVersion);
    return scheme;
}

} // namespace

bool StylesDlg::hasOwnEdits() const {
    const auto isOwnEdit = [](const EntryMap::value_type& item) {
        return !item.second.builtIn && item.second.isUnsaved();
    };
    return !erased_.empty() || std::any_of(entries_.begin(), entries_.end(), isOwnEdit);
}

void StylesDlg::discardOwnEdits() {
    sheet_.show(nullptr);
    erased_.clear();
    renaming_.clear();
    deleted_.clear();
    std::erase_if(entries_, [](const auto& item) { return item.second.origin == Origin::added; });
    for (auto& [name, entry] : entries_) {
        if (!entry.builtIn) entry.edit.revert();
    }
    fillEntries();
    showCurrent();
}

/// False if the user wants to go back to the dialog. Nothing is done yet.
bool StylesDlg::askBuiltIns(std::vector<BuiltInChoice>& choices) {
    for (const auto& [name, entry] : entries_) {
        if (entry.builtIn && entry.edit.isModified() && !askBuiltIn(name, choices)) return false;
    }
    return true;
}

bool StylesDlg::askBuiltIn(const std::string& name, std::vector<BuiltInChoice>& choices) {
    // The question names no scheme, so the one that it is about is shown.
    if (name != current_) show(name);
    const Answer answer = face_.ask(std::string(Texts::kModifiedBuiltIn));
    if (answer == Answer::cancel) return false;
    if (answer == Answer::no) {
        choices.push_back({name, std::nullopt});
        return true;
    }
    std::set<std::string> taken;
    for (const BuiltInChoice& choice : choices) {
        if (choice.newName) taken.insert(*choice.newName);
    }
    const std::optional<std::string> newName = askName(taken);
    if (newName) choices.push_back({name, newName});
    return newName.has_value();
}

void StylesDlg::apply(const std::vector<BuiltInChoice>& choices) {
    for (const BuiltInChoice& choice : choices) {
        Entry& entry = entries_.at(choice.scheme);
        if (choice.newName) addEntry(*choice.newName, entry.edit.scheme());
        entry.edit.revert();
        if (choice.scheme == current_) show(choice.newName.value_or(current_));
    }
}

bool StylesDlg::accept() {
    std::vector<BuiltInChoice> choices;
    if (!sheet_.check() || !askBuiltIns(choices)) return false;
    apply(choices);
    if (!save()) return false;
    storeState();
    return true;
}

bool StylesDlg::close() {
    if (!sheet_.check()) return false;
    const Answer own = hasOwnEdits() ? face_.ask(std::string(Texts::kModifiedOwn)) : Answer::yes;
    std::vector<BuiltInChoice> choices;
    if (own == Answer::cancel || !askBuiltIns(choices)) return false;
    if (own == Answer::no) discardOwnEdits();
    apply(choices);
    if (!save()) return false;
    storeState();
    return true;
}

void StylesDlg::cancel() {
    sheet_.show(nullptr);
    entries_.clear();
    erased_.clear();
    renaming_.clear();
    deleted_.clear();
    fillEntries();
    showCurrent();
    storeState();
}

void StylesDlg::storeState() {
    sheet_.storeState();
    settings_.setString(kCurrentSetting, current_);
    const Addin::Settings::Outcome outcome = settings_.commit();
    if (outcome == Addin::Settings::Outcome::notOpened) {
        face_.notify(std::string(Addin::Texts::kSettingsNotOpened));
    }
    if (outcome == Addin::Settings::Outcome::notCreated) {
        face_.notify(std::string(Addin::Texts::kSettingsNotCreated));
    }
}

std::vector<SchemeChange> StylesDlg::changes() const {
    std::vector<SchemeChange> result;
    for (const auto& [name, entry] : entries_) {
        if (entry.builtIn || !entry.isUnsaved()) continue;
        SchemeChange change{name, entry.base, withVersion(entry.edit.scheme())};
        // Deleted and made anew: the folder still holds the one before.
        const auto erased = erased_.find(name);
        if (erased != erased_.end()) change.before = erased->second;
        for (const auto& [before, after] : renaming_) {
            if (after == name) change.like = before;
        }
        result.push_back(std::move(change));
    }
    for (const auto& [name, content] : erased_) {
        if (entries_.count(name) == 0 || entries_.at(name).origin == Origin::shipped) {
            result.push_back({name, content, std::nullopt});
        }
    }
    return result;
}

bool StylesDlg::save() {
    if (!sheet_.check()) return false;
    const std::vector<SchemeChange> made = changes();
    std::set<std::string> dropped;
    if (!folder_.save(made, dropped)) return false;
    if (!made.empty()) takeSaved(made, dropped);
    return true;
}

void StylesDlg::takeSaved(const std::vector<SchemeChange>& changes, const std::set<std::string>& dropped) {
    for (const SchemeChange& change : changes) {
        const auto entry = entries_.find(change.name);
        if (dropped.count(change.name) != 0) {
            dropEdits(change.name);
        } else if (change.after && entry != entries_.end()) {
            entry->second.edit.markSaved();
            entry->second.origin = Origin::folder;
            entry->second.base = change.after;
            entry->second.told = false;
        }
    }
    Saved saved;
    for (const auto& [before, after] : renaming_) {
        if (dropped.count(after) == 0) saved.renamed.emplace(before, after);
    }
    for (const auto& erased : erased_) {
        const bool isGone = dropped.count(erased.first) == 0 && saved.renamed.count(erased.first) == 0;
        if (isGone) saved.removed.insert(erased.first);
    }
    renaming_.clear();
    erased_.clear();
    forgetFiles(dropped);
    if (folder_.read(store_)) reconcile(store_);
    showCurrent();
    // What was edited is now what is saved.
    sheet_.reload();
    tellFolder(saved);
}

/// Deleted schemes have no file any more: brought back, they are new ones.
void StylesDlg::forgetFiles(const std::set<std::string>& dropped) {
    std::erase_if(deleted_, [&](const auto& deleted) { return dropped.count(deleted.first) != 0; });
    for (auto& [name, entry] : deleted_) {
        entry.origin = Origin::added;
        entry.base.reset();
    }
}

void StylesDlg::tellFolder(const Saved& saved) {
    if (folderAction_) folderAction_(saved);
}

/// The user has given them up. What the folder holds comes in with the next look at it.
void StylesDlg::dropEdits(const std::string& name) {
    const auto entry = entries_.find(name);
    if (entry == entries_.end() || entry->second.origin == Origin::shipped) return;
    if (name == current_) sheet_.show(nullptr);
    entries_.erase(entry);
}

void StylesDlg::rereadFolder() {
    if (!folder_.read(store_)) return;
    reconcile(store_);
    tellFolder({});
}

void StylesDlg::reconcile(const PropertySetStore& fresh) {
    for (const auto& [name, found] : fresh) {
        if (erased_.count(name) != 0) continue;
        const auto [place, added] = entries_.try_emplace(name, found.scheme, Origin::folder);
        if (added) takeFromFolder(place->second, found);
        else reconcile(name, place->second, found);
    }
    reconcileRemoved(fresh);
    addShipped();
    showCurrent();
    tellList();
}

void StylesDlg::reconcile(const std::string& name, Entry& entry, const SchemeEntry& found) {
    if (entry.origin == Origin::added) return;
    const bool changed = !entry.base || !isSameScheme(*entry.base, found.scheme);
    const bool sameEdit = isSameScheme(withVersion(entry.edit.scheme()), found.scheme);
    if (!changed) {
        entry.builtIn = found.readOnly;
    } else if (entry.isUnsaved() && !sameEdit) {
        tellOnce(entry, Texts::kChangedMeanwhile, name);
    } else {
        takeFromFolder(entry, found);
        if (name == current_) show(name);
    }
}

void StylesDlg::reconcileRemoved(const PropertySetStore& fresh) {
    for (auto place = entries_.begin(); place != entries_.end();) {
        Entry& entry = place->second;
        const bool removed = entry.origin == Origin::folder && fresh.count(place->first) == 0;
        if (removed && entry.isUnsaved()) tellOnce(entry, Texts::kRemovedMeanwhile, place->first);
        const bool goes = removed && !entry.isUnsaved();
        if (goes && place->first == current_) sheet_.show(nullptr);
        place = goes ? entries_.erase(place) : std::next(place);
    }
}

void StylesDlg::tellOnce(Entry& entry, std::string_view text, const std::string& name) {
    if (!entry.told) face_.notify(filled(text, {name}));
    entry.told = true;
}

} // namespace NorvaneUI
