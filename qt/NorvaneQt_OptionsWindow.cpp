#include "qt/NorvaneQt_OptionsWindow.h"

#include "qt/NorvaneQt_SchemesView.h"
#include "qt/NorvaneQt_SettingsView.h"
#include "qt/NorvaneQt_Text.h"
#include "qt/NorvaneQt_Widgets.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace NorvaneQt {

namespace {

constexpr const char* kSettingsTopic = "FormattingAddIn.htm";
/// The window, its splitter, its tab.
constexpr qsizetype kStateParts = 3;
constexpr const char* kModifiedSettings =
    "You have changed settings. Choose Yes to save the changes, No to discard the changes and Cancel to return to "
    "the settings.";

/// Room for a page and eighty columns of preview, as far as the screen has it.
QSize firstSize(const QWidget& window) {
    const QSize wanted(window.fontMetrics().averageCharWidth() * 190, window.fontMetrics().lineSpacing() * 46);
    return wanted.boundedTo(window.screen()->availableSize() * 0.95);
}

} // namespace

OptionsWindow::OptionsWindow(Face& face, NorvaneUI::StylesDlg& styles, NorvaneUI::OptionsDlg& settings,
                             SchemeList saved, HelpAction help)
    : face_(face), styles_(styles), settings_(settings), saved_(std::move(saved)), help_(std::move(help)),
      tabs_(new QTabWidget), schemesView_(new SchemesView(styles, this)),
      settingsView_(new SettingsView(settings, this)) {
    setWindowTitle(QStringLiteral("Kerfline Options"));
    setWindowFlags(Qt::Window);
    setSizeGripEnabled(true);
    tabs_->setObjectName(QStringLiteral("tabs"));
    tabs_->setDocumentMode(true);
    tabs_->addTab(schemesView_, QStringLiteral("&1 Schemes"));
    tabs_->addTab(settingsView_, QStringLiteral("&2 Settings"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs_, 1);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    addButtons(*row);
    addShortcuts();
    styles_.setFolderAction([this](const NorvaneUI::StylesDlg::Saved& done) { followFolder(done); });
    QObject::connect(tabs_, &QTabWidget::currentChanged, this, [this] { refreshButtons(); });
    schemesView_->setRefreshAction([this] { refreshButtons(); });
    face_.setWindow(this);
    face_.setFocusAction([this](std::string_view control) { focusControl(control); });
    refreshButtons();
    resize(firstSize(*this));
    openAsLeft();
}

/// What was kept may be from another program, or another time of this one: what is no such state
/// changes nothing.
void OptionsWindow::openAsLeft() {
    const QList<QByteArray> parts = QByteArray::fromStdString(styles_.windowState()).split(' ');
    if (parts.size() != kStateParts) return;
    restoreGeometry(QByteArray::fromBase64(parts[0]));
    schemesView_->splitter().restoreState(QByteArray::fromBase64(parts[1]));
    tabs_->setCurrentIndex(parts[2].toInt());
}

void OptionsWindow::keepPlace() {
    const QByteArray state = saveGeometry().toBase64() + ' ' + schemesView_->splitter().saveState().toBase64() + ' ' +
                             QByteArray::number(tabs_->currentIndex());
    styles_.setWindowState(state.toStdString());
}

OptionsWindow::~OptionsWindow() {
    styles_.setFolderAction({});
    face_.setWindow(nullptr);
    face_.setFocusAction({});
}

void OptionsWindow::addButtons(QHBoxLayout& row) {
    const auto add = [&](const char* text, const char* name, auto action) {
        QPushButton* button = makeButton(QString::fromUtf8(text), name, this);
        row.addWidget(button);
        QObject::connect(button, &QPushButton::clicked, this, action);
        return button;
    };
    add("&Help", "help", [this] { showHelp(); });
    preview_ = add("", "togglePreview", [this] { togglePreview(); });
    undo_ = add("&Undo", "undo", [this] { styles_.sheet().undo(); });
    redo_ = add("Re&do", "redo", [this] { styles_.sheet().redo(); });
    row.addStretch(1);
    add("OK", "ok", [this] { accept(); });
    add("Cancel", "cancel", [this] { reject(); });
}

void OptionsWindow::addShortcuts() {
    const auto add = [this](QKeySequence::StandardKey key, auto action) {
        auto* shortcut = new QShortcut(this);
        shortcut->setKeys(key);
        QObject::connect(shortcut, &QShortcut::activated, this, action);
    };
    add(QKeySequence::Undo, [this] { undo_->click(); });
    add(QKeySequence::Redo, [this] { redo_->click(); });
    add(QKeySequence::Save, [this] { schemesView_->save(); });
    add(QKeySequence::HelpContents, [this] { showHelp(); });
    add(QKeySequence::Find, [this] {
        tabs_->setCurrentWidget(schemesView_);
        schemesView_->focusSearch();
    });
}

void OptionsWindow::refreshButtons() {
    const bool onSchemes = tabs_->currentWidget() == schemesView_;
    preview_->setText(toQt(styles_.sheet().previewButtonText()));
    preview_->setEnabled(onSchemes);
    undo_->setEnabled(onSchemes && styles_.sheet().canUndo());
    redo_->setEnabled(onSchemes && styles_.sheet().canRedo());
}

void OptionsWindow::focusControl(std::string_view control) {
    if (settingsView_->focusControl(control)) {
        tabs_->setCurrentWidget(settingsView_);
        settingsView_->focusControl(control);
        return;
    }
    tabs_->setCurrentWidget(schemesView_);
    schemesView_->focusOption(control);
}

void OptionsWindow::showHelp() {
    const bool onSchemes = tabs_->currentWidget() == schemesView_;
    std::string topic = onSchemes ? styles_.sheet().currentPage().helpTopic() : kSettingsTopic;
    const std::string option = onSchemes ? schemesView_->focusedOption() : std::string();
    if (!option.empty()) topic += '#' + option;
    if (help_) help_(topic);
}

void OptionsWindow::togglePreview() {
    styles_.sheet().togglePreview();
    schemesView_->refresh();
}

void OptionsWindow::showPage(NorvaneUI::PageId id) {
    tabs_->setCurrentWidget(schemesView_);
    schemesView_->selectPage(id);
}

void OptionsWindow::showSettings() { tabs_->setCurrentWidget(settingsView_); }

/// A saved scheme that has another name is still the one that was chosen. This is no edit of the
/// settings: it is kept even if the user drops those.
void OptionsWindow::followFolder(const NorvaneUI::StylesDlg::Saved& saved) {
    settings_.changeSchemes(saved_());
    for (const auto& [before, after] : saved.renamed) settings_.renameScheme(before, after);
    for (const std::string& name : saved.removed) settings_.removeScheme(name);
    keepsSettings_ = keepsSettings_ || !saved.renamed.empty() || !saved.removed.empty();
    settingsView_->refresh();
}

void OptionsWindow::accept() {
    keepPlace();
    if (!settings_.check(face_) || !styles_.accept()) return;
    settings_.commit();
    keepsSettings_ = true;
    QDialog::accept();
}

void OptionsWindow::reject() {
    const NorvaneUI::Answer settings = settings_.isModified() ? face_.ask(kModifiedSettings) : NorvaneUI::Answer::no;
    if (settings == NorvaneUI::Answer::cancel) return;
    const bool keeps = settings == NorvaneUI::Answer::yes;
    keepPlace();
    if ((keeps && !settings_.check(face_)) || !styles_.close()) return;
    if (keeps) settings_.commit();
    keepsSettings_ = keepsSettings_ || keeps;
    QDialog::reject();
}

void OptionsWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    const bool comesBack = event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible();
    if (!comesBack || rereadWaits_) return;
    rereadWaits_ = true;
    // Not from within the event: a notice would open while the window is just being raised.
    QTimer::singleShot(0, this, [this] { reread(); });
}

void OptionsWindow::reread() {
    rereadWaits_ = false;
    if (face_.isAsking()) return;
    styles_.rereadFolder();
}

} // namespace NorvaneQt
