#include "qt/NorvaneQt_WindowHost.h"

#include "addin/Addin_Messages.h"
#include "qt/NorvaneQt_HelpWindow.h"
#include "qt/NorvaneQt_OptionsWindow.h"
#include "ui/NorvaneUI_OptionsDlg.h"
#include "ui/NorvaneUI_StylesDlg.h"

#include <QEventLoop>

#include <utility>

namespace NorvaneQt {

namespace {

/// Somebody who has never chosen a scheme starts with the plainest.
void selectFirst(const Addin::Settings& state, NorvaneUI::StylesDlg& styles) {
    std::string chosen;
    state.getString("CurrentPropertySet", chosen);
    if (chosen.empty()) styles.select("default");
}

/// Not as a modal dialog: the help has to stay within reach beside it.
void runUntilLeft(OptionsWindow& window) {
    QEventLoop loop;
    QObject::connect(&window, &QDialog::finished, &loop, [&loop] { loop.quit(); });
    window.show();
    loop.exec();
}

} // namespace

WindowHost::WindowHost(NorvaneUI::FileSystem& files, Places places, std::vector<Norvane::PropertySet> shipped)
    : files_(files), places_(std::move(places)), shipped_(std::move(shipped)) {}

WindowHost::~WindowHost() = default;

void WindowHost::addMessage(const Addin::Message& message) { face_.notify(Addin::shownText(message)); }

Addin::Result<bool> WindowHost::showOptions(Addin::AddInOptions& options, NorvaneUI::PropertySetStore& schemes) {
    Addin::Settings state(files_, places_.settingsFile);
    // The add-in has told already if they cannot be read.
    state.read();
    NorvaneUI::StylesDlg styles(face_, files_, state, schemes, shipped_);
    selectFirst(state, styles);
    NorvaneUI::OptionsDlg settings;
    for (const Norvane::PropertySet& scheme : shipped_) settings.shipped.push_back(scheme.getName());
    settings.take(options, schemes.schemes());
    settings.open();
    OptionsWindow window(
        face_, styles, settings, [&schemes] { return schemes.schemes(); },
        [this](const std::string& topic) { showHelp(topic); });
    if (!start_.preview.empty()) styles.sheet().useOwnText(start_.preview);
    if (start_.page) window.showPage(*start_.page);
    if (start_.settings) window.showSettings();
    if (windowAction_) windowAction_(window);
    runUntilLeft(window);
    if (window.keepsSettings()) settings.giveTo(options);
    return window.keepsSettings();
}

Addin::Status WindowHost::showHelp(const std::string& topic) {
    if (!help_) help_ = std::make_unique<HelpWindow>(nullptr);
    if (help_->showTopic(topic)) return {};
    return Addin::Failure{Addin::FailureKind::missing, topic};
}

} // namespace NorvaneQt
