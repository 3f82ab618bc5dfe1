#ifndef KERFLINE_TESTS_FUZZ_REPORT_H
#define KERFLINE_TESTS_FUZZ_REPORT_H

#include <string_view>

namespace Fuzz {

/// Prints what is wrong, with what belongs to it, and ends the program, so that the fuzzer keeps the input.
[[noreturn]] void fail(std::string_view what, std::string_view details);

inline void require(bool holds, std::string_view what, std::string_view details) {
    if (!holds) fail(what, details);
}

} // namespace Fuzz

#endif
