#include "cli/run/Cli_UserSettings.h"

#include "addin/Addin_Settings.h"

namespace Cli {

Addin::AddInOptions readUserSettings(NorvaneUI::FileSystem& files, Addin::Host& host) {
    Addin::AddInOptions options;
    options.createBackups = false;
    const std::string path = host.settingsFile();
    if (path.empty()) return options;
    Addin::Settings settings(files, path);
    const NorvaneUI::PropertySetStore noSchemes({}, files);
    Addin::ReadRegOptions(host, settings, noSchemes, options);
    // What a window stored for editors must not fill folders with backups that nobody asked for.
    options.createBackups = false;
    return options;
}

} // namespace Cli
