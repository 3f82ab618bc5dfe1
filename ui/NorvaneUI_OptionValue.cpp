#include "ui/NorvaneUI_OptionValue.h"

#include "src/scheme/Norvane_PropertyCatalogue.h"

namespace NorvaneUI {

namespace {

enum class Kind { Bool, Int, String };

Kind kindOf(std::string_view option) {
    const Norvane::PropertyInfo* info = Norvane::findProperty(option);
    if (info == nullptr) return Kind::String;
    switch (info->kind) {
    case Norvane::PropertyKind::Bool: return Kind::Bool;
    case Norvane::PropertyKind::Int: return Kind::Int;
    default: return Kind::String;
    }
}

template <class Value>
OptionValue found(const Norvane::PropertySet::Map<Value>& values, std::string_view option) {
    const auto place = values.find(option);
    return place == values.end() ? OptionValue() : OptionValue(place->second);
}

OptionValue read(const Norvane::PropertySet& scheme, std::string_view option, Kind kind) {
    switch (kind) {
    case Kind::Bool: return found(scheme.bools(), option);
    case Kind::Int: return found(scheme.ints(), option);
    case Kind::String: return found(scheme.strings(), option);
    }
    return {};
}

void store(Norvane::PropertySet& scheme, std::string_view option, const OptionValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) scheme.setBool(option, *flag);
    if (const auto* number = std::get_if<std::int32_t>(&value)) scheme.setInt(option, *number);
    if (const auto* text = std::get_if<std::string>(&value)) scheme.setString(option, *text);
}

/// The set itself erases the first kind that it finds, which need not be this one.
void eraseKind(Norvane::PropertySet& scheme, std::string_view option, Kind erased) {
    OptionValue others[3];
    for (const Kind kind : {Kind::Bool, Kind::Int, Kind::String}) {
        if (kind != erased) others[static_cast<int>(kind)] = read(scheme, option, kind);
    }
    while (scheme.erase(option)) {
    }
    for (const OptionValue& other : others) store(scheme, option, other);
}

} // namespace

OptionValue readOption(const Norvane::PropertySet& scheme, std::string_view option) {
    return read(scheme, option, kindOf(option));
}

void storeOption(Norvane::PropertySet& scheme, std::string_view option, const OptionValue& value) {
    if (std::holds_alternative<std::monostate>(value)) eraseKind(scheme, option, kindOf(option));
    else store(scheme, option, value);
}

Norvane::PropertySet renamedScheme(const Norvane::PropertySet& scheme, const std::string& name) {
    Norvane::PropertySet result(name);
    for (const auto& [option, value] : scheme.bools()) result.setBool(option, value);
    for (const auto& [option, value] : scheme.ints()) result.setInt(option, value);
    for (const auto& [option, value] : scheme.strings()) result.setString(option, value);
    return result;
}

} // namespace NorvaneUI
