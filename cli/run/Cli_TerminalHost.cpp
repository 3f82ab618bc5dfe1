#include "cli/run/Cli_TerminalHost.h"

#include "addin/Addin_Messages.h"
#include "addin/Addin_Texts.h"
#include "addin/Addin_UserFolders.h"
#include "cli/console/Cli_Interrupt.h"
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

Place placeOf(const Addin::Place& place) {
    // A line feed counts as column 0 of the line behind it, and no place at all has no line.
    return {place.path, std::max<std::uint32_t>(place.position.line, 1),
            std::max<std::uint32_t>(place.position.column, 1)};
}

/// The text behind the place that a diagnostic starts with.
std::string withoutPlace(std::uint32_t severity, const std::string& text, const Addin::Place& place) {
    const std::string start = Addin::diagnosticLine(place.path, {severity, place.position, 0, ""});
    return text.starts_with(start) ? text.substr(start.size()) : text;
}

} // namespace

std::string_view severityWord(std::uint32_t severity) {
    if (severity == Trn::kSeverityError) return "error";
    return severity == Trn::kSeverityWarning ? "warning" : "note";
}

TerminalHost::TerminalHost(const Streams& streams, Report& report, Verbosity verbosity, bool assumesYes)
    : streams_(streams), report_(report), verbosity_(verbosity), assumesYes_(assumesYes) {}

void TerminalHost::setFile(const std::string& path) {
    file_ = path;
    hasPlacedError_ = false;
    lastText_.clear();
}

std::string TerminalHost::schemeDirectory() { return Addin::userSchemeFolder(); }

std::string TerminalHost::settingsFile() { return Addin::userSettingsFile(); }

Failure TerminalHost::noDocuments() { return {FailureKind::unsupported, "A command line has no documents"}; }

void TerminalHost::notify(const std::string& text) {
    // On a terminal a notice and a message are the same thing.
    if (text != lastText_) addWithoutPlace(Trn::kSeverityError, text);
}

Answer TerminalHost::ask(const std::string& text, Addin::Occasion) {
    if (assumesYes_) return Answer::yes;
    if (!streams_.terminals.in) return Answer::cancel;
    for (std::string line;;) {
        streams_.err << text << " [y]es, [n]o, [c]ancel: " << std::flush;
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

void TerminalHost::addMessage(std::uint32_t severity, const std::string& text,
                              const std::optional<Addin::Place>& place) {
    lastText_ = text;
    if (!place) {
        addWithoutPlace(severity, text);
    } else if (verbosity_ != Verbosity::quiet || isShown(severity)) {
        // What is not an error here explains one.
        report_.add(placeOf(*place), severityWord(severity), withoutPlace(severity, text, *place));
        hasPlacedError_ = true;
    }
}

void TerminalHost::addWithoutPlace(std::uint32_t severity, const std::string& text) {
    if (!isShown(severity)) return;
    if (file_.empty()) {
        report_.addGeneral(severityWord(severity), text);
        return;
    }
    // Behind an error that points into the file this says nothing new.
    const bool isRepetition = hasPlacedError_ && text == NorvaneUI::filled(Addin::Texts::kNotParsed, {file_});
    if (!isRepetition || verbosity_ == Verbosity::verbose) report_.add({file_}, severityWord(severity), text);
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
    if (runHelpCommand({page}, streams_) == ExitStatus::done) return std::nullopt;
    return Failure{FailureKind::missing, "There is no such page: " + page};
}

} // namespace Cli
