#ifndef KERFLINE_ADDIN_FILEFORMATTER_H
#define KERFLINE_ADDIN_FILEFORMATTER_H

#include "addin/Addin_FormatJob.h"

#include <string>

namespace Addin {

enum class ExtensionTest {
    /// Files whose extension the user has not listed are skipped.
    apply,
    /// The user has named this very file.
    passed,
};

/// Formats files on the disk in place.
class FileFormatter {
public:
    explicit FileFormatter(const Workbench& bench) : bench_(bench) {}

    /// Formats the file of that full path. True if it is in the form of the scheme now. `dialog`
    /// may be null.
    bool FormatFile(const std::string& path, const Norvane::PropertySet& scheme, FileProgressDlg* dialog) {
        return isDone(format(path, scheme, dialog));
    }
    /// The same, and tells more. The file is replaced whole or not at all, and it keeps its line
    /// ends and its byte order mark. An exception of the engine becomes a message.
    FormatResult format(const std::string& path, const Norvane::PropertySet& scheme, FileProgressDlg* dialog,
                        ExtensionTest test = ExtensionTest::apply);

private:
    FormatResult formatExisting(FormatJob& job, const std::string& path, const Norvane::PropertySet& scheme);
    FormatResult formatRegular(FormatJob& job, const std::string& path, const NorvaneUI::FileStatus& seen,
                               const Norvane::PropertySet& scheme);

    const Workbench& bench_;
};

} // namespace Addin

#endif
