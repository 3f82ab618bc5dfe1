#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_CompletionWords.h"

namespace Cli {

namespace {

std::string escaped(std::string_view text, std::string_view special) {
    std::string result;
    for (const char c : text) {
        if (special.find(c) != std::string_view::npos) result += '\\';
        result += c;
    }
    return result;
}

/// A function that offers words with what they stand for.
std::string describing(const std::string& function, const std::string& what,
                       const std::vector<OfferedWord>& words, const std::string& tail = {}) {
    std::string text = '\n' + function + "() {\n    local -a words=(\n";
    for (const auto& [word, meaning] : words) {
        const std::string row = escaped(word, ":") + (meaning.empty() ? "" : ':' + meaning);
        text += "        " + singleQuoted(row) + '\n';
    }
    return text + "    )\n    _describe -t " + what + ' ' + what + " words" + tail + "\n}\n";
}

std::string action(const Switch& row) {
    switch (row.kind) {
    case ArgumentKind::choice: return "(" + inOneLine(choiceWords(row.choices)) + ")";
    case ArgumentKind::scheme: return "_kerfline_schemes";
    case ArgumentKind::property: return row.name == "set" ? "_kerfline_settings" : "_kerfline_options";
    case ArgumentKind::file: return "_files";
    case ArgumentKind::number:
    case ArgumentKind::text:
    case ArgumentKind::none: break;
    }
    return " ";
}

/// What stands behind the name of a switch in a line for _arguments.
std::string argumentPart(const Switch& row) {
    if (!row.takesArgument()) return {};
    return std::string(row.argumentIsOptional() ? "::" : ":") + std::string(row.name) + ':' + action(row);
}

std::string spelling(const Switch& row, bool isShort) {
    if (isShort) return std::string("-") + row.shortName + (row.takesArgument() ? "+" : "");
    const std::string name = "--" + std::string(row.name);
    if (!row.takesArgument()) return name;
    return name + (row.argumentIsOptional() ? "=-" : "=");
}

std::string switchLine(const Switch& row, bool isShort) {
    std::string line;
    if (row.repeats) line += '*';
    if (!row.repeats && row.shortName != 0) {
        line += std::string("(-") + row.shortName + " --" + std::string(row.name) + ')';
    }
    line += spelling(row, isShort) + '[' + escaped(row.text, "[]\\:") + ']' + argumentPart(row);
    return "        " + singleQuoted(line) + " \\\n";
}

std::string switchLines() {
    std::string text;
    for (const Switch& row : switchTable()) {
        if (row.shortName != 0) text += switchLine(row, true);
        text += switchLine(row, false);
    }
    return text;
}

std::string functionOf(const Command& command) { return "_kerfline_after_" + std::string(command.name); }

std::string commandCases() {
    std::string text;
    for (const Command& command : commandTable()) {
        if (wordsAfter(command).empty()) continue;
        text += "        " + std::string(command.name) + ") " + functionOf(command) + "; return ;;\n";
    }
    return text;
}

std::string valueCases() {
    std::string text;
    for (const auto& [name, values] : optionValues()) {
        text += "            " + name + ") compadd -- " + inOneLine(choiceWords(values)) + " ;;\n";
    }
    return text;
}

} // namespace

std::string zshCompletion() {
    std::string text = "#compdef kerfline\n# Made by \"kerfline completion zsh\".\n";
    text += describing("_kerfline_commands", "commands", commandWords());
    text += describing("_kerfline_options", "options", optionWords());
    text += describing("_kerfline_option_prefixes", "options", optionWords(), " -S =");
    text += describing("_kerfline_scheme_names", "schemes", schemeWords());
    for (const Command& command : commandTable()) {
        const auto words = wordsAfter(command);
        if (!words.empty()) text += describing(functionOf(command), "words", words);
    }
    text += "\n_kerfline_schemes() {\n    _alternative 'schemes:scheme:_kerfline_scheme_names' "
        "'files:scheme file:_files -g \"*.kls\"'\n}\n";
    text += "\n_kerfline_settings() {\n    if compset -P 1 '*='; then\n        case ${IPREFIX%=} in\n";
    text += valueCases();
    text += "        esac\n    else\n        _kerfline_option_prefixes\n    fi\n}\n";
    text += "\n_kerfline_words() {\n    if (( CURRENT == 2 )); then\n        _alternative "
        "'commands:command:_kerfline_commands' 'files:file:_files'\n    else\n        _files\n    fi\n}\n";
    text += "\n_kerfline() {\n    (( CURRENT > 2 )) && case $words[2] in\n" + commandCases() + "    esac\n";
    text += "    _arguments -s \\\n" + switchLines() + "        '*:file:_kerfline_words'\n}\n";
    return text + "\n_kerfline \"$@\"\n";
}

} // namespace Cli
