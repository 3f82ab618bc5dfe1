#ifndef KERFLINE_BENCH_MEMORY_H
#define KERFLINE_BENCH_MEMORY_H

#include <cstddef>

namespace Bench {

/// Starts to count what the program takes from the heap, from zero.
void startMemoryCount();
/// Stops it, and returns the most bytes that were held at one time since the start. What was held
/// before does not count.
std::size_t stopMemoryCount();

} // namespace Bench

#endif
