#ifndef KERFLINE_NORVANE_PROPERTYCATALOGUE_H
#define KERFLINE_NORVANE_PROPERTYCATALOGUE_H

#include <cstdint>
#include <span>
#include <string_view>

namespace Norvane {

enum class PropertyFamily {
    Global,
    Classes,
    TemplateParameters,
    Namespaces,
    Enums,
    Functions,
    FunctionCalls,
    DataDeclarations,
    ControlStatements,
    Expressions,
    PointersAndReferences,
    WrappingAndMargins,
    Other,
    SourceLayout,
    Refinements,
    ClosuresAndLists,
    PageKeys,
};

/// What the value of an option is. WhiteSpace, Indent and Text are strings in a scheme: the exact
/// white space of a place, white space in front of a line, and any text.
enum class PropertyKind { Bool, Int, WhiteSpace, Indent, Text };

/// One option that a scheme can hold.
struct PropertyInfo {
    std::string_view name;
    PropertyFamily family;
    PropertyKind kind;
    /// In words: "false", "not set", "none", "one blank", or a number.
    std::string_view defaultValue;
    /// The values that mean something, both ends included. Only for Int.
    std::int32_t minimum;
    std::int32_t maximum;
    /// A few words for a form or a heading, short enough to stand beside a field. No two options of
    /// one family share them.
    std::string_view label;
    /// What it does and when it acts, in one line.
    std::string_view description;
    /// False for an option that no pass reads: old schemes hold it, or the options interface does.
    bool formats;
};

/// One value of an option that is a choice between a few, and what it stands for, such as
/// "at the type".
struct PropertyChoice {
    std::int32_t value;
    std::string_view words;
};

/// Every option of the engine, family by family, and by name within a family. What old schemes know
/// nothing of stands behind all others.
std::span<const PropertyInfo> propertyCatalogue();

/// The switches that the pages of the options interface remember in a scheme. No pass reads them.
std::span<const PropertyInfo> pageKeyCatalogue();

/// The values to choose from, in rising order, if `name` is such an option; otherwise none. Those of
/// a bool are 0 and 1.
std::span<const PropertyChoice> propertyChoices(std::string_view name);

/// Looks in both catalogues. Null for a name that is in neither.
const PropertyInfo* findProperty(std::string_view name);

/// The name of either catalogue that takes the fewest changed characters to get to from `name`,
/// whatever the case of its letters; the first of several. Never empty.
std::string_view nearestPropertyName(std::string_view name);

std::string_view propertyFamilyName(PropertyFamily family);
std::string_view propertyKindName(PropertyKind kind);

/// What is wrong with one value of a scheme.
enum class PropertyFault {
    None,
    UnknownName,
    WrongKind,
    OutOfRange,
    /// A white-space option whose value holds something else.
    NotWhiteSpace,
    /// An indent that would break the line that it stands in front of.
    LineBreakInIndent,
};

/// Each tells whether a scheme may hold the value under the name. They are for schemes that come
/// from a user: the property set itself takes everything, and the passes make do with it. The few
/// options that the conversion of old schemes writes under another kind pass under that kind too.
PropertyFault checkBoolProperty(std::string_view name, bool value);
PropertyFault checkIntProperty(std::string_view name, std::int32_t value);
PropertyFault checkStringProperty(std::string_view name, std::string_view value);

} // namespace Norvane

#endif
