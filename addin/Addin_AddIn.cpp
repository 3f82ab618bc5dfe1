#include "addin/Addin_AddIn.h"

#include "addin/Addin_DocumentFormatter.h"
#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "files/Zelmar_Trace.h"
#include "schemes/NorvaneUI_SchemeConversion.h"

#include <string>
#include <vector>

namespace Addin {

namespace {

using NorvaneUI::filled;
using Zelmar::Trace;

struct Command {
    const char* name;
    const char* method;
};
constexpr Command kCommands[] = {
    {"FormatActiveDocument", "FormatActiveDocument"},
    {"FormatActiveProject", "FormatActiveProject"},
    {"FormatActiveWorkspace", "FormatActiveWorkspace"},
    {"ShowOptions", "ShowKLOptions"},
    {"ShowHelp", "ShowKLHelp"},
};

/// The page of a topic that is written with the help file it is in, which is always ours.
std::string pageOf(std::string_view topic) {
    constexpr std::string_view mark = "::/";
    const std::size_t at = topic.find(mark);
    return std::string(at == std::string_view::npos ? topic : topic.substr(at + mark.size()));
}

class RunningScope {
public:
    explicit RunningScope(bool& running) : running_(running) { running_ = true; }
    RunningScope(const RunningScope&) = delete;
    RunningScope& operator=(const RunningScope&) = delete;
    ~RunningScope() { running_ = false; }

private:
    bool& running_;
};

/// The choice as it is to be stored. A list shows a scheme that cannot be found as none, and a user
/// who leaves it at that has not taken the choice back.
SchemeChoice editedChoice(const SchemeChoice& before, const SchemeChoice& after) {
    return after.name.empty() && !before.scheme ? before : after;
}

void hideLostScheme(SchemeChoice& choice) {
    if (!choice.scheme) choice.name.clear();
}

} // namespace

AddIn::AddIn(Host& host, NorvaneUI::FileSystem& files)
    : host_(host), bench_{host, files, options_}, messages_(host, options_),
      schemes_(host.schemeDirectory(), files), settings_(files, host.settingsFile()) {}

AddIn::~AddIn() {
    if (connected_) host_.unlisten();
}

void AddIn::enter(std::string_view name, const std::function<void()>& action) {
    Trace trace(name);
    if (running_) {
        trace << "Refused, as another operation runs.\n";
        return;
    }
    const RunningScope scope(running_);
    attempt(action);
}

/// Lets no exception out, not even one that comes from telling of the first.
void AddIn::attempt(const std::function<void()>& action) {
    try {
        try {
            action();
        } catch (...) {
            messages_.send({Trn::kSeverityError, currentExceptionText()});
        }
    } catch (...) {
    }
}

void AddIn::OnConnection() {
    Trace::switchOn();
    enter("OnConnection", [this] {
        if (!host_.loadProjectModule()) host_.notify(std::string(Texts::kNoModule));
        const bool accepted = host_.setAddInInfo();
        Trace("OnConnection") << "SetAddInInfo returned: " << accepted << '\n';
        readSchemes();
        ReadRegOptions(host_, settings_, schemes_, options_);
        attempt([this] { convertSchemes(); });
        chooseSchemes(schemes_, shipped_, options_);
        registerCommands();
        host_.listen(*this);
        connected_ = true;
    });
}

/// A scheme that cannot be read is told, and hides no others.
void AddIn::readSchemes() {
    attempt([this] { schemes_.readWhatIsGood(); });
    for (const std::string& path : schemes_.unreadable()) {
        attempt([&path] { throw NorvaneUI::PropertySetStore::ReadError(path); });
    }
}

void AddIn::convertSchemes() {
    std::vector<NorvaneUI::ConvertedScheme> converted;
    const std::string message = NorvaneUI::convertSchemes(schemes_, converted);
    std::string done;
    for (const auto& scheme : converted) done += (done.empty() ? "" : "\n") + NorvaneUI::convertedText(scheme);
    if (!done.empty()) host_.notify(done);
    if (!message.empty()) host_.notify(message);
}

void AddIn::registerCommands() {
    Trace trace("registerCommands");
    bool added = true;
    for (const Command& command : kCommands) added = host_.addCommand(command.name, command.method) && added;
    trace << "AddCommand calls returned: " << added << '\n';
    bool shown = true;
    for (const Command& command : kCommands) shown = host_.addCommandBarButton(command.name) && shown;
    trace << "AddCommandBarButton calls returned: " << shown << '\n';
}

void AddIn::OnDisconnection() {
    enter("OnDisconnection", [this] {
        if (connected_) host_.unlisten();
        connected_ = false;
    });
}

/// Null, after telling the user, if none is chosen.
const Norvane::PropertySet* AddIn::schemeOfCommands() {
    if (options_.onFormat.scheme) return &*options_.onFormat.scheme;
    host_.notify(std::string(Texts::kNoScheme));
    return nullptr;
}

void AddIn::FormatActiveDocument() {
    enter("FormatActiveDocument", [this] {
        const Norvane::PropertySet* scheme = schemeOfCommands();
        if (scheme == nullptr) return;
        const auto document = host_.activeDocument();
        if (!document) return host_.notify(std::string(Texts::kNoDocument));
        messages_.send({Trn::kSeverityInformation, filled(Texts::kFormattingActiveFile, {scheme->getName()})});
        formatDocument(*document, *scheme, Occasion::command);
    });
}

void AddIn::FormatActiveProject() {
    enter("FormatActiveProject", [this] {
        if (const auto* scheme = schemeOfCommands()) BatchFormatter(bench_).formatActiveProject(*scheme);
    });
}

void AddIn::FormatActiveWorkspace() {
    enter("FormatActiveWorkspace", [this] {
        if (const auto* scheme = schemeOfCommands()) BatchFormatter(bench_).formatActiveWorkspace(*scheme);
    });
}

void AddIn::ShowKLOptions() {
    enter("ShowKLOptions", [this] {
        AddInOptions edited = options_;
        hideLostScheme(edited.onFormat);
        hideLostScheme(edited.onOpen);
        hideLostScheme(edited.onClose);
        const auto accepted = host_.showOptions(edited, schemes_);
        if (accepted && *accepted) takeOver(edited);
        // Schemes may have been edited, renamed or removed even if the settings were not accepted.
        chooseSchemes(schemes_, shipped_, options_);
    });
}

void AddIn::takeOver(const AddInOptions& edited) {
    const AddInOptions before = options_;
    options_ = edited;
    options_.onFormat = editedChoice(before.onFormat, edited.onFormat);
    options_.onOpen = editedChoice(before.onOpen, edited.onOpen);
    options_.onClose = editedChoice(before.onClose, edited.onClose);
    WriteRegOptions(host_, settings_, before, options_);
}

void AddIn::ShowKLHelp() {
    enter("ShowKLHelp", [this] {
        const Status shown = host_.showHelp(pageOf(Texts::kHelpTopic));
        if (!shown.isDone()) Trace("ShowKLHelp") << "No help: " << shown.failure().text << '\n';
    });
}

void AddIn::DocumentOpen(Document document) {
    enter("DocumentOpen", [&] { formatOnEvent("OnOpen", options_.onOpen, document); });
}

void AddIn::BeforeDocumentClose(Document document) {
    enter("BeforeDocumentClose", [&] { formatOnEvent("OnClose", options_.onClose, document); });
}

void AddIn::formatOnEvent(std::string_view what, const SchemeChoice& choice, Document document) {
    if (!choice.scheme) return;
    Trace("formatOnEvent") << what << ": formatting using scheme " << choice.name << '\n';
    formatDocument(document, *choice.scheme, Occasion::event);
}

void AddIn::formatDocument(Document document, const Norvane::PropertySet& scheme, Occasion occasion) {
    const auto dialog = host_.openProgress(FileProgressDlg::kStepsPerFile);
    DocumentFormatter(bench_).FormatDocument(document, scheme, dialog.get(), occasion);
}

} // namespace Addin
