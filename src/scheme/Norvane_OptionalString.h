#ifndef KERFLINE_NORVANE_OPTIONALSTRING_H
#define KERFLINE_NORVANE_OPTIONALSTRING_H

#include <string>

namespace Norvane {

/// A white-space option as a pass holds it. Not set: the construct keeps the white space of the
/// source. Set: the value replaces it. Set and empty: the white space goes. The first and the last
/// are never the same thing.
struct OptionalString {
    bool set = false;
    std::string value;

    bool breaksLine() const { return set && value.find('\n') != std::string::npos; }
};

} // namespace Norvane

#endif
