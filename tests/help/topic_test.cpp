#include "help/Help_Topic.h"

#include "help/Help_Html.h"
#include "help/Help_OptionEntry.h"
#include "help/Help_PlainText.h"
#include "ui/NorvaneUI_PageTable.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

using Help::findTopic;
using Help::Topic;

TEST(Topics, AreTheOverviewAndThePagesOfTheSheetInTheirOrder) {
    std::vector<std::string_view> expected = {Help::kOverviewFile};
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) expected.push_back(page.helpTopic);
    std::vector<std::string_view> files;
    for (const Topic& topic : Help::topicTable()) files.push_back(topic.file);
    EXPECT_EQ(files, expected);
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        EXPECT_EQ(findTopic(page.helpTopic)->title, page.title);
    }
}

TEST(Topics, ExplainEachOptionOnce) {
    std::map<std::string_view, int> counts;
    for (const Topic& topic : Help::topicTable()) {
        for (const Norvane::PropertyInfo* option : optionsOf(topic)) {
            ++counts[option->name];
            EXPECT_EQ(Help::topicOf(option->name), &topic) << option->name;
        }
    }
    for (const auto table : {Norvane::propertyCatalogue(), Norvane::pageKeyCatalogue()}) {
        for (const Norvane::PropertyInfo& option : table) EXPECT_EQ(counts[option.name], 1) << option.name;
    }
}

TEST(Topics, AreFoundByTheNamesThatPeopleGiveThem) {
    const struct {
        const char* typed;
        const char* file;
    } rows[] = {
        {"Classes.htm", "Classes.htm"},
        {"classes", "Classes.htm"},
        {"Control Statements", "ControlStatements.htm"},
        {"control-statements", "ControlStatements.htm"},
        {"Data", "Variables.htm"},
        {"VARIABLES.HTM", "Variables.htm"},
        {"FormattingAddIn", "FormattingAddIn.htm"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        ASSERT_NE(findTopic(row.typed), nullptr);
        EXPECT_EQ(findTopic(row.typed)->file, row.file);
    }
    for (const char* unknown : {"", ".htm", "Class", "Classes.html"}) {
        EXPECT_EQ(findTopic(unknown), nullptr) << unknown;
    }
    EXPECT_EQ(Help::topicOf("NO_SUCH_OPTION"), nullptr);
}

std::set<std::string> matches(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.insert((*at)[1]);
    }
    return found;
}

std::string pageOf(const Topic& topic) {
    const std::vector<Help::PageLink> pages = {{"Classes.htm", "Classes"}, {"Enums.htm", "Enums"}};
    return Help::htmlPage(topicDocument(topic), topic.file, pages);
}

TEST(Pages, LeadOnlyToPagesAndAnchorsThatThereAre) {
    std::map<std::string, std::set<std::string>> anchors;
    for (const Topic& topic : Help::topicTable()) {
        anchors[std::string(topic.file)] = matches(pageOf(topic), "id=\"([^\"]*)\"");
    }
    for (const Topic& topic : Help::topicTable()) {
        for (const std::string& target : matches(pageOf(topic), "<a href=\"([^\"]*)\"")) {
            SCOPED_TRACE(target);
            const std::size_t hash = target.find('#');
            ASSERT_EQ(anchors.count(target.substr(0, hash)), 1U);
            if (hash == std::string::npos) continue;
            EXPECT_EQ(anchors[target.substr(0, hash)].count(target.substr(hash + 1)), 1U);
        }
    }
}

TEST(Pages, CloseWhatTheyOpen) {
    for (const Topic& topic : Help::topicTable()) {
        SCOPED_TRACE(topic.file);
        const std::string page = pageOf(topic);
        std::vector<std::string> open;
        const std::regex tag("<(/?)([a-z0-9]+)[^>]*>");
        for (std::sregex_iterator at(page.begin(), page.end(), tag), end; at != end; ++at) {
            const std::string name = (*at)[2];
            if (name == "meta" || name == "link" || name == "img") continue;
            if ((*at)[1].length() == 0) {
                open.push_back(name);
                continue;
            }
            ASSERT_FALSE(open.empty());
            ASSERT_EQ(open.back(), name) << page.substr(static_cast<std::size_t>(at->position()), 60);
            open.pop_back();
        }
        EXPECT_TRUE(open.empty());
    }
}

TEST(OptionEntries, SayWhatCanBeSetAndWhatHoldsOtherwise) {
    const struct {
        const char* option;
        const char* values;
        const char* absent;
    } rows[] = {
        {"ASTERISK_ANCHOR", "`-1` as in the source; `0` at the type; `1` at the name", "as `-1`: as in the "
                                                                                       "source"},
        {"RIGHT_MARGIN", "a number from `0` on", "as `0`: nothing is broken"},
        {"TAB_SIZE", "a number from `1` on", "as `1`"},
        {"LINE_WRAP", "`1` on; `0` off", "off"},
        {"ALIGN_PPD_LEFT_MOST", "`0` with the code's indent; `1` left-most", "each directive keeps its "
                                                                             "column"},
        {"WS_AFTER_PARAM_TYPE_ID",
         "the exact white space for the place: `\" \"` is one blank, `\"\\n\"` a new line, `\"\\t\"` a tab, "
         "`\"\"` nothing",
         "one blank"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.option);
        const Norvane::PropertyInfo* option = Norvane::findProperty(row.option);
        ASSERT_NE(option, nullptr);
        EXPECT_EQ(Help::valueWords(*option), row.values);
        EXPECT_EQ(Help::whenNotSet(*option), row.absent);
    }
}

TEST(OptionEntries, MarkTheNamesOfOptionsInAText) {
    EXPECT_EQ(Help::withMarkedOptions("by TAB_SIZE."), "by `TAB_SIZE`.");
    EXPECT_EQ(Help::withMarkedOptions("TAB_SIZES and A, TAB_SIZE"), "TAB_SIZES and A, `TAB_SIZE`");
}

} // namespace
