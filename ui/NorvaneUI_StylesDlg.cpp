#include "ui/NorvaneUI_StylesDlg.h"

#include "files/NorvaneUI_Text.h"
#include "schemes/NorvaneUI_SchemeName.h"
#include "ui/NorvaneUI_SchemeSaveAsDlg.h"
#include "ui/NorvaneUI_Texts.h"

#include <utility>

namespace NorvaneUI {

namespace {

std::string shownName(const std::string& name, bool modified) {
    return modified ? name + std::string(Texts::kModified) : name;
}

} // namespace

StylesDlg::StylesDlg(DialogFace& face, NorvaneUI::FileSystem& files, Addin::Settings& settings,
                     PropertySetStore& store, std::vector<Norvane::PropertySet> shipped)
    : face_(face), settings_(settings), store_(store), folder_(face, files, store.directory()),
      shipped_(std::move(shipped)), sheet_(face, files, settings) {
    sheet_.setChangeAction([this] { tellList(); });
    // Whoever has read the store has told.
    folder_.setTold(store.unreadable());
    fillEntries();
    selectInitial();
}

void StylesDlg::setListAction(std::function<void()> action) { listAction_ = std::move(action); }

void StylesDlg::tellList() {
    if (listAction_) listAction_();
}

void StylesDlg::fillEntries() {
    for (const auto& [name, found] : store_) {
        const auto [place, added] = entries_.try_emplace(name, found.scheme, Origin::folder);
        if (added) takeFromFolder(place->second, found);
    }
    addShipped();
}

void StylesDlg::addShipped() {
    for (const Norvane::PropertySet& scheme : shipped_) {
        const auto [place, added] = entries_.try_emplace(scheme.getName(), scheme, Origin::shipped);
        if (added) place->second.builtIn = true;
    }
}

void StylesDlg::selectInitial() {
    std::string name;
    settings_.getString(kCurrentSetting, name);
    current_ = name;
    showCurrent();
}

void StylesDlg::takeFromFolder(Entry& entry, const SchemeEntry& found) {
    if (isSameScheme(entry.edit.scheme(), found.scheme)) entry.edit.markSaved();
    else entry.edit.restart(found.scheme);
    entry.origin = Origin::folder;
    entry.base = found.scheme;
    entry.builtIn = found.readOnly;
    entry.told = false;
}

void StylesDlg::show(const std::string& name) {
    current_ = name;
    sheet_.show(&entries_.at(name).edit);
    tellList();
}

/// The scheme that was shown is not there any more: the next one takes its place.
void StylesDlg::showAfterLoss() {
    auto next = entries_.lower_bound(current_);
    if (next == entries_.end() && next != entries_.begin()) --next;
    if (next != entries_.end()) return show(next->first);
    current_.clear();
    sheet_.show(nullptr);
    tellList();
}

/// After entries came and went.
void StylesDlg::showCurrent() {
    if (entries_.count(current_) == 0) showAfterLoss();
    else if (sheet_.scheme() == nullptr) show(current_);
}

std::vector<StylesDlg::Item> StylesDlg::items() const {
    std::vector<Item> items;
    for (const auto& [name, entry] : entries_) {
        items.push_back({name, shownName(name, entry.isUnsaved()), entry.builtIn, entry.isUnsaved()});
    }
    return items;
}

std::string StylesDlg::currentShown() const {
    const auto entry = entries_.find(current_);
    return entry == entries_.end() ? std::string() : shownName(current_, entry->second.isUnsaved());
}

std::vector<std::string> StylesDlg::warnings() const {
    std::vector<std::string> result;
    std::map<std::string, std::string> used;
    for (const auto& [file, scheme] : store_.files()) {
        const auto [first, added] = used.try_emplace(scheme, file);
        if (!added) result.push_back(filled(Texts::kSameName, {first->second, file, scheme, first->second}));
    }
    for (const std::string& path : store_.unreadable()) result.push_back(filled(Texts::kLeftOut, {path}));
    for (const auto& [file, problem] : store_.problems()) {
        result.push_back(filled(Texts::kFileProblem, {file, std::to_string(problem.line), problem.text}));
    }
    return result;
}

StylesDlg::Entry* StylesDlg::currentEntry() {
    const auto entry = entries_.find(current_);
    return entry == entries_.end() ? nullptr : &entry->second;
}

bool StylesDlg::select(const std::string& name) {
    if (name == current_) return true;
    if (entries_.count(name) == 0 || !sheet_.check()) return false;
    show(name);
    return true;
}

std::string StylesDlg::proposedName(const std::set<std::string>& alsoTaken) const {
    std::string name(Texts::kNewScheme);
    for (int number = 2; entries_.count(name) != 0 || alsoTaken.count(name) != 0; ++number) {
        name = std::string(Texts::kNewScheme) + ' ' + std::to_string(number);
    }
    return name;
}

/// Judged against the folder as the next save will leave it; `leaving` has its file until then.
std::string StylesDlg::nameFault(const std::string& name, const std::set<std::string>& alsoTaken,
                                 const std::string& leaving) const {
    PropertySetStore later(store_);
    for (const auto& erased : erased_) later.erase(erased.first);
    if (!leaving.empty()) later.erase(leaving);
    for (const auto& [known, entry] : entries_) {
        const bool leaves = !leaving.empty() && known == leaving;
        if (!leaves && later.count(known) == 0) later.insert(entry.edit.scheme());
    }
    for (const std::string& taken : alsoTaken) later.insert(Norvane::PropertySet(taken));
    return schemeNameFault(later, name);
}

std::optional<std::string> StylesDlg::askName(const std::set<std::string>& alsoTaken) {
    SchemeSaveAsDlg dialog(face_, [&](const std::string& name) { return nameFault(name, alsoTaken); });
    return dialog.run(proposedName(alsoTaken));
}

void StylesDlg::addEntry(const std::string& name, const Norvane::PropertySet& content) {
    entries_.try_emplace(name, renamedScheme(content, name), Origin::added);
}

bool StylesDlg::addAsked(const Norvane::PropertySet& content) {
    if (!sheet_.check()) return false;
    const std::optional<std::string> name = askName();
    if (!name) return false;
    addEntry(*name, content);
    show(*name);
    return true;
}

bool StylesDlg::newScheme() { return addAsked(Norvane::PropertySet()); }

bool StylesDlg::copyScheme() {
    const Entry* entry = currentEntry();
    return entry != nullptr && addAsked(entry->edit.scheme());
}

bool StylesDlg::saveAs() {
    Entry* entry = currentEntry();
    if (entry == nullptr || !addAsked(entry->edit.scheme())) return false;
    // One that was never saved has nothing to go back to.
    if (entry->origin != Origin::added) entry->edit.revert();
    tellList();
    return true;
}

bool StylesDlg::renameScheme() {
    const Entry* entry = currentEntry();
    if (entry == nullptr || !sheet_.check()) return false;
    if (entry->builtIn) {
        face_.notify(std::string(Texts::kCannotRename));
        return false;
    }
    const std::string before = current_;
    SchemeSaveAsDlg dialog(face_, [&](const std::string& name) {
        return name == before ? std::string() : nameFault(name, {}, before);
    });
    const std::optional<std::string> after = dialog.run(before);
    if (!after || *after == before) return false;
    auto node = entries_.extract(before);
    Entry& renamed = node.mapped();
    if (renamed.base) erased_.emplace(before, *renamed.base);
    renaming_[before] = *after;
    for (auto& [saved, name] : renaming_) {
        if (name == before) name = *after;
    }
    renamed.base.reset();
    renamed.origin = Origin::added;
    renamed.edit.rename(*after);
    node.key() = *after;
    entries_.insert(std::move(node));
    show(*after);
    return true;
}

bool StylesDlg::deleteScheme() {
    Entry* entry = currentEntry();
    if (entry == nullptr) return false;
    if (entry->builtIn) {
        face_.notify(std::string(Texts::kCannotDelete));
        return false;
    }
    const std::string_view question = entry->base ? Texts::kAskDelete : Texts::kAskDeleteNew;
    if (face_.ask(filled(question, {current_})) != Answer::yes) return false;
    if (entry->base) erased_.emplace(current_, *entry->base);
    std::erase_if(renaming_, [this](const auto& renaming) { return renaming.second == current_; });
    sheet_.show(nullptr);
    deleted_.emplace_back(current_, std::move(*entry));
    entries_.erase(current_);
    addShipped();
    showAfterLoss();
    return true;
}

bool StylesDlg::bringBack() {
    if (deleted_.empty() || !sheet_.check()) return false;
    const auto& [name, entry] = deleted_.back();
    const auto taken = entries_.find(name);
    if (taken != entries_.end() && taken->second.origin != Origin::shipped) {
        face_.notify(nameFault(name, {}));
        return false;
    }
    sheet_.show(nullptr);
    if (entry.base) erased_.erase(name);
    entries_.insert_or_assign(name, entry);
    current_ = name;
    deleted_.pop_back();
    show(current_);
    return true;
}

std::string StylesDlg::windowState() const {
    std::string state;
    settings_.getString(kWindowSetting, state);
    return state;
}

} // namespace NorvaneUI
