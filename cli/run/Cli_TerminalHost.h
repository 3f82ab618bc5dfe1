#ifndef KERFLINE_CLI_TERMINALHOST_H
#define KERFLINE_CLI_TERMINALHOST_H

#include "addin/Addin_Host.h"
#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Report.h"
#include "cli/console/Cli_Streams.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Cli {

/// The command line as the program that Kerfline lives in: questions on the terminal, messages into
/// a report, Control-C as the wish to cancel. It has no documents and no projects of its own.
class TerminalHost : public Addin::Host {
public:
    /// Both references outlive the host.
    TerminalHost(const Streams& streams, Report& report, Verbosity verbosity, bool assumesYes);

    bool loadProjectModule() override { return true; }
    bool setAddInInfo() override { return true; }
    bool addCommand(const std::string&, const std::string&) override { return true; }
    bool addCommandBarButton(const std::string&) override { return false; }
    void listen(Addin::EventSink&) override {}
    void unlisten() override {}
    std::string schemeDirectory() override;
    std::string settingsFile() override;

    std::optional<Addin::Document> activeDocument() override { return std::nullopt; }
    Addin::Result<Addin::DocumentInfo> document(Addin::Document) override { return noDocuments(); }
    Addin::Status save(Addin::Document) override { return noDocuments(); }
    Addin::Result<Addin::DocumentText> text(Addin::Document) override { return noDocuments(); }
    Addin::Status replaceText(Addin::Document, const std::string&, std::uint64_t) override {
        return noDocuments();
    }
    Addin::Result<Addin::Cursor> cursor(Addin::Document) override { return noDocuments(); }
    void setCursor(Addin::Document, const Addin::Cursor&) override {}
    std::vector<std::string> changedDocuments() override { return {}; }

    std::optional<Addin::Project> activeProject() override { return std::nullopt; }
    std::optional<Addin::Workspace> workspace() override { return std::nullopt; }
    Addin::Result<Addin::ProjectInfo> project(Addin::Project) override { return noDocuments(); }
    Addin::Result<std::vector<std::string>> projectFiles(Addin::Project) override { return noDocuments(); }

    void notify(const std::string& text) override;
    Addin::Answer ask(const std::string& text, Addin::Occasion occasion) override;
    bool hasMessages() override { return true; }
    void addMessage(const Addin::Message& message) override;
    std::unique_ptr<Addin::FileProgressDlg> openProgress(int total) override;
    void pump() override {}
    Addin::Result<bool> showOptions(Addin::AddInOptions& options,
                                    NorvaneUI::PropertySetStore& schemes) override;
    Addin::Status showHelp(const std::string& topic) override;

private:
    static Addin::Failure noDocuments();
    bool isShown(std::uint32_t severity) const;
    bool isRepetition(const Addin::Message& message) const;
    void addWithoutPlace(const Addin::Message& message);

    const Streams& streams_;
    Report& report_;
    const Verbosity verbosity_;
    const bool assumesYes_;
    // What has been told so far.
    bool hasPlacedError_ = false;
    std::string lastText_;
};

/// "error", "warning" or "note".
std::string_view severityWord(std::uint32_t severity);

} // namespace Cli

#endif
