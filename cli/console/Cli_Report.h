#ifndef KERFLINE_CLI_REPORT_H
#define KERFLINE_CLI_REPORT_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Options.h"

#include <cstdint>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

/// What a message is about: a file as a whole, or a place in it. Lines and columns count from 1.
struct Place {
    std::string path;
    /// 0 for the file as a whole.
    std::uint32_t line = 0;
    std::uint32_t column = 0;
};

/// How messages look.
struct MessageStyle {
    MessageFormat format = MessageFormat::gnu;
    bool isColored = false;
};

/// Returns one line without its line feed; control characters are spelled out. `severity` is "error",
/// "warning" or "note".
///     gnu   path:line:col: severity: text
///     msvc  path(line) : severity: col column: text
///     json  {"path":"..","line":1,"column":1,"severity":"error","text":".."}
/// Without a place, line and column are left out:
///     gnu   path: severity: text
std::string messageLine(const Place& place, std::string_view severity, std::string_view text,
                        const MessageStyle& style = {});

/// The same for a message that is about no file.
std::string programLine(std::string_view severity, std::string_view text, const MessageStyle& style = {});

/// Collects what goes wrong, and the exit status that comes of it.
class Report {
public:
    explicit Report(MessageStyle style = {}) : style_(style) {}

    void error(const Place& place, std::string_view text, ExitStatus status);
    void add(const Place& place, std::string_view severity, std::string_view text);
    /// About no file.
    void addGeneral(std::string_view severity, std::string_view text);
    /// Hands over what `out` still holds back, and reports it if any of the output has been lost.
    void checkOutput(std::ostream& out);
    /// The status never goes down.
    void raise(ExitStatus status);
    /// Takes all messages of `other`, and its status.
    void merge(Report&& other);

    bool isEmpty() const { return lines_.empty(); }
    const MessageStyle& style() const { return style_; }
    ExitStatus status() const { return status_; }
    /// Writes all messages, one a line, and forgets them. One that has been written is not repeated: a
    /// file that is named twice has its errors once.
    void flush(std::ostream& out);

private:
    MessageStyle style_;
    std::vector<std::string> lines_;
    std::set<std::string> written_;
    ExitStatus status_ = ExitStatus::done;
};

} // namespace Cli

#endif
