#ifndef KERFLINE_ADDIN_DOCUMENTFORMATTER_H
#define KERFLINE_ADDIN_DOCUMENTFORMATTER_H

#include "addin/Addin_FormatJob.h"

#include <optional>
#include <string>

namespace Addin {

/// Formats documents that are open in the host. The host's text is replaced, and not saved.
class DocumentFormatter {
public:
    explicit DocumentFormatter(const Workbench& bench) : bench_(bench) {}

    /// Asks the user what cannot be decided otherwise; any answer but a clear one ends the
    /// formatting, with the document as it was. The cursor stays on its line and column. `dialog`
    /// may be null.
    FormatResult FormatDocument(Document document, const Norvane::PropertySet& scheme, FileProgressDlg* dialog,
                                Occasion occasion);

private:
    FormatResult formatOpen(FormatJob& job, Document document, DocumentInfo info,
                            const Norvane::PropertySet& scheme, Occasion occasion);
    /// What becomes of a document that is not to be formatted; nothing if it is.
    std::optional<FormatResult> endForbidden(FormatJob& job, const DocumentInfo& info, Occasion occasion);
    /// Saves the document if the user wants that, and then fills `info` anew. What becomes of the
    /// document if the formatting ends with that; nothing if it goes on.
    std::optional<FormatResult> endUnsaved(FormatJob& job, Document document, DocumentInfo& info,
                                           Occasion occasion);
    FormatResult formatText(FormatJob& job, Document document, const std::string& path,
                            const Norvane::PropertySet& scheme);
    bool backUp(FormatJob& job, const std::string& path);

    const Workbench& bench_;
};

} // namespace Addin

#endif
