#ifndef KERFLINE_ADDIN_USERFOLDERS_H
#define KERFLINE_ADDIN_USERFOLDERS_H

#include <string>

namespace Addin {

/// Where this user keeps configuration files of Kerfline, without a "/" at the end: under the
/// folder that XDG_CONFIG_HOME names, if it names one from the root, else under ".config" of the
/// home folder. Empty for a user without a home.
std::string userConfigurationFolder();

/// The folder of the user's schemes, and the file of the settings. Empty for a user without a home.
std::string userSchemeFolder();
std::string userSettingsFile();

} // namespace Addin

#endif
