#ifndef KERFLINE_TESTS_ADDIN_FIXTURE_H
#define KERFLINE_TESTS_ADDIN_FIXTURE_H

#include "addin/Addin_FormatJob.h"
#include "files/Zelmar_Trace.h"
#include "tests/addin/FakeHost.h"
#include "tests/store/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A source, what the scheme of the fixture makes of it, and one that does not parse.
inline constexpr const char* kSource = "void f() {\n    if(a) b();\n}\n";
inline constexpr const char* kResult = "void f() {\n    if (a) b();\n}\n";
inline constexpr const char* kBroken = "void f( {\n";

/// A scheme with the one option that the sources above show.
inline Norvane::PropertySet keywordScheme(const std::string& name = "Mine") {
    Norvane::PropertySet scheme(name);
    scheme.setString("WS_AFTER_CS_KEY", " ");
    scheme.setString("KERFLINE_VERSION", "1.2.1");
    return scheme;
}

/// A host, a disk and settings for one test.
class AddinTest : public testing::Test {
protected:
    using Lines = std::vector<std::string>;
    using FailureKind = NorvaneUI::FailureKind;

    AddinTest() { Zelmar::Trace::setStream(nullptr); }
    ~AddinTest() override {
        Zelmar::Trace::switchOff();
        // Whatever happens, no dialog stays on the screen.
        EXPECT_FALSE(host.dialogOpen);
    }

    FakeHost host;
    FakeFileSystem disk;
    Addin::AddInOptions options;
    Addin::Workbench bench{host, disk, options};
};

#endif
