#ifndef KERFLINE_ADDIN_FORMATJOB_H
#define KERFLINE_ADDIN_FORMATJOB_H

#include "addin/Addin_Host.h"
#include "addin/Addin_Messages.h"
#include "edits/Edits_Ranges.h"
#include "files/NorvaneUI_FileSystem.h"
#include "src/scheme/Norvane_PropertySet.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Message.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Addin {

/// What became of one text.
enum class FormatResult {
    formatted,
    /// Formatted already: nothing was written.
    unchanged,
    /// Not a text to be formatted, by its name or because it is empty.
    skipped,
    /// The text, or the user, does not let it be formatted.
    refused,
    /// Something outside the text went wrong: the file, the host, the memory.
    failed,
    cancelled,
};

/// Whether the caller may count the text as being in the scheme's form now.
inline bool isDone(FormatResult result) {
    return result == FormatResult::formatted || result == FormatResult::unchanged;
}

/// What speaks against a result, and the place in the source that it is about.
struct Objection {
    std::string reason;
    Trn::Position position;
};

/// Asked with the path, the source and the result, both in line feeds, before anything is written.
/// With an objection the source stays. No function: nothing is ever objected to.
using Gate = std::function<std::optional<Objection>(const std::string&, std::string_view, std::string_view)>;

/// What every formatting works with. Nothing is owned, and all of it outlives the work. Texts can
/// be formatted on several threads at once if each thread has a bench, and so a host, of its own.
struct Workbench {
    Host& host;
    NorvaneUI::FileSystem& files;
    const AddInOptions& options;
    Gate gate = {};
    /// If there are any, everything outside of these lines stays as it is, byte for byte.
    std::vector<Edits::LineRange> lines = {};
    /// A text in which something cannot be read is refused as a whole. Otherwise that is left as it
    /// stands, a warning says so, and the text is formatted all the same.
    bool isStrict = false;
};

/// One text on its way through the engine: what files and documents have in common.
class FormatJob {
public:
    /// Puts the result where the source came from, after the backup.
    using Store = std::function<FormatResult(const std::string& result)>;

    /// `shownName` is for the progress dialog, which may be null, and `fullName` for messages.
    FormatJob(const Workbench& bench, const std::string& shownName, std::string fullName, FileProgressDlg* dialog);

    /// From now on messages use this name, for a document that was given one meanwhile.
    void setFullName(const std::string& fullName) { fullName_ = fullName; }

    /// Lets the host take what waits. False if the user has cancelled.
    bool pump();
    /// Tells of a step. False if the user has cancelled.
    bool tell(std::string_view step);
    /// Sends `format`, filled with the name.
    void send(std::uint32_t severity, std::string_view format);
    void sendAndShow(std::string_view format);

    /// Does `action`. An exception becomes a message, and the text has failed.
    FormatResult guarded(const std::function<FormatResult()>& action);

    /// Formats `source`, which is in line feeds, and lets `store` put away what came out. What the
    /// engine has against the text becomes messages, and the source stays as it is.
    FormatResult run(const Norvane::PropertySet& scheme, std::string source, const Store& store);

    /// Copies the file beside itself if the user wants backups. False if that failed.
    bool backUp(const std::string& path);

private:
    bool isCancelled() const { return dialog_ != nullptr && dialog_->cancelled(); }
    using Source = std::shared_ptr<const Zelmar::SourceText>;

    bool format(const Norvane::PropertySet& scheme, const Source& source, std::string& result,
                Trn::MessageList& messages);
    FormatResult finish(std::string_view source, const std::string& result, const Store& store);
    FormatResult refuse(const Trn::MessageList& messages);
    void sendAll(const Trn::MessageList& messages);
    bool isObjectedTo(std::string_view source, const std::string& result);

    const Workbench& bench_;
    Messages messages_;
    std::string fullName_;
    FileProgressDlg* dialog_;
    FileProgressDlg::UpdateFunction update_;
};

} // namespace Addin

#endif
