#include "cli/files/Cli_FileIo.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>
#include <system_error>

namespace Cli {

namespace {

[[noreturn]] void failWithReason() {
    throw std::system_error(errno != 0 ? errno : EIO, std::generic_category());
}

/// False, and nothing is lost, if there is not enough memory.
bool grow(std::string& bytes, std::size_t size) {
    try {
        bytes.resize(size);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

std::ifstream openFile(const std::string& path) {
    // A folder can be opened, and fails only when it is read, without a reason.
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) throw std::system_error(EISDIR, std::generic_category());
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) failWithReason();
    return in;
}

ReadResult readSource(std::istream& in, std::size_t limit) {
    ReadResult result;
    errno = 0;
    constexpr std::size_t chunk = 1 << 18;
    std::size_t size = 0;
    while (in && size < limit) {
        const std::size_t wanted = std::min(std::max(chunk, size), limit - size);
        if (!grow(result.bytes, size + wanted)) {
            result.outOfMemory = true;
            break;
        }
        in.read(result.bytes.data() + size, static_cast<std::streamsize>(wanted));
        size += static_cast<std::size_t>(in.gcount());
    }
    if (in.bad()) failWithReason();
    result.bytes.resize(size);
    result.complete = !result.outOfMemory && (!in || in.peek() == std::istream::traits_type::eof());
    return result;
}

} // namespace Cli
