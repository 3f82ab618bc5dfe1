#include "cli/run/Cli_FileWorker.h"

#include "addin/Addin_FileFormatter.h"
#include "addin/Addin_SourceForm.h"
#include "cli/console/Cli_Interrupt.h"
#include "cli/console/Cli_Printable.h"
#include "cli/files/Cli_FileIo.h"
#include "cli/files/Cli_Paths.h"
#include "cli/files/Cli_UnifiedDiff.h"
#include "cli/run/Cli_Dump.h"
#include "cli/run/Cli_TerminalHost.h"
#include "guard/Guard_Difference.h"

#include <cstdlib>
#include <new>
#include <sstream>
#include <system_error>
#include <utility>

namespace Cli {

namespace {

using Addin::FormatResult;
using NorvaneUI::FileKind;

constexpr std::string_view kNoMemory = "not enough memory for this file";

/// The last line of defence: a fault of the engine must not cost anybody code.
std::optional<Addin::Objection> objectionTo(const std::string&, std::string_view source,
                                            std::string_view result) {
    const auto difference = Guard::firstDifference(source, result);
    if (!difference) return std::nullopt;
    const Trn::Position place{static_cast<std::uint32_t>(difference->inSource.line),
                              static_cast<std::uint32_t>(difference->inSource.column)};
    return Addin::Objection{"internal error: the layout would have changed this token", place};
}

/// The name that a patch gives to a file: from the current folder, or else from the root.
std::string patchName(const std::string& path) {
    const std::string name = shortestPath(absolutePath(path));
    return name.starts_with('/') ? name.substr(1) : name;
}

} // namespace

bool wantsColor(ColorChoice choice, bool isTerminal) {
    if (choice != ColorChoice::automatic) return choice == ColorChoice::always;
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool isRefused = noColor != nullptr && *noColor != '\0';
    return isTerminal && !isRefused && terminal != nullptr && std::string_view(terminal) != "dumb";
}

FileWorker::FileWorker(const Options& options, const Addin::AddInOptions& settings, const Streams& streams,
                       NorvaneUI::FileSystem& disk, const MessageStyle& style)
    : options_(options), settings_(settings), streams_(streams), disk_(disk), style_(style),
      colorsPatch_(wantsColor(options.color, streams.terminals.out)),
      gate_(options.verifies ? Addin::Gate(objectionTo) : Addin::Gate()) {}

FileOutcome FileWorker::process(const WorkItem& item) const noexcept {
    FileOutcome outcome;
    outcome.report = Report(style_);
    const bool writes = options_.destination == Destination::sameFile;
    FileStage stage(disk_, writes ? FileStage::Mode::write : FileStage::Mode::rehearse);
    try {
        processItem(item, stage, outcome);
        return outcome;
    } catch (const std::system_error& error) {
        outcome.report.error({item.path}, error.code().message(), ExitStatus::fileFailed);
    } catch (const std::bad_alloc&) {
        outcome.report.error({item.path}, kNoMemory, ExitStatus::fileFailed);
    } catch (const std::exception& error) {
        outcome.report.error({item.path}, std::string("internal error: ") + error.what(), ExitStatus::refused);
    }
    outcome.result = FormatResult::failed;
    if (isFiltered(item)) outcome.output = stage.takeSource();
    return outcome;
}

void FileWorker::processItem(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const {
    if (!prepare(item, stage, outcome)) return;
    if (item.ignoredBy) {
        skipIgnored(item, stage, outcome);
    } else if (options_.dump != Dump::none) {
        dump(item, stage, outcome);
    } else {
        format(item, stage, outcome);
    }
}

bool FileWorker::isFiltered(const WorkItem& item) const {
    return item.isStandardInput && printsText() && options_.dump == Dump::none;
}

bool FileWorker::prepare(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const {
    if (item.isStandardInput) {
        const InterruptibleWait wait;
        return takeStream(streams_.in, item, stage, outcome);
    }
    const auto status = disk_.status(item.path);
    if (!status || status->kind == FileKind::missing) return true;
    if (status->kind == FileKind::regular) {
        return status->size <= kLargestSource || refuseTooLarge(item, outcome);
    }
    // A pipe can be read once, and only to be printed.
    if (options_.destination == Destination::sameFile) return true;
    const InterruptibleWait wait;
    std::ifstream in = openFile(item.path);
    return takeStream(in, item, stage, outcome);
}

bool FileWorker::takeStream(std::istream& in, const WorkItem& item, FileStage& stage,
                            FileOutcome& outcome) const {
    ReadResult read = readSource(in);
    if (!read.complete) {
        if (isFiltered(item)) outcome.output = std::move(read.bytes);
        return read.outOfMemory ? refuseForMemory(item, outcome) : refuseTooLarge(item, outcome);
    }
    stage.setSource(std::move(read.bytes));
    return true;
}

bool FileWorker::refuseTooLarge(const WorkItem& item, FileOutcome& outcome) const {
    outcome.result = FormatResult::refused;
    outcome.report.error({item.path}, "longer than 4 GB, which is more than can be laid out",
                         ExitStatus::refused);
    outcome.isCutShort = printsText() && options_.dump == Dump::none;
    return false;
}

bool FileWorker::refuseForMemory(const WorkItem& item, FileOutcome& outcome) const {
    outcome.result = FormatResult::failed;
    outcome.report.error({item.path}, kNoMemory, ExitStatus::fileFailed);
    outcome.isCutShort = isFiltered(item);
    return false;
}

void FileWorker::format(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const {
    TerminalHost host(streams_, outcome.report, options_.verbosity, options_.assumesYes);
    const Addin::Workbench bench = {host, stage, settings_, gate_, item.lines.empty() ? options_.lines : item.lines,
                                    options_.isStrict};
    const auto dialog = host.openProgress(0);
    outcome.result = Addin::FileFormatter(bench).format(item.path, *item.scheme, dialog.get(),
                                                        Addin::ExtensionTest::passed);
    raiseStatus(item, stage, outcome);
    deliver(item, stage, outcome);
}

void FileWorker::raiseStatus(const WorkItem& item, const FileStage& stage, FileOutcome& outcome) const {
    if (outcome.result == FormatResult::refused) outcome.report.raise(ExitStatus::refused);
    if (outcome.result != FormatResult::failed) return;
    outcome.report.raise(ExitStatus::fileFailed);
    if (!stage.failureText().empty()) outcome.report.add({item.path}, "note", stage.failureText());
}

void FileWorker::deliver(const WorkItem& item, const FileStage& stage, FileOutcome& outcome) const {
    const auto& result = stage.result();
    if (outcome.result == FormatResult::cancelled) return;
    switch (options_.destination) {
    case Destination::sameFile: return;
    case Destination::standardOutput:
        // Something waits for the text, so a source that was refused goes out as it is.
        outcome.output = result ? *result : stage.source();
        return;
    case Destination::checkOnly:
        if (result) outcome.output = printable(item.path) + '\n';
        break;
    case Destination::patch:
        if (result) outcome.output = unifiedDiff(patchName(item.path), stage.source(), *result, colorsPatch_);
        break;
    }
    if (result) outcome.report.raise(ExitStatus::wouldChange);
}

void FileWorker::dump(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const {
    const auto bytes = stage.read(item.path);
    if (!bytes) {
        outcome.result = FormatResult::failed;
        outcome.report.error({item.path}, bytes.failure().text, ExitStatus::fileFailed);
        return;
    }
    std::ostringstream out;
    outcome.result = FormatResult::unchanged;
    if (!dumpText(options_.dump, item.path, Addin::SourceForm(*bytes).textOf(*bytes), style_, out)) {
        outcome.result = FormatResult::refused;
        outcome.report.raise(ExitStatus::refused);
    }
    outcome.output = std::move(out).str();
}

void FileWorker::skipIgnored(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const {
    outcome.result = FormatResult::skipped;
    if (options_.verbosity == Verbosity::verbose) {
        outcome.report.add({item.path}, "note", "left alone by " + *item.ignoredBy);
    }
    if (!printsText() || options_.dump != Dump::none) return;
    const auto bytes = stage.read(item.path);
    if (bytes) {
        outcome.output = *bytes;
    } else {
        outcome.result = FormatResult::failed;
        outcome.report.error({item.path}, bytes.failure().text, ExitStatus::fileFailed);
    }
}

} // namespace Cli
