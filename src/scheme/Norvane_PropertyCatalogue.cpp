#include "src/scheme/Norvane_PropertyCatalogue.h"

#include "cpp/Cpp_Scanner.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace Norvane {

namespace {

using Family = PropertyFamily;

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// The fewest characters to insert, drop or replace on the way from `from` to `to`.
std::size_t editDistance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = i;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = diagonal + (upper(from[i - 1]) == to[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

/// Old schemes that went through the conversion hold these options under a kind that no pass reads.
bool passesAsInt(const PropertyInfo& info) {
    return info.name == "WRAP_INDENT" || info.name == "DATA_DO_NOT_FORMAT";
}

} // namespace

const PropertyInfo* findProperty(std::string_view name) {
    for (const std::span<const PropertyInfo> table : {propertyCatalogue(), pageKeyCatalogue()}) {
        for (const PropertyInfo& info : table) {
            if (info.name == name) return &info;
        }
    }
    return nullptr;
}

std::string_view nearestPropertyName(std::string_view name) {
    // Far beyond the longest option. A whole file that was taken for a name must not cost seconds.
    constexpr std::size_t kLongestCompared = 100;
    name = name.substr(0, kLongestCompared);
    std::string_view nearest;
    std::size_t fewest = std::numeric_limits<std::size_t>::max();
    for (const std::span<const PropertyInfo> table : {propertyCatalogue(), pageKeyCatalogue()}) {
        for (const PropertyInfo& info : table) {
            const std::size_t distance = editDistance(name, info.name);
            if (distance >= fewest) continue;
            fewest = distance;
            nearest = info.name;
        }
    }
    return nearest;
}

std::string_view propertyFamilyName(PropertyFamily family) {
    switch (family) {
    case Family::Global: return "Global";
    case Family::Classes: return "Classes";
    case Family::TemplateParameters: return "Template parameters";
    case Family::Namespaces: return "Namespaces";
    case Family::Enums: return "Enums";
    case Family::Functions: return "Functions";
    case Family::FunctionCalls: return "Function calls";
    case Family::DataDeclarations: return "Data declarations";
    case Family::ControlStatements: return "Control statements";
    case Family::Expressions: return "Expressions";
    case Family::PointersAndReferences: return "Pointers and references";
    case Family::WrappingAndMargins: return "Wrapping and margins";
    case Family::Other: return "Other";
    case Family::SourceLayout: return "Layout of the source";
    case Family::Refinements: return "Refinements";
    case Family::ClosuresAndLists: return "Closures and lists";
    case Family::PageKeys: return "Page keys";
    }
    return "";
}

std::string_view propertyKindName(PropertyKind kind) {
    switch (kind) {
    case PropertyKind::Bool: return "bool";
    case PropertyKind::Int: return "int";
    case PropertyKind::WhiteSpace: return "white space";
    case PropertyKind::Indent: return "indent";
    case PropertyKind::Text: return "text";
    }
    return "";
}

PropertyFault checkBoolProperty(std::string_view name, bool) {
    const PropertyInfo* info = findProperty(name);
    if (!info) return PropertyFault::UnknownName;
    const bool fits = info->kind == PropertyKind::Bool || info->name == "LINE_WRAP_DO_NOT_FORMAT";
    return fits ? PropertyFault::None : PropertyFault::WrongKind;
}

PropertyFault checkIntProperty(std::string_view name, std::int32_t value) {
    const PropertyInfo* info = findProperty(name);
    if (!info) return PropertyFault::UnknownName;
    if (passesAsInt(*info)) return PropertyFault::None;
    if (info->kind != PropertyKind::Int) return PropertyFault::WrongKind;
    return value < info->minimum || value > info->maximum ? PropertyFault::OutOfRange : PropertyFault::None;
}

PropertyFault checkStringProperty(std::string_view name, std::string_view value) {
    const PropertyInfo* info = findProperty(name);
    if (!info) return PropertyFault::UnknownName;
    if (info->kind == PropertyKind::Text) return PropertyFault::None;
    if (info->kind != PropertyKind::WhiteSpace && info->kind != PropertyKind::Indent)
        return PropertyFault::WrongKind;
    if (!std::all_of(value.begin(), value.end(), Cpp::isSpace)) return PropertyFault::NotWhiteSpace;
    const bool breaksLine = value.find_first_of("\n\r") != std::string_view::npos;
    return breaksLine && info->kind == PropertyKind::Indent ? PropertyFault::LineBreakInIndent
                                                            : PropertyFault::None;
}

} // namespace Norvane
