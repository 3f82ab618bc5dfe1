#include "cli/files/Cli_FileCollector.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_Texts.h"
#include "cli/files/Cli_CompileCommands.h"
#include "cli/files/Cli_FileIo.h"
#include "cli/files/Cli_GitChanges.h"
#include "cli/files/Cli_Paths.h"
#include "edits/Edits_PatchReader.h"
#include "files/NorvaneUI_Text.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <istream>
#include <iterator>
#include <system_error>

namespace Cli {

namespace {

namespace fs = std::filesystem;

struct Entry {
    std::string name;
    bool isFolder = false;
};

/// Folders of version control, and hidden ones.
bool isPassedOver(std::string_view folder) {
    constexpr std::string_view names[] = {"CVS", "RCS", "SCCS", "_darcs", "_FOSSIL_", "{arch}"};
    return folder.starts_with('.') ||
           std::find(std::begin(names), std::end(names), folder) != std::end(names);
}

/// The entries of a folder by name. A link to a folder is left out: it could lead round in circles.
std::vector<Entry> entriesOf(const std::string& folder) {
    std::vector<Entry> entries;
    for (const fs::directory_entry& found : fs::directory_iterator(folder)) {
        std::error_code ignored;
        const bool isLink = found.is_symlink(ignored);
        const bool isFolder = found.is_directory(ignored);
        if (isFolder && isLink) continue;
        entries.push_back({found.path().filename().string(), isFolder});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return entries;
}

/// One path a line, or between NUL characters if there are any.
std::vector<std::string> pathsOf(const std::string& list) {
    const char separator = list.find('\0') == std::string::npos ? '\n' : '\0';
    std::vector<std::string> paths;
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = std::min(list.find(separator, start), list.size());
        std::string path = list.substr(start, end - start);
        if (separator == '\n' && path.ends_with('\r')) path.pop_back();
        if (!path.empty()) paths.push_back(std::move(path));
        start = end + 1;
    }
    return paths;
}

bool isHeader(const std::string& path) {
    const std::string extension = Addin::extensionOf(path);
    return extension.starts_with('h') || extension == "inl" || extension == "ipp" || extension == "tpp";
}

} // namespace

FileCollector::FileCollector(const Options& options, const Addin::AddInOptions& settings,
                             NorvaneUI::FileSystem& files, IgnoreRules& ignored, std::istream& in,
                             Report& report)
    : options_(options), settings_(settings), files_(files), ignored_(ignored), in_(in), report_(report) {}

std::vector<WorkItem> FileCollector::collect() {
    if (options_.readsPatch) {
        addPatch(std::string(std::istreambuf_iterator<char>(in_), {}));
    } else if (options_.changedSince) {
        addChanged(*options_.changedSince);
        return std::move(items_);
    }
    for (const std::string& word : options_.files) addWord(word);
    if (!options_.project.empty()) addProject(options_.project);
    return std::move(items_);
}

void FileCollector::addWord(const std::string& word) {
    if (word == "-") {
        addStandardInput();
    } else if (word.size() > 1 && word.starts_with('@')) {
        addList(word.substr(1));
    } else {
        addNamed(word);
    }
}

void FileCollector::addNamed(const std::string& path) {
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
        folders_.push_back(path);
        if (options_.verbosity == Verbosity::verbose) {
            report_.addGeneral("note", NorvaneUI::filled(Addin::Texts::kListingTree, {path}));
        }
        addTree(path);
    } else if (isNew(path)) {
        add(path);
    }
}

/// The files named on the command line narrow down which changes count.
void FileCollector::addChanged(const std::string& revision) {
    const auto patch = gitChanges(revision, options_.files);
    if (patch) return addPatch(*patch);
    report_.addGeneral("error", "git could not tell what has changed since \"" + revision + '"');
    report_.raise(ExitStatus::fileFailed);
}

void FileCollector::addPatch(std::string_view patch) {
    for (const Edits::ChangedFile& file : Edits::readPatch(patch)) {
        if (file.lines.empty() || !Addin::isListedExtension(file.path, settings_.fileExtensions)) continue;
        if (!isNew(file.path)) continue;
        add(file.path);
        items_.back().lines = file.lines;
    }
}

void FileCollector::addStandardInput() {
    WorkItem item;
    item.isStandardInput = true;
    item.path = options_.inputName.empty() ? std::string(kStandardInput) : options_.inputName;
    if (!options_.inputName.empty()) item.ignoredBy = ignored_.reasonFor(absolutePath(item.path), false);
    items_.push_back(std::move(item));
}

void FileCollector::addList(const std::string& path) {
    try {
        ReadResult list;
        if (path == "-") {
            list = readSource(in_);
        } else {
            std::ifstream file = openFile(path);
            list = readSource(file);
        }
        if (!list.complete) throw std::system_error(EFBIG, std::generic_category());
        for (const std::string& entry : pathsOf(list.bytes)) addListed(entry);
    } catch (const std::system_error& error) {
        report_.error({path}, error.code().message(), ExitStatus::fileFailed);
    }
}

/// A list is made by a program more often than by hand, and holds whatever a change touched.
void FileCollector::addListed(const std::string& path) {
    std::error_code ignored;
    if (fs::is_directory(path, ignored) || Addin::isListedExtension(path, settings_.fileExtensions)) {
        addNamed(path);
    }
}

void FileCollector::addTree(const std::string& folder) {
    // The next one is at the end.
    std::vector<Entry> left = {{folder, true}};
    while (!left.empty()) {
        const Entry entry = std::move(left.back());
        left.pop_back();
        if (!entry.isFolder) {
            addFound(entry.name);
            continue;
        }
        if (ignored_.reasonFor(absolutePath(entry.name), true)) continue;
        try {
            const std::vector<Entry> inside = entriesOf(entry.name);
            for (auto next = inside.rbegin(); next != inside.rend(); ++next) {
                if (!next->isFolder || !isPassedOver(next->name)) {
                    left.push_back({joined(entry.name, next->name), next->isFolder});
                }
            }
        } catch (const fs::filesystem_error& error) {
            report_.error({entry.name}, error.code().message(), ExitStatus::fileFailed);
        }
    }
}

void FileCollector::addProject(const std::string& project) {
    const std::string path = compileCommandsFile(project);
    std::set<std::string> folders;
    try {
        for (const std::string& file : filesOfCompileCommands(path)) {
            if (isNew(file)) add(file);
            const std::string folder = folderOf(absolutePath(file));
            if (folders.insert(folder).second) addHeadersIn(shortestPath(folder));
        }
    } catch (const std::system_error& error) {
        report_.error({path}, error.code().message(), ExitStatus::fileFailed);
    } catch (const CompileCommandsError& error) {
        report_.error({path}, error.what(), ExitStatus::badUsageOrScheme);
    }
}

void FileCollector::addHeadersIn(const std::string& folder) {
    try {
        for (const Entry& entry : entriesOf(folder)) {
            if (!entry.isFolder && isHeader(entry.name)) addFound(joined(folder, entry.name));
        }
    } catch (const fs::filesystem_error&) {
        // Its sources tell of it when they are opened.
    }
}

/// For files that nobody named: they count only with a known extension.
void FileCollector::addFound(const std::string& path) {
    if (!Addin::isListedExtension(path, settings_.fileExtensions)) return;
    const auto status = files_.status(path);
    if (status && status->kind != NorvaneUI::FileKind::regular) return;
    if (isNew(path) && !isBackup(path)) add(path);
}

void FileCollector::add(const std::string& path) {
    items_.push_back({path, false, ignored_.reasonFor(absolutePath(path), false), nullptr});
}

bool FileCollector::isNew(const std::string& path) {
    // A result may be wanted twice; a file cannot be written by two threads, or patched twice.
    if (options_.destination == Destination::standardOutput) return true;
    const auto status = files_.status(path);
    if (!status || status->kind == NorvaneUI::FileKind::missing) return true;
    return seen_.insert({status->device, status->inode}).second;
}

bool FileCollector::isBackup(const std::string& path) const {
    const std::string ending = '.' + Addin::backupExtensionOf(settings_.backupExtension);
    if (!path.ends_with(ending)) return false;
    const auto original = files_.status(path.substr(0, path.size() - ending.size()));
    return original && original->kind == NorvaneUI::FileKind::regular;
}

} // namespace Cli
