#ifndef KERFLINE_TESTS_FUZZ_INPUT_H
#define KERFLINE_TESTS_FUZZ_INPUT_H

#include "src/scheme/Norvane_PropertySet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Fuzz {

/// The bytes of an input as a source text: in line feeds, without NUL and byte order mark, as the engine gets it.
std::string textOf(const std::uint8_t* data, std::size_t size);

/// A scheme and a source.
///
/// The first byte of an input chooses the scheme to start from: one of those that come with the program or the
/// empty one. The second is the number of options, each of two bytes: which one, and which of its values.
/// The rest is the source. So every input is one, and a change of one byte stays a small change.
struct Input {
    Norvane::PropertySet scheme;
    /// The scheme is one that comes with the program, as it stands.
    bool isShipped = false;
    std::string source;
};

Input inputOf(const std::uint8_t* data, std::size_t size);

/// An input that holds `source` under `scheme`, as near as the bytes can tell a scheme.
std::string bytesOf(const Norvane::PropertySet& scheme, std::string_view source);

/// The scheme and the source as the lines of a golden case, for somebody to read.
std::string describe(const Input& input);

} // namespace Fuzz

#endif
