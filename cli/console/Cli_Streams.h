#ifndef KERFLINE_CLI_STREAMS_H
#define KERFLINE_CLI_STREAMS_H

#include <istream>
#include <ostream>

namespace Cli {

/// Which of the streams have a person at their other end.
struct Terminals {
    bool in = false;
    bool out = false;
    bool err = false;
};

/// The three streams of a process.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    Terminals terminals = {};
};

/// The streams of this process. Not to be mixed with those of the C library.
Streams processStreams();

/// How many characters a line of the error terminal takes.
unsigned terminalWidth();

} // namespace Cli

#endif
