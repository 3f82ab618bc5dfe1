#include "cli/run/Cli_Program.h"

#include "addin/Addin_Texts.h"
#include "cli/console/Cli_Interrupt.h"
#include "cli/files/Cli_FileCollector.h"
#include "cli/files/Cli_FileIo.h"
#include "cli/files/Cli_IgnoreRules.h"
#include "cli/files/Cli_Paths.h"
#include "cli/guide/Cli_OptionList.h"
#include "cli/run/Cli_Filter.h"
#include "cli/run/Cli_OrderedWork.h"
#include "cli/run/Cli_UserSettings.h"
#include "files/NorvaneUI_Text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace Cli {

namespace {

/// The absolute folder that the scheme of a source is looked for from.
std::string folderForScheme(const WorkItem& item) {
    if (item.isStandardInput && item.path == kStandardInput) return absolutePath(".");
    return folderOf(absolutePath(item.path));
}

} // namespace

Program::Program(const Options& options, const Streams& streams, Report& report)
    : options_(options), streams_(streams), report_(report),
      host_(streams, report, options.verbosity, options.assumesYes) {}

void Program::run() {
    readSettings();
    SchemeFinder finder(disk_, host_.schemeDirectory(), settings_.onFormat.name, report_);
    SchemeShelf shelf(finder, options_.scheme, options_.edits, report_);
    if (options_.dump == Dump::scheme) {
        showScheme(shelf);
        return;
    }
    IgnoreRules ignored(disk_, report_);
    FileCollector collector(options_, settings_, disk_, ignored, streams_.in, report_);
    std::vector<WorkItem> items = collector.collect();
    if (items.empty() && report_.status() == ExitStatus::done && options_.verbosity != Verbosity::quiet) {
        report_.addGeneral("note", "no sources found");
    }
    if (!chooseSchemes(items, shelf) || !mayWrite(collector.folders())) return;
    const bool isBatch = items.size() > 1 || !collector.folders().empty() || !options_.project.empty();
    if (options_.verbosity == Verbosity::verbose) announce(collector.folders(), shelf);
    layOut(items, isBatch);
    const bool isFinished = InterruptGuard::signal() == 0;
    if (isFinished && !collector.folders().empty()) inform(std::string(Addin::Texts::kFinishedTree));
}

void Program::inform(const std::string& text) {
    host_.addMessage({Trn::kSeverityInformation, text});
}

void Program::announce(const std::vector<std::string>& folders, SchemeShelf& shelf) {
    for (const std::string& folder : folders) {
        const Norvane::PropertySet* scheme = shelf.schemeIn(absolutePath(folder));
        const std::string name = scheme == nullptr ? std::string() : scheme->getName();
        inform(NorvaneUI::filled(Addin::Texts::kFormattingTree, {folder, name}));
    }
}

void Program::readSettings() {
    settings_ = readUserSettings(disk_, host_);
    // The threshold is for messages that come unasked; here, switches say what is shown.
    settings_.messagesThreshold = static_cast<int>(Trn::kSeverityInformation);
    if (options_.backup.wanted) settings_.createBackups = true;
    if (!options_.backup.extension.empty()) settings_.backupExtension = options_.backup.extension;
}

void Program::showScheme(SchemeShelf& shelf) {
    std::string path = options_.files.empty() ? std::string("-") : options_.files.front();
    if (path == "-") path = options_.inputName;
    std::error_code ignored;
    const bool isFolder = path.empty() || std::filesystem::is_directory(path, ignored);
    const std::string full = absolutePath(path.empty() ? "." : path);
    const Norvane::PropertySet* scheme = shelf.schemeIn(isFolder ? full : folderOf(full));
    if (scheme != nullptr) scheme->write(streams_.out);
    report_.checkOutput(streams_.out);
}

bool Program::chooseSchemes(std::vector<WorkItem>& items, SchemeShelf& shelf) {
    // Without a source, too, a wrong scheme is to be told.
    bool isGood = !items.empty() || shelf.schemeIn(absolutePath(".")) != nullptr;
    for (WorkItem& item : items) {
        if (item.ignoredBy) continue;
        item.scheme = shelf.schemeIn(folderForScheme(item));
        isGood = isGood && item.scheme != nullptr;
    }
    return isGood;
}

bool Program::mayWrite(const std::vector<std::string>& folders) {
    if (options_.destination != Destination::sameFile) return true;
    const bool isAsked = !folders.empty() || !options_.project.empty();
    if (isAsked && !options_.assumesYes && !streams_.terminals.in) {
        report_.addGeneral("error",
                           "without a terminal to ask on, writing to all files of a folder or project "
                           "needs -y");
        report_.raise(ExitStatus::badUsageOrScheme);
        return false;
    }
    const bool projectMay =
        options_.project.empty() || mayWriteTo(Addin::Texts::kAskProject, options_.project);
    return projectMay && std::all_of(folders.begin(), folders.end(), [&](const std::string& folder) {
               return mayWriteTo(Addin::Texts::kAskTree, folder);
           });
}

bool Program::mayWriteTo(std::string_view question, const std::string& name) {
    // Messages so far may be what the answer hangs on.
    report_.flush(streams_.err);
    return host_.ask(NorvaneUI::filled(question, {name}), Addin::Occasion::command) == Addin::Answer::yes;
}

void Program::layOut(const std::vector<WorkItem>& items, bool isBatch) {
    const bool isAtTerminal = streams_.terminals.err && options_.verbosity != Verbosity::quiet;
    const bool printsOnTerminal =
        options_.destination == Destination::standardOutput && streams_.terminals.out;
    const bool onlyInput = items.size() == 1 && items.front().isStandardInput;
    // Somebody who types the source is done with Control-C at once.
    std::optional<InterruptGuard> guard;
    if (!onlyInput) guard.emplace();
    const FileWorker worker(options_, settings_, streams_, disk_, report_.style());
    std::size_t done = 0;
    {
        ProgressBar bar(streams_.err, items.size(), isBatch && isAtTerminal && !printsOnTerminal);
        done = doInOrder<FileOutcome>(
            items.size(), options_.jobs, [&](std::size_t index) { return worker.process(items[index]); },
            [&](std::size_t index, FileOutcome outcome) {
                if (!outcome.output.empty() || !outcome.report.isEmpty()) bar.clear();
                take(items[index], outcome);
                bar.show(index + 1, items[index].path);
            },
            [] { return InterruptGuard::signal() != 0; });
    }
    report_.checkOutput(streams_.out);
    if (InterruptGuard::signal() != 0) tellWhatIsLeft(items, done);
    if (options_.verbosity == Verbosity::verbose || (isBatch && isAtTerminal)) {
        report_.addGeneral("note", tally_.text(options_.destination));
    }
}

void Program::take(const WorkItem& item, FileOutcome& outcome) {
    tally_.count(outcome.result);
    if (outcome.result == Addin::FormatResult::cancelled) cancelled_.push_back(item.path);
    streams_.out << outcome.output;
    if (outcome.isCutShort) copyRest(item, outcome.output.size());
    // Behind the formatted text, so that messages do not drown in it on a terminal.
    report_.merge(std::move(outcome.report));
    if (options_.destination != Destination::standardOutput) report_.flush(streams_.err);
}

void Program::copyRest(const WorkItem& item, std::size_t copied) {
    constexpr auto end = std::istream::traits_type::eof();
    if (item.isStandardInput) {
        const InterruptibleWait wait;
        if (streams_.in.peek() != end) streams_.out << streams_.in.rdbuf();
        return;
    }
    std::ifstream in(item.path, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(copied));
    if (in && in.peek() != end) streams_.out << in.rdbuf();
}

void Program::tellWhatIsLeft(const std::vector<WorkItem>& items, std::size_t done) {
    std::vector<std::string> left = std::move(cancelled_);
    for (std::size_t i = done; i < items.size(); ++i) left.push_back(items[i].path);
    report_.addGeneral("warning", Addin::Texts::kCancelled);
    if (left.empty()) return;
    const bool isLong = options_.verbosity != Verbosity::verbose && left.size() > 3;
    std::string text =
        std::to_string(left.size()) + " of " + std::to_string(items.size()) + " files not done: ";
    for (std::size_t i = 0; i < (isLong ? 3 : left.size()); ++i) text += (i == 0 ? "" : ", ") + left[i];
    report_.addGeneral("warning", text + (isLong ? ", ..." : ""));
}

ExitStatus runProgram(const Options& options, const Streams& streams) {
    Report report({options.messageFormat, wantsColor(options.color, streams.terminals.err)});
    try {
        if (options.dump == Dump::options) {
            listSchemeOptions(streams.out);
            report.checkOutput(streams.out);
        } else {
            Program(options, streams, report).run();
        }
    } catch (const std::bad_alloc&) {
        report.error({"kerfline"}, "not enough memory", ExitStatus::fileFailed);
    } catch (const std::exception& error) {
        report.error({"kerfline"}, std::string("internal error: ") + error.what(), ExitStatus::fileFailed);
    }
    if (report.status() > ExitStatus::wouldChange && isFilter(options)) {
        passInputThrough(streams);
        report.checkOutput(streams.out);
    }
    report.flush(streams.err);
    return report.status();
}

} // namespace Cli
