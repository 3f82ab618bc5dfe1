#include "src/scheme/Norvane_WrapOptions.h"

#include <cstdint>

namespace Norvane {

bool wrapBool(const PropertySet& scheme, const char* name) {
    bool value = false;
    scheme.getBool(name, value);
    return value;
}

int wrapInt(const PropertySet& scheme, const char* name, int absent) {
    std::int32_t value = absent;
    scheme.getInt(name, value);
    return value;
}

int wrapStyleValue(const PropertySet& scheme, const char* name, int absent, int outOfRange) {
    const int value = wrapInt(scheme, name, absent);
    return value < 0 || value > 2 ? outOfRange : value;
}

OptionalString wrapString(const PropertySet& scheme, const char* name) {
    OptionalString option;
    option.set = scheme.getString(name, option.value);
    return option;
}

OptionalString wrapIndentValue(const PropertySet& scheme, const char* name) {
    const OptionalString option = wrapString(scheme, name);
    return option.value.find_first_not_of(" \t") == std::string::npos ? option : OptionalString();
}

} // namespace Norvane
