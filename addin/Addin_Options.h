#ifndef KERFLINE_ADDIN_OPTIONS_H
#define KERFLINE_ADDIN_OPTIONS_H

#include "src/scheme/Norvane_PropertySet.h"

#include <optional>
#include <string>

namespace Addin {

/// The scheme that was chosen for one action.
struct SchemeChoice {
    /// As it is stored. Empty: the action does not format.
    std::string name;
    /// A copy of the scheme of that name; absent if there is none now. The name stays even so: a
    /// scheme folder that cannot be read today must not cost the user the choice.
    std::optional<Norvane::PropertySet> scheme;
};

/// The settings of the add-in.
struct AddInOptions {
    SchemeChoice onFormat;
    SchemeChoice onOpen;
    SchemeChoice onClose;
    /// Cut at commas, semicolons and blanks. Empty: no file is formatted without a question.
    std::string fileExtensions = "c,cc,cpp,cxx,h,hh,hpp,hxx";
    /// As typed: it can be empty or start with dots.
    std::string backupExtension;
    bool createBackups = true;
    bool promptUnsaved = true;
    /// 0 shows no message, 1 to 3 those of this severity or above, anything else all.
    int messagesThreshold = 1;
};

} // namespace Addin

#endif
