#include "cli/run/Cli_Filter.h"

#include "cli/console/Cli_SwitchTable.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace Cli {

namespace {

/// The row of a word such as "--set=A=1", "-j" or "-j4"; null if there is no such switch.
const Switch* switchOf(std::string_view word) {
    const bool isLong = word.starts_with("--");
    const std::string_view name = isLong ? word.substr(2, word.find('=') - 2) : std::string_view();
    const auto rows = switchTable();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Switch& row) {
        return isLong ? row.name == name : row.shortName == word[1];
    });
    return found == rows.end() ? nullptr : &*found;
}

bool showsSomethingElse(const Switch& row) {
    constexpr std::string_view names[] = {"check", "diff", "dump", "project", "help", "version"};
    return std::find(std::begin(names), std::end(names), row.name) != std::end(names);
}

/// True if the argument of the switch is the next word.
bool takesNextWord(const Switch& row, std::string_view word) {
    if (!row.takesArgument() || row.argumentIsOptional()) return false;
    return word.starts_with("--") ? word.find('=') == std::string_view::npos : word.size() == 2;
}

bool exists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

} // namespace

bool isFilter(const Options& options) {
    return options.destination == Destination::standardOutput && options.dump == Dump::none &&
           std::find(options.files.begin(), options.files.end(), "-") != options.files.end();
}

bool isMeantAsFilter(const std::vector<std::string>& arguments) {
    bool namesInput = false;
    bool namesFiles = false;
    bool mayBeValue = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        // The word behind a switch that does not exist is hardly a file that does not exist either.
        const bool isValue = mayBeValue && !exists(word);
        mayBeValue = false;
        if (word == "-") {
            namesInput = true;
        } else if (word.size() > 1 && word.starts_with('-')) {
            const Switch* row = switchOf(word);
            if (row != nullptr && showsSomethingElse(*row)) return false;
            if (row != nullptr && takesNextWord(*row, word)) ++i;
            mayBeValue = row == nullptr;
        } else if (!isValue) {
            namesFiles = true;
        }
    }
    return namesInput || !namesFiles;
}

void passInputThrough(const Streams& streams) {
    if (streams.terminals.in || !streams.in.good()) return;
    if (streams.in.peek() == std::istream::traits_type::eof()) return;
    streams.out << streams.in.rdbuf();
}

} // namespace Cli
