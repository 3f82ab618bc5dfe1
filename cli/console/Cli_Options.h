#ifndef KERFLINE_CLI_OPTIONS_H
#define KERFLINE_CLI_OPTIONS_H

#include "edits/Edits_Ranges.h"

#include <optional>
#include <string>
#include <vector>

namespace Cli {

/// What becomes of the laid out text.
enum class Destination { standardOutput, sameFile, checkOnly, patch };

/// What is shown in the place of the laid out text.
enum class Dump { none, tokens, tree, messages, scheme, options };

/// The form of a message.
enum class MessageFormat { gnu, msvc, json };

/// Whether the output has colours; "automatic" looks at where it goes.
enum class ColorChoice { automatic, always, never };

/// Which messages are shown beside the errors.
enum class Verbosity { quiet, normal, verbose };

/// One "--set NAME=VALUE" or "--unset NAME", as it was typed.
struct SchemeEdit {
    enum class Kind { set, unset };
    Kind kind = Kind::set;
    std::string text;
};

/// Backups of the files that are written back.
struct BackupChoice {
    bool wanted = false;
    /// As typed; empty leaves it to the settings of the user.
    std::string extension;
};

struct Options {
    /// A name or a path; nothing leaves it to the project and the settings of the user.
    std::optional<std::string> scheme;
    /// In the order of the command line, so that a later one wins.
    std::vector<SchemeEdit> edits;
    Destination destination = Destination::standardOutput;
    Dump dump = Dump::none;
    BackupChoice backup;
    /// Compare the tokens before anything is written or printed.
    bool verifies = true;
    /// A source in which something cannot be read is refused.
    bool isStrict = false;
    /// As typed: files, folders, "@" and a list, or "-" for standard input. Empty only with a project.
    std::vector<std::string> files;
    /// If there are any, nothing but these lines of each source is laid out.
    std::vector<Edits::LineRange> lines;
    /// Standard input is a patch: the lines that it changes are laid out.
    bool readsPatch = false;
    /// The lines are laid out that differ from what git has at this revision.
    std::optional<std::string> changedSince;
    /// The database of a project's compile commands; empty for none.
    std::string project;
    /// Empty: standard input has no name.
    std::string inputName;
    /// Questions are answered with yes.
    bool assumesYes = false;
    /// At least 1.
    unsigned jobs = 1;
    Verbosity verbosity = Verbosity::normal;
    ColorChoice color = ColorChoice::automatic;
    MessageFormat messageFormat = MessageFormat::gnu;
};

} // namespace Cli

#endif
