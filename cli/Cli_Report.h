#ifndef KERFLINE_CLI_REPORT_H
#define KERFLINE_CLI_REPORT_H

#include "cli/Cli_ExitStatus.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

/// A place that a message points to. Lines and columns count from 1.
struct Place {
    std::string path;
    std::uint32_t line = 1;
    std::uint32_t column = 1;
};

/// Returns "path:line:col: severity: text", always one line: control characters are spelled out.
std::string messageLine(const Place& place, std::string_view severity, std::string_view text);

/// Collects what goes wrong over all files, and the exit status that comes of it. The messages are
/// shown at the end, so that they do not drown in the formatted text on a terminal.
class Report {
public:
    void error(const Place& place, std::string_view text, ExitStatus status);
    void add(const Place& place, std::string_view severity, std::string_view text);
    /// The status never goes down.
    void raise(ExitStatus status);

    ExitStatus status() const { return status_; }
    /// Writes all messages, one a line, and forgets them.
    void flush(std::ostream& out);

private:
    std::vector<std::string> lines_;
    ExitStatus status_ = ExitStatus::done;
};

} // namespace Cli

#endif
