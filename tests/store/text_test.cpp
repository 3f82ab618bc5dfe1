#include "files/NorvaneUI_Text.h"
#include "files/Zelmar_Trace.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using NorvaneUI::filled;

TEST(Filled, NeverLooksIntoAValue) {
    EXPECT_EQ(filled("a %s b %s.", {"%s", "%n"}), "a %s b %n.");
    EXPECT_EQ(filled("%s%s", {"x"}), "x%s");
    EXPECT_EQ(filled("none", {"x"}), "none");
    EXPECT_EQ(filled("%d %s", {"x"}), "%d x");
}

class TraceTest : public testing::Test {
protected:
    TraceTest() { Zelmar::Trace::setStream(&log); }
    ~TraceTest() override {
        Zelmar::Trace::switchOff();
        Zelmar::Trace::setStream(nullptr);
    }
    std::ostringstream log;
};

TEST_F(TraceTest, WritesScopesAndValues) {
    Zelmar::Trace::switchOn();
    {
        Zelmar::Trace trace("f");
        const std::string text = "s";
        trace << "t=" << text << ' ' << true << false << ' ' << 12 << ' ' << 3u << '\n';
    }
    EXPECT_EQ(log.str(), "f: Enter\nt=s truefalse 12 3\nf: Exit\n");
}

TEST_F(TraceTest, SaysNothingUntilSwitchedOnAndNothingAfterwards) {
    { Zelmar::Trace trace("off"); }
    Zelmar::Trace::switchOn();
    {
        Zelmar::Trace trace("f");
        Zelmar::Trace::switchOff();
    }
    EXPECT_EQ(log.str(), "f: Enter\n");
}

} // namespace
