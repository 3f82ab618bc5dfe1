#include "schemes/NorvaneUI_SchemeName.h"
#include "tests/store/FakeFileSystem.h"

#include <gtest/gtest.h>

namespace {

TEST(SchemeName, RefusesWhatTheDiskWouldLose) {
    FakeFileSystem disk;
    NorvaneUI::PropertySetStore store("/s", disk);
    store.insert(Norvane::PropertySet("Taken"));
    store.insert(Norvane::PropertySet("a:b"));
    const std::string control = "The name of a scheme cannot hold line ends, tabs or other control characters.";
    const std::string encoding = "The name of a scheme must be UTF-8 text.";
    const std::pair<std::string, std::string> cases[] = {
        {"Good name", ""},
        {"gr\xc3\xbcn \xf0\x9f\x98\x80", ""},
        {"..", ""},
        {"", "A scheme needs a name."},
        {"a\nb", control},
        {std::string("a\0b", 3), control},
        {"a\x7f", control},
        {"\xc3", encoding},
        {"\xc3(", encoding},
        {"\xc0\x80", encoding},
        {"\xe0\x80\x80", encoding},
        {"\xed\xa0\x80", encoding},
        {"\xf4\x90\x80\x80", encoding},
        {"none", "\"none\" stands for no scheme at all."},
        {"<No Formatting>", "\"<No Formatting>\" stands for no scheme at all."},
        {"Taken", "There is already a scheme \"Taken\"."},
        {"a/b", "The scheme would go to the file \"a_b.kl1\", which is not found again. Choose another name."},
        {"a.", "The scheme would go to the file \"a_kls\", which is not found again. Choose another name."},
        {std::string(251, 'x'), ""},
        {std::string(252, 'x'), "The name of the scheme is too long for a file."},
    };
    for (const auto& [name, fault] : cases) EXPECT_EQ(NorvaneUI::schemeNameFault(store, name), fault) << name;
}

} // namespace
