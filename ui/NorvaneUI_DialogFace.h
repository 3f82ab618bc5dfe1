#ifndef KERFLINE_NORVANEUI_DIALOGFACE_H
#define KERFLINE_NORVANEUI_DIALOGFACE_H

#include "addin/Addin_Host.h"

#include <optional>
#include <string>
#include <string_view>

namespace NorvaneUI {

using Addin::Answer;

/// What the logic of the dialogs asks of the windows that show it. Each call returns when the user
/// has answered.
class DialogFace {
public:
    virtual ~DialogFace() = default;

    virtual void notify(const std::string& text) = 0;
    /// With the choices Yes, No and Cancel. A window that is just closed means Cancel.
    virtual Answer ask(const std::string& text) = 0;
    /// With `proposal` in the field. Nothing if the user cancels.
    virtual std::optional<std::string> askSchemeName(const std::string& proposal) = 0;
    /// A file to read, with its path. Nothing if the user cancels.
    virtual std::optional<std::string> chooseFile() = 0;
    /// Puts the focus into the control of an option, or into the one with this name in the settings.
    virtual void setFocus(std::string_view control) = 0;
};

} // namespace NorvaneUI

#endif
