#include "help/Help_Topic.h"

#include "help/Help_OptionEntry.h"
#include "help/Help_Overview.h"
#include "ui/NorvaneUI_PageTable.h"

#include <algorithm>
#include <array>

namespace Help {

namespace {

using Norvane::PropertyFamily;
using Norvane::PropertyInfo;

constexpr std::string_view kFileEnding = ".htm";

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// A name of a topic in the one spelling in which two of them are compared.
std::string comparable(std::string_view name) {
    std::string key;
    for (const char c : name) {
        if (c != ' ' && c != '_' && c != '-') key += lower(c);
    }
    if (key.ends_with(kFileEnding)) key.resize(key.size() - kFileEnding.size());
    return key;
}

/// Where options stand that no page edits.
struct FamilyFile {
    PropertyFamily family;
    std::string_view file;
};

constexpr auto kFamilyFiles = std::to_array<FamilyFile>({
    {PropertyFamily::Classes, "Classes.htm"},
    {PropertyFamily::Functions, "Functions.htm"},
    {PropertyFamily::ControlStatements, "ControlStatements.htm"},
    {PropertyFamily::Other, "Globals.htm"},
});

std::string_view fileOf(const PropertyInfo& option) {
    if (const NorvaneUI::PageInfo* page = NorvaneUI::homeOf(option.name).page) return page->helpTopic;
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        if (page.useGlobalSettingsKey == option.name) return page.helpTopic;
    }
    for (const FamilyFile& row : kFamilyFiles) {
        if (row.family == option.family) return row.file;
    }
    return {};
}

/// The controls of the page come first, in its own order.
std::vector<const PropertyInfo*> optionsOfPage(std::string_view file) {
    std::vector<const PropertyInfo*> options;
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        if (page.helpTopic != file) continue;
        for (const NorvaneUI::PageOption& option : page.options) {
            if (const PropertyInfo* info = Norvane::findProperty(option.name)) options.push_back(info);
        }
    }
    return options;
}

void appendOverviewLink(Document& document) {
    document.blocks.push_back(Paragraph{"How schemes work, and what an option that is not set means, is "
                                        "told in [Formatting with Kerfline](FormattingAddIn.htm)."});
}

void appendGroup(Document& document, const char* heading, const std::vector<const PropertyInfo*>& options) {
    if (options.empty()) return;
    document.blocks.push_back(Heading{1, heading, {}});
    for (const PropertyInfo* option : options) appendOption(document, *option);
}

} // namespace

const Topic* findTopic(std::string_view name) {
    const std::string key = comparable(name);
    for (const Topic& topic : topicTable()) {
        if (comparable(topic.file) == key || comparable(topic.title) == key) return &topic;
    }
    return nullptr;
}

std::vector<std::string_view> topicNames() {
    std::vector<std::string_view> names;
    for (const Topic& topic : topicTable()) {
        names.push_back(topic.file.substr(0, topic.file.size() - kFileEnding.size()));
    }
    return names;
}

std::vector<const PropertyInfo*> optionsOf(const Topic& topic) {
    std::vector<const PropertyInfo*> options = optionsOfPage(topic.file);
    for (const auto table : {Norvane::propertyCatalogue(), Norvane::pageKeyCatalogue()}) {
        for (const PropertyInfo& info : table) {
            const bool isThere = std::find(options.begin(), options.end(), &info) != options.end();
            if (!isThere && fileOf(info) == topic.file) options.push_back(&info);
        }
    }
    return options;
}

const Topic* topicOf(std::string_view option) {
    const PropertyInfo* info = Norvane::findProperty(option);
    return info ? findTopic(fileOf(*info)) : nullptr;
}

Document topicDocument(const Topic& topic) {
    if (topic.file == kOverviewFile) return overviewDocument();
    Document document{std::string(topic.title), {}};
    for (const std::string_view text : topic.introduction) {
        document.blocks.push_back(Paragraph{std::string(text)});
    }
    appendOverviewLink(document);
    std::vector<const PropertyInfo*> acting = optionsOf(topic);
    const auto idle = std::stable_partition(acting.begin(), acting.end(),
                                            [](const PropertyInfo* option) { return option->formats; });
    const std::vector<const PropertyInfo*> others(idle, acting.end());
    acting.erase(idle, acting.end());
    appendGroup(document, "Options", acting);
    appendGroup(document, "Without effect on the layout", others);
    return document;
}

} // namespace Help
