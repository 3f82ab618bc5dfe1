#ifndef KERFLINE_CLI_FILEWORKER_H
#define KERFLINE_CLI_FILEWORKER_H

#include "addin/Addin_FormatJob.h"
#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Report.h"
#include "cli/console/Cli_Streams.h"
#include "cli/console/Cli_WorkItem.h"
#include "cli/files/Cli_FileStage.h"

#include <string>

namespace Cli {

/// What came of one source.
struct FileOutcome {
    Addin::FormatResult result = Addin::FormatResult::skipped;
    Report report;
    /// For standard output.
    std::string output;
    /// The source is too large, and the rest of it is to follow the output as it stands.
    bool isCutShort = false;
};

/// Lays out one source after the other, for any number of threads.
class FileWorker {
public:
    /// All of these outlive the worker.
    FileWorker(const Options& options, const Addin::AddInOptions& settings, const Streams& streams,
               NorvaneUI::FileSystem& disk, const MessageStyle& style);

    FileOutcome process(const WorkItem& item) const noexcept;

private:
    void processItem(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const;
    void format(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const;
    /// Reads what is no regular file. False if the source is too large.
    bool prepare(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const;
    bool takeStream(std::istream& in, const WorkItem& item, FileStage& stage, FileOutcome& outcome) const;
    bool refuseTooLarge(const WorkItem& item, FileOutcome& outcome) const;
    bool refuseForMemory(const WorkItem& item, FileOutcome& outcome) const;
    void dump(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const;
    void skipIgnored(const WorkItem& item, FileStage& stage, FileOutcome& outcome) const;
    void deliver(const WorkItem& item, const FileStage& stage, FileOutcome& outcome) const;
    void raiseStatus(const WorkItem& item, const FileStage& stage, FileOutcome& outcome) const;
    /// Somebody waits for the text of standard input, whatever goes wrong.
    bool isFiltered(const WorkItem& item) const;
    bool printsText() const { return options_.destination == Destination::standardOutput; }

    const Options& options_;
    const Addin::AddInOptions& settings_;
    const Streams& streams_;
    NorvaneUI::FileSystem& disk_;
    const MessageStyle style_;
    const bool colorsPatch_;
    const Addin::Gate gate_;
};

/// Whether an output of this kind gets colours.
bool wantsColor(ColorChoice choice, bool isTerminal);

} // namespace Cli

#endif
