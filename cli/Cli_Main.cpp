#include "cli/Cli_Commands.h"
#include "cli/Cli_Interrupt.h"

#include <algorithm>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

/// The texts and the tree of one file are freed together and asked for again for the next stage or
/// file. Handing the memory back to the system in between costs a tenth of the time of a large file,
/// and so does joining all small blocks at once at the next large request: they are joined as they go.
void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int largest = 1 << 30;
    mallopt(M_TRIM_THRESHOLD, largest);
    mallopt(M_MMAP_THRESHOLD, largest);
    mallopt(M_MXFAST, 0);
#endif
}

} // namespace

int main(int argc, char** argv) {
    keepFreedMemory();
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const Cli::ExitStatus status = Cli::runCommandLine(arguments, Cli::processStreams());
    Cli::endIfInterrupted();
    return static_cast<int>(status);
}
