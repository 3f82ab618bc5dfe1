#include "cli/console/Cli_Interrupt.h"
#include "cli/run/Cli_Commands.h"
#include "cli/run/Cli_Memory.h"

#include <algorithm>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    Cli::keepFreedMemory();
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const Cli::ExitStatus status = Cli::runCommandLine(arguments, Cli::processStreams());
    Cli::endIfInterrupted();
    return static_cast<int>(status);
}
