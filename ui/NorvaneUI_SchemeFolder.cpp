#include "ui/NorvaneUI_SchemeFolder.h"

#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "schemes/NorvaneUI_SchemeName.h"
#include "ui/NorvaneUI_Texts.h"

namespace NorvaneUI {

namespace {

using Content = std::optional<Norvane::PropertySet>;

bool isSame(const Content& a, const Content& b) {
    return a.has_value() == b.has_value() && (!a || isSameScheme(*a, *b));
}

Content contentOf(const PropertySetStore& store, const std::string& name) {
    const auto found = store.find(name);
    return found == store.end() ? Content() : found->second.scheme;
}

std::string_view question(const SchemeChange& change, const Content& now) {
    if (!change.after) return Texts::kAskRemove;
    return now ? Texts::kAskReplace : Texts::kAskWriteAgain;
}

/// Where the scheme is, for a message.
std::string pathOf(const PropertySetStore& store, const std::string& name) {
    for (const auto& [file, scheme] : store.files()) {
        if (scheme == name) return store.directory() + file;
    }
    return store.directory();
}

} // namespace

bool SchemeFolder::read(PropertySetStore& store) {
    try {
        store.readWhatIsGood();
    } catch (const PropertySetStore::ReadError& error) {
        tellUnreadable({error.path()});
        return false;
    }
    tellUnreadable(store.unreadable());
    return true;
}

void SchemeFolder::tellUnreadable(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        if (told_.count(path) == 0) face_.notify(filled(Addin::Texts::kSchemeUnreadable, {path}));
    }
    // One that was mended can break again.
    setTold(paths);
}

bool SchemeFolder::save(const std::vector<SchemeChange>& changes, std::set<std::string>& dropped) {
    if (changes.empty()) return true;
    if (directory_.empty()) {
        face_.notify(std::string(Texts::kNoFolder));
        return false;
    }
    PropertySetStore fresh = emptyStore();
    // Whoever saves must hear why nothing comes of it, each time.
    told_.erase(fresh.directory());
    if (!read(fresh)) return false;
    // All questions first: one that is cancelled must find nothing done.
    for (const SchemeChange& change : changes) {
        if (!settle(fresh, change, dropped)) return false;
    }
    // A scheme that goes leaves its file name to one that comes.
    for (const bool removals : {true, false}) {
        for (const SchemeChange& change : changes) {
            if (change.after.has_value() == removals || dropped.count(change.name) != 0) continue;
            if (!make(fresh, change, dropped)) return false;
        }
    }
    return write(fresh);
}

/// False if the user wants to go back to the dialog.
bool SchemeFolder::settle(const PropertySetStore& fresh, const SchemeChange& change,
                          std::set<std::string>& dropped) {
    const Content now = contentOf(fresh, change.name);
    if (isSame(now, change.before) || isSame(now, change.after)) return true;
    const Answer answer = face_.ask(filled(question(change, now), {change.name}));
    if (answer == Answer::no) dropped.insert(change.name);
    return answer != Answer::cancel;
}

bool SchemeFolder::make(PropertySetStore& fresh, const SchemeChange& change, std::set<std::string>& dropped) {
    if (!change.after) return remove(fresh, change, dropped);
    const auto found = fresh.find(change.name);
    if (found == fresh.end()) return add(fresh, change);
    // Writing would pass it over without a word.
    if (found->second.readOnly && !isSameScheme(found->second.scheme, *change.after)) {
        return refuseWrite(pathOf(fresh, change.name));
    }
    found->second.scheme = *change.after;
    return true;
}

bool SchemeFolder::remove(PropertySetStore& fresh, const SchemeChange& change,
                          std::set<std::string>& dropped) {
    const auto found = fresh.find(change.name);
    if (found == fresh.end()) return true;
    if (found->second.readOnly) {
        face_.notify(std::string(Texts::kCannotDelete));
        dropped.insert(change.name);
    } else {
        fresh.erase(change.name);
    }
    return true;
}

/// The name was good when it was chosen, but another program may have taken its file since.
bool SchemeFolder::add(PropertySetStore& fresh, const SchemeChange& change) {
    const std::string fault = schemeNameFault(fresh, change.name);
    if (!fault.empty()) {
        face_.notify(fault);
        return false;
    }
    if (change.like.empty()) fresh.insert(*change.after);
    else fresh.insertLike(change.like, *change.after);
    return true;
}

bool SchemeFolder::write(PropertySetStore& fresh) {
    try {
        fresh.write();
    } catch (const PropertySetStore::WriteError& error) {
        return refuseWrite(error.path());
    }
    return true;
}

bool SchemeFolder::refuseWrite(const std::string& path) {
    face_.notify(filled(Addin::Texts::kSchemeUnwritable, {path, directory_}));
    return false;
}

} // namespace NorvaneUI
