#include "ui/NorvaneUI_StylesSheet.h"

#include "tests/store/FakeFileSystem.h"
#include "tests/ui/FakeFace.h"
#include "tests/ui/SchemeTools.h"

#include <gtest/gtest.h>

namespace {

using namespace NorvaneUI;

constexpr const char* kSettingsFile = "/c/settings";

class Sheet : public testing::Test {
protected:
    Sheet() { sheet.show(&edit); }

    std::string option(const std::string& name) const { return optionText(edit.scheme(), name); }

    FakeFace face;
    FakeFileSystem disk;
    Addin::Settings settings{disk, kSettingsFile};
    SchemeEdit edit{schemeOf("Mine", {{"WS_BEFORE_ENUM_COMMA", ""}})};
    StylesSheet sheet{face, disk, settings};
};

TEST_F(Sheet, StartsWithThePageAndThePreviewOfTheLastTime) {
    EXPECT_EQ(sheet.currentPageId(), PageId::Globals);
    EXPECT_TRUE(sheet.isPreviewShown());
    sheet.selectPage(PageId::Enums);
    sheet.togglePreview();
    sheet.storeState();
    EXPECT_FALSE(settings.commit() != Addin::Settings::Outcome::done);
    EXPECT_EQ(disk.text(kSettingsFile), "[Options]\nCurrentSchemesTab=2\nShowPreview=0\n");
    Addin::Settings later(disk, kSettingsFile);
    later.read();
    const StylesSheet next(face, disk, later);
    EXPECT_EQ(next.currentPageId(), PageId::Enums);
    EXPECT_FALSE(next.isPreviewShown());
}

TEST_F(Sheet, StartsWithTheFirstPageIfTheStoredOneIsNone) {
    for (const int page : {-1, 13, 1000}) {
        settings.setInt("CurrentSchemesTab", page);
        EXPECT_EQ(StylesSheet(face, disk, settings).currentPageId(), PageId::Globals);
    }
}

TEST_F(Sheet, NamesTheButtonByWhatItDoes) {
    EXPECT_EQ(sheet.previewButtonText(), "Hide &Preview <<");
    sheet.togglePreview();
    EXPECT_EQ(sheet.previewButtonText(), "Show &Preview >>");
}

TEST_F(Sheet, StaysOnAPageWithAnEntryThatIsNoValue) {
    sheet.selectPage(PageId::Enums);
    sheet.currentPage().typeText("WS_BEFORE_ENUM_COMMA", "x");
    EXPECT_FALSE(sheet.selectPage(PageId::Data));
    EXPECT_FALSE(sheet.selectOption("TAB_SIZE"));
    EXPECT_EQ(sheet.currentPageId(), PageId::Enums);
    EXPECT_EQ(face.focus, "WS_BEFORE_ENUM_COMMA");
    EXPECT_EQ(face.notices.size(), 2u);
    sheet.currentPage().typeText("WS_BEFORE_ENUM_COMMA", "\\s");
    EXPECT_TRUE(sheet.selectPage(PageId::Data));
}

TEST_F(Sheet, GoesToAnOption) {
    EXPECT_TRUE(sheet.selectOption("RIGHT_MARGIN"));
    EXPECT_EQ(sheet.currentPageId(), PageId::LineWrapping);
    EXPECT_EQ(face.focus, "RIGHT_MARGIN");
    EXPECT_FALSE(sheet.selectOption("KERFLINE_VERSION"));
}

TEST_F(Sheet, ShowsOnOnePageWhatAnotherHasChanged) {
    sheet.selectPage(PageId::Enums);
    sheet.currentPage().setUseGlobalSettings(true);
    sheet.selectPage(PageId::Globals);
    sheet.currentPage().typeText("GLOBAL_WS_BEFORE_OPEN_BRACE", "\\t");
    sheet.selectPage(PageId::Enums);
    EXPECT_EQ(sheet.currentPage().find("WS_BEFORE_ENUM_OPEN_BRACE")->text, "\\t");
}

TEST_F(Sheet, TakesStepsBackOnThePageThatTheyWereMadeOn) {
    sheet.selectPage(PageId::Enums);
    sheet.currentPage().typeText("WS_BEFORE_ENUM_COMMA", "\\s");
    sheet.selectPage(PageId::Classes);
    sheet.currentPage().typeText("WS_AFTER_CLASS_NAME", "y");
    sheet.undo();
    EXPECT_EQ(sheet.currentPageId(), PageId::Enums);
    EXPECT_EQ(option("WS_BEFORE_ENUM_COMMA"), "\"\"");
    EXPECT_EQ(sheet.currentPage().find("WS_BEFORE_ENUM_COMMA")->text, "");
    EXPECT_FALSE(sheet.canUndo());
    sheet.redo();
    EXPECT_EQ(option("WS_BEFORE_ENUM_COMMA"), "\" \"");
    // The entry that was no value is gone with the step.
    EXPECT_TRUE(sheet.selectPage(PageId::Classes));
    EXPECT_TRUE(sheet.check());
}

// ------------------------------------------------------------------------------------------- preview

TEST_F(Sheet, PreviewsTheSampleOfThePageWhileOneTypes) {
    sheet.selectPage(PageId::Enums);
    EXPECT_TRUE(sheet.preview().text().starts_with("enum keyword{ASM,AUTO,BREAK};\n"));
    sheet.currentPage().typeText("WS_BETWEEN_ENUM_ELEMENTS", "\\s");
    EXPECT_TRUE(sheet.preview().text().starts_with("enum keyword{ASM, AUTO, BREAK};\n"));
    EXPECT_EQ(sheet.preview().touchedLines(), (std::vector<std::size_t>{0, 2}));
    sheet.selectPage(PageId::Classes);
    EXPECT_TRUE(sheet.preview().text().starts_with("class clsA : public clsB"));
    EXPECT_TRUE(sheet.preview().touchedLines().empty());
}

TEST_F(Sheet, SaysThatCodeIsLeftAsItIs) {
    sheet.selectPage(PageId::Enums);
    sheet.currentPage().setDoNotFormat(true);
    EXPECT_EQ(sheet.preview().text(), "Code will be left as is");
    sheet.currentPage().setDoNotFormat(false);
    EXPECT_TRUE(sheet.preview().text().starts_with("enum keyword"));
}

TEST_F(Sheet, SaysThatThereIsNoPreview) {
    sheet.show(nullptr);
    EXPECT_EQ(sheet.preview().text(), "No Preview Available");
    EXPECT_TRUE(sheet.preview().isNote());
}

TEST_F(Sheet, LeavesJobsToTheWindowAndTakesTheNewestResultOnly) {
    std::vector<PreviewJob> jobs;
    sheet.setPreviewAction([&](PreviewJob job) { jobs.push_back(std::move(job)); });
    sheet.selectPage(PageId::Enums);
    sheet.currentPage().typeText("WS_BETWEEN_ENUM_ELEMENTS", "\\s");
    ASSERT_EQ(jobs.size(), 2u);
    EXPECT_FALSE(sheet.finishPreview(runPreview(jobs[0])));
    EXPECT_TRUE(sheet.finishPreview(runPreview(jobs[1])));
    EXPECT_TRUE(sheet.preview().text().starts_with("enum keyword{ASM, AUTO"));
    sheet.togglePreview();
    EXPECT_EQ(jobs.size(), 2u);
}

TEST_F(Sheet, PreviewsAFileOfTheUser) {
    disk.put("/u/a.c", "\xef\xbb\xbf"
                       "enum a{b,c};\r\n");
    face.file = "/u/a.c";
    sheet.chooseOwnText();
    sheet.selectPage(PageId::Enums);
    EXPECT_EQ(sheet.preview().text(), "enum a{b,c};\n");
    sheet.currentPage().typeText("WS_BETWEEN_ENUM_ELEMENTS", "\\s");
    EXPECT_EQ(sheet.preview().text(), "enum a{b, c};\n");
    EXPECT_EQ(sheet.ownTextPath(), "/u/a.c");
    sheet.dropOwnText();
    EXPECT_TRUE(sheet.preview().text().starts_with("enum keyword"));
    face.file.reset();
    sheet.chooseOwnText();
    EXPECT_EQ(sheet.ownTextPath(), "");
}

TEST_F(Sheet, TellsOfAFileThatIsNoText) {
    disk.put("/u/nul", std::string("a\0b", 3));
    disk.put("/u/wide", "\xff\xfe"
                        "a");
    for (const char* path : {"/u/nul", "/u/wide", "/u/missing"}) EXPECT_FALSE(sheet.useOwnText(path));
    EXPECT_EQ(face.notices,
              (FakeFace::Lines{"The file \"/u/nul\" is no source text.", "The file \"/u/wide\" is no source text.",
                               "The file \"/u/missing\" cannot be read."}));
    EXPECT_EQ(sheet.ownTextPath(), "");
}

TEST_F(Sheet, TellsOfEachChange) {
    int changes = 0;
    sheet.setChangeAction([&] { ++changes; });
    sheet.selectPage(PageId::Enums);
    EXPECT_EQ(changes, 0);
    sheet.currentPage().typeText("WS_BETWEEN_ENUM_ELEMENTS", "\\s");
    sheet.undo();
    EXPECT_EQ(changes, 2);
}

} // namespace
