#include "tests/property/Schemes.h"

#include "cli/scheme/Cli_ShippedSchemes.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <sstream>
#include <stdexcept>

namespace Property {

namespace {

using Norvane::PropertyKind;

std::vector<std::string> typicalTexts(PropertyKind kind) {
    switch (kind) {
    case PropertyKind::WhiteSpace: return {"", " ", "\n", "\n\n", "\n\t"};
    case PropertyKind::Indent: return {"", "    ", "\t"};
    default: return {"1.0"};
    }
}

std::vector<std::int32_t> typicalNumbers(const Norvane::PropertyInfo& info) {
    if (info.name == "TAB_SIZE") return {1, 4, 8};
    if (info.name == "RIGHT_MARGIN") return {0, 1, 20, 80};
    std::vector<std::int32_t> values;
    for (std::int32_t value = info.minimum; value <= info.maximum && values.size() < 5; ++value) {
        values.push_back(value);
    }
    return values;
}

Scheme named(const std::string& option, const std::string& value) {
    return {option + " = " + value, Norvane::PropertySet("single")};
}

} // namespace

Scheme shippedScheme(std::string_view name) {
    for (const Cli::ShippedScheme& scheme : Cli::shippedSchemes()) {
        if (scheme.name != name) continue;
        std::istringstream in{std::string(scheme.text)};
        return {std::string(name), Norvane::PropertySet(in)};
    }
    throw std::invalid_argument("no shipped scheme " + std::string(name));
}

std::vector<std::string> shippedSchemeNames() {
    std::vector<std::string> names;
    for (const Cli::ShippedScheme& scheme : Cli::shippedSchemes()) names.emplace_back(scheme.name);
    return names;
}

std::vector<std::string> optionNames() {
    std::vector<std::string> names;
    for (const Norvane::PropertyInfo& info : Norvane::propertyCatalogue()) names.emplace_back(info.name);
    return names;
}

std::vector<Scheme> schemesOfOption(const std::string& name) {
    const Norvane::PropertyInfo& info = *Norvane::findProperty(name);
    std::vector<Scheme> schemes;
    if (info.kind == PropertyKind::Bool) {
        schemes.push_back(named(name, "true"));
        schemes.back().options.setBool(name, true);
    } else if (info.kind == PropertyKind::Int) {
        for (const std::int32_t value : typicalNumbers(info)) {
            schemes.push_back(named(name, std::to_string(value)));
            schemes.back().options.setInt(name, value);
        }
    } else {
        for (const std::string& value : typicalTexts(info.kind)) {
            schemes.push_back(named(name, "string " + std::to_string(schemes.size())));
            schemes.back().options.setString(name, value);
        }
    }
    if (info.family == Norvane::PropertyFamily::WrappingAndMargins || name == "EXPR_WRAP_STYLE") {
        for (Scheme& scheme : schemes) {
            scheme.options.setBool("LINE_WRAP", true);
            if (!scheme.options.exists("RIGHT_MARGIN")) scheme.options.setInt("RIGHT_MARGIN", 30);
        }
    }
    return schemes;
}

Scheme wrappedAt(int margin, Scheme scheme) {
    scheme.name += " wrapped at " + std::to_string(margin);
    scheme.options.setBool("LINE_WRAP", true);
    scheme.options.setInt("RIGHT_MARGIN", margin);
    return scheme;
}

} // namespace Property
