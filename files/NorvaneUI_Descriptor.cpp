#include "files/NorvaneUI_Descriptor.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace NorvaneUI {

namespace {

FailureKind kindOf(int errorNumber) {
    switch (errorNumber) {
    case EACCES:
    case EPERM:
    case EROFS: return FailureKind::denied;
    case ENOENT:
    case ENOTDIR: return FailureKind::missing;
    case EEXIST: return FailureKind::exists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return FailureKind::full;
    default: return FailureKind::other;
    }
}

FileKind fileKind(::mode_t mode) {
    if (S_ISREG(mode)) return FileKind::regular;
    return S_ISDIR(mode) ? FileKind::folder : FileKind::other;
}

FileStatus toStatus(const struct stat& from) {
    FileStatus status;
    status.kind = fileKind(from.st_mode);
    status.size = static_cast<std::uint64_t>(from.st_size);
    status.mode = from.st_mode & 07777;
    status.device = from.st_dev;
    status.inode = from.st_ino;
    status.changed = std::int64_t{from.st_mtim.tv_sec} * 1000000000 + from.st_mtim.tv_nsec;
    status.links = from.st_nlink;
    return status;
}

} // namespace

Failure systemFailure(int errorNumber) {
    return {kindOf(errorNumber), std::generic_category().message(errorNumber)};
}

Descriptor::Descriptor(const std::string& path, int flags, ::mode_t mode)
    : number_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (number_ < 0) throw systemFailure(errno);
}

Descriptor::~Descriptor() {
    if (number_ >= 0) ::close(number_);
}

FileStatus Descriptor::status() const {
    struct stat found {};
    if (::fstat(number_, &found) != 0) throw systemFailure(errno);
    return toStatus(found);
}

std::string Descriptor::readAll() const {
    // One byte more than the size: the file that did not grow ends within the first look.
    std::string bytes(static_cast<std::size_t>(status().size) + 1, '\0');
    std::size_t size = 0;
    for (;;) {
        const auto count = ::read(number_, bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw systemFailure(errno);
        if (count == 0) break;
        size += static_cast<std::size_t>(count);
        if (size == bytes.size()) bytes.resize(size * 2);
    }
    bytes.resize(size);
    return bytes;
}

void Descriptor::writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const auto count = ::write(number_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw systemFailure(errno);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void Descriptor::flush() const {
    // Pipes and some virtual file systems have no disk to flush to, and say so with EINVAL.
    if (::fsync(number_) != 0 && errno != EINVAL) throw systemFailure(errno);
}

void Descriptor::close() {
    const int number = number_;
    number_ = -1;
    if (::close(number) != 0) throw systemFailure(errno);
}

FileStatus statusOf(const std::string& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0) {
        // A link that leads to itself leads nowhere, like one whose target is gone.
        if (errno != ENOENT && errno != ENOTDIR && errno != ELOOP) throw systemFailure(errno);
        FileStatus missing;
        missing.leadsNowhere = ::lstat(path.c_str(), &found) == 0;
        return missing;
    }
    FileStatus status = toStatus(found);
    // A question to the system rather than an open: an open for writing, even of a file that is
    // left alone, wakes the programs that watch files and start a run on each change.
    const std::uint32_t counting = ::geteuid() == 0 ? S_IRWXU : S_IRWXU | S_IRWXG | S_IRWXO;
    const auto may = [&](std::uint32_t bits, int how) {
        return (status.mode & counting & bits) != 0 && ::faccessat(AT_FDCWD, path.c_str(), how, AT_EACCESS) == 0;
    };
    status.readable = may(0444, R_OK);
    status.writable = may(0222, W_OK);
    return status;
}

} // namespace NorvaneUI
