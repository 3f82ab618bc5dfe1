#include "cli/Cli_Options.h"
#include "cli/Cli_Program.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
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
