#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_CompletionWords.h"

namespace Cli {

namespace {

/// In single quotes, where fish knows two escapes.
std::string quoted(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\') result += '\\';
        result += c;
    }
    return result + "'";
}

/// A function that writes a line for each word: the word, a tab, and what it stands for.
std::string listing(const std::string& function, const std::vector<OfferedWord>& words,
                    const std::string& behind = {}) {
    std::string text = "\nfunction " + function + "\n    printf '%s\\t%s\\n'";
    for (const auto& [word, meaning] : words) {
        text += " \\\n        " + quoted(word + behind) + ' ' + quoted(meaning);
    }
    return text + "\nend\n";
}

std::string argumentPart(const Switch& row) {
    switch (row.kind) {
    case ArgumentKind::choice: return " -x -a " + quoted(inOneLine(choiceWords(row.choices)));
    case ArgumentKind::scheme: return " -r -a '(__kerfline_schemes)'";
    case ArgumentKind::property:
        return row.name == "set" ? " -x -a '(__kerfline_settings)'" : " -x -a '(__kerfline_options)'";
    case ArgumentKind::file: return " -r -F";
    case ArgumentKind::number: return " -x";
    case ArgumentKind::text: return row.argumentIsOptional() ? "" : " -x";
    case ArgumentKind::none: break;
    }
    return {};
}

std::string switchLines() {
    std::string text = "\n";
    for (const Switch& row : switchTable()) {
        text += "complete -c kerfline";
        if (row.shortName != 0) text += std::string(" -s ") + row.shortName;
        text += " -l " + std::string(row.name) + " -d " + quoted(row.text) + argumentPart(row) + '\n';
    }
    return text;
}

std::string commandLines() {
    std::string text = "\ncomplete -c kerfline -n __kerfline_takes_command -a '(__kerfline_commands)'\n";
    for (const Command& command : commandTable()) {
        const auto words = wordsAfter(command);
        if (words.empty()) continue;
        const std::string name(command.name);
        text += listing("__kerfline_after_" + name, words);
        text += "complete -c kerfline -f -n '__kerfline_does " + name + '\'';
        text += " -a '(__kerfline_after_" + name + ")'\n";
    }
    return text;
}

std::vector<OfferedWord> settings() {
    std::vector<OfferedWord> rows;
    for (const auto& [name, values] : optionValues()) {
        for (const OfferedWord& value : choiceWords(values)) rows.emplace_back(name + '=' + value.first, "");
    }
    return rows;
}

constexpr const char* kConditions = R"(
# The words in front of the one that is being typed.
function __kerfline_takes_command
    test (count (commandline -opc)) -eq 1
end

function __kerfline_does
    set -l words (commandline -opc)
    test (count $words) -gt 1; and test $words[2] = $argv[1]
end
)";

} // namespace

std::string fishCompletion() {
    std::string text = "# Completion of kerfline's words in fish. Made by \"kerfline completion fish\".\n";
    text += kConditions;
    text += listing("__kerfline_commands", commandWords());
    text += listing("__kerfline_options", optionWords());
    text += listing("__kerfline_schemes", schemeWords());
    text += listing("__kerfline_prefixes", optionWords(), "=");
    text += listing("__kerfline_values", settings());
    text += "\nfunction __kerfline_settings\n    __kerfline_prefixes\n    __kerfline_values\nend\n";
    return text + commandLines() + switchLines();
}

} // namespace Cli
