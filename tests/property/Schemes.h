#ifndef KERFLINE_TESTS_SCHEMES_H
#define KERFLINE_TESTS_SCHEMES_H

#include "src/scheme/Norvane_PropertySet.h"

#include <string>
#include <string_view>
#include <vector>

namespace Property {

struct Scheme {
    std::string name;
    Norvane::PropertySet options;
};

/// One that comes with the program. Throws std::invalid_argument for another name.
Scheme shippedScheme(std::string_view name);
std::vector<std::string> shippedSchemeNames();

/// All options that the engine knows.
std::vector<std::string> optionNames();

/// Schemes that hold one option alone, each with another of its typical values. An option that works
/// only beside another one has that too.
std::vector<Scheme> schemesOfOption(const std::string& name);

/// `scheme` with line wrapping at `margin`.
Scheme wrappedAt(int margin, Scheme scheme);

} // namespace Property

#endif
