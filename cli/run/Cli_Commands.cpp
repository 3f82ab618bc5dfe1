#include "cli/run/Cli_Commands.h"

#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Printable.h"
#include "cli/console/Cli_Report.h"
#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_OptionGuide.h"
#include "cli/run/Cli_DeriveCommand.h"
#include "cli/run/Cli_Filter.h"
#include "cli/run/Cli_HelpCommand.h"
#include "cli/run/Cli_Program.h"
#include "cli/run/Cli_SchemesCommand.h"
#include "cli/run/Cli_SettingsCommand.h"
#include "cli/run/Cli_WhichCommand.h"
#include "cli/scheme/Cli_NearestName.h"

#include <algorithm>
#include <exception>
#include <filesystem>

namespace Cli {

namespace {

constexpr Command kCommands[] = {
    {"which", "[--scheme NAME] FILE...", "Tell which scheme a file is laid out by", runWhichCommand},
    {"schemes", "[show NAME|copy NAME NEW|convert]", "List the schemes; show, copy or convert them",
     runSchemesCommand},
    {"derive", "PATH... [-o FILE]", "Write the scheme under which some code changes least", runDeriveCommand},
    {"settings", "[get NAME|set NAME VALUE]", "Show or change your settings", runSettingsCommand},
    {"options", "[NAME...|--edit]", "Tell of the options that a scheme can hold, or edit schemes in a window",
     runOptionsCommand},
    {"help", "[TOPIC]", "Show a page of the help", runHelpCommand},
    {"completion", "bash|zsh|fish", "Write the script that completes words in a shell", runCompletionCommand},
};

/// A list that was cut short by a full disk must not pass for the whole one.
ExitStatus withOutputChecked(ExitStatus status, const Streams& streams) {
    Report report;
    report.raise(status);
    report.checkOutput(streams.out);
    report.flush(streams.err);
    return report.status();
}

ExitStatus layOutFiles(const std::vector<std::string>& arguments, const Streams& streams) {
    std::vector<const char*> words = {"kerfline"};
    for (const std::string& argument : arguments) words.push_back(argument.c_str());
    ExitStatus status = ExitStatus::done;
    const auto options =
        parseCommandLine(static_cast<int>(words.size()), words.data(), streams.out, streams.err, status);
    if (options) return runProgram(*options, streams);
    if (status != ExitStatus::done && isMeantAsFilter(arguments)) passInputThrough(streams);
    return withOutputChecked(status, streams);
}

/// Behind a command the switch for help means a page on that command.
bool asksForHelp(const std::vector<std::string>& arguments) {
    return std::any_of(arguments.begin() + 1, arguments.end(),
                       [](const std::string& word) { return word == "--help" || word == "-h"; });
}

/// A word that is neither a command nor a file, but nearly a command.
std::string_view commandMeantBy(const std::string& word) {
    if (word.starts_with('-') || word.find_first_of("./@") != std::string::npos) return {};
    std::error_code ignored;
    if (std::filesystem::exists(word, ignored)) return {};
    std::vector<std::string_view> names;
    for (const Command& command : kCommands) names.push_back(command.name);
    return nearestName(word, names);
}

} // namespace

std::span<const Command> commandTable() { return kCommands; }

const Command* findCommand(std::string_view name) {
    const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const Command& command) { return command.name == name; });
    return found == std::end(kCommands) ? nullptr : found;
}

ExitStatus failUsage(std::string_view text, const Streams& streams) {
    streams.err << "kerfline: error: " << printable(text) << '\n';
    return ExitStatus::badUsageOrScheme;
}

ExitStatus runCommandLine(const std::vector<std::string>& arguments, const Streams& streams) {
    try {
        const Command* command = arguments.empty() ? nullptr : findCommand(arguments.front());
        if (command != nullptr && asksForHelp(arguments)) {
            streams.out << commandPage(*command);
            return withOutputChecked(ExitStatus::done, streams);
        }
        if (command != nullptr) {
            return withOutputChecked(command->run({arguments.begin() + 1, arguments.end()}, streams), streams);
        }
        const std::string_view meant =
            arguments.empty() ? std::string_view() : commandMeantBy(arguments.front());
        if (!meant.empty()) {
            return failUsage("there is neither a file nor a command \"" + arguments.front() +
                                 "\"; did you mean \"kerfline " + std::string(meant) + "\"?",
                             streams);
        }
        return layOutFiles(arguments, streams);
    } catch (const std::exception& error) {
        streams.err << "kerfline: error: internal error: " << printable(error.what()) << '\n';
        return ExitStatus::fileFailed;
    }
}

} // namespace Cli
