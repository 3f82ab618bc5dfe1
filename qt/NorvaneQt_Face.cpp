#include "qt/NorvaneQt_Face.h"

#include "qt/NorvaneQt_Text.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace NorvaneQt {

namespace {

class CountScope {
public:
    explicit CountScope(int& count) : count_(count) { ++count_; }
    CountScope(const CountScope&) = delete;
    CountScope& operator=(const CountScope&) = delete;
    ~CountScope() { --count_; }

private:
    int& count_;
};

QMessageBox::StandardButton showBox(QWidget* window, QMessageBox::Icon icon, const std::string& text,
                                    QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, QApplication::applicationDisplayName(), toQt(text), buttons, window);
    // A scheme may be called "<b>": names are no markup.
    box.setTextFormat(Qt::PlainText);
    if (buttons.testFlag(QMessageBox::Cancel)) {
        // Neither Escape nor a Return that comes too early saves or loses anything.
        box.setEscapeButton(QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Cancel);
    }
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

void Face::notify(const std::string& text) {
    const CountScope scope(asking_);
    showBox(window_, QMessageBox::Warning, text, QMessageBox::Ok);
}

NorvaneUI::Answer Face::ask(const std::string& text) {
    const CountScope scope(asking_);
    const auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    switch (showBox(window_, QMessageBox::Question, text, buttons)) {
    case QMessageBox::Yes: return NorvaneUI::Answer::yes;
    case QMessageBox::No: return NorvaneUI::Answer::no;
    default: return NorvaneUI::Answer::cancel;
    }
}

std::optional<std::string> Face::askSchemeName(const std::string& proposal) {
    const CountScope scope(asking_);
    bool accepted = false;
    const QString name = QInputDialog::getText(window_, QStringLiteral("Name of the scheme"), QStringLiteral("&Name:"),
                                               QLineEdit::Normal, toQt(proposal), &accepted);
    if (!accepted) return std::nullopt;
    return fromQt(name);
}

std::optional<std::string> Face::chooseFile() {
    const CountScope scope(asking_);
    const QString path = QFileDialog::getOpenFileName(window_, QStringLiteral("A file to preview"));
    if (path.isEmpty()) return std::nullopt;
    return QFile::encodeName(path).toStdString();
}

void Face::setFocus(std::string_view control) {
    if (focusAction_) focusAction_(control);
}

} // namespace NorvaneQt
