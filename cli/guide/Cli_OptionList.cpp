#include "cli/guide/Cli_OptionList.h"

#include "help/Help_PlainText.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

namespace Cli {

void listSchemeOptions(std::ostream& out) {
    bool first = true;
    Norvane::PropertyFamily family{};
    for (const Norvane::PropertyInfo& info : Norvane::propertyCatalogue()) {
        if (first || info.family != family) {
            out << (first ? "" : "\n") << Norvane::propertyFamilyName(info.family) << '\n';
            family = info.family;
            first = false;
        }
        out << "  " << info.name << "  (" << Norvane::propertyKindName(info.kind)
            << ", default: " << info.defaultValue << ")\n"
            << Help::filledText(info.description, "      ", Help::kTextWidth);
    }
}

} // namespace Cli
