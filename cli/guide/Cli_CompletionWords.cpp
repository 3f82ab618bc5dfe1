#include "cli/guide/Cli_CompletionWords.h"

#include "cli/console/Cli_CommandTable.h"
#include "cli/scheme/Cli_ShippedSchemes.h"
#include "help/Help_Topic.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <algorithm>

namespace Cli {

std::vector<OfferedWord> commandWords() {
    std::vector<OfferedWord> words;
    for (const Command& command : commandTable()) words.emplace_back(command.name, command.text);
    return words;
}

std::vector<OfferedWord> topicWords() {
    std::vector<OfferedWord> words;
    for (const Help::Topic& topic : Help::topicTable()) {
        words.emplace_back(topic.file.substr(0, topic.file.find('.')), topic.summary);
    }
    return words;
}

std::vector<OfferedWord> optionWords() {
    std::vector<OfferedWord> words;
    for (const Norvane::PropertyInfo& option : Norvane::propertyCatalogue()) {
        const std::string family(Norvane::propertyFamilyName(option.family));
        if (option.formats) words.emplace_back(option.name, family + ", " + std::string(option.label));
    }
    return words;
}

std::vector<OfferedWord> schemeWords() {
    std::vector<OfferedWord> words = {{"none", "Every text stays as it is"}};
    for (const ShippedScheme& scheme : shippedSchemes()) words.emplace_back(scheme.name, "Comes with the "
                                                                                         "program");
    return words;
}

std::vector<OfferedWord> optionValues() {
    std::vector<OfferedWord> words;
    for (const Norvane::PropertyInfo& option : Norvane::propertyCatalogue()) {
        std::string values;
        for (const Norvane::PropertyChoice& choice : Norvane::propertyChoices(option.name)) {
            values += (values.empty() ? "" : "|") + std::to_string(choice.value);
        }
        if (option.kind == Norvane::PropertyKind::Bool) values = "0|1";
        if (option.formats && !values.empty()) words.emplace_back(option.name, values);
    }
    return words;
}

std::vector<OfferedWord> wordsAfter(const Command& command) {
    if (command.name == "options") return optionWords();
    if (command.name == "help") return topicWords();
    std::vector<OfferedWord> words;
    std::string_view rest = command.arguments;
    while (!rest.empty()) {
        const std::string_view word = rest.substr(0, rest.find_first_of(" |[]"));
        // What a person replaces is in capitals.
        const bool isLiteral = !word.empty() && word.front() >= 'a' && word.front() <= 'z';
        if (isLiteral) words.emplace_back(word, "");
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    return words;
}

std::vector<OfferedWord> choiceWords(std::string_view choices) {
    std::vector<OfferedWord> words;
    while (!choices.empty()) {
        const std::size_t end = std::min(choices.find('|'), choices.size());
        words.emplace_back(choices.substr(0, end), "");
        choices.remove_prefix(std::min(end + 1, choices.size()));
    }
    return words;
}

std::string inOneLine(const std::vector<OfferedWord>& words) {
    std::string line;
    for (const OfferedWord& word : words) line += (line.empty() ? "" : " ") + word.first;
    return line;
}

std::string singleQuoted(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}

} // namespace Cli
