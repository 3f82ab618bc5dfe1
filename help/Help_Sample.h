#ifndef KERFLINE_HELP_SAMPLE_H
#define KERFLINE_HELP_SAMPLE_H

#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <span>
#include <string>
#include <string_view>

namespace Help {

/// A short source on which one value of an option shows what the option does.
struct Sample {
    std::string_view option;
    /// As it stands in a scheme file.
    std::string_view value;
    std::string_view source;
    /// Lines of a scheme file with the options that this one needs beside it. They hold before and
    /// after, so that what differs is the work of this option alone.
    std::string_view with;
};

/// The samples of one option, one for each value worth seeing. None for an option that changes
/// nothing by itself.
std::span<const Sample> samplesOf(std::string_view option);

/// A sample as the formatter lays it out without and with its option.
struct Comparison {
    /// Lines of a scheme file; `with` may be empty.
    std::string with;
    std::string setting;
    std::string before;
    std::string after;
};

/// Throws std::logic_error if the formatter refuses the sample.
Comparison compare(const Sample& sample);

/// The line of a scheme file that sets an option to `value`, which is in the escapes of the file:
///     3 WS_AFTER_CS_KEY " "
std::string schemeLine(const Norvane::PropertyInfo& option, std::string_view value);

} // namespace Help

#endif
