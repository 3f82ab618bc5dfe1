#include "tests/qt/WindowTest.h"

#include "qt/NorvaneQt_PreviewRunner.h"
#include "ui/NorvaneUI_Texts.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QTextBlock>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <thread>

using NorvaneUI::PageId;

class PreviewPaneTest : public WindowTest {
protected:
    QPlainTextEdit& preview() { return widget<QPlainTextEdit>("preview"); }
};

TEST_F(PreviewPaneTest, FollowsTypingAndMarksTheLinesThatChanged) {
    ASSERT_TRUE(waitForPreview("class clsA : public clsB, public clsC {"));
    type("WS_BEFORE_CLASS_OPEN_BRACE", "\\n");
    ASSERT_TRUE(waitForPreview("class clsA : public clsB, public clsC\n{"));
    const auto marks = preview().extraSelections();
    ASSERT_FALSE(marks.isEmpty());
    EXPECT_EQ(marks.front().cursor.block().text(), "class clsA : public clsB, public clsC");
}

TEST_F(PreviewPaneTest, ShowsWhiteSpaceOnDemand) {
    const auto flags = [&] { return preview().document()->defaultTextOption().flags(); };
    click("visibleWhiteSpace");
    EXPECT_TRUE(flags().testFlag(QTextOption::ShowTabsAndSpaces));
    click("visibleWhiteSpace");
    EXPECT_FALSE(flags().testFlag(QTextOption::ShowTabsAndSpaces));
}

TEST_F(PreviewPaneTest, ShowsAFileOfTheUserUntilTheSampleIsWantedAgain) {
    files.put("/own.cpp", "class Own\n{\nint x;\n};\n");
    styles->sheet().useOwnText("/own.cpp");
    ASSERT_TRUE(waitForPreview("class Own\n{\n  int x;\n};"));
    window->showPage(PageId::Enums);
    EXPECT_EQ(styles->sheet().ownTextPath(), "/own.cpp");
    click("sampleText");
    EXPECT_TRUE(waitForPreview("enum keyword"));
}

TEST_F(PreviewPaneTest, TellsWhyATextIsShownAsItIs) {
    files.put("/broken.cpp", "class Own {\nint x;\n");
    styles->sheet().useOwnText("/broken.cpp");
    ASSERT_TRUE(waitForPreview("class Own {\nint x;"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget("previewMessages").isVisible(); }));
    EXPECT_FALSE(widget<QLabel>("previewMessages").text().isEmpty());
}

TEST_F(PreviewPaneTest, CanBeHidden) {
    click("togglePreview");
    EXPECT_FALSE(preview().isVisible());
    EXPECT_EQ(widget<QAbstractButton>("togglePreview").text().toStdString(), NorvaneUI::Texts::kShowPreview);
    click("togglePreview");
    EXPECT_TRUE(preview().isVisible());
}

namespace {

/// Programs that check themselves take their time.
#ifdef __SANITIZE_ADDRESS__
constexpr double kSlowness = 4;
#else
constexpr double kSlowness = 1;
#endif

/// Of this thread alone, so that a busy machine does not count.
double processorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

template <class Action> double cost(Action action) {
    const double before = processorMilliseconds();
    action();
    return processorMilliseconds() - before;
}

std::string classesOfLines(std::size_t lines) {
    std::string text;
    for (std::size_t i = 0; i < lines / 6; ++i) {
        const std::string name = "Widget" + std::to_string(i);
        text += "class " + name + " : public Base {\npublic:\n    int width(int a, char* b) const;\n"
                "    std::string name_ = \"a name\"; // kept\n};\n\n";
    }
    return text;
}

} // namespace

// What a person types waits for whatever the event loop is at, so this is the delay of a key.
TEST_F(PreviewPaneTest, LongFileHoldsUpNoKey) {
    files.put("/long.cpp", classesOfLines(3000));
    styles->sheet().useOwnText("/long.cpp");
    ASSERT_TRUE(waitForPreview("class Widget499"));
    auto& field = widget<QLineEdit>("WS_BEFORE_CLASS_OPEN_BRACE");
    field.setFocus();
    double longest = 0;
    for (const char key : std::string("\\n\\n\\s\\s")) {
        longest = std::max(longest, cost([&] { QTest::keyClick(&field, key); }));
        for (int i = 0; i < 30; ++i) {
            longest = std::max(longest, cost([] { QCoreApplication::processEvents(); }));
            QThread::msleep(5);
        }
    }
    EXPECT_TRUE(waitForPreview("class Widget499 : public Base\n\n  {"));
    RecordProperty("longestTurnInMicroseconds", static_cast<int>(longest * 1000));
    std::printf("longest turn of the event loop: %.1f ms\n", longest);
    // A tenth of a second is what a person begins to feel.
    EXPECT_LT(longest, 100 * kSlowness);
}

TEST_F(PreviewPaneTest, WindowOpensAtOnce) {
    const double time = cost([&] { open(); });
    std::printf("opened in %.0f ms\n", time);
    EXPECT_LT(time, 1000 * kSlowness);
}

namespace {

std::string manyLines(std::size_t count) {
    std::string text = "void f() {\n";
    for (std::size_t i = 0; i < count; ++i) text += "if (a" + std::to_string(i) + ") { b(); }\n";
    return text + "}\n";
}

} // namespace

TEST(PreviewRunner, LeavesTheWorkToAnotherThread) {
    const std::atomic<std::uint64_t> newest = 1;
    const NorvaneUI::PreviewJob job{1, {}, manyLines(60000)};
    const double alone = cost([&] { NorvaneUI::runPreview(job); });
    bool done = false;
    NorvaneQt::PreviewRunner runner(newest, [&](const NorvaneUI::PreviewResult& result) { done = result.formatted; });
    const double here = cost([&] {
        runner.start(job);
        EXPECT_TRUE(QTest::qWaitFor([&] { return done; }, 60000));
    });
    EXPECT_LT(here, alone / 2);
}

TEST(PreviewRunner, RunsOnlyTheNewestOfABurst) {
    std::atomic<std::uint64_t> newest = 0;
    std::vector<std::uint64_t> finished;
    std::thread::id thread;
    NorvaneQt::PreviewRunner runner(newest, [&](const NorvaneUI::PreviewResult& result) {
        finished.push_back(result.generation);
        thread = std::this_thread::get_id();
    });
    for (std::uint64_t i = 1; i <= 20; ++i) {
        newest = i;
        runner.start({i, {}, "int x;\n"});
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return !finished.empty(); }, 10000));
    EXPECT_EQ(finished, std::vector<std::uint64_t>{20});
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(PreviewRunner, TellsNothingOnceItIsGone) {
    std::atomic<std::uint64_t> newest = 1;
    bool done = false;
    {
        NorvaneQt::PreviewRunner runner(newest, [&](const NorvaneUI::PreviewResult&) { done = true; });
        runner.start({1, {}, manyLines(5000)});
        QTest::qWait(70);
        done = false;
    }
    QTest::qWait(20);
    EXPECT_FALSE(done) << "a result arrived for somebody who has gone";
}
