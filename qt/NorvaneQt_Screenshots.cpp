#include "qt/NorvaneQt_Screenshots.h"

#include "qt/NorvaneQt_OptionsWindow.h"
#include "qt/NorvaneQt_Palettes.h"
#include "qt/NorvaneQt_Text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

namespace NorvaneQt {

namespace {

constexpr QSize kSizes[] = {{1280, 800}, {1000, 640}};

/// The previews run on a thread and come when they are done.
void letPreviewArrive() {
    constexpr int time = 150;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < time) QApplication::processEvents(QEventLoop::AllEvents, time);
}

void take(OptionsWindow& window, const QString& path) {
    letPreviewArrive();
    // As small as it gets: some of the pictures are kept with the sources.
    constexpr int strongest = 0;
    window.grab().save(path, "PNG", strongest);
}

void chooseScheme(OptionsWindow& window, const QString& name) {
    auto* schemes = window.findChild<QComboBox*>(QStringLiteral("schemes"));
    schemes->setCurrentIndex(schemes->findText(name));
    emit schemes->activated(schemes->currentIndex());
}

void type(OptionsWindow& window, const QString& field, const QString& text) {
    auto* input = window.findChild<QLineEdit*>(field);
    input->setFocus();
    input->selectAll();
    for (const QChar letter : text) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(input, &key);
    }
}

void click(OptionsWindow& window, const QString& button) {
    window.findChild<QAbstractButton*>(button)->click();
}

/// The window at work, for those who want to know what it does.
void takeStates(OptionsWindow& window, const QString& start) {
    chooseScheme(window, QStringLiteral("knr"));
    window.showPage(NorvaneUI::PageId::Classes);
    letPreviewArrive();
    click(window, QStringLiteral("visibleWhiteSpace"));
    type(window, QStringLiteral("WS_BEFORE_CLASS_OPEN_BRACE"), QStringLiteral("\\n"));
    take(window, start + QStringLiteral("Editing.png"));
    click(window, QStringLiteral("visibleWhiteSpace"));
    type(window, QStringLiteral("WS_AFTER_CLASS_NAME"), QStringLiteral("x"));
    take(window, start + QStringLiteral("WrongEntry.png"));
    type(window, QStringLiteral("WS_AFTER_CLASS_NAME"), QStringLiteral("\\s"));
    click(window, QStringLiteral("CLASS_USE_GLOBAL_SETTINGS"));
    take(window, start + QStringLiteral("GlobalSettings.png"));
    click(window, QStringLiteral("CLASS_DO_NOT_FORMAT"));
    take(window, start + QStringLiteral("LeftAlone.png"));
    click(window, QStringLiteral("restore"));
    type(window, QStringLiteral("search"), QStringLiteral("comma"));
    take(window, start + QStringLiteral("Search.png"));
    window.findChild<QLineEdit*>(QStringLiteral("search"))->clear();
}

void takeAll(OptionsWindow& window, const QString& start) {
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        window.showPage(page.id);
        take(window, start + toQt(page.className) + QStringLiteral(".png"));
    }
    takeStates(window, start);
    window.showSettings();
    take(window, start + QStringLiteral("Settings.png"));
}

} // namespace

void takeScreenshotsThenQuit(OptionsWindow& window, const QString& folder) {
    QTimer::singleShot(0, &window, [&window, folder] {
        for (const QSize size : kSizes) {
            window.resize(size);
            const QString start = QStringLiteral("%1/%2-").arg(folder).arg(window.width());
            QApplication::setPalette(lightPalette());
            takeAll(window, start + QStringLiteral("light-"));
            QApplication::setPalette(darkPalette());
            takeAll(window, start + QStringLiteral("dark-"));
        }
        window.reject();
    });
}

} // namespace NorvaneQt
