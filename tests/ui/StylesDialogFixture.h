#ifndef KERFLINE_TESTS_STYLESDIALOGFIXTURE_H
#define KERFLINE_TESTS_STYLESDIALOGFIXTURE_H

#include "tests/store/FakeFileSystem.h"
#include "tests/ui/FakeFace.h"
#include "tests/ui/SchemeTools.h"
#include "ui/NorvaneUI_StylesDlg.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// A folder with the schemes "Locked", of a read-only file, "Mine" and "Other", and a dialog on it.
class StylesDialog : public testing::Test {
protected:
    StylesDialog() {
        put("Mine", " ");
        put("Other", "");
        put("Locked", "");
        disk.setWritable("/s/Locked.kls", false);
        open();
    }

    /// As another program writes a scheme: with one option, and the version.
    void put(const std::string& name, const std::string& value) {
        Norvane::PropertySet scheme = schemeOf(name, {{"WS_AFTER_CS_KEY", value}});
        scheme.setString("KERFLINE_VERSION", "1.2.1");
        disk.put("/s/" + name + ".kls", NorvaneUI::schemeText(scheme));
    }
    void open(std::vector<Norvane::PropertySet> shipped = {}) {
        store = std::make_unique<NorvaneUI::PropertySetStore>("/s", disk);
        store->read();
        dialog = std::make_unique<NorvaneUI::StylesDlg>(face, disk, settings, *store, std::move(shipped));
        dialog->setFolderAction([this](const NorvaneUI::StylesDlg::Saved& saved) {
            renamed.insert(saved.renamed.begin(), saved.renamed.end());
            removed.insert(saved.removed.begin(), saved.removed.end());
        });
        disk.changes.clear();
    }
    /// The user means it.
    bool deleteScheme() {
        face.answers.push_front(NorvaneUI::Answer::yes);
        const bool done = dialog->deleteScheme();
        if (!done) face.answers.pop_front();
        face.questions.clear();
        return done;
    }

    std::string shown() const {
        std::string text;
        for (const NorvaneUI::StylesDlg::Item& item : dialog->items()) {
            if (!text.empty()) text += ", ";
            text += item.shown + (item.builtIn ? " [built-in]" : "");
        }
        return text;
    }
    /// Changes the one option of the scheme.
    void edit(const std::string& name, const std::string& typed) {
        ASSERT_TRUE(dialog->select(name));
        dialog->sheet().selectPage(NorvaneUI::PageId::ControlStatements);
        dialog->sheet().currentPage().typeText("WS_AFTER_CS_KEY", typed);
    }
    std::string valueOnDisk(const std::string& name) const { return valueInFile("/s/" + name + ".kls"); }
    std::string valueInFile(const std::string& path) const {
        Norvane::PropertySet scheme;
        if (!disk.has(path)) return "no file";
        return NorvaneUI::parseScheme(disk.text(path), scheme) ? optionText(scheme, "WS_AFTER_CS_KEY") : "broken";
    }
    std::string value(const std::string& name) {
        EXPECT_TRUE(dialog->select(name));
        return optionText(dialog->sheet().scheme()->scheme(), "WS_AFTER_CS_KEY");
    }

    FakeFace face;
    // What the dialog told of the folder.
    std::map<std::string, std::string> renamed;
    std::set<std::string> removed;
    FakeFileSystem disk;
    Addin::Settings settings{disk, "/c/settings"};
    std::unique_ptr<NorvaneUI::PropertySetStore> store;
    std::unique_ptr<NorvaneUI::StylesDlg> dialog;
};

#endif
