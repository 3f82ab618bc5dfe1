#include "addin/Addin_BatchFormatter.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "files/Zelmar_Trace.h"

#include <algorithm>

namespace Addin {

namespace {

using NorvaneUI::FileKind;
using NorvaneUI::filled;
using NorvaneUI::FileStatus;

void count(BatchCounts& counts, FormatResult result) {
    switch (result) {
    case FormatResult::formatted: ++counts.formatted; break;
    case FormatResult::unchanged: ++counts.unchanged; break;
    case FormatResult::skipped: ++counts.skipped; break;
    case FormatResult::refused: ++counts.refused; break;
    case FormatResult::failed: ++counts.failed; break;
    case FormatResult::cancelled: counts.cancelled = true; break;
    }
}

/// Entries that are relative start in the folder of the project.
std::string fullPath(const std::string& folder, const std::string& path) {
    if (path.empty() || path.starts_with('/') || folder.empty()) return path;
    return folder + (folder.ends_with('/') ? "" : "/") + path;
}

/// Files of the host itself, which a project lists among its own.
bool isHostFile(const std::string& path) {
    const std::string extension = extensionOf(path);
    return extension == "dsp" || extension == "dsw";
}

} // namespace

BatchCounts BatchFormatter::formatActiveProject(const Norvane::PropertySet& scheme) {
    const auto project = bench_.host.activeProject();
    const auto info = project ? bench_.host.project(*project) : Result<ProjectInfo>(Failure{FailureKind::gone});
    if (!info) {
        bench_.host.notify(std::string(Texts::kNoProject));
        return {};
    }
    if (!confirm(Texts::kAskProject, info->name)) return {};
    sendInformation(filled(Texts::kFormattingActiveProject, {scheme.getName()}));
    const FileList files = filesOf(*project);
    Run run = startRun(scheme, files.paths.size());
    if (formatFiles(run, files) && !endIfCancelled(run)) sendInformation(std::string(Texts::kFinishedProject));
    return run.counts;
}

BatchCounts BatchFormatter::formatActiveWorkspace(const Norvane::PropertySet& scheme) {
    const auto workspace = bench_.host.workspace();
    if (!workspace) {
        bench_.host.notify(std::string(Texts::kNoWorkspace));
        return {};
    }
    if (!confirm(Texts::kAskWorkspace, workspace->name)) return {};
    sendInformation(filled(Texts::kFormattingWorkspace, {workspace->name, scheme.getName()}));
    std::vector<FileList> projects;
    std::size_t fileCount = 0;
    for (const Project project : workspace->projects) {
        projects.push_back(filesOf(project));
        fileCount += projects.back().paths.size();
    }
    Run run = startRun(scheme, fileCount);
    for (const FileList& files : projects) {
        sendInformation(filled(Texts::kFormattingProject, {files.projectName, scheme.getName()}));
        if (!formatFiles(run, files)) return run.counts;
    }
    if (!endIfCancelled(run)) sendInformation(std::string(Texts::kFinishedWorkspace));
    return run.counts;
}

bool BatchFormatter::confirm(std::string_view question, const std::string& name) {
    return bench_.host.ask(filled(question, {name}), Occasion::command) == Answer::yes;
}

void BatchFormatter::sendInformation(const std::string& text) {
    messages_.send({Trn::kSeverityInformation, text});
}

/// A project that cannot be asked has no files, and the user learns why.
BatchFormatter::FileList BatchFormatter::filesOf(Project project) {
    const auto info = bench_.host.project(project);
    const auto paths = bench_.host.projectFiles(project);
    if (!info || !paths) {
        const Failure& failure = info ? paths.failure() : info.failure();
        messages_.send({Trn::kSeverityError, filled(Texts::kUnexpected, {failure.text})});
        return {info ? info->name : std::string(), {}};
    }
    FileList files{info->name, *paths};
    for (std::string& path : files.paths) path = fullPath(info->folder, path);
    return files;
}

BatchFormatter::Run BatchFormatter::startRun(const Norvane::PropertySet& scheme, std::size_t fileCount) {
    return {scheme, bench_.host.openProgress(static_cast<int>(fileCount) * FileProgressDlg::kStepsPerFile)};
}

/// False after a cancel, which has been told to the user then.
bool BatchFormatter::formatFiles(Run& run, const FileList& files) {
    for (const std::string& path : files.paths) {
        if (endIfCancelled(run)) return false;
        // Files that are skipped take fewer steps than they have in the bar.
        if (run.dialog) run.dialog->set(run.index * FileProgressDlg::kStepsPerFile);
        ++run.index;
        if (!path.empty() && !isHostFile(path)) formatFile(run, path);
    }
    return true;
}

bool BatchFormatter::endIfCancelled(Run& run) {
    bench_.host.pump();
    if (!run.dialog || !run.dialog->cancelled()) return false;
    run.counts.cancelled = true;
    sendInformation(std::string(Texts::kCancelled));
    return true;
}

void BatchFormatter::formatFile(Run& run, const std::string& path) {
    if (!isToFormat(run, path)) return;
    const auto status = bench_.files.status(path);
    if (status && isChangedInHost(*status)) {
        messages_.send({Trn::kSeverityError, filled(Texts::kUnwritable, {path}), path});
        ++run.counts.failed;
        return;
    }
    count(run.counts, fileFormatter_.format(path, run.scheme, run.dialog.get()));
    // The file that was written has another number now, and can come again under another path.
    if (const auto written = bench_.files.status(path)) run.seen.insert(*written);
}

/// A file that comes twice would lose its backup to the second time, and a backup that has the
/// extension of a source is none.
bool BatchFormatter::isToFormat(Run& run, const std::string& path) {
    const auto status = bench_.files.status(path);
    if (!status || status->kind == FileKind::missing) return true;
    return run.seen.insert(*status) && !isBackup(path);
}

bool BatchFormatter::isBackup(const std::string& path) const {
    const std::string ending = '.' + backupExtensionOf(bench_.options.backupExtension);
    if (!path.ends_with(ending)) return false;
    const auto original = bench_.files.status(path.substr(0, path.size() - ending.size()));
    return original && original->kind == FileKind::regular;
}

/// The text that the user sees is not the one on the disk.
bool BatchFormatter::isChangedInHost(const FileStatus& file) {
    if (file.kind == FileKind::missing) return false;
    const auto changed = bench_.host.changedDocuments();
    return std::any_of(changed.begin(), changed.end(), [&](const std::string& path) {
        const auto status = bench_.files.status(path);
        return status && status->kind != FileKind::missing && status->isSameFile(file);
    });
}

} // namespace Addin
