#ifndef KERFLINE_CLI_COMPLETIONWORDS_H
#define KERFLINE_CLI_COMPLETIONWORDS_H

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Cli {

/// A word to offer, and what it stands for.
using OfferedWord = std::pair<std::string, std::string>;

std::vector<OfferedWord> commandWords();
std::vector<OfferedWord> topicWords();
std::vector<OfferedWord> optionWords();
std::vector<OfferedWord> schemeWords();

/// The options that hold one of a few values, each with those: ("CONVERT_WS", "0|1|2").
std::vector<OfferedWord> optionValues();

struct Command;

/// What can follow a command: the words that its own line of help spells out, and for the commands
/// that take names those names. None leaves files to be offered.
std::vector<OfferedWord> wordsAfter(const Command& command);

/// The parts of "a|b|c".
std::vector<OfferedWord> choiceWords(std::string_view choices);

/// The words alone, with a blank between two.
std::string inOneLine(const std::vector<OfferedWord>& words);

/// `text` as one word of a shell.
std::string singleQuoted(std::string_view text);

} // namespace Cli

#endif
