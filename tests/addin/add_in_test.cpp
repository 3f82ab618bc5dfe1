#include "addin/Addin_AddIn.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "tests/addin/Fixture.h"

#include <sstream>

namespace {

using Addin::Answer;

constexpr const char* kNoScheme =
    "notice: You have not selected a scheme to use when formatting. Please indicate via the Kerfline Options "
    "dialog which Scheme you wish to use when formatting before attempting to format again.";

class Connected : public AddinTest {
protected:
    Connected() {
        disk.put("/s/Mine.kls", NorvaneUI::schemeText(keywordScheme("Mine")));
        disk.put("/c/settings", "[Options]\nOnFormat=Mine\nOnOpen=Mine\nOnClose=Mine\nCreateBackups=0\n");
    }
    void connect() { addIn.OnConnection(); }
    void setSettings(const std::string& lines) { disk.put("/c/settings", "[Options]\n" + lines); }
    std::string textOf(Addin::Document document) const { return host.documents.at(document).text; }

    Addin::AddIn addIn{host, disk};
};

TEST_F(Connected, RegistersTheFiveCommandsInOrder) {
    connect();
    EXPECT_EQ(host.commands,
              (Lines{"FormatActiveDocument=FormatActiveDocument", "FormatActiveProject=FormatActiveProject",
                     "FormatActiveWorkspace=FormatActiveWorkspace", "ShowOptions=ShowKLOptions",
                     "ShowHelp=ShowKLHelp", "button FormatActiveDocument", "button FormatActiveProject",
                     "button FormatActiveWorkspace", "button ShowOptions", "button ShowHelp"}));
    EXPECT_TRUE(host.log.empty());
    EXPECT_EQ(host.sink, &addIn);
    addIn.OnDisconnection();
    EXPECT_EQ(host.sink, nullptr);
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(Connected, TracesTheResultsOfTheHost) {
    for (const bool fails : {false, true}) {
        std::ostringstream log;
        Zelmar::Trace::setStream(&log);
        if (fails) {
            for (const char* name : {"setAddInInfo", "addCommand", "addCommandBarButton"}) {
                host.failing[name] = FailureKind::other;
            }
        }
        connect();
        Zelmar::Trace::setStream(nullptr);
        const std::string result = fails ? "false\n" : "true\n";
        EXPECT_NE(log.str().find("SetAddInInfo returned: " + result), std::string::npos) << log.str();
        EXPECT_NE(log.str().find("AddCommand calls returned: " + result), std::string::npos) << log.str();
        EXPECT_NE(log.str().find("AddCommandBarButton calls returned: " + result), std::string::npos) << log.str();
        EXPECT_TRUE(log.str().starts_with("OnConnection: Enter\n")) << log.str();
        EXPECT_TRUE(log.str().ends_with("OnConnection: Exit\n")) << log.str();
    }
}

TEST_F(Connected, GoesOnWithoutTheProjectModule) {
    host.failing["loadProjectModule"] = FailureKind::missing;
    connect();
    EXPECT_EQ(host.log, Lines{"notice: Kerfline was unable to load a component it needs for succesful operation. "
                              "Kerfline will not be available."});
    EXPECT_EQ(host.commands.size(), 10u);
}

TEST_F(Connected, BrokenSchemeFileIsToldOfAndCostsNoSetting) {
    disk.put("/s/bad.kls", "broken");
    connect();
    EXPECT_EQ(host.log,
              Lines{"3: Kerfline encountered an error while trying to read the scheme file \"/s/bad.kls\". To "
                    "correct the problem, you should delete this file before restarting Kerfline and "
                    "attempting this operation again."});
    EXPECT_TRUE(host.sink);
    host.onOptions = [](Addin::AddInOptions& edited, NorvaneUI::PropertySetStore&) {
        // The schemes beside it are there.
        EXPECT_EQ(edited.onFormat.name, "Mine");
        edited.createBackups = true;
        edited.onOpen.name = "Picked";
        return true;
    };
    addIn.ShowKLOptions();
    EXPECT_EQ(disk.text("/c/settings"), "[Options]\nOnFormat=Mine\nOnOpen=Picked\nOnClose=Mine\nCreateBackups=1\n");
}

TEST_F(Connected, ConvertsOldSchemesAndUsesThem) {
    disk.put("/s/Old.kls", "Norvane::PropertySet\n1\n\"Old\"\n1 LINE_WRAP 1\n2 SPACES_PER_TAB 4\n");
    setSettings("OnFormat=Old\n");
    connect();
    EXPECT_EQ(disk.changes, (Lines{"copy /s/Old.kls.old", "replace /s/Old.kls"}));
    EXPECT_EQ(host.log, Lines{"notice: The scheme 'Old' was created using a previous version of Kerfline and has been "
                              "converted. Its file as it was is kept as \"/s/Old.kls.old\"."});
    bool wrap = true;
    ASSERT_TRUE(addIn.options().onFormat.scheme);
    EXPECT_TRUE(addIn.options().onFormat.scheme->getBool("LINE_WRAP", wrap));
    EXPECT_FALSE(wrap);
}

TEST_F(Connected, SchemesOfTheProgramCanBeChosenAndStandBehindThoseOfTheUser) {
    Norvane::PropertySet plain("Plain");
    Norvane::PropertySet mine("Mine");
    plain.setInt("TAB_SIZE", 3);
    mine.setInt("TAB_SIZE", 3);
    addIn.setShippedSchemes({plain, mine});
    setSettings("OnFormat=Plain\nOnOpen=Mine\n");
    connect();
    ASSERT_TRUE(addIn.options().onFormat.scheme && addIn.options().onOpen.scheme);
    EXPECT_TRUE(NorvaneUI::isSameScheme(*addIn.options().onFormat.scheme, plain));
    EXPECT_FALSE(NorvaneUI::isSameScheme(*addIn.options().onOpen.scheme, mine));
    host.onOptions = [](Addin::AddInOptions& edited, NorvaneUI::PropertySetStore&) {
        EXPECT_EQ(edited.onFormat.name, "Plain");
        return true;
    };
    addIn.ShowKLOptions();
    EXPECT_TRUE(addIn.options().onFormat.scheme);
}

TEST_F(Connected, NamesOldSchemesThatAreReadOnly) {
    disk.putReadOnly("/s/Old.kls", "Norvane::PropertySet\n1\n\"Old\"\n2 SPACES_PER_TAB 4\n");
    connect();
    ASSERT_EQ(host.log.size(), 1u);
    EXPECT_TRUE(host.log[0].starts_with("notice: The scheme 'Old' was created using a previous version"))
        << host.log[0];
}

TEST_F(Connected, ConversionThatCannotBeWrittenIsToldOf) {
    disk.put("/s/Old.kls", "Norvane::PropertySet\n1\n\"Old\"\n2 SPACES_PER_TAB 4\n");
    setSettings("OnFormat=Old\n");
    disk.fail("replace", "/s/Old.kls", FailureKind::full);
    connect();
    EXPECT_EQ(host.log,
              Lines{"3: Kerfline encountered an error while trying to write the scheme file \"/s/Old.kls\". "
                    "To correct the problem, ensure you have enough disk space and that the directory "
                    "\"/s/\" can be written to."});
    std::string version;
    ASSERT_TRUE(addIn.options().onFormat.scheme);
    EXPECT_TRUE(addIn.options().onFormat.scheme->getString("KERFLINE_VERSION", version));
    EXPECT_EQ(host.commands.size(), 10u);
}

TEST_F(Connected, CommandsNeedAScheme) {
    setSettings("OnFormat=Lost\n");
    connect();
    host.open("/a.cpp", kSource);
    host.activeOne = host.addProject("Pro", {});
    host.opened = Addin::Workspace{"Work", {}};
    addIn.FormatActiveDocument();
    addIn.FormatActiveProject();
    addIn.FormatActiveWorkspace();
    EXPECT_EQ(host.log, (Lines{kNoScheme, kNoScheme, kNoScheme}));
}

TEST_F(Connected, FormatsTheActiveDocument) {
    connect();
    const auto document = host.open("/a.cpp", kSource);
    addIn.FormatActiveDocument();
    EXPECT_EQ(textOf(document), kResult);
    EXPECT_EQ(host.told(),
              (Lines{"1: Formatting active file using scheme \"Mine\".", "1: Formatting \"/a.cpp\"."}));
}

TEST_F(Connected, NeedsAnActiveDocument) {
    connect();
    addIn.FormatActiveDocument();
    EXPECT_EQ(host.log, Lines{"notice: Kerfline was unable to find an active text file in the currently loaded "
                              "workspace. Please open a text file before trying this command again."});
}

TEST_F(Connected, FormatsProjectAndWorkspace) {
    connect();
    disk.put("/p/a.cpp", kSource);
    host.activeOne = host.addProject("Pro", {"a.cpp"});
    host.answers["You have chosen to format all C/C++ files in the project \"Pro\". Are you sure you wish to "
                 "continue?"] = Answer::yes;
    addIn.FormatActiveProject();
    EXPECT_EQ(disk.text("/p/a.cpp"), kResult);
    disk.put("/p/a.cpp", kSource);
    host.opened = Addin::Workspace{"Work", {*host.activeOne}};
    host.answers["You have chosen to format all C/C++ files in the workspace \"Work\". Are you sure you wish "
                 "to continue?"] = Answer::yes;
    addIn.FormatActiveWorkspace();
    EXPECT_EQ(disk.text("/p/a.cpp"), kResult);
}

TEST_F(Connected, EventsFormatWithTheirOwnScheme) {
    setSettings("OnClose=Mine\nCreateBackups=0\n");
    connect();
    const auto document = host.open("/a.cpp", kSource);
    std::ostringstream log;
    Zelmar::Trace::setStream(&log);
    host.sink->DocumentOpen(document);
    EXPECT_EQ(textOf(document), kSource);
    host.sink->BeforeDocumentClose(document);
    EXPECT_EQ(textOf(document), kResult);
    Zelmar::Trace::setStream(nullptr);
    EXPECT_EQ(log.str().find("OnOpen"), std::string::npos);
    EXPECT_NE(log.str().find("OnClose: formatting using scheme Mine\n"), std::string::npos) << log.str();
}

TEST_F(Connected, OpeningFormatsToo) {
    connect();
    const auto document = host.open("/a.inl", kSource);
    host.sink->DocumentOpen(document);
    EXPECT_EQ(textOf(document), kSource);
    EXPECT_EQ(host.occasions, std::vector<Addin::Occasion>{Addin::Occasion::event});
}

TEST_F(Connected, RefusesWhatArrivesWhileItRuns) {
    connect();
    const auto document = host.open("/a.cpp", kSource);
    int pumps = 0;
    host.onPump = [&] {
        ++pumps;
        addIn.FormatActiveDocument();
        addIn.ShowKLHelp();
        host.sink->BeforeDocumentClose(document);
    };
    addIn.FormatActiveDocument();
    EXPECT_GT(pumps, 0);
    EXPECT_EQ(host.told(),
              (Lines{"1: Formatting active file using scheme \"Mine\".", "1: Formatting \"/a.cpp\"."}));
    host.onPump = [] {};
    addIn.ShowKLHelp();
    EXPECT_EQ(host.log.back(), "help: FormattingAddIn.htm");
}

TEST_F(Connected, OptionsAreWrittenOnlyIfAccepted) {
    connect();
    bool accept = false;
    host.onOptions = [&](Addin::AddInOptions& edited, NorvaneUI::PropertySetStore& schemes) {
        EXPECT_EQ(edited.onFormat.name, "Mine");
        EXPECT_EQ(schemes.count("Mine"), 1u);
        edited.onFormat.name = "";
        edited.messagesThreshold = 2;
        return accept;
    };
    addIn.ShowKLOptions();
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(addIn.options().messagesThreshold, 1);
    accept = true;
    addIn.ShowKLOptions();
    EXPECT_EQ(disk.changes, Lines{"replace /c/settings"});
    EXPECT_EQ(addIn.options().messagesThreshold, 2);
    EXPECT_FALSE(addIn.options().onFormat.scheme);
    EXPECT_EQ(addIn.options().onFormat.name, "");
}

TEST_F(Connected, OptionsThatCannotBeWrittenHoldForTheSession) {
    connect();
    disk.fail("replace", "/c/settings", FailureKind::full);
    host.onOptions = [](Addin::AddInOptions& edited, NorvaneUI::PropertySetStore&) {
        edited.messagesThreshold = 3;
        return true;
    };
    addIn.ShowKLOptions();
    EXPECT_EQ(host.log, Lines{"notice: Could not open application registry key. Any options you set during this "
                              "session will not be saved."});
    EXPECT_EQ(addIn.options().messagesThreshold, 3);
}

TEST_F(Connected, SchemesAreLookedUpAgainBehindTheDialog) {
    connect();
    host.onOptions = [](Addin::AddInOptions&, NorvaneUI::PropertySetStore& schemes) {
        schemes.find("Mine")->second.scheme.setInt("TAB_SIZE", 8);
        return false;
    };
    addIn.ShowKLOptions();
    std::int32_t tabSize = 0;
    EXPECT_TRUE(addIn.options().onFormat.scheme->getInt("TAB_SIZE", tabSize));
    EXPECT_EQ(tabSize, 8);
    host.onOptions = [](Addin::AddInOptions&, NorvaneUI::PropertySetStore& schemes) {
        schemes.erase("Mine");
        return false;
    };
    addIn.ShowKLOptions();
    EXPECT_FALSE(addIn.options().onFormat.scheme);
}

TEST_F(Connected, HostWithoutDialogsAndHelpIsNoTrouble) {
    connect();
    host.failing["showOptions"] = FailureKind::unsupported;
    host.failing["showHelp"] = FailureKind::unsupported;
    addIn.ShowKLOptions();
    addIn.ShowKLHelp();
    EXPECT_TRUE(host.log.empty());
}

TEST_F(Connected, NoExceptionReachesTheHost) {
    connect();
    host.onOptions = [](Addin::AddInOptions&, NorvaneUI::PropertySetStore&) -> bool { throw 1; };
    addIn.ShowKLOptions();
    EXPECT_EQ(host.log,
              Lines{"3: An unexpected error has occurred. The current Kerfline operation has failed. Please "
                    "contact Technical Support and report the following details: Unknown"});
    // The operation is over, and the next one runs.
    addIn.ShowKLHelp();
    EXPECT_EQ(host.log.back(), "help: FormattingAddIn.htm");
}

TEST_F(Connected, SettingsThatCannotBeOpenedAreToldOf) {
    disk.fail("read", "/c/settings", FailureKind::denied);
    connect();
    EXPECT_EQ(host.log, Lines{"notice: Could not open application registry key. Any options you set during this "
                              "session will not be saved."});
}

TEST_F(AddinTest, DestructionDetachesFromTheHost) {
    {
        Addin::AddIn addIn(host, disk);
        addIn.OnConnection();
        EXPECT_NE(host.sink, nullptr);
    }
    EXPECT_EQ(host.sink, nullptr);
}

} // namespace
