#ifndef KERFLINE_NORVANEUI_SCHEMESAVEASDLG_H
#define KERFLINE_NORVANEUI_SCHEMESAVEASDLG_H

#include "ui/NorvaneUI_DialogFace.h"

#include <functional>
#include <optional>
#include <string>

namespace NorvaneUI {

/// Asks for the name of a new scheme until there is one that can be kept.
class SchemeSaveAsDlg {
public:
    /// What is wrong with a name, in words for the user; empty if nothing is.
    using Fault = std::function<std::string(const std::string& name)>;

    SchemeSaveAsDlg(DialogFace& face, Fault fault) : face_(face), fault_(std::move(fault)) {}

    /// Nothing if the user cancels. A name that is refused stays in the field.
    std::optional<std::string> run(const std::string& proposal);

private:
    DialogFace& face_;
    Fault fault_;
};

} // namespace NorvaneUI

#endif
