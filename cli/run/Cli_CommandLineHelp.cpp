#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "cli/run/Cli_CommandLine.h"

namespace Cli {

namespace {

/// Two columns: what to type, and what it does.
std::string helpLine(std::string head, std::string_view text) {
    constexpr std::size_t width = 31;
    head.insert(0, "  ");
    head += ' ';
    if (head.size() < width) head.resize(width, ' ');
    return head.append(text) + '\n';
}

std::string headOf(const Switch& row) {
    std::string head = row.shortName == 0 ? "    " : std::string("-") + row.shortName + ", ";
    head.append("--").append(row.name);
    if (!row.takesArgument()) return head;
    return head.append(row.argumentIsOptional() ? "" : " ").append(row.argument);
}

std::string switchLines() {
    std::string text;
    const Switch* before = nullptr;
    for (const Switch& row : switchTable()) {
        if (before == nullptr || before->group != row.group) {
            text.append("\n").append(switchGroupTitle(row.group)).append(":\n");
        }
        std::string explanation(row.text);
        if (!row.choices.empty()) explanation.append(": ").append(row.choices);
        text += helpLine(headOf(row), explanation);
        before = &row;
    }
    return text;
}

std::string commandLines() {
    std::string text;
    for (const Command& command : commandTable()) {
        std::string head(command.name);
        if (!command.arguments.empty()) head.append(" ").append(command.arguments);
        text += helpLine(std::move(head), command.text);
    }
    return text;
}

} // namespace

std::string commandLineHelp() {
    return "Lays out C and C++ by a scheme. White space that the scheme does not speak of\n"
           "stays as it is, and nothing else ever changes.\n\n"
           "Usage: kerfline [SWITCHES] [FILE|FOLDER|@LIST|-]...\n"
           "       kerfline COMMAND [ARGUMENTS]\n\n"
           "A folder stands for the sources in it and below it, and @LIST for a file with a path a\n"
           "line. Nothing, or \"-\", is standard input. A file with the name of a command is ./NAME.\n" +
           switchLines() + "\nCommands:\n" + commandLines() +
           "\nkerfline-options, if it is installed, is the window in which schemes and settings are edited.\n\n"
           "Exit status: 0 done, 1 a file would change (--check, --diff), 2 wrong usage or scheme,\n"
           "3 a file could not be read or written, 4 a file was refused because it does not parse.\n";
}

} // namespace Cli
