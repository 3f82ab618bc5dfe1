#include "cli/files/Cli_IgnoreRules.h"

#include "cli/files/Cli_Paths.h"

#include <vector>

namespace Cli {

const std::optional<std::string>& IgnoreRules::reasonFor(const std::string& path, bool isFolder) {
    if (isFolder) return folder(path).reason;
    return reason_ = decide(path, false);
}

std::optional<std::string> IgnoreRules::decide(const std::string& path, bool isFolder) {
    const Folder& parent = folder(folderOf(path));
    if (parent.reason) return parent.reason;
    for (const Folder* at = &parent; !at->nearest.empty(); at = &folder(folderOf(at->nearest))) {
        const Folder& owner = folders_.find(at->nearest)->second;
        const std::size_t start = at->nearest == "/" ? 1 : at->nearest.size() + 1;
        const IgnoreFile::Match match = owner.file.match(std::string_view(path).substr(start), isFolder);
        if (match.verdict == IgnoreFile::Verdict::kept) return std::nullopt;
        if (match.verdict == IgnoreFile::Verdict::ignored) {
            return joined(at->nearest, kIgnoreFile) + ':' + std::to_string(match.line);
        }
    }
    return std::nullopt;
}

const IgnoreRules::Folder& IgnoreRules::folder(const std::string& path) {
    // From the root down, since a folder's fate hangs on those above it.
    std::vector<std::string> missing;
    for (std::string at = path; folders_.count(at) == 0; at = folderOf(at)) {
        missing.push_back(at);
        if (at.empty()) break;
    }
    for (auto at = missing.rbegin(); at != missing.rend(); ++at) {
        Folder made;
        if (!at->empty()) {
            made.nearest = folders_.find(folderOf(*at))->second.nearest;
            if (*at != "/") made.reason = decide(*at, true);
            if (!made.reason) readFile(*at, made);
            if (made.hasFile) made.nearest = *at;
        }
        folders_.emplace(*at, std::move(made));
    }
    return folders_.find(path)->second;
}

void IgnoreRules::readFile(const std::string& path, Folder& folder) {
    const std::string file = joined(path, kIgnoreFile);
    const auto status = files_.status(file);
    if (!status || (status->kind == NorvaneUI::FileKind::missing && !status->leadsNowhere)) return;
    const auto text = files_.read(file);
    if (!text) {
        const std::string reason = status->leadsNowhere ? "the link leads nowhere" : text.failure().text;
        report_.error({file}, reason + "; what is below its folder is left alone", ExitStatus::fileFailed);
        folder.reason = file + ", which cannot be read";
        return;
    }
    folder.hasFile = true;
    folder.file = IgnoreFile(*text);
}

} // namespace Cli
