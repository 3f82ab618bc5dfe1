#include "tests/qt/Responder.h"
#include "tests/store/FakeFileSystem.h"

#include "addin/Addin_AddIn.h"
#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "files/Zelmar_Trace.h"
#include "qt/NorvaneQt_OptionsWindow.h"
#include "qt/NorvaneQt_WindowHost.h"
#include "ui/NorvaneUI_Texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using NorvaneQt::OptionsWindow;

/// The program from its start to its end, over files in memory.
class WholeRun : public testing::Test {
protected:
    using Places = NorvaneQt::WindowHost::Places;

    WholeRun() { Zelmar::Trace::setStream(nullptr); }
    ~WholeRun() override { EXPECT_EQ(responder.surprises, 0); }

    void putScheme(const std::string& name) {
        files.put("/schemes/" + name + ".kls",
                  "Norvane::PropertySet\n1\n\"" + name + "\"\n3 KERFLINE_VERSION \"1.2.1\"\n");
    }
    /// `work` is what the user does; afterwards the window is to be closed.
    void run(std::function<void(OptionsWindow&)> work) {
        NorvaneQt::WindowHost host(files, places, {Norvane::PropertySet("allman"), Norvane::PropertySet("default")});
        host.setStart(start);
        host.setWindowAction([&](OptionsWindow& window) {
            QTimer::singleShot(0, &window, [&window, &work] { work(window); });
        });
        Addin::AddIn addIn(host, files);
        addIn.OnConnection();
        addIn.ShowKLOptions();
        read = addIn.options();
    }
    static void click(OptionsWindow& window, const char* name) {
        window.findChild<QAbstractButton*>(QLatin1String(name))->click();
    }
    static QString shownScheme(OptionsWindow& window) {
        return window.findChild<QComboBox*>(QStringLiteral("schemes"))->currentText();
    }

    FakeFileSystem files;
    Places places{"/schemes", "/settings"};
    NorvaneQt::StartPlace start;
    Addin::AddInOptions read;
    Responder responder;
};

TEST_F(WholeRun, SettingsAreWrittenAndReadBack) {
    putScheme("mine");
    run([](OptionsWindow& window) {
        auto* onFormat = window.findChild<QComboBox*>(QStringLiteral("scheme0"));
        emit onFormat->activated(1);
        click(window, "createBackups");
        click(window, "ok");
    });
    EXPECT_NE(files.text("/settings").find("OnFormat=mine"), std::string::npos);
    bool shown = true;
    run([&](OptionsWindow& window) {
        shown = window.findChild<QCheckBox*>(QStringLiteral("createBackups"))->isChecked();
        click(window, "cancel");
    });
    EXPECT_FALSE(shown);
    EXPECT_EQ(read.onFormat.name, "mine");
}

// Looking at the options, and even an OK, leaves no trace in what a person wrote.
TEST_F(WholeRun, AnOkThatChangedNothingWritesNoSettingAndNoScheme) {
    const std::string byHand = "Norvane::PropertySet\n1\n\"my scheme\"\n\n"
                               "# 1: yes or no     2: a number     3: a text, with \\n \\t \\r \\v \\\" \\\\\n"
                               "1 LINE_WRAP 1\n2 RIGHT_MARGIN 100\n3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\n";
    files.put("/schemes/my.kls", byHand);
    run([](OptionsWindow& window) { click(window, "ok"); });
    EXPECT_EQ(files.text("/schemes/my.kls"), byHand);
    EXPECT_EQ(files.text("/settings").find("Backup"), std::string::npos) << files.text("/settings");
    EXPECT_EQ(files.text("/settings").find("OnFormat"), std::string::npos);
    run([](OptionsWindow& window) {
        auto* schemes = window.findChild<QComboBox*>(QStringLiteral("schemes"));
        emit schemes->activated(schemes->findText(QStringLiteral("my scheme")));
        window.showPage(NorvaneUI::PageId::Functions);
        click(window, "FN_DO_NOT_FORMAT");
        click(window, "FN_DO_NOT_FORMAT");
        auto* field = window.findChild<QLineEdit*>(QStringLiteral("WS_BEFORE_FN_OPEN_BRACE"));
        field->setFocus();
        QTest::keyClicks(field, QStringLiteral("\\s"));
        click(window, "ok");
    });
    std::string edited = byHand;
    edited.insert(edited.size() - 2, "\\n ");
    edited.replace(edited.rfind("\\n\\n"), 4, "\\n");
    EXPECT_EQ(files.text("/schemes/my.kls"), edited + "1 FN_DO_NOT_FORMAT 0\n3 KERFLINE_VERSION \"1.2.1\"\n");
}

TEST_F(WholeRun, StartsWithThePlainestSchemeAndThenWithTheLastOne) {
    QString first;
    QString second;
    run([&](OptionsWindow& window) {
        first = shownScheme(window);
        emit window.findChild<QComboBox*>(QStringLiteral("schemes"))->activated(0);
        click(window, "cancel");
    });
    run([&](OptionsWindow& window) {
        second = shownScheme(window);
        click(window, "cancel");
    });
    EXPECT_EQ(first, "default");
    EXPECT_EQ(second, "allman");
}

TEST_F(WholeRun, BrokenSchemeFileIsToldAtTheStart) {
    files.put("/schemes/broken.kls", "nothing");
    responder.press(QMessageBox::Ok);
    run([](OptionsWindow& window) { click(window, "cancel"); });
    EXPECT_EQ(responder.texts.front(),
              NorvaneUI::filled(Addin::Texts::kSchemeUnreadable, {"/schemes/broken.kls"}));
}

TEST_F(WholeRun, FileToPreviewThatCannotBeReadIsTold) {
    start.preview = "/missing.cpp";
    responder.press(QMessageBox::Ok);
    run([](OptionsWindow& window) { click(window, "cancel"); });
    EXPECT_EQ(responder.texts.front(), NorvaneUI::filled(NorvaneUI::Texts::kTextUnreadable, {"/missing.cpp"}));
}

TEST_F(WholeRun, SettingsThatCannotBeWrittenAreTold) {
    files.fail("create", "/settings");
    responder.press(QMessageBox::Ok);
    responder.press(QMessageBox::Ok);
    run([](OptionsWindow& window) {
        click(window, "promptUnsaved");
        click(window, "ok");
    });
    EXPECT_EQ(responder.texts, std::vector<std::string>(2, std::string(Addin::Texts::kSettingsNotCreated)));
}
