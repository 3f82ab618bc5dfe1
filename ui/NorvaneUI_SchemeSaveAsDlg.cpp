#include "ui/NorvaneUI_SchemeSaveAsDlg.h"

namespace NorvaneUI {

std::optional<std::string> SchemeSaveAsDlg::run(const std::string& proposal) {
    std::optional<std::string> name = face_.askSchemeName(proposal);
    for (; name; name = face_.askSchemeName(*name)) {
        const std::string fault = fault_(*name);
        if (fault.empty()) return name;
        face_.notify(fault);
    }
    return std::nullopt;
}

} // namespace NorvaneUI
