#include "cli/Cli_Options.h"
#include "cli/Cli_Program.h"

#include <exception>
#include <iostream>

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
    Cli::ExitStatus status = Cli::ExitStatus::done;
    try {
        if (const auto options = Cli::parseCommandLine(argc, argv, std::cout, std::cerr, status)) {
            status = Cli::runProgram(*options, {std::cin, std::cout, std::cerr});
        }
    } catch (const std::exception&) {
        std::cerr << "kerfline: error: the program failed before it could start\n";
        status = Cli::ExitStatus::fileFailed;
    }
    return static_cast<int>(status);
}
