#ifndef KERFLINE_CLI_SWITCHTABLE_H
#define KERFLINE_CLI_SWITCHTABLE_H

#include <span>
#include <string_view>

namespace Cli {

/// What the argument of a switch stands for, which is also what a shell offers for it.
enum class ArgumentKind { none, file, scheme, property, number, text, choice };

enum class SwitchGroup { scheme, result, files, messages, other };

/// One switch of the command line.
struct Switch {
    /// Without its dashes.
    std::string_view name;
    /// Zero if there is none.
    char shortName;
    ArgumentKind kind;
    /// As the help shows it; empty if the switch takes none. "[=EXT]" marks one that may be left out
    /// and otherwise stands behind "=".
    std::string_view argument;
    /// For the kind "choice": the words to choose from, separated by "|".
    std::string_view choices;
    /// One line, without a full stop.
    std::string_view text;
    SwitchGroup group;
    bool repeats = false;

    bool takesArgument() const { return kind != ArgumentKind::none; }
    bool argumentIsOptional() const { return argument.starts_with('['); }
};

/// In the order of the help.
std::span<const Switch> switchTable();

/// The heading of a group in the help.
std::string_view switchGroupTitle(SwitchGroup group);

} // namespace Cli

#endif
