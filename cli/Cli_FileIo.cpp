#include "cli/Cli_FileIo.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Cli {

namespace {

[[noreturn]] void failWithReason() {
    throw std::system_error(errno != 0 ? errno : EIO, std::generic_category());
}

/// An open file that is closed with its scope.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {
        if (number_ < 0) failWithReason();
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    int number() const { return number_; }
    /// Some file systems report a failed write only here.
    void close() {
        const int number = number_;
        number_ = -1;
        if (::close(number) != 0) failWithReason();
    }

private:
    int number_;
};

void writeAll(const Descriptor& file, const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const auto count = ::write(file.number(), bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) failWithReason();
        written += static_cast<std::size_t>(count);
    }
}

void overwrite(const std::string& path, const std::string& bytes) {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    writeAll(file, bytes);
    file.close();
}

/// The file that `path` leads to through links: replacing a link would leave its target as it was.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    if (!real) failWithReason();
    return real.get();
}

/// A new file beside another one, removed with its scope unless it took that one's place.
class SiblingFile {
public:
    explicit SiblingFile(const std::string& target)
        : path_(target + ".XXXXXX"), file_(::mkostemp(path_.data(), O_CLOEXEC)) {}
    SiblingFile(const SiblingFile&) = delete;
    SiblingFile& operator=(const SiblingFile&) = delete;
    ~SiblingFile() {
        if (!moved_) ::unlink(path_.c_str());
    }

    Descriptor& file() { return file_; }
    bool takeOwnerAndMode(const struct stat& of) const {
        return ::fchown(file_.number(), of.st_uid, of.st_gid) == 0 && ::fchmod(file_.number(), of.st_mode & 07777) == 0;
    }
    void moveTo(const std::string& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) failWithReason();
        moved_ = true;
    }

private:
    std::string path_;
    Descriptor file_;
    bool moved_ = false;
};

/// Returns false, with nothing done, if a new file could not stand in for the old one.
bool replaceBySibling(const std::string& target, const struct stat& old, const std::string& bytes) {
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    if (old.st_nlink > 1 || ::access(folder.c_str(), W_OK) != 0) return false;
    SiblingFile sibling(target);
    if (!sibling.takeOwnerAndMode(old)) return false;
    writeAll(sibling.file(), bytes);
    sibling.file().close();
    sibling.moveTo(target);
    return true;
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
        result.bytes.resize(size + wanted);
        in.read(result.bytes.data() + size, static_cast<std::streamsize>(wanted));
        size += static_cast<std::size_t>(in.gcount());
    }
    if (in.bad()) failWithReason();
    result.bytes.resize(size);
    result.complete = !in || in.peek() == std::istream::traits_type::eof();
    return result;
}

void replaceFile(const std::string& path, const std::string& bytes) {
    const std::string target = resolved(path);
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0) failWithReason();
    // A file that may not be written to is not replaced either, though its folder would allow it.
    if (::access(target.c_str(), W_OK) != 0) failWithReason();
    if (!replaceBySibling(target, old, bytes)) overwrite(target, bytes);
}

} // namespace Cli
