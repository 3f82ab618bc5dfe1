#include "tests/qt/WindowTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>

#include <map>
#include <set>

using NorvaneUI::PageInfo;

/// What holds for every page, as a person without a mouse or with a small screen needs it.
class EveryPage : public WindowTest {
protected:
    template <class Action> void onEveryPage(Action action) {
        for (const PageInfo& page : NorvaneUI::pageTable()) {
            SCOPED_TRACE(std::string(page.title));
            window->showPage(page.id);
            action(page);
        }
    }
    /// The letters that Alt goes with.
    std::map<QChar, QString> shortcuts(const QStringList& texts) {
        std::map<QChar, QString> found;
        for (QString text : texts) {
            text.remove("&&");
            const auto at = text.indexOf('&');
            if (at < 0) continue;
            const QChar letter = text[at + 1].toLower();
            EXPECT_EQ(found.count(letter), 0U) << text.toStdString() << " and " << found[letter].toStdString();
            found[letter] = text;
        }
        return found;
    }
    bool isInScrollArea(const QWidget& part) {
        const QWidget* above = part.parentWidget();
        while (above != nullptr && qobject_cast<const QScrollArea*>(above) == nullptr) above = above->parentWidget();
        return above != nullptr;
    }
    QStringList visibleTexts() {
        QStringList texts;
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            if (button->isVisible()) texts += button->text();
        }
        for (auto* label : window->findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy() != nullptr) texts += label->text();
        }
        const auto& tabs = widget<QTabWidget>("tabs");
        for (int i = 0; i < tabs.count(); ++i) texts += tabs.tabText(i);
        return texts;
    }
};

TEST_F(EveryPage, HasAControlForEachOfItsOptions) {
    onEveryPage([&](const PageInfo& page) {
        for (const NorvaneUI::PageOption& option : page.options) {
            const std::string name(option.name);
            styles->sheet().selectOption(option.name);
            const auto& input = widget(name);
            EXPECT_TRUE(input.isVisibleTo(window.get())) << name;
            EXPECT_TRUE(!input.isEnabled() || input.hasFocus()) << name;
            EXPECT_FALSE(input.accessibleName().isEmpty()) << name;
            EXPECT_TRUE(widget(name + ":set").toolTip().contains(QString::fromStdString(name))) << name;
        }
    });
}

TEST_F(EveryPage, IsReachedByTabAlone) {
    onEveryPage([&](const PageInfo& page) {
        std::set<QString> reached;
        widget("pages").setFocus();
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window->focusWidget()->objectName().toStdString(), page.doNotFormatKey);
        for (int i = 0; i < 200; ++i) {
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
            reached.insert(window->focusWidget()->objectName());
        }
        for (const char* name : {"schemes", "pages", "new", "save", "preview", "visibleWhiteSpace", "help", "ok"}) {
            EXPECT_EQ(reached.count(name), 1U) << name;
        }
        for (const NorvaneUI::PageOption& option : page.options) {
            const QString name = QString::fromStdString(std::string(option.name));
            EXPECT_TRUE(reached.count(name) == 1 || !widget(std::string(option.name)).isEnabled()) << option.name;
        }
    });
}

TEST_F(EveryPage, UsesEachShortcutOnce) {
    onEveryPage([&](const PageInfo&) { EXPECT_GE(shortcuts(visibleTexts()).size(), 15U); });
    window->showSettings();
    EXPECT_GE(shortcuts(visibleTexts()).size(), 9U);
}

TEST_F(EveryPage, CutsNoTextAtTheSmallestSize) {
    window->resize(1, 1);
    onEveryPage([&](const PageInfo&) {
        QTest::qWait(1);
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || button->text().isEmpty()) continue;
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
            // What stands on a page can be scrolled to.
            if (isInScrollArea(*button)) continue;
            EXPECT_LE(button->mapTo(window.get(), QPoint(button->width(), 0)).x(), window->width())
                << button->text().toStdString();
        }
    });
    EXPECT_LE(window->width(), 1024);
    EXPECT_LE(window->height(), 700);
}
