#ifndef KERFLINE_ADDIN_HOST_H
#define KERFLINE_ADDIN_HOST_H

#include "addin/Addin_FileProgressDlg.h"
#include "addin/Addin_Options.h"
#include "files/NorvaneUI_Failure.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "trn/Trn_Message.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Addin {

using NorvaneUI::Failure;
using NorvaneUI::FailureKind;
using NorvaneUI::Result;
using NorvaneUI::Status;

/// Handles that only the host can read. One whose object is gone makes an operation fail with
/// `gone`; it is never given to another object.
enum class Document : std::uint64_t {};
enum class Project : std::uint64_t {};

enum class Saved { yes, no, unknown };

struct DocumentInfo {
    /// Both can be empty, as for a text that has never been saved.
    std::string name;
    std::string path;
    bool isText = true;
    bool isReadOnly = false;
    Saved saved = Saved::yes;
};

struct DocumentText {
    /// In line feeds.
    std::string text;
    /// Grows with every change of the document.
    std::uint64_t revision = 0;
};

/// Lines and columns as the host counts them: they are only put back where they came from.
struct Cursor {
    int line = 0;
    int column = 0;
};

struct ProjectInfo {
    std::string name;
    /// Relative paths of the project's files start here.
    std::string folder;
};

struct Workspace {
    std::string name;
    std::vector<Project> projects;
};

enum class Answer { yes, no, cancel };

/// Why a question is asked. A user who gave a command waits for it; one who opened a document may
/// not even see it.
enum class Occasion { command, event };

/// What the user is told.
struct Message {
    /// 1 for information, 2 for a warning, 3 for an error.
    std::uint32_t severity = Trn::kSeverityInformation;
    /// Without the place.
    std::string text = {};
    /// The file, or the name of the document; empty if the message is about none.
    std::string path = {};
    /// Lines and columns count from 1; the line feed at the end of line L is at (L + 1, 0). No place
    /// if the message is about the file as a whole.
    Trn::Position position = {};
    /// The number of a diagnostic of the parser; 0 for any other message.
    std::int32_t code = 0;
    /// What the engine has to say about the content of the text, as a compiler does.
    bool isDiagnostic = false;
};

/// Is told what happens to documents.
class EventSink {
public:
    virtual ~EventSink() = default;
    virtual void DocumentOpen(Document document) = 0;
    /// The document is still open.
    virtual void BeforeDocumentClose(Document document) = 0;
};

/// Everything that the add-in asks of the program that it lives in: an editor, a language server,
/// a window or a command line. Files are not among it, they have a seam of their own.
///
/// All calls come on one thread. None throws for a failure of the host. What a host does not have,
/// it answers with `unsupported`, "none" or an empty list.
class Host {
public:
    virtual ~Host() = default;

    // Connection. False is noted and nothing more comes of it.
    virtual bool loadProjectModule() = 0;
    virtual bool setAddInInfo() = 0;
    virtual bool addCommand(const std::string& name, const std::string& method) = 0;
    virtual bool addCommandBarButton(const std::string& command) = 0;
    /// `sink` is not owned and stays valid until unlisten.
    virtual void listen(EventSink& sink) = 0;
    virtual void unlisten() = 0;
    virtual std::string schemeDirectory() = 0;
    virtual std::string settingsFile() = 0;

    // Documents.
    virtual std::optional<Document> activeDocument() = 0;
    virtual Result<DocumentInfo> document(Document document) = 0;
    /// May ask the user for a name, and fails with `cancelled` if none is given.
    virtual Status save(Document document) = 0;
    /// Moves neither the cursor nor the selection.
    virtual Result<DocumentText> text(Document document) = 0;
    /// Replaces the whole text, as one step of undo. Fails with `changed`, and replaces nothing, if
    /// the document is no longer at `revision`. The line ends in the document stay the host's own.
    virtual Status replaceText(Document document, const std::string& text, std::uint64_t revision) = 0;
    virtual Result<Cursor> cursor(Document document) = 0;
    /// A place that is no longer there becomes the nearest one.
    virtual void setCursor(Document document, const Cursor& cursor) = 0;
    /// The paths of documents that are open and not saved.
    virtual std::vector<std::string> changedDocuments() = 0;

    // Projects.
    virtual std::optional<Project> activeProject() = 0;
    virtual std::optional<Workspace> workspace() = 0;
    virtual Result<ProjectInfo> project(Project project) = 0;
    /// Paths in the order of the project; entries can be empty, relative, or come twice.
    virtual Result<std::vector<std::string>> projectFiles(Project project) = 0;

    // The user.
    /// A notice that must be seen now, whatever the threshold of messages.
    virtual void notify(const std::string& text) = 0;
    /// With the choices Yes, No and Cancel. With nobody to ask: Cancel.
    virtual Answer ask(const std::string& text, Occasion occasion) = 0;
    /// Without a messages window, no message is built.
    virtual bool hasMessages() = 0;
    /// A host without a way of its own to show places shows `shownText` of the message.
    virtual void addMessage(const Message& message) = 0;
    /// For `total` steps. Null: no progress is shown, and the run cannot be cancelled.
    virtual std::unique_ptr<FileProgressDlg> openProgress(int total) = 0;
    /// Takes what the user did meanwhile, so that a cancel arrives and the screen stays fresh.
    /// Commands and events that arrive now are refused.
    virtual void pump() = 0;
    /// Lets the user edit copies of the settings, and the schemes. True if the edits of the
    /// settings are to be kept. A choice without a scheme arrives with an empty name.
    virtual Result<bool> showOptions(AddInOptions& options, NorvaneUI::PropertySetStore& schemes) = 0;
    /// `topic` is a page of the help.
    virtual Status showHelp(const std::string& topic) = 0;
};

} // namespace Addin

#endif
