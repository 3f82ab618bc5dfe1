#ifndef KERFLINE_CLI_USERSETTINGS_H
#define KERFLINE_CLI_USERSETTINGS_H

#include "addin/Addin_Host.h"
#include "addin/Addin_Options.h"
#include "files/NorvaneUI_FileSystem.h"

namespace Cli {

/// The settings of the user, from the file of `host`, which learns if it cannot be read. Schemes are
/// named in them but not looked up. Backups are made only if a line of the file says so: in a
/// repository they would be litter.
Addin::AddInOptions readUserSettings(NorvaneUI::FileSystem& files, Addin::Host& host);

} // namespace Cli

#endif
