#ifndef KERFLINE_CLI_PROGRAM_H
#define KERFLINE_CLI_PROGRAM_H

#include "cli/Cli_Engine.h"
#include "cli/Cli_FileIo.h"
#include "cli/Cli_Options.h"
#include "cli/Cli_Report.h"
#include "cli/Cli_SourceFile.h"
#include "cli/Cli_Streams.h"
#include "schemes/NorvaneUI_DiskFileSystem.h"

#include <istream>
#include <string>

namespace Cli {

/// Lays out all files of `options` and returns the exit status of the process. A file that fails
/// does not stop the others. Throws nothing.
ExitStatus runProgram(const Options& options, const Streams& streams);

/// The work on the files of one call, under one scheme.
class Program {
public:
    Program(const Options& options, const Norvane::PropertySet& scheme, const Streams& streams, Report& report);

    void run();

private:
    void processFile(const std::string& file);
    void processStream(const std::string& shownName, std::istream& in);
    void processSource(const std::string& path, const SourceFile& source);
    void format(const std::string& path, const SourceFile& source);
    void dump(const std::string& path, const SourceFile& source);
    void look(const std::string& file);
    void deliver(const std::string& path, const SourceFile& source, const std::string& result);
    void writeBack(const std::string& path, const std::string& result);
    void refuse(const std::string& path, const SourceFile& source, const Outcome& outcome);
    /// True where a refused source goes out unchanged, since something waits for its text.
    bool passesThrough() const;
    void passThrough(const std::string& bytes);
    void finishOutput();

    const Options& options_;
    Engine engine_;
    Streams streams_;
    Report& report_;
    NorvaneUI::DiskFileSystem files_;
    // How the file at work looked before it was read.
    NorvaneUI::FileStatus seen_;
};

} // namespace Cli

#endif
