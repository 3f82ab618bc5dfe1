#include "cli/guide/Cli_OptionGuide.h"

#include "cli/console/Cli_OtherProgram.h"
#include "cli/console/Cli_Usage.h"
#include "cli/guide/Cli_OptionList.h"
#include "cli/scheme/Cli_NearestName.h"
#include "help/Help_OptionEntry.h"
#include "help/Help_PlainText.h"
#include "help/Help_Topic.h"

namespace Cli {

namespace {

ExitStatus failUnknownOption(const std::string& name, const Streams& streams) {
    std::vector<std::string_view> names;
    for (const auto table : {Norvane::propertyCatalogue(), Norvane::pageKeyCatalogue()}) {
        for (const Norvane::PropertyInfo& option : table) names.push_back(option.name);
    }
    const std::string hint = nearestNameHint(name, names);
    const std::string rest = hint.empty() ? "; kerfline options lists all" : hint;
    return failUsage("unknown option \"" + name + '"' + rest, streams);
}

constexpr std::string_view kNoScreen =
    "kerfline: error: there is no screen for the window of the options; \"kerfline schemes copy default mine\" makes "
    "a scheme to edit as text, and \"kerfline options NAME\" tells what a line of it does\n";

/// With a source file to preview, or none.
ExitStatus openWindow(const std::vector<std::string>& files, const Streams& streams) {
    constexpr int kCannotRun = 127;
    if (files.size() > 1) return failUsage("\"kerfline options --edit\" previews one file", streams);
    if (!hasScreen()) {
        streams.err << kNoScreen;
        return ExitStatus::fileFailed;
    }
    std::vector<std::string> words = {besideThisProgram("kerfline-options"), "--"};
    words.insert(words.end(), files.begin(), files.end());
    const auto status = runOtherProgram(std::move(words));
    if (status && *status != kCannotRun) return *status == 0 ? ExitStatus::done : ExitStatus::fileFailed;
    streams.err << "kerfline: error: the window for options, kerfline-options, is not installed\n";
    return ExitStatus::fileFailed;
}

} // namespace

std::string optionGuide(const Norvane::PropertyInfo& option) {
    Help::Document document;
    Help::appendOption(document, option);
    std::string text = Help::plainText(document);
    if (const Help::Topic* topic = Help::topicOf(option.name)) {
        const std::string_view name = topic->file.substr(0, topic->file.find('.'));
        text.append("\n\"kerfline help ").append(name).append("\" tells of all options like it.\n");
    }
    return text;
}

ExitStatus runOptionsCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    std::vector<std::string> files = arguments;
    if (std::erase(files, "--edit") > 0) return openWindow(files, streams);
    std::vector<const Norvane::PropertyInfo*> options;
    for (const std::string& name : arguments) {
        if (name.starts_with('-')) {
            return failUsage("\"kerfline options\" takes names of options or \"--edit\", and no \"" + name + '"',
                             streams);
        }
        options.push_back(Norvane::findProperty(name));
        if (!options.back()) return failUnknownOption(name, streams);
    }
    if (options.empty()) {
        listSchemeOptions(streams.out);
        streams.out << "\n\"kerfline options NAME\" tells more of one, with examples.\n";
    }
    for (const Norvane::PropertyInfo* option : options) {
        streams.out << (option == options.front() ? "" : "\n") << optionGuide(*option);
    }
    return ExitStatus::done;
}

} // namespace Cli
