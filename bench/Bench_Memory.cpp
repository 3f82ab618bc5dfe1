#include "bench/Bench_Memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

// The benchmark runs in one thread. Blocks from before the count that are freed during it take the
// number of held bytes below zero, which does not touch the peak of what came later by much.
bool counting = false;
std::int64_t heldBytes = 0;
std::int64_t peakBytes = 0;
std::size_t allocations = 0;

void* take(std::size_t size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    if (counting) {
        ++allocations;
        heldBytes += static_cast<std::int64_t>(malloc_usable_size(block));
        peakBytes = std::max(peakBytes, heldBytes);
    }
    return block;
}

void giveBack(void* block) {
    if (counting && block != nullptr) heldBytes -= static_cast<std::int64_t>(malloc_usable_size(block));
    std::free(block);
}

} // namespace

void* operator new(std::size_t size) { return take(size); }
void* operator new[](std::size_t size) { return take(size); }
void operator delete(void* block) noexcept { giveBack(block); }
void operator delete[](void* block) noexcept { giveBack(block); }
void operator delete(void* block, std::size_t) noexcept { giveBack(block); }
void operator delete[](void* block, std::size_t) noexcept { giveBack(block); }

namespace Bench {

void startMemoryCount() {
    heldBytes = 0;
    peakBytes = 0;
    allocations = 0;
    counting = true;
}

MemoryCount stopMemoryCount() {
    counting = false;
    return {static_cast<std::size_t>(peakBytes), allocations};
}

} // namespace Bench
