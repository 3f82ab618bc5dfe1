#include "schemes/NorvaneUI_PropertySetStore.h"

#include "files/Zelmar_Trace.h"
#include "schemes/NorvaneUI_SchemeDocument.h"
#include "schemes/NorvaneUI_SchemeRecord.h"

#include <algorithm>
#include <iterator>
#include <locale>
#include <sstream>
#include <string_view>

namespace NorvaneUI {

namespace {

using Zelmar::Trace;

constexpr std::string_view kExtension = ".kls";

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool hasSchemeExtension(std::string_view file) {
    if (file.size() < kExtension.size()) return false;
    file.remove_prefix(file.size() - kExtension.size());
    return std::equal(file.begin(), file.end(), kExtension.begin(),
                      [](char a, char b) { return lowered(a) == b; });
}

std::string withSeparator(std::string directory) {
    if (!directory.empty() && directory.back() != '/') directory += '/';
    return directory;
}

std::string withoutDoubleDots(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDouble = text[i] == '.' && i + 1 < text.size() && text[i + 1] == '.';
        result += isDouble ? '_' : text[i];
        if (isDouble) ++i;
    }
    return result;
}

void overwriteEnd(std::string& text, const std::string& digits) {
    text.resize(text.size() - std::min(text.size(), digits.size()));
    text += digits;
}

} // namespace

PropertySetStore::ReadError::ReadError(const std::string& path)
    : StoreError("Could not successfully read PropertySet \"" + path + '"', path) {}

PropertySetStore::WriteError::WriteError(const std::string& path)
    : StoreError("Could not successfully write PropertySet \"" + path + '"', path) {}

PropertySetStore::PropertySetStore(std::string directory, FileSystem& fileSystem)
    : directory_(withSeparator(std::move(directory))), fileSystem_(fileSystem) {}

std::vector<std::string> PropertySetStore::findPSFiles() const {
    if (directory_.empty()) return {};
    const auto names = fileSystem_.list(directory_);
    if (!names) {
        if (names.failure().kind == FailureKind::missing) return {};
        throw ReadError(directory_);
    }
    std::vector<std::string> found;
    for (const std::string& name : *names) {
        if (!hasSchemeExtension(name)) continue;
        const auto status = fileSystem_.status(path(name));
        if (!status) throw ReadError(path(name));
        if (status->kind == FileKind::regular) found.push_back(name);
    }
    // The system lists in no order, and which of two schemes of one name counts must not change
    // from run to run.
    std::sort(found.begin(), found.end());
    return found;
}

/// Returns false for a file that has vanished since the folder was listed.
bool PropertySetStore::readFile(const std::string& file, Origin& origin,
                                std::vector<SchemeFileProblem>& problems) const {
    // The status first: if the file changes between the two calls, it counts as changed later.
    const auto status = fileSystem_.status(path(file));
    if (status && status->kind == FileKind::missing) return false;
    if (!status) throw ReadError(path(file));
    const auto text = fileSystem_.read(path(file));
    if (!text && text.failure().kind == FailureKind::missing) return false;
    if (!text || !parseScheme(*text, origin.scheme)) throw ReadError(path(file));
    for (SchemeProblem& problem : checkSchemeText(*text)) problems.push_back({file, std::move(problem)});
    origin.status = *status;
    return true;
}

void PropertySetStore::take(Found& found, const std::string& file) const {
    Origin origin;
    if (!readFile(file, origin, found.problems)) return;
    const std::string name = origin.scheme.getName();
    origin.shadowed = !found.schemes.try_emplace(name, SchemeEntry{!origin.status.writable, origin.scheme}).second;
    found.files[file] = name;
    found.origins.emplace(file, std::move(origin));
}

void PropertySetStore::readFolder(bool leaveOutBroken) {
    Trace trace("PropertySetStore::read");
    if (directory_.empty()) return;
    Found found;
    for (const std::string& file : findPSFiles()) {
        trace << "Found file \"" << file << "\"\n";
        try {
            take(found, file);
        } catch (const ReadError& error) {
            if (!leaveOutBroken) throw;
            found.unreadable.push_back(error.path());
        }
    }
    schemes_.swap(found.schemes);
    files_.swap(found.files);
    origins_.swap(found.origins);
    problems_.swap(found.problems);
    unreadable_.swap(found.unreadable);
    drafts_.clear();
}

void PropertySetStore::read() { readFolder(false); }

void PropertySetStore::readWhatIsGood() { readFolder(true); }

void PropertySetStore::write() {
    Trace trace("PropertySetStore::write");
    if (directory_.empty()) return;
    if (!fileSystem_.makeFolders(directory_).isDone()) throw WriteError(directory_);
    for (const auto& [file, name] : files_) {
        const auto entry = schemes_.find(name);
        // The scheme of a shadowed file is another one, and writing ours over it would lose it.
        const auto origin = origins_.find(file);
        if (entry == schemes_.end() || entry->second.readOnly) continue;
        if (origin != origins_.end() && origin->second.shadowed) continue;
        trace << "Writing file \"" << file << "\"\n";
        writeFile(file, entry->second.scheme);
    }
    removeErasedFiles();
}

void PropertySetStore::writeFile(const std::string& file, const Norvane::PropertySet& scheme) {
    const auto now = fileSystem_.status(path(file));
    if (!now) throw WriteError(path(file));
    if (now->kind != FileKind::missing) {
        replaceFile(file, scheme, *now);
    } else if (!fileSystem_.create(path(file), newText(file, scheme)).isDone()) {
        throw WriteError(path(file));
    } else {
        remember(file, scheme);
    }
}

std::string PropertySetStore::newText(const std::string& file, const Norvane::PropertySet& scheme) const {
    const auto draft = drafts_.find(file);
    return draft == drafts_.end() ? schemeText(scheme) : editedSchemeText(draft->second, scheme);
}

void PropertySetStore::replaceFile(const std::string& file, const Norvane::PropertySet& scheme,
                                   const FileStatus& now) {
    const auto text = fileSystem_.read(path(file));
    Norvane::PropertySet onDisk;
    if (text && parseScheme(*text, onDisk) && isSameScheme(onDisk, scheme)) return remember(file, scheme);
    const auto origin = origins_.find(file);
    const bool known = origin != origins_.end();
    // Somebody else changed what was not changed here.
    if (known && isSameScheme(origin->second.scheme, scheme)) return;
    if (!known || !origin->second.status.isUnchanged(now)) throw WriteError(path(file));
    if (!text) throw WriteError(path(file));
    if (!fileSystem_.replace(path(file), editedSchemeText(*text, scheme), now).isDone()) throw WriteError(path(file));
    remember(file, scheme);
}

void PropertySetStore::remember(const std::string& file, const Norvane::PropertySet& scheme) {
    if (const auto status = fileSystem_.status(path(file))) origins_[file] = Origin{*status, scheme, false};
}

/// Only what this store has read or written: a file that came since is somebody else's.
void PropertySetStore::removeErasedFiles() {
    Trace trace("PropertySetStore::removeErasedFiles");
    for (auto origin = origins_.begin(); origin != origins_.end();) {
        const auto& [file, last] = *origin;
        const bool erased = files_.count(file) == 0 && hasSchemeExtension(file) && last.status.writable;
        if (erased && !removeFile(file, last)) {
            trace << "Could not successfully delete PropertySet file \"" << file << "\"\n";
        }
        origin = erased ? origins_.erase(origin) : std::next(origin);
    }
}

bool PropertySetStore::removeFile(const std::string& file, const Origin& origin) {
    const auto now = fileSystem_.status(path(file));
    if (now && now->kind == FileKind::missing) return true;
    // The folder's mode would allow to remove a file that was made read-only in the meantime.
    if (!now || !now->writable || !origin.status.isUnchanged(*now)) return false;
    return fileSystem_.remove(path(file)).isDone();
}

void PropertySetStore::insert(const Norvane::PropertySet& scheme) {
    files_[validFilename(scheme.getName())] = scheme.getName();
    schemes_.try_emplace(scheme.getName(), SchemeEntry{false, scheme});
}

void PropertySetStore::insertLike(const std::string& like, const Norvane::PropertySet& scheme) {
    const auto text = fileSystem_.read(path(fileOf(like)));
    const std::string file = validFilename(scheme.getName());
    if (text && files_.count(file) == 0) drafts_[file] = *text;
    insert(scheme);
}

/// The file that the scheme was read from, also if it was erased since; empty if there is none.
std::string PropertySetStore::fileOf(const std::string& name) const {
    for (const auto& [file, origin] : origins_) {
        if (!origin.shadowed && origin.scheme.getName() == name) return file;
    }
    return {};
}

std::string PropertySetStore::keepCopy(const std::string& name) {
    const std::string from = path(fileOf(name));
    // No file of this name is taken for a scheme.
    std::string to = from + ".old";
    const auto isTaken = [this](const std::string& candidate) {
        const auto status = fileSystem_.status(candidate);
        return !status || status->kind != FileKind::missing;
    };
    constexpr int mostCopies = 100;
    for (int number = 2; isTaken(to) && number < mostCopies; ++number) to = from + ".old" + std::to_string(number);
    if (isTaken(to) || !fileSystem_.copy(from, to).isDone()) throw WriteError(to);
    return to;
}

void PropertySetStore::erase(const std::string& name) {
    schemes_.erase(name);
    const auto isOwn = [&](const FileMap::value_type& element) {
        const auto origin = origins_.find(element.first);
        return element.second == name && (origin == origins_.end() || !origin->second.shadowed);
    };
    const auto own = std::find_if(files_.begin(), files_.end(), isOwn);
    if (own != files_.end()) files_.erase(own);
}

std::string PropertySetStore::validFilename(const std::string& name) const {
    constexpr std::size_t longest = 256;
    constexpr std::size_t cutLength = 260;
    std::string candidate = name.size() > longest ? name.substr(0, cutLength) : name;
    candidate += kExtension;
    std::replace_if(candidate.begin(), candidate.end(),
                    [](char c) { return std::string_view("<>:\\/|").find(c) != std::string_view::npos; }, '_');
    candidate = withoutDoubleDots(candidate);
    std::replace(candidate.begin(), candidate.end(), '?', '_');
    for (int number = 1; files_.count(candidate) != 0; ++number) overwriteEnd(candidate, std::to_string(number));
    return candidate;
}

bool isSameScheme(const Norvane::PropertySet& a, const Norvane::PropertySet& b) {
    return a.getName() == b.getName() && a.bools() == b.bools() && a.ints() == b.ints() &&
           a.strings() == b.strings();
}

bool parseScheme(const std::string& text, Norvane::PropertySet& scheme) {
    std::istringstream in{std::string(withoutByteOrderMark(text))};
    in.imbue(std::locale::classic());
    scheme.read(in);
    return !in.fail() && !in.bad();
}

std::string schemeText(const Norvane::PropertySet& scheme) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    scheme.write(out);
    return std::move(out).str();
}

} // namespace NorvaneUI
