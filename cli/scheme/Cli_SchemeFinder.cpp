#include "cli/scheme/Cli_SchemeFinder.h"

#include "cli/files/Cli_Paths.h"
#include "cli/scheme/Cli_NearestName.h"
#include "cli/scheme/Cli_SchemeLoader.h"
#include "cli/scheme/Cli_ShippedSchemes.h"
#include "schemes/NorvaneUI_PropertySetStore.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace Cli {

namespace {

using Kind = SchemeSource::Kind;

constexpr const char* kNone = "none";

/// A name never becomes a path by being put behind a folder, so a scheme called ".." is harmless.
bool isPath(const std::string& wanted) {
    return wanted.find('/') != std::string::npos || wanted.ends_with(".kls");
}

} // namespace

SchemeFinder::SchemeFinder(NorvaneUI::FileSystem& files, std::string userFolder, std::string preferred,
                           Report& report)
    : files_(files), userFolder_(std::move(userFolder)), preferred_(std::move(preferred)), report_(report) {}

std::optional<SchemeSource> SchemeFinder::find(const std::optional<std::string>& wanted,
                                               const std::string& folder) {
    if (!wanted) return findUnnamed(folder);
    if (*wanted == kNone) return SchemeSource{Kind::empty, kNone};
    if (isPath(*wanted)) return findFile(*wanted);
    return findByName(*wanted, folder);
}

std::optional<SchemeSource> SchemeFinder::findFile(const std::string& path) {
    const auto status = files_.status(path);
    if (!status || status->kind != NorvaneUI::FileKind::missing) return SchemeSource{Kind::file, {}, path};
    // Who names a file that is not there may mean the scheme of that name.
    const std::string name = path.substr(0, path.rfind(".kls"));
    report_.addGeneral("error", "there is no scheme file \"" + path + '"' + hintFor(name));
    report_.raise(ExitStatus::badUsageOrScheme);
    return std::nullopt;
}

std::optional<SchemeSource> SchemeFinder::findByName(const std::string& name, const std::string& folder) {
    for (std::string at = folder; !at.empty();) {
        const std::string& file = projectFileAt(at);
        if (file.empty()) break;
        if (nameInside(file) == name) return SchemeSource{Kind::project, name, file};
        at = folderOf(folderOf(file));
    }
    if (auto found = findOutsideProjects(name)) return found;
    // A file of that very name is meant even without a "./" in front.
    const auto status = files_.status(name);
    if (status && status->kind == NorvaneUI::FileKind::regular) return SchemeSource{Kind::file, {}, name};
    reportUnknown(name);
    return std::nullopt;
}

std::optional<SchemeSource> SchemeFinder::findOutsideProjects(const std::string& name) {
    const auto& own = userSchemes();
    const auto found = own.find(name);
    if (found != own.end()) return SchemeSource{Kind::user, name, found->second};
    if (findShippedScheme(name) != nullptr) return SchemeSource{Kind::shipped, name};
    return std::nullopt;
}

std::optional<SchemeSource> SchemeFinder::findUnnamed(const std::string& folder) {
    const std::string& file = projectFileAt(folder);
    if (!file.empty()) return SchemeSource{Kind::project, {}, file};
    if (preferred_.empty()) return SchemeSource{Kind::shipped, "default"};
    auto found = findOutsideProjects(preferred_);
    if (found) {
        found->isFromSettings = true;
    } else {
        report_.addGeneral("error", "the setting OnFormat names the scheme \"" + preferred_ +
                                        "\", which is not there; \"kerfline settings set OnFormat NAME\" "
                                        "chooses another");
        report_.raise(ExitStatus::badUsageOrScheme);
    }
    return found;
}

const std::string& SchemeFinder::projectFileAt(const std::string& folder) {
    // Every folder on the way up gets the answer, so a tree costs one look for each of its folders.
    std::vector<std::string> asked;
    std::string found;
    for (std::string at = folder; !at.empty(); at = folderOf(at)) {
        if (const auto known = projectFiles_.find(at); known != projectFiles_.end()) {
            found = known->second;
            break;
        }
        asked.push_back(at);
        const std::string candidate = joined(at, kProjectSchemeFile);
        const auto status = files_.status(candidate);
        // One that is there and cannot be read must not pass for none.
        if (status && (status->kind != NorvaneUI::FileKind::missing || status->leadsNowhere)) {
            found = candidate;
            break;
        }
    }
    for (std::string& at : asked) projectFiles_[std::move(at)] = found;
    return projectFiles_[folder] = found;
}

const std::string& SchemeFinder::nameInside(const std::string& path) {
    const auto known = names_.find(path);
    if (known != names_.end()) return known->second;
    std::string& name = names_[path];
    Norvane::PropertySet scheme;
    try {
        if (NorvaneUI::parseScheme(readSchemeFile(path), scheme)) return name = scheme.getName();
        warnOnce(path + " is passed over: it is not a scheme");
    } catch (const std::system_error& error) {
        warnOnce(path + " is passed over: " + error.code().message());
    }
    return name;
}

const std::map<std::string, std::string>& SchemeFinder::userSchemes() {
    if (userSchemes_) return *userSchemes_;
    userSchemes_.emplace();
    if (userFolder_.empty()) return *userSchemes_;
    const NorvaneUI::PropertySetStore store(userFolder_, files_);
    try {
        for (const std::string& file : store.findPSFiles()) {
            const std::string path = store.directory() + file;
            if (!nameInside(path).empty()) userSchemes_->emplace(nameInside(path), path);
        }
    } catch (const NorvaneUI::PropertySetStore::ReadError&) {
        warnOnce("the schemes in " + userFolder_ + " cannot be listed");
    }
    return *userSchemes_;
}

std::vector<std::string_view> SchemeFinder::knownNames() {
    std::vector<std::string_view> known = {kNone};
    for (const auto& [name, path] : userSchemes()) known.push_back(name);
    for (const ShippedScheme& shipped : shippedSchemes()) known.push_back(shipped.name);
    return known;
}

std::string SchemeFinder::hintFor(const std::string& name) {
    const std::string hint = nearestNameHint(name, knownNames());
    return hint.empty() ? "; \"kerfline schemes\" lists the schemes there are" : hint;
}

void SchemeFinder::reportUnknown(const std::string& name) {
    report_.addGeneral("error", "there is no scheme \"" + name + '"' + hintFor(name));
    report_.raise(ExitStatus::badUsageOrScheme);
}

void SchemeFinder::warnOnce(const std::string& text) {
    if (std::find(warnings_.begin(), warnings_.end(), text) != warnings_.end()) return;
    report_.addGeneral("warning", text);
    warnings_.push_back(text);
}

} // namespace Cli
