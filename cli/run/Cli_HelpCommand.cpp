#include "cli/run/Cli_HelpCommand.h"

#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_OtherProgram.h"
#include "cli/console/Cli_Usage.h"
#include "cli/guide/Cli_OptionGuide.h"
#include "cli/run/Cli_CommandLine.h"
#include "cli/scheme/Cli_NearestName.h"
#include "help/Help_PageFolder.h"
#include "help/Help_PlainText.h"
#include "help/Help_Topic.h"

#include <algorithm>

namespace Cli {

namespace {

std::string_view nameOf(const Help::Topic& topic) { return topic.file.substr(0, topic.file.find('.')); }

void listTopics(std::ostream& out) {
    constexpr std::size_t width = 20;
    out << "\nTopics (kerfline help TOPIC, kerfline help --html TOPIC):\n";
    for (const Help::Topic& topic : Help::topicTable()) {
        std::string name(nameOf(topic));
        name.resize(std::max(name.size(), width), ' ');
        out << "  " << name << ' ' << topic.summary << '\n';
    }
}

/// What was asked for in more than one word is one topic.
std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

ExitStatus failUnknownTopic(const std::string& name, const Streams& streams) {
    std::vector<std::string_view> names = Help::topicNames();
    for (const Command& command : commandTable()) names.push_back(command.name);
    for (const Norvane::PropertyInfo& option : Norvane::propertyCatalogue()) names.push_back(option.name);
    const std::string hint = nearestNameHint(name, names, "kerfline help ");
    return failUsage("there is no help on \"" + name + '"' + (hint.empty() ? "; kerfline help lists the "
                                                                             "topics" : hint),
                     streams);
}

ExitStatus writeTopic(const std::string& name, const Streams& streams) {
    if (const Help::Topic* topic = Help::findTopic(name)) {
        streams.out << Help::plainTextWithTitle(Help::topicDocument(*topic));
    } else if (const Norvane::PropertyInfo* option = Norvane::findProperty(name)) {
        streams.out << optionGuide(*option);
    } else if (const Command* command = findCommand(name)) {
        streams.out << commandPage(*command);
    } else {
        return failUnknownTopic(name, streams);
    }
    return ExitStatus::done;
}

ExitStatus openPage(const std::string& name, const Streams& streams) {
    const Help::Topic* topic = Help::findTopic(name.empty() ? Help::kOverviewFile : name);
    if (!topic) topic = Help::topicOf(name);
    if (!topic) return failUnknownTopic(name, streams);
    const auto page = Help::findPage(*topic);
    if (!page) {
        streams.err << "kerfline: error: the pages of the help are not installed; \"kerfline help "
                    << nameOf(*topic) << "\" shows this one as text\n";
        return ExitStatus::fileFailed;
    }
    streams.out << *page << '\n' << std::flush;
    // Nothing is lost if there is no opener: the path has been written.
    if (hasScreen()) runOtherProgram({"xdg-open", *page});
    return ExitStatus::done;
}

} // namespace

std::string commandPage(const Command& command) {
    std::string page = "kerfline " + std::string(command.name);
    if (!command.arguments.empty()) page.append(" ").append(command.arguments);
    return page.append("\n  ").append(command.text).append(".\n");
}

ExitStatus runHelpCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    std::vector<std::string> words = arguments;
    const bool html = std::erase(words, "--html") > 0;
    const auto isSwitch = [](const std::string& word) { return word.starts_with('-'); };
    const auto unknown = std::find_if(words.begin(), words.end(), isSwitch);
    if (unknown != words.end()) {
        return failUsage("\"kerfline help\" knows \"--html\", and no \"" + *unknown + '"', streams);
    }
    const std::string name = joined(words);
    if (html) return openPage(name, streams);
    if (!name.empty()) return writeTopic(name, streams);
    streams.out << commandLineHelp();
    listTopics(streams.out);
    return ExitStatus::done;
}

} // namespace Cli
