#ifndef KERFLINE_CLI_FILEIO_H
#define KERFLINE_CLI_FILEIO_H

#include <cstddef>
#include <fstream>
#include <istream>
#include <string>

namespace Cli {

/// The engine counts offsets in 32 bits, and the laid out text may be longer than the source.
inline constexpr std::size_t kLargestSource = 0xffff0000;

struct ReadResult {
    std::string bytes;
    /// False if the source is longer than the limit, or than the memory; what is not in `bytes` is
    /// still in the stream.
    bool complete = true;
    bool outOfMemory = false;
};

/// Opens a file to be read. Throws std::system_error with the system's reason, also for a folder.
std::ifstream openFile(const std::string& path);

/// Reads `in` to its end, or up to `limit` bytes. Throws std::system_error if reading fails.
ReadResult readSource(std::istream& in, std::size_t limit = kLargestSource);

} // namespace Cli

#endif
