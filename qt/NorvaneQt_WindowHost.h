#ifndef KERFLINE_NORVANEQT_WINDOWHOST_H
#define KERFLINE_NORVANEQT_WINDOWHOST_H

#include "addin/Addin_Host.h"
#include "qt/NorvaneQt_Face.h"
#include "ui/NorvaneUI_PageTable.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace NorvaneQt {

class HelpWindow;
class OptionsWindow;

/// What a window opens with, if it is not to open as it was left.
struct StartPlace {
    std::optional<NorvaneUI::PageId> page;
    bool settings = false;
    /// A file to preview; empty for the samples.
    std::string preview;
};

/// A desktop as the program that the add-in lives in: it has windows, but no documents.
class WindowHost : public Addin::Host {
public:
    struct Places {
        /// Empty for a user without a home: nothing can be kept then.
        std::string schemeFolder;
        std::string settingsFile;
    };

    /// `files` outlives the host. `shipped` are the schemes that are part of the program.
    WindowHost(NorvaneUI::FileSystem& files, Places places, std::vector<Norvane::PropertySet> shipped);
    ~WindowHost() override;

    void setStart(StartPlace start) { start_ = std::move(start); }
    /// Called when the window of the options is there, and not shown yet.
    void setWindowAction(std::function<void(OptionsWindow&)> action) { windowAction_ = std::move(action); }

    bool loadProjectModule() override { return true; }
    bool setAddInInfo() override { return true; }
    bool addCommand(const std::string&, const std::string&) override { return true; }
    bool addCommandBarButton(const std::string&) override { return true; }
    void listen(Addin::EventSink&) override {}
    void unlisten() override {}
    std::string schemeDirectory() override { return places_.schemeFolder; }
    std::string settingsFile() override { return places_.settingsFile; }

    std::optional<Addin::Document> activeDocument() override { return std::nullopt; }
    Addin::Result<Addin::DocumentInfo> document(Addin::Document) override { return nothing(); }
    Addin::Status save(Addin::Document) override { return nothing(); }
    Addin::Result<Addin::DocumentText> text(Addin::Document) override { return nothing(); }
    Addin::Status replaceText(Addin::Document, const std::string&, std::uint64_t) override { return nothing(); }
    Addin::Result<Addin::Cursor> cursor(Addin::Document) override { return nothing(); }
    void setCursor(Addin::Document, const Addin::Cursor&) override {}
    std::vector<std::string> changedDocuments() override { return {}; }
    std::optional<Addin::Project> activeProject() override { return std::nullopt; }
    std::optional<Addin::Workspace> workspace() override { return std::nullopt; }
    Addin::Result<Addin::ProjectInfo> project(Addin::Project) override { return nothing(); }
    Addin::Result<std::vector<std::string>> projectFiles(Addin::Project) override { return nothing(); }

    void notify(const std::string& text) override { face_.notify(text); }
    Addin::Answer ask(const std::string& text, Addin::Occasion) override { return face_.ask(text); }
    bool hasMessages() override { return true; }
    /// There is no window of messages: each is a notice.
    void addMessage(const Addin::Message& message) override;
    std::unique_ptr<Addin::FileProgressDlg> openProgress(int) override { return nullptr; }
    void pump() override {}
    Addin::Result<bool> showOptions(Addin::AddInOptions& options, NorvaneUI::PropertySetStore& schemes) override;
    Addin::Status showHelp(const std::string& topic) override;

private:
    static Addin::Failure nothing() { return {Addin::FailureKind::unsupported}; }

    NorvaneUI::FileSystem& files_;
    Places places_;
    std::vector<Norvane::PropertySet> shipped_;
    StartPlace start_;
    std::function<void(OptionsWindow&)> windowAction_;
    Face face_;
    std::unique_ptr<HelpWindow> help_;
};

} // namespace NorvaneQt

#endif
