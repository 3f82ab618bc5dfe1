#ifndef KERFLINE_CLI_SCHEMEFINDER_H
#define KERFLINE_CLI_SCHEMEFINDER_H

#include "cli/console/Cli_Report.h"
#include "files/NorvaneUI_FileSystem.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Cli {

/// Where a scheme comes from.
struct SchemeSource {
    enum class Kind {
        /// The scheme without options.
        empty,
        /// A path on the command line.
        file,
        /// The file of the project that the source belongs to.
        project,
        /// The user's own folder of schemes.
        user,
        /// Part of the program.
        shipped,
    };
    Kind kind = Kind::empty;
    /// The name inside; empty if the file has not been looked into.
    std::string name = {};
    /// Empty for the kinds that are no file.
    std::string path = {};
    /// Chosen by the user's settings, and not by the command line or the project.
    bool isFromSettings = false;
};

/// The name of the scheme file of a project.
inline constexpr std::string_view kProjectSchemeFile = ".kerfline.kls";

/// Finds the scheme for the sources of a folder. A name means, in this order, a project file at or
/// above the folder with that name inside, a scheme of the user, or one that comes with the program.
/// What is found is remembered for each folder.
class SchemeFinder {
public:
    /// `preferred` is the scheme of a user who chooses none; it can be empty. What is given by
    /// reference must outlive the finder.
    SchemeFinder(NorvaneUI::FileSystem& files, std::string userFolder, std::string preferred, Report& report);

    /// `wanted` is a name or a path; without it, the nearest project file counts, then the preferred
    /// scheme, then the default. `folder` is absolute. Returns nothing after reporting an error, such
    /// as a preferred scheme that is not there. A project file that cannot be read is still found.
    std::optional<SchemeSource> find(const std::optional<std::string>& wanted, const std::string& folder);

    /// The user's schemes: their paths by the names inside. Of one name the first file counts.
    const std::map<std::string, std::string>& userSchemes();
    /// All names that can be asked for from any folder, and "none".
    std::vector<std::string_view> knownNames();

private:
    std::optional<SchemeSource> findFile(const std::string& path);
    std::optional<SchemeSource> findByName(const std::string& name, const std::string& folder);
    std::optional<SchemeSource> findOutsideProjects(const std::string& name);
    std::optional<SchemeSource> findUnnamed(const std::string& folder);
    /// The nearest project file at or above the folder, or an empty text.
    const std::string& projectFileAt(const std::string& folder);
    const std::string& nameInside(const std::string& path);
    std::string hintFor(const std::string& name);
    void reportUnknown(const std::string& name);
    void warnOnce(const std::string& text);

    NorvaneUI::FileSystem& files_;
    const std::string userFolder_;
    const std::string preferred_;
    Report& report_;
    // What is on the disk, as far as it has been asked for.
    std::map<std::string, std::string> projectFiles_;
    std::map<std::string, std::string> names_;
    std::optional<std::map<std::string, std::string>> userSchemes_;
    std::vector<std::string> warnings_;
};

} // namespace Cli

#endif
