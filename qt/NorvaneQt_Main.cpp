#include "addin/Addin_AddIn.h"
#include "addin/Addin_UserFolders.h"
#include "cli/console/Cli_OtherProgram.h"
#include "cli/scheme/Cli_ShippedSchemes.h"
#include "files/NorvaneUI_DiskFileSystem.h"
#include "files/Zelmar_Trace.h"
#include "qt/NorvaneQt_OptionsWindow.h"
#include "qt/NorvaneQt_Palettes.h"
#include "qt/NorvaneQt_Screenshots.h"
#include "qt/NorvaneQt_Text.h"
#include "qt/NorvaneQt_WindowHost.h"
#include "schemes/NorvaneUI_PropertySetStore.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace NorvaneQt;

std::vector<Norvane::PropertySet> shippedSchemes() {
    std::vector<Norvane::PropertySet> schemes;
    for (const Cli::ShippedScheme& shipped : Cli::shippedSchemes()) {
        Norvane::PropertySet scheme;
        if (NorvaneUI::parseScheme(std::string(shipped.text), scheme)) schemes.push_back(scheme);
    }
    return schemes;
}

struct Switches {
    StartPlace start;
    QString palette;
    QString screenshots;
    /// What is wrong with the command line; empty if nothing is.
    QString problem;
};

std::optional<NorvaneUI::PageId> pageCalled(const QString& name) {
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        if (name.compare(toQt(page.title), Qt::CaseInsensitive) == 0) return page.id;
    }
    return std::nullopt;
}

Switches readSwitches(const QApplication& application) {
    const QCommandLineOption page(QStringLiteral("page"), QStringLiteral("Open at this page, such as Classes."),
                                  QStringLiteral("name"));
    const QCommandLineOption settings(QStringLiteral("settings"), QStringLiteral("Open at the settings."));
    const QCommandLineOption palette(QStringLiteral("palette"), QStringLiteral("Colours: light or dark."),
                                     QStringLiteral("name"));
    QCommandLineOption screenshots(QStringLiteral("screenshots"), QString(), QStringLiteral("folder"));
    screenshots.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Edits the schemes and settings of Kerfline."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({page, settings, palette, screenshots});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("A source file to preview."),
                                 QStringLiteral("[file]"));
    parser.process(application);

    Switches switches;
    switches.start.settings = parser.isSet(settings);
    switches.start.page = pageCalled(parser.value(page));
    if (parser.isSet(page) && !switches.start.page) {
        switches.problem = QStringLiteral("There is no page \"%1\".").arg(parser.value(page));
    }
    switches.palette = parser.value(palette);
    switches.screenshots = parser.value(screenshots);
    const QStringList files = parser.positionalArguments();
    if (!files.isEmpty()) switches.start.preview = QFile::encodeName(files.front()).toStdString();
    return switches;
}

/// Somebody who names a platform knows what there is. The toolkit itself would end the program with a
/// crash.
bool canOpenWindows(int argc, char** argv) {
    return Cli::hasScreen() || std::any_of(argv, argv + argc, [](const char* word) {
               return std::string_view(word).ends_with("-platform");
           });
}

} // namespace

int main(int argc, char** argv) {
    if (!canOpenWindows(argc, argv)) {
        std::fputs("kerfline-options: there is no screen to open a window on\n", stderr);
        return 2;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kerfline-options"));
    QApplication::setApplicationDisplayName(QStringLiteral("Kerfline Options"));
    QApplication::setApplicationVersion(QStringLiteral(KERFLINE_VERSION_TEXT));
    const Switches switches = readSwitches(application);
    if (!switches.problem.isEmpty()) {
        std::fprintf(stderr, "kerfline-options: %s\n", switches.problem.toLocal8Bit().constData());
        return 2;
    }
    if (switches.palette == QLatin1String("dark")) QApplication::setPalette(darkPalette());
    if (switches.palette == QLatin1String("light")) QApplication::setPalette(lightPalette());

    Zelmar::Trace::setStream(nullptr);
    NorvaneUI::DiskFileSystem files;
    const std::vector<Norvane::PropertySet> shipped = shippedSchemes();
    WindowHost host(files, {Addin::userSchemeFolder(), Addin::userSettingsFile()}, shipped);
    host.setStart(switches.start);
    if (!switches.screenshots.isEmpty()) {
        host.setWindowAction([&](OptionsWindow& window) { takeScreenshotsThenQuit(window, switches.screenshots); });
    }
    Addin::AddIn addIn(host, files);
    addIn.setShippedSchemes(shipped);
    addIn.OnConnection();
    addIn.ShowKLOptions();
    addIn.OnDisconnection();
    return 0;
}
