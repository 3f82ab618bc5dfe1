#ifndef KERFLINE_TESTS_WINDOWTEST_H
#define KERFLINE_TESTS_WINDOWTEST_H

#include "qt/NorvaneQt_OptionsWindow.h"
#include "tests/qt/Responder.h"
#include "tests/store/FakeFileSystem.h"
#include "ui/NorvaneUI_OptionsDlg.h"
#include "ui/NorvaneUI_StylesDlg.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

inline constexpr const char* kFolder = "/schemes/";
inline constexpr const char* kSettingsFile = "/settings";

/// The window over files in memory: "mine" can be written, "locked" cannot, and "shipped" is part of
/// the program. "mine" indents classes by two blanks.
class WindowTest : public testing::Test {
protected:
    WindowTest() {
        putScheme("mine", "3 INDENT_CLASS_CONTENT \"  \"\n3 WS_AFTER_CS_KEY \" \"\n");
        files.putReadOnly(std::string(kFolder) + "locked.kls", text("locked", "3 INDENT_CLASS_CONTENT \"\\t\"\n"));
        open();
    }

    ~WindowTest() override { EXPECT_EQ(responder.surprises, 0) << "a box opened that nobody expected"; }

    static std::string text(const std::string& name, const std::string& lines) {
        return "Norvane::PropertySet\n1\n\"" + name + "\"\n" + lines + "3 KERFLINE_VERSION \"1.2.1\"\n";
    }
    void putScheme(const std::string& name, const std::string& lines) {
        files.put(std::string(kFolder) + name + ".kls", text(name, lines));
    }

    /// As the program does it; again to see what was stored.
    void open() {
        close();
        settings = std::make_unique<Addin::Settings>(files, kSettingsFile);
        settings->read();
        store = std::make_unique<NorvaneUI::PropertySetStore>(kFolder, files);
        store->read();
        styles = std::make_unique<NorvaneUI::StylesDlg>(face, files, *settings, *store,
                                                        std::vector{Norvane::PropertySet("shipped")});
        options.shipped = {"shipped"};
        options.take(initial, store->schemes());
        options.open();
        window = std::make_unique<NorvaneQt::OptionsWindow>(
            face, *styles, options, [this] { return store->schemes(); },
            [this](const std::string& topic) { topics.push_back(topic); });
        window->show();
        QApplication::setActiveWindow(window.get());
        styles->select("mine");
        window->showPage(NorvaneUI::PageId::Classes);
        QTest::qWait(10);
    }

    void close() {
        window.reset();
        styles.reset();
    }

    /// Of several with the name, one on each page, that of the page that is shown.
    template <class Widget = QWidget> Widget& widget(const std::string& name) {
        Widget* found = nullptr;
        for (Widget* candidate : window->findChildren<Widget*>(QString::fromStdString(name))) {
            if (found == nullptr || candidate->isVisible()) found = candidate;
        }
        if (found == nullptr) throw std::runtime_error("no widget " + name);
        return *found;
    }
    void click(const std::string& button) { widget<QAbstractButton>(button).click(); }

    // As a user does it, with mouse and keys.
    void mouseClick(QWidget& target) {
        QTest::mouseClick(&target, Qt::LeftButton, {}, QPoint(target.height() / 2, target.height() / 2));
    }
    void mouseClick(const std::string& name) { mouseClick(widget(name)); }
    /// Into the text of a number, behind its last letter.
    void mouseClickText(const std::string& name) {
        auto& edit = *widget(name).findChild<QLineEdit*>();
        QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(edit.width() - 2, edit.height() / 2));
    }
    QWidget* focus() { return window->focusWidget() != nullptr ? window->focusWidget() : window.get(); }
    void keys(const std::string& text) { QTest::keyClicks(focus(), QString::fromStdString(text)); }
    void keys(QKeySequence::StandardKey key) { QTest::keySequence(focus(), QKeySequence(key)); }

    /// Into the empty field of an option.
    void type(const std::string& option, const std::string& keys) {
        auto& field = widget<QLineEdit>(option);
        field.setFocus();
        field.selectAll();
        if (!field.text().isEmpty()) QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromStdString(keys));
    }
    /// As a user picks an item with the mouse.
    static void pick(QComboBox& box, int item) {
        box.setCurrentIndex(item);
        emit box.activated(item);
    }

    const Norvane::PropertySet& scheme() { return styles->sheet().scheme()->scheme(); }
    /// "none" if the option is not set.
    std::string value(const std::string& option) {
        std::string found = "none";
        scheme().getString(option, found);
        return found;
    }
    std::string shownPreview() { return widget<QPlainTextEdit>("preview").toPlainText().toStdString(); }
    bool waitForPreview(const std::string& part) {
        return QTest::qWaitFor([&] { return shownPreview().find(part) != std::string::npos; }, 10000);
    }

    /// The settings that the window opens with.
    Addin::AddInOptions initial;
    FakeFileSystem files;
    NorvaneQt::Face face;
    std::unique_ptr<Addin::Settings> settings;
    std::unique_ptr<NorvaneUI::PropertySetStore> store;
    std::unique_ptr<NorvaneUI::StylesDlg> styles;
    NorvaneUI::OptionsDlg options;
    std::unique_ptr<NorvaneQt::OptionsWindow> window;
    std::vector<std::string> topics;
    Responder responder;
};

#endif
