#include "addin/Addin_Messages.h"
#include "tests/addin/Fixture.h"

namespace {

TEST(PassesThreshold, FollowsTheTable) {
    struct Row {
        int threshold;
        const char* passing;
    };
    for (const Row& row : {Row{0, ""}, {1, "01234"}, {2, "23"}, {3, "3"}, {4, "01234"}, {-1, "01234"}}) {
        std::string passing;
        for (std::uint32_t severity = 0; severity <= 4; ++severity) {
            if (Addin::passesThreshold(severity, row.threshold)) passing += std::to_string(severity);
        }
        EXPECT_EQ(passing, row.passing) << row.threshold;
    }
}

TEST(ShownText, OfAPlaceHasTheFormOfACompiler) {
    const std::pair<std::uint32_t, std::string> cases[] = {
        {1, "a%s.c(3) : information: col 7: No %s."},
        {2, "a%s.c(3) : warning: col 7: No %s."},
        {3, "a%s.c(3) : error: col 7: No %s."},
        {9, "a%s.c(3) : information: col 7: No %s."},
    };
    for (const auto& [severity, line] : cases) {
        EXPECT_EQ(Addin::shownText({severity, "No %s.", "a%s.c", {3, 7}, 0, true}), line);
    }
    EXPECT_EQ(Addin::shownText({3, "No %s.", "a.c", {3, 7}}), "No %s.");
}

class MessagesTest : public AddinTest {
protected:
    Addin::Messages messages{host, options};
};

TEST_F(MessagesTest, FollowAThresholdThatChanges) {
    messages.send({1, "one"});
    options.messagesThreshold = 3;
    messages.send({2, "two"});
    messages.send({3, "three"});
    options.messagesThreshold = 0;
    messages.send({3, "none"});
    EXPECT_EQ(host.log, (Lines{"1: one", "3: three"}));
}

TEST_F(MessagesTest, NoticeDoesNotDependOnTheThreshold) {
    options.messagesThreshold = 0;
    messages.sendAndShow("text");
    EXPECT_EQ(host.log, Lines{"notice: text"});
}

TEST_F(MessagesTest, NothingIsShownWithoutAWindow) {
    host.hasWindow = false;
    messages.send({3, "text"});
    EXPECT_TRUE(host.log.empty());
}

} // namespace
