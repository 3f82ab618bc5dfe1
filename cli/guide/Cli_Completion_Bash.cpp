#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_CompletionWords.h"

namespace Cli {

namespace {

std::string offer(const std::vector<OfferedWord>& words) {
    return "COMPREPLY=($(compgen -W " + singleQuoted(inOneLine(words)) + " -- \"$cur\"))";
}

std::string switchWords() {
    std::string line;
    for (const Switch& row : switchTable()) {
        if (row.shortName != 0) line += std::string("-") + row.shortName + ' ';
        line += "--" + std::string(row.name) + ' ';
    }
    line.pop_back();
    return line;
}

/// What the argument of a switch is completed with. Files are what bash itself offers if nothing is.
std::string offerArgument(const Switch& row) {
    switch (row.kind) {
    case ArgumentKind::choice: return offer(choiceWords(row.choices));
    case ArgumentKind::scheme:
        return offer(schemeWords()) + "\n            COMPREPLY+=($(compgen -f -X '!*.kls' -- \"$cur\"))";
    case ArgumentKind::property: return row.name == "set" ? "_kerfline_set" : "_kerfline_names";
    case ArgumentKind::number:
    case ArgumentKind::text: return "compopt +o default";
    case ArgumentKind::file:
    case ArgumentKind::none: break;
    }
    return ":";
}

std::string argumentCases() {
    std::string text;
    for (const Switch& row : switchTable()) {
        if (!row.takesArgument()) continue;
        text += "        ";
        if (row.shortName != 0) text += std::string("-") + row.shortName + '|';
        text += "--" + std::string(row.name) + ")\n            " + offerArgument(row) + "\n            "
                                                                                        "return ;;\n";
    }
    return text;
}

std::string commandCases() {
    std::string text;
    for (const Command& command : commandTable()) {
        const auto words = wordsAfter(command);
        if (words.empty()) continue;
        text += "        " + std::string(command.name) + ")\n            " + offer(words) +
            "\n            return ;;\n";
    }
    return text;
}

std::string valueCases() {
    std::string text;
    for (const auto& [name, values] : optionValues()) {
        text += "        " + name + ") " + offer(choiceWords(values)) + " ;;\n";
    }
    return text;
}

constexpr const char* kSetFunction = R"(
# NAME=VALUE. Bash takes "=" for a word of its own, or leaves it within the word.
_kerfline_set() {
    local name=${before%=}
    if [[ $cur == *=* ]]; then
        return
    elif [[ $afterEquals && $name != --set ]]; then
        _kerfline_values "$name"
    else
        _kerfline_names
        COMPREPLY=("${COMPREPLY[@]/%/=}")
        compopt -o nospace
    fi
}
)";

constexpr const char* kMainHead = R"(
_kerfline() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} before afterEquals=
    if [[ $cur == = ]]; then
        cur= afterEquals=1
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD-2]} afterEquals=1
    fi
    before=$prev
    # In "--set NAME=VALUE" the switch stands one word further in front.
    if [[ $afterEquals && $prev != -* ]]; then
        if [[ ${COMP_WORDS[COMP_CWORD]} == = ]]; then
            prev=${COMP_WORDS[COMP_CWORD-2]}
        else
            prev=${COMP_WORDS[COMP_CWORD-3]}
        fi
    fi
    COMPREPLY=()
    case $prev in
)";

} // namespace

std::string bashCompletion() {
    std::string text = "# Completion of kerfline's words in bash. Made by \"kerfline completion bash\".\n";
    text += "\n_kerfline_names() {\n    " + offer(optionWords()) + "\n}\n";
    text += "\n_kerfline_values() {\n    case $1 in\n" + valueCases() + "    esac\n}\n";
    text += kSetFunction;
    text += kMainHead + argumentCases() + "    esac\n";
    text += "    case ${COMP_WORDS[1]} in\n" + commandCases() + "    esac\n";
    text += "    if [[ $cur == -* ]]; then\n        COMPREPLY=($(compgen -W " + singleQuoted(switchWords()) +
        " -- \"$cur\"))\n    elif [[ $COMP_CWORD == 1 ]]; then\n        " + offer(commandWords()) +
        "\n        COMPREPLY+=($(compgen -f -- \"$cur\"))\n        compopt -o filenames\n    fi\n}\n";
    return text + "complete -o default -F _kerfline kerfline\n";
}

} // namespace Cli
