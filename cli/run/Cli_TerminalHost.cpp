#include "cli/run/Cli_TerminalHost.h"

#include "addin/Addin_Texts.h"
#include "addin/Addin_UserFolders.h"
#include "cli/console/Cli_Interrupt.h"
#include "cli/console/Cli_Printable.h"
#include "cli/run/Cli_HelpCommand.h"
#include "files/NorvaneUI_Text.h"

#include <algorithm>
#include <istream>

namespace Cli {

namespace {

using Addin::Answer;
using Addin::Failure;
using Addin::FailureKind;

/// Shows nothing by itself: with several files at work, one bar counts them all.
class CancelWatch : public Addin::FileProgressDlg {
public:
    void show(const std::string&) override {}
    void set(int) override {}
    void step() override {}
    bool cancelled() const override { return InterruptGuard::signal() != 0; }
};

std::optional<Answer> answerOf(const std::string& line) {
    const std::size_t start = line.find_first_not_of(" \t");
    switch (start == std::string::npos ? '\0' : line[start]) {
    case 'y': case 'Y': return Answer::yes;
    case 'n': case 'N': return Answer::no;
    case 'c': case 'C': return Answer::cancel;
    default: return std::nullopt;
    }
}

/// The place of a message that has one.
Place placeOf(const Addin::Message& message) {
    // A line feed counts as column 0 of the line behind it.
    return {message.path, message.position.line, std::max<std::uint32_t>(message.position.column, 1)};
}

} // namespace

std::string_view severityWord(std::uint32_t severity) {
    if (severity == Trn::kSeverityError) return "error";
    return severity == Trn::kSeverityWarning ? "warning" : "note";
}

TerminalHost::TerminalHost(const Streams& streams, Report& report, Verbosity verbosity, bool assumesYes)
    : streams_(streams), report_(report), verbosity_(verbosity), assumesYes_(assumesYes) {}

std::string TerminalHost::schemeDirectory() { return Addin::userSchemeFolder(); }

std::string TerminalHost::settingsFile() { return Addin::userSettingsFile(); }

Failure TerminalHost::noDocuments() { return {FailureKind::unsupported, "A command line has no documents"}; }

void TerminalHost::notify(const std::string& text) {
    // On a terminal a notice and a message are the same thing.
    if (text != lastText_) addWithoutPlace({Trn::kSeverityError, text});
}

Answer TerminalHost::ask(const std::string& text, Addin::Occasion) {
    if (assumesYes_) return Answer::yes;
    if (!streams_.terminals.in) return Answer::cancel;
    for (std::string line;;) {
        streams_.err << printable(text) << " [y]es, [n]o, [c]ancel: " << std::flush;
        if (!std::getline(streams_.in, line)) return Answer::cancel;
        if (const auto answer = answerOf(line)) return *answer;
    }
}

bool TerminalHost::isShown(std::uint32_t severity) const {
    switch (verbosity_) {
    case Verbosity::quiet: return severity >= Trn::kSeverityError;
    case Verbosity::normal: return severity >= Trn::kSeverityWarning;
    case Verbosity::verbose: break;
    }
    return true;
}

void TerminalHost::addMessage(const Addin::Message& message) {
    lastText_ = message.text;
    if (message.position.isNone()) {
        addWithoutPlace(message);
    } else if (isShown(message.severity)) {
        report_.add(placeOf(message), severityWord(message.severity), message.text);
        hasPlacedError_ = hasPlacedError_ || message.severity >= Trn::kSeverityError;
    }
}

/// Behind an error that points into the file, that it could not be parsed says nothing new.
bool TerminalHost::isRepetition(const Addin::Message& message) const {
    return hasPlacedError_ && verbosity_ != Verbosity::verbose &&
           message.text == NorvaneUI::filled(Addin::Texts::kNotParsed, {message.path});
}

void TerminalHost::addWithoutPlace(const Addin::Message& message) {
    if (!isShown(message.severity) || isRepetition(message)) return;
    if (message.path.empty()) {
        report_.addGeneral(severityWord(message.severity), message.text);
    } else {
        report_.add({message.path}, severityWord(message.severity), message.text);
    }
}

std::unique_ptr<Addin::FileProgressDlg> TerminalHost::openProgress(int) {
    return std::make_unique<CancelWatch>();
}

Addin::Result<bool> TerminalHost::showOptions(Addin::AddInOptions&, NorvaneUI::PropertySetStore&) {
    return Failure{FailureKind::unsupported, "The options window is another program"};
}

Addin::Status TerminalHost::showHelp(const std::string& topic) {
    const std::size_t prefix = topic.find("::/");
    const std::string page = prefix == std::string::npos ? topic : topic.substr(prefix + 3);
    if (runHelpCommand({page}, streams_) == ExitStatus::done) return {};
    return Failure{FailureKind::missing, "There is no such page: " + page};
}

} // namespace Cli
