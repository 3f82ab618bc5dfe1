#include "cli/run/Cli_Commands.h"

#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_Printable.h"
#include "cli/console/Cli_Report.h"
#include "cli/console/Cli_Usage.h"
#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_OptionGuide.h"
#include "cli/run/Cli_CommandLine.h"
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
#include <iterator>

namespace Cli {

namespace {

/// What a command does.
struct CommandFunction {
    std::string_view name;
    /// The words are those behind the name.
    ExitStatus (*run)(const std::vector<std::string>& words, const Streams& streams);
    /// Takes the switch for help itself, since it has other switches to tell of.
    bool hasOwnHelp = false;
};

constexpr CommandFunction kFunctions[] = {
    {"which", runWhichCommand},
    {"schemes", runSchemesCommand},
    {"derive", runDeriveCommand, true},
    {"settings", runSettingsCommand},
    {"options", runOptionsCommand},
    {"help", runHelpCommand},
    {"completion", runCompletionCommand},
};

ExitStatus runCommand(const Command& command, const std::vector<std::string>& words, const Streams& streams) {
    const auto found = std::find_if(std::begin(kFunctions), std::end(kFunctions),
                                    [&](const auto& row) { return row.name == command.name; });
    const bool asksForHelp = std::any_of(words.begin(), words.end(), [](const std::string& word) {
        return word == "--help" || word == "-h";
    });
    if (!asksForHelp || found->hasOwnHelp) return found->run(words, streams);
    streams.out << commandPage(command);
    return ExitStatus::done;
}

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

/// A word that is neither a command nor a file, but nearly a command.
std::string_view commandMeantBy(const std::string& word) {
    if (word.starts_with('-') || word.find_first_of("./@") != std::string::npos) return {};
    std::error_code ignored;
    if (std::filesystem::exists(word, ignored)) return {};
    std::vector<std::string_view> names;
    for (const Command& command : commandTable()) names.push_back(command.name);
    return nearestName(word, names);
}

} // namespace

ExitStatus runCommandLine(const std::vector<std::string>& arguments, const Streams& streams) {
    try {
        const Command* command = arguments.empty() ? nullptr : findCommand(arguments.front());
        if (command != nullptr) {
            return withOutputChecked(runCommand(*command, {arguments.begin() + 1, arguments.end()}, streams), streams);
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
