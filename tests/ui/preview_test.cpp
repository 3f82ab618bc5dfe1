#include "ui/NorvaneUI_Preview.h"

#include "tests/ui/SchemeTools.h"
#include "ui/NorvaneUI_PageTable.h"
#include "ui/NorvaneUI_PreviewSamples.h"
#include "ui/NorvaneUI_ReadOnlyEdit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <thread>

namespace {

using namespace NorvaneUI;
using Lines = std::vector<std::size_t>;

// ------------------------------------------------------------------------------------------- samples

std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return hash;
}

struct SampleRow {
    const char* name;
    std::size_t size;
    std::uint64_t hash;
};
// The samples are part of what users know, misspellings included.
const SampleRow kSamples[] = {
    {"ClassesPreview", 321, 0x99bd675cf84e5203u},
    {"ControlStatementsPreview", 365, 0x20870e8061312f1bu},
    {"DataPreview", 242, 0xd92076236950d0e5u},
    {"FunctionsPreview", 373, 0x14e7cdc52abf8523u},
    {"MemberInitsPreview", 201, 0x2c353aa3c686e39du},
    {"NamespacesPreview", 210, 0x4dabc6a74d45903cu},
    {"PreprocessorPreview", 88, 0x4c43e3f7e22caac5u},
    {"ExpressionsPreview", 372, 0x4d35704a58bf6300u},
    {"PointersReferencesPreview", 110, 0x23f99fbc2c62e939u},
    {"TemplatesPreview", 313, 0xdd3c954c7fcf9adu},
    {"EnumsPreview", 78, 0x45f15a02cc809e99u},
    {"GlobalsPreview", 551, 0x1f6a7430aa555a4bu},
};

TEST(Samples, AreAsTheyWere) {
    for (const SampleRow& row : kSamples) {
        SCOPED_TRACE(row.name);
        const auto text = previewSample(row.name);
        ASSERT_TRUE(text);
        EXPECT_EQ(text->size(), row.size);
        EXPECT_EQ(hashOf(*text), row.hash) << *text;
    }
}

// One line of this one is the program's own: nine values for the fields of a record.
TEST(Samples, OfLineWrappingHasAnAddressBetweenItsParts) {
    const std::string_view text = previewSample("LineWrappingPreview").value();
    constexpr std::size_t head = 284;
    constexpr std::size_t tail = 582;
    EXPECT_EQ(hashOf(text.substr(0, head)), 0x86b94890debe5b4cu);
    EXPECT_EQ(hashOf(text.substr(text.size() - tail)), 0x4ee915f03faf652eu);
    const std::string_view address = text.substr(head, text.size() - head - tail);
    EXPECT_TRUE(address.starts_with("Address "));
    EXPECT_EQ(address.find('\n'), std::string_view::npos);
    EXPECT_EQ(std::count(address.begin(), address.end(), '"'), 18);
}

TEST(Samples, AreThereForEveryPage) {
    for (const PageInfo& page : pageTable()) EXPECT_TRUE(previewSample(page.previewName)) << page.previewName;
    EXPECT_FALSE(previewSample("OtherPreview"));
}

std::string withoutWhiteSpace(std::string text) {
    std::erase_if(text, [](char c) { return std::string_view(" \t\n\v\f\r").find(c) != std::string_view::npos; });
    return text;
}

TEST(Samples, CanBeFormattedWithEveryShippedScheme) {
    for (Norvane::PropertySet scheme : shippedSchemes()) {
        for (const bool wrap : {false, true}) {
            scheme.setBool("LINE_WRAP", wrap);
            for (const PageInfo& page : pageTable()) {
                SCOPED_TRACE(scheme.getName() + ' ' + std::string(page.className));
                const std::string text(previewSample(page.previewName).value());
                const PreviewResult once = runPreview({1, scheme, text});
                EXPECT_TRUE(once.formatted);
                EXPECT_TRUE(once.messages.empty());
                EXPECT_EQ(withoutWhiteSpace(once.text), withoutWhiteSpace(text));
                EXPECT_EQ(runPreview({2, scheme, once.text}).text, once.text);
            }
        }
    }
}

// Otherwise a user who tries out an option cannot see what it does.
TEST(Samples, ShowEachPageInAnotherLayoutThanTheirOwn) {
    for (const PageInfo& page : pageTable()) {
        const std::string text(previewSample(page.previewName).value());
        int changed = 0;
        for (const Norvane::PropertySet& scheme : shippedSchemes()) {
            if (runPreview({1, scheme, text}).text != text) ++changed;
        }
        EXPECT_GT(changed, 0) << page.className;
    }
}

// ---------------------------------------------------------------------------------------------- jobs

TEST(Preview, ShowsWhatCannotBeReadAsItIsAndSaysWhy) {
    const PreviewResult result = runPreview({3, shippedSchemes().front(), "int  a;\nvoid  f( {\n"});
    EXPECT_EQ(result.generation, 3u);
    EXPECT_TRUE(result.formatted);
    EXPECT_EQ(result.text, "int a;\nvoid  f( {\n");
    ASSERT_FALSE(result.messages.empty());
    EXPECT_TRUE(result.messages.front().starts_with("Line 2, column ")) << result.messages.front();
}

TEST(Preview, EndsEarlyWhenANewerOneHasBegun) {
    const std::atomic<std::uint64_t> newest = 5;
    const Norvane::PropertySet scheme = schemeOf("Mine", {{"WS_AFTER_CS_KEY", ""}});
    EXPECT_FALSE(runPreview({4, scheme, "void f() { if (a) b(); }"}, &newest).formatted);
    EXPECT_TRUE(runPreview({5, scheme, "void f() { if (a) b(); }"}, &newest).formatted);
}

TEST(Preview, GivesTheSameOnSeveralThreads) {
    const Norvane::PropertySet scheme = shippedSchemes().front();
    const auto formatAll = [&](std::vector<std::string>& results) {
        for (const PageInfo& page : pageTable()) {
            results.push_back(runPreview({1, scheme, std::string(*previewSample(page.previewName))}).text);
        }
    };
    std::vector<std::string> results[3];
    std::thread first([&] { formatAll(results[0]); });
    std::thread second([&] { formatAll(results[1]); });
    first.join();
    second.join();
    formatAll(results[2]);
    EXPECT_EQ(results[0], results[2]);
    EXPECT_EQ(results[1], results[2]);
}

// --------------------------------------------------------------------------------------------- lines

struct TouchCase {
    const char* name;
    const char* before;
    const char* after;
    Lines lines;
};
const TouchCase kTouches[] = {
    {"Nothing", "a\nb\n", "a\nb\n", {}},
    {"Indent", "a\nb\nc", "a\n  b\nc", {1}},
    {"WithinALine", "a\nif(b)\nc", "a\nif (b)\nc", {1}},
    {"LineBroken", "a {\nb", "a\n{\nb", {0, 1}},
    {"LinesJoined", "a\n{\nb", "a {\nb", {0}},
    {"EmptyLineAdded", "a\nb", "a\n\nb", {1, 2}},
    {"EmptyLineRemoved", "a\n\nb\nc", "a\nb\nc", {1}},
    {"TwoPlaces", "a(b)\nx\nc(d)", "a( b )\nx\nc( d )", {0, 2}},
    {"EndOfText", "a", "a\n", {0, 1}},
    {"AnotherText", "a\nb", "a\nc", {}},
    {"LongerText", "a\nb", "a\nbc", {}},
    {"Empty", "", "", {}},
};

class Touched : public testing::TestWithParam<TouchCase> {};

TEST_P(Touched, LinesAreThoseWhereWhiteSpaceDiffers) {
    EXPECT_EQ(touchedLines(GetParam().before, GetParam().after), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(Preview, Touched, testing::ValuesIn(kTouches),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Preview, ShowsWhiteSpaceByMarks) { EXPECT_EQ(withVisibleWhiteSpace("a \tb\n"), "a·→\tb¶\n"); }

// --------------------------------------------------------------------------------------------- field

const Norvane::PropertySet kTight = schemeOf("Mine", {{"WS_AFTER_CS_KEY", ""}});
const Norvane::PropertySet kLoose = schemeOf("Mine", {{"WS_AFTER_CS_KEY", " "}});
constexpr std::string_view kCode = "void f() {\n    if  (a) b();\n}\n";

TEST(PreviewField, MarksTheLinesOfTheLastChange) {
    ReadOnlyEdit field;
    EXPECT_TRUE(field.finish(runPreview(field.start(kTight, kCode))));
    EXPECT_EQ(field.text(), "void f() {\n    if(a) b();\n}\n");
    EXPECT_TRUE(field.touchedLines().empty());
    EXPECT_TRUE(field.finish(runPreview(field.start(kLoose, kCode))));
    EXPECT_EQ(field.touchedLines(), Lines{1});
    EXPECT_TRUE(field.finish(runPreview(field.start(kLoose, kCode))));
    EXPECT_TRUE(field.touchedLines().empty());
}

TEST(PreviewField, DropsTheResultOfAnOldJob) {
    ReadOnlyEdit field;
    const PreviewJob old = field.start(kTight, kCode);
    const PreviewJob young = field.start(kLoose, kCode);
    EXPECT_TRUE(field.finish(runPreview(young)));
    const std::string shown = field.text();
    EXPECT_FALSE(field.finish(runPreview(old)));
    EXPECT_EQ(field.text(), shown);
    const PreviewJob last = field.start(kTight, kCode);
    field.showNote("A note");
    EXPECT_FALSE(field.finish(runPreview(last)));
    EXPECT_EQ(field.text(), "A note");
    EXPECT_TRUE(field.isNote());
}

// Against another text or another scheme every line would be marked.
TEST(PreviewField, MarksNothingInAnotherText) {
    ReadOnlyEdit field;
    field.finish(runPreview(field.start(kTight, kCode)));
    field.finish(runPreview(field.start(kLoose, "void f() { if(a) b(); }")));
    EXPECT_TRUE(field.touchedLines().empty());
    field.finish(runPreview(field.start(kTight, "void f() { if(a) b(); }")));
    EXPECT_EQ(field.touchedLines(), Lines{0});
    field.forgetLastChange();
    field.finish(runPreview(field.start(kLoose, "void f() { if(a) b(); }")));
    EXPECT_TRUE(field.touchedLines().empty());
}

} // namespace
