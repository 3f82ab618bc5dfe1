#include "cli/console/Cli_Streams.h"

#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Cli {

Streams processStreams() {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    const Terminals terminals = {::isatty(STDIN_FILENO) == 1, ::isatty(STDOUT_FILENO) == 1,
                                 ::isatty(STDERR_FILENO) == 1};
    return {std::cin, std::cout, std::cerr, terminals};
}

unsigned terminalWidth() {
    constexpr unsigned usual = 80;
    struct winsize size {};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usual;
    return size.ws_col;
}

} // namespace Cli
