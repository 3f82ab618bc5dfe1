#ifndef KERFLINE_TESTS_FAKEHOST_H
#define KERFLINE_TESTS_FAKEHOST_H

#include "addin/Addin_Host.h"
#include "addin/Addin_Messages.h"
#include "addin/Addin_Texts.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// A host in memory, with a switch for each failure. What the user would see stands in `log`, one
/// entry for each text with its kind in front: "notice: ", "question: ", "progress: ", or the
/// severity of a message, "3: ".
class FakeHost : public Addin::Host {
public:
    using Failure = Addin::Failure;
    using FailureKind = Addin::FailureKind;
    template <class Value> using Result = Addin::Result<Value>;
    using Status = Addin::Status;

    struct Open {
        Addin::DocumentInfo info;
        std::string text;
        std::uint64_t revision = 1;
        Addin::Cursor cursor;
    };
    struct ProjectContent {
        Addin::ProjectInfo info;
        std::vector<std::string> files;
    };

    // The world of the host.
    std::map<Addin::Document, Open> documents;
    std::map<Addin::Project, ProjectContent> projects;
    std::optional<Addin::Document> active;
    std::optional<Addin::Project> activeOne;
    std::optional<Addin::Workspace> opened;
    std::vector<std::string> changed;
    std::string schemeFolder = "/s";
    std::string settings = "/c/settings";

    // The user.
    std::map<std::string, Addin::Answer> answers;
    bool hasProgress = true;
    /// The user cancels when a progress text starts with this one.
    std::string cancelAt;
    /// Called when a progress text is shown, before anything else.
    std::function<void(const std::string&)> onProgress = [](const std::string&) {};
    std::function<void()> onPump = [] {};
    std::function<bool(Addin::AddInOptions&, NorvaneUI::PropertySetStore&)> onOptions =
        [](Addin::AddInOptions&, NorvaneUI::PropertySetStore&) { return false; };

    /// Operations that fail, by name: "save", "text", "replaceText", ...
    std::map<std::string, FailureKind> failing;
    bool hasWindow = true;

    std::vector<std::string> log;
    std::vector<std::string> commands;
    std::vector<Addin::Message> messages;
    std::vector<Addin::Occasion> occasions;
    std::vector<int> bar;
    int total = 0;
    int steps = 0;
    bool cancelled = false;
    bool dialogOpen = false;
    Addin::EventSink* sink = nullptr;

    /// All that was logged with this kind in front.
    std::vector<std::string> logged(const std::string& kind) const {
        std::vector<std::string> found;
        for (const std::string& entry : log) {
            if (entry.starts_with(kind + ": ")) found.push_back(entry.substr(kind.size() + 2));
        }
        return found;
    }
    /// All but the progress.
    std::vector<std::string> told() const {
        std::vector<std::string> found;
        for (const std::string& entry : log) {
            if (!entry.starts_with("progress: ")) found.push_back(entry);
        }
        return found;
    }
    Addin::Document open(const std::string& path, const std::string& text) {
        const auto document = static_cast<Addin::Document>(documents.size() + 1);
        Open& content = documents[document];
        content.info.path = path;
        content.info.name = path.substr(path.rfind('/') + 1);
        content.text = text;
        content.cursor = {7, 9};
        active = document;
        return document;
    }
    Addin::Project addProject(const std::string& name, std::vector<std::string> files) {
        const auto project = static_cast<Addin::Project>(projects.size() + 1);
        projects[project] = {{name, "/p"}, std::move(files)};
        return project;
    }

    bool loadProjectModule() override { return failing.count("loadProjectModule") == 0; }
    bool setAddInInfo() override { return failing.count("setAddInInfo") == 0; }
    bool addCommand(const std::string& name, const std::string& method) override {
        commands.push_back(name + '=' + method);
        return failing.count("addCommand") == 0;
    }
    bool addCommandBarButton(const std::string& command) override {
        commands.push_back("button " + command);
        return failing.count("addCommandBarButton") == 0;
    }
    void listen(Addin::EventSink& listener) override { sink = &listener; }
    void unlisten() override { sink = nullptr; }
    std::string schemeDirectory() override { return schemeFolder; }
    std::string settingsFile() override { return settings; }

    std::optional<Addin::Document> activeDocument() override { return active; }
    Result<Addin::DocumentInfo> document(Addin::Document document) override {
        if (auto failure = failureOf("document", document)) return *failure;
        return documents.at(document).info;
    }
    Status save(Addin::Document document) override {
        if (auto failure = failureOf("save", document)) return *failure;
        documents.at(document).info.saved = Addin::Saved::yes;
        onSave();
        return {};
    }
    /// The host's own part of a save, such as asking for a name.
    std::function<void()> onSave = [] {};
    Result<Addin::DocumentText> text(Addin::Document document) override {
        if (auto failure = failureOf("text", document)) return *failure;
        const Open& content = documents.at(document);
        return Addin::DocumentText{content.text, content.revision};
    }
    Status replaceText(Addin::Document document, const std::string& text, std::uint64_t revision) override {
        if (auto failure = failureOf("replaceText", document)) return *failure;
        Open& content = documents.at(document);
        if (content.revision != revision) return Failure{FailureKind::changed};
        content.text = text;
        content.cursor = {1, 1};
        ++content.revision;
        return {};
    }
    Result<Addin::Cursor> cursor(Addin::Document document) override {
        if (auto failure = failureOf("cursor", document)) return *failure;
        return documents.at(document).cursor;
    }
    void setCursor(Addin::Document document, const Addin::Cursor& cursor) override {
        if (documents.count(document) != 0) documents.at(document).cursor = cursor;
    }
    std::vector<std::string> changedDocuments() override { return changed; }

    std::optional<Addin::Project> activeProject() override { return activeOne; }
    std::optional<Addin::Workspace> workspace() override { return opened; }
    Result<Addin::ProjectInfo> project(Addin::Project project) override {
        if (projects.count(project) == 0) return Failure{FailureKind::gone, "no such project"};
        return projects.at(project).info;
    }
    Result<std::vector<std::string>> projectFiles(Addin::Project project) override {
        if (failing.count("projectFiles") != 0) return Failure{failing.at("projectFiles"), "no list"};
        if (projects.count(project) == 0) return Failure{FailureKind::gone, "no such project"};
        return projects.at(project).files;
    }

    void notify(const std::string& text) override { log.push_back("notice: " + text); }
    Addin::Answer ask(const std::string& text, Addin::Occasion occasion) override {
        log.push_back("question: " + text);
        occasions.push_back(occasion);
        const auto found = answers.find(text);
        return found == answers.end() ? Addin::Answer::cancel : found->second;
    }
    bool hasMessages() override { return hasWindow; }
    void addMessage(const Addin::Message& message) override {
        log.push_back(std::to_string(message.severity) + ": " + Addin::shownText(message));
        messages.push_back(message);
    }
    std::unique_ptr<Addin::FileProgressDlg> openProgress(int stepCount) override;
    void pump() override { onPump(); }
    Result<bool> showOptions(Addin::AddInOptions& options, NorvaneUI::PropertySetStore& schemes) override {
        if (failing.count("showOptions") != 0) return Failure{failing.at("showOptions")};
        return onOptions(options, schemes);
    }
    Status showHelp(const std::string& topic) override {
        if (failing.count("showHelp") != 0) return Failure{failing.at("showHelp")};
        log.push_back("help: " + topic);
        return {};
    }

private:
    std::optional<Failure> failureOf(const std::string& operation, Addin::Document document) {
        if (failing.count(operation) != 0) return Failure{failing.at(operation)};
        if (documents.count(document) == 0) return Failure{FailureKind::gone};
        return std::nullopt;
    }
};

/// Writes into the log of its host.
class FakeProgress : public Addin::FileProgressDlg {
public:
    explicit FakeProgress(FakeHost& host) : host_(host) { host_.dialogOpen = true; }
    FakeProgress(const FakeProgress&) = delete;
    FakeProgress& operator=(const FakeProgress&) = delete;
    ~FakeProgress() override { host_.dialogOpen = false; }

    void show(const std::string& text) override {
        host_.onProgress(text);
        host_.log.push_back("progress: " + text);
        if (!host_.cancelAt.empty() && text.starts_with(host_.cancelAt)) host_.cancelled = true;
    }
    void set(int steps) override { host_.bar.push_back(steps); }
    void step() override { ++host_.steps; }
    bool cancelled() const override { return host_.cancelled; }

private:
    FakeHost& host_;
};

inline std::unique_ptr<Addin::FileProgressDlg> FakeHost::openProgress(int stepCount) {
    total = stepCount;
    if (!hasProgress) return nullptr;
    return std::make_unique<FakeProgress>(*this);
}

#endif
