#ifndef KERFLINE_CLI_PROGRAM_H
#define KERFLINE_CLI_PROGRAM_H

#include "addin/Addin_Options.h"
#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_ProgressBar.h"
#include "cli/console/Cli_Report.h"
#include "cli/console/Cli_Streams.h"
#include "cli/console/Cli_WorkItem.h"
#include "cli/run/Cli_FileWorker.h"
#include "cli/run/Cli_Tally.h"
#include "cli/run/Cli_TerminalHost.h"
#include "cli/scheme/Cli_SchemeShelf.h"
#include "files/NorvaneUI_DiskFileSystem.h"

#include <string>
#include <vector>

namespace Cli {

/// Does what `options` say and returns the exit status of the process. A file that fails does not
/// stop the others; a scheme that is wrong stops all before the first. Throws nothing.
ExitStatus runProgram(const Options& options, const Streams& streams);

/// The work on the sources of one call.
class Program {
public:
    /// All of these outlive the program.
    Program(const Options& options, const Streams& streams, Report& report);

    void run();

private:
    void inform(const std::string& text);
    void announce(const std::vector<std::string>& folders, SchemeShelf& shelf);
    void readSettings();
    void showScheme(SchemeShelf& shelf);
    bool chooseSchemes(std::vector<WorkItem>& items, SchemeShelf& shelf);
    bool mayWrite(const std::vector<std::string>& folders);
    bool mayWriteTo(std::string_view question, const std::string& name);
    void layOut(const std::vector<WorkItem>& items, bool isBatch);
    void take(const WorkItem& item, FileOutcome& outcome);
    void showMessages(Report& report);
    void tellWhatIsLeft(const std::vector<WorkItem>& items, std::size_t done);
    void copyRest(const WorkItem& item, std::size_t copied);

    const Options& options_;
    const Streams& streams_;
    Report& report_;
    NorvaneUI::DiskFileSystem disk_;
    TerminalHost host_;
    Addin::AddInOptions settings_;
    // What came of the sources so far.
    Tally tally_;
    std::vector<std::string> cancelled_;
};

} // namespace Cli

#endif
