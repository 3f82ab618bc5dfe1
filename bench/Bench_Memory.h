#ifndef KERFLINE_BENCH_MEMORY_H
#define KERFLINE_BENCH_MEMORY_H

#include <cstddef>

namespace Bench {

/// Starts to count what the program takes from the heap, from zero.
void startMemoryCount();
/// What a count came to.
struct MemoryCount {
    std::size_t peakBytes = 0;   // the most that was held at one time; what was held before does not count
    std::size_t allocations = 0; // how often memory was asked for
};
MemoryCount stopMemoryCount();

} // namespace Bench

#endif
