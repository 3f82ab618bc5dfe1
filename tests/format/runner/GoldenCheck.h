#ifndef KERFLINE_TESTS_GOLDENCHECK_H
#define KERFLINE_TESTS_GOLDENCHECK_H

#include "tests/format/runner/GoldenFile.h"

#include <string>

namespace Golden {

/// What the program makes of a case.
struct Result {
    bool accepted = false;
    /// The diagnostics, one a line; empty if it was accepted.
    std::string messages;
    std::string once;
    std::string twice;
    /// Says where the tokens of `once` leave those of the source; empty if they do not.
    std::string lostToken;
};

Result runCase(const Case& golden);

/// Rewrites the expected texts of the file `path` to what the program makes of the sources now.
/// A case whose tokens change, or that is not marked (unstable) and moves again, keeps its text.
/// Returns one line for each case that was rewritten or refused; `refused` counts the latter.
std::string updateFile(const std::string& path, int& refused);

} // namespace Golden

#endif
