#ifndef KERFLINE_NORVANEUI_GLOBALSETTINGS_H
#define KERFLINE_NORVANEUI_GLOBALSETTINGS_H

#include "src/scheme/Norvane_PropertySet.h"
#include "ui/NorvaneUI_PageTable.h"

#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// The four options of a construct with a body in braces.
struct BodyKeys {
    std::string wsBeforeOpenBrace;
    std::string wsAfterOpenBrace;
    std::string wsBeforeCloseBrace;
    std::string indentContent;
};

/// Requires: the page has a body.
BodyKeys bodyKeysOf(const PageInfo& page);

/// Copies the global settings of a body over its four options, in the order indent, in front of the
/// "{", behind it, in front of the "}". One that is not set takes the value of the one before it, or
/// an empty one: each option gets a value.
void copyBodyGlobals(Norvane::PropertySet& scheme, const BodyKeys& keys);

/// Copies the global settings of the further options of a page, those that are set.
void copyFurtherGlobals(Norvane::PropertySet& scheme, const PageInfo& page);

/// Copies all global settings that are set over the options of the page.
void copyGlobalsThatAreSet(Norvane::PropertySet& scheme, const PageInfo& page);

/// Every page that uses the global settings, and is not left alone, gets them again.
enum class GlobalCopy { everyRow, rowsThatAreSet };
void refreshUsersOfGlobals(Norvane::PropertySet& scheme, GlobalCopy copy);

/// The global settings that the page would copy and that are not set.
std::vector<std::string_view> missingGlobals(const Norvane::PropertySet& scheme, const PageInfo& page);

} // namespace NorvaneUI

#endif
