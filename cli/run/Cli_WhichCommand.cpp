#include "cli/run/Cli_WhichCommand.h"

#include "addin/Addin_UserFolders.h"
#include "cli/console/Cli_Printable.h"
#include "cli/console/Cli_Usage.h"
#include "cli/files/Cli_IgnoreRules.h"
#include "cli/files/Cli_Paths.h"
#include "cli/run/Cli_TerminalHost.h"
#include "cli/run/Cli_UserSettings.h"
#include "cli/scheme/Cli_SchemeFinder.h"
#include "cli/scheme/Cli_SchemeShelf.h"
#include "files/NorvaneUI_DiskFileSystem.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace Cli {

namespace {

struct Question {
    std::optional<std::string> scheme;
    std::vector<std::string> files;
};

constexpr const char* kForm = "kerfline which [--scheme NAME] FILE...";

/// Nothing if the arguments are wrong, and then `fault` says why.
std::optional<Question> readArguments(const std::vector<std::string>& arguments, std::string& fault) {
    constexpr std::string_view assigned = "--scheme=";
    Question question;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (word.starts_with(assigned)) {
            question.scheme = word.substr(assigned.size());
        } else if (word == "--scheme") {
            question.scheme = i + 1 < arguments.size() ? arguments[++i] : std::string();
        } else if (word.starts_with('-')) {
            fault = "\"which\" has no switch \"" + word + "\": " + kForm;
            return std::nullopt;
        } else {
            question.files.push_back(word);
        }
    }
    const bool lacksScheme = question.scheme && question.scheme->empty();
    if (lacksScheme) fault = std::string("--scheme needs a name or a file behind it: ") + kForm;
    else if (question.files.empty()) fault = std::string("\"which\" takes the names of files: ") + kForm;
    if (!fault.empty()) return std::nullopt;
    return question;
}

std::string described(const SchemeSource& source, const std::string& name) {
    const std::string setting = source.isFromSettings ? ", by the setting OnFormat" : "";
    std::string text = '"' + name + "\", ";
    switch (source.kind) {
    case SchemeSource::Kind::empty: return text + "the scheme without options";
    case SchemeSource::Kind::file: return text + "the file " + source.path;
    case SchemeSource::Kind::project: return text + "the project's " + source.path;
    case SchemeSource::Kind::user: return text + "your own " + source.path + setting;
    case SchemeSource::Kind::shipped: break;
    }
    return text + "which comes with the program" + setting;
}

} // namespace

ExitStatus runWhichCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    std::string fault;
    const auto question = readArguments(arguments, fault);
    if (!question) return failUsage(fault, streams);
    Report report;
    NorvaneUI::DiskFileSystem disk;
    TerminalHost host(streams, report, Verbosity::normal, false);
    const Addin::AddInOptions settings = readUserSettings(disk, host);
    SchemeFinder finder(disk, host.schemeDirectory(), settings.onFormat.name, report);
    SchemeShelf shelf(finder, question->scheme, {}, report);
    IgnoreRules ignored(disk, report);
    for (const std::string& file : question->files) {
        const std::string full = absolutePath(file);
        std::error_code unknown;
        const bool isFolder = std::filesystem::is_directory(full, unknown);
        const std::string folder = isFolder ? full : folderOf(full);
        const auto source = finder.find(question->scheme, folder);
        if (!source) break;
        const Norvane::PropertySet* scheme = shelf.schemeIn(folder);
        if (scheme == nullptr) continue;
        std::string line = file + ": " + described(*source, scheme->getName());
        if (const auto& reason = ignored.reasonFor(full, isFolder)) line += "; left alone by " + *reason;
        streams.out << printable(line) << '\n';
    }
    streams.out.flush();
    report.flush(streams.err);
    return report.status();
}

} // namespace Cli
