#ifndef KERFLINE_CLI_STREAMS_H
#define KERFLINE_CLI_STREAMS_H

#include <istream>
#include <ostream>

namespace Cli {

/// The three streams of a process.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

} // namespace Cli

#endif
