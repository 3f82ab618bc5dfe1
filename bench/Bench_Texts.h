#ifndef KERFLINE_BENCH_TEXTS_H
#define KERFLINE_BENCH_TEXTS_H

#include <span>
#include <string>
#include <string_view>

namespace Bench {

/// A kind of text that formatting has to be quick on. `make(2)` is twice the text of `make(1)`: as
/// many more rows or functions, or a line as much longer, so that the cost of a pass which grows in
/// step with its input doubles. The same scale always makes the same text.
struct Text {
    std::string_view name;
    std::string (*make)(int scale);
};

/// The texts for lexing, parsing and formatting.
std::span<const Text> texts();
/// The texts for wrapping.
std::span<const Text> wrapTexts();

/// Looks in both. Null if there is none of that name.
const Text* findText(std::string_view name);

} // namespace Bench

#endif
