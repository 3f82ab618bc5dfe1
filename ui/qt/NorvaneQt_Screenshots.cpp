#include "ui/qt/NorvaneQt_Screenshots.h"

#include "ui/qt/NorvaneQt_OptionsWindow.h"
#include "ui/qt/NorvaneQt_Palettes.h"
#include "ui/qt/NorvaneQt_Text.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace NorvaneQt {

namespace {

constexpr QSize kSizes[] = {{1280, 800}, {1000, 640}};

/// The previews run on a thread and come when they are done.
void letPreviewArrive() {
    constexpr int time = 250;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < time) QApplication::processEvents(QEventLoop::AllEvents, time);
}

void take(OptionsWindow& window, const QString& path) {
    letPreviewArrive();
    window.grab().save(path);
}

void takeAll(OptionsWindow& window, const QString& start) {
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        window.showPage(page.id);
        take(window, start + toQt(page.className) + QStringLiteral(".png"));
    }
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
