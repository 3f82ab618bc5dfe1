#ifndef KERFLINE_CLI_IGNORERULES_H
#define KERFLINE_CLI_IGNORERULES_H

#include "cli/console/Cli_Report.h"
#include "cli/files/Cli_IgnoreFile.h"
#include "files/NorvaneUI_FileSystem.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Cli {

/// The name of the files that tell which sources are left alone.
inline constexpr std::string_view kIgnoreFile = ".kerflineignore";

/// Which sources are left alone, by the ignore files in their folder and in all above it. The nearest
/// file that speaks of a source decides; nothing below an ignored folder comes back. Each folder is
/// looked at once. Below an ignore file that cannot be read everything is left alone.
class IgnoreRules {
public:
    /// Both outlive the rules.
    IgnoreRules(NorvaneUI::FileSystem& files, Report& report) : files_(files), report_(report) {}

    /// Where the pattern stands that ignores the file or folder, as "path:line", or which ignore file
    /// cannot be read; nothing if it is not ignored. `path` is absolute.
    const std::optional<std::string>& reasonFor(const std::string& path, bool isFolder);

private:
    struct Folder {
        bool hasFile = false;
        IgnoreFile file;
        /// The nearest folder at or above this one that has an ignore file; empty if none has.
        std::string nearest;
        /// Why this folder itself is ignored.
        std::optional<std::string> reason;
    };

    const Folder& folder(const std::string& path);
    void readFile(const std::string& path, Folder& folder);
    std::optional<std::string> decide(const std::string& path, bool isFolder);

    NorvaneUI::FileSystem& files_;
    Report& report_;
    std::map<std::string, Folder> folders_;
    std::optional<std::string> reason_;
};

} // namespace Cli

#endif
