#include "cli/Cli_Commands.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

/// The texts and the tree of one file are freed together and asked for again for the next stage or
/// file. Handing the memory back to the system in between costs a tenth of the time of a large file.
void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int largest = 1 << 30;
    mallopt(M_TRIM_THRESHOLD, largest);
    mallopt(M_MMAP_THRESHOLD, largest);
#endif
}

} // namespace

int main(int argc, char** argv) {
    keepFreedMemory();
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    return static_cast<int>(Cli::runCommandLine(arguments, {std::cin, std::cout, std::cerr}));
}
