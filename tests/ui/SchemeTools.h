#ifndef KERFLINE_TESTS_SCHEMETOOLS_H
#define KERFLINE_TESTS_SCHEMETOOLS_H

#include "schemes/NorvaneUI_PropertySetStore.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

/// The schemes that come with the program.
std::vector<Norvane::PropertySet> shippedSchemes();

/// Any values under any names of the catalogues, and under some that are in none: values of a
/// wrong kind, out of range, and that are no white space are among them.
Norvane::PropertySet randomScheme(std::mt19937& random);

/// With the options given as white space.
Norvane::PropertySet schemeOf(const std::string& name,
                              const std::vector<std::pair<std::string, std::string>>& options = {});

/// The value with its quotes, a number, "true", "false", or "not set".
std::string optionText(const Norvane::PropertySet& scheme, const std::string& option);

#endif
