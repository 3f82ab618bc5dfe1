#ifndef KERFLINE_TESTS_FUZZ_SOUNDNESS_H
#define KERFLINE_TESTS_FUZZ_SOUNDNESS_H

#include <string_view>

namespace Fuzz {

/// Whether a compiler could read the tokens of the text: no literal and no comment stays open, no byte is
/// stray, and each "#" stands in a directive. What only the newest or the oldest compilers read so, such as
/// trigraphs, makes a text unsound too.
bool isSound(std::string_view text);

} // namespace Fuzz

#endif
