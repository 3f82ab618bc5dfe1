#include "files/NorvaneUI_SafeFile.h"

#include "files/NorvaneUI_Descriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace NorvaneUI {

namespace {

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// The file that `path` leads to through links: replacing a link would leave its target as it was.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    if (!real) throw systemFailure(errno);
    return real.get();
}

/// A rename is on the disk when its folder is. The file is whole either way, so a file system that
/// cannot flush a folder is no failure.
void flushFolderOf(const std::string& path) {
    const std::string folder = folderOf(path);
    try {
        Descriptor(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY).flush();
    } catch (const Failure&) {
    }
}

/// A new file beside `target`, removed with its scope unless it is kept or took a place.
class Sibling {
public:
    Sibling(const std::string& target, ::mode_t mode)
        : path_(folderOf(target) + ".kerfline-"), file_(open(mode)) {}
    Sibling(const Sibling&) = delete;
    Sibling& operator=(const Sibling&) = delete;
    ~Sibling() {
        if (!kept_) ::unlink(path_.c_str());
    }

    const std::string& path() const { return path_; }
    Descriptor& file() { return *file_; }
    void keep() { kept_ = true; }

    void write(std::string_view bytes) {
        file_->writeAll(bytes);
        file_->flush();
        file_->close();
    }
    void moveTo(const std::string& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) throw systemFailure(errno);
        keep();
        flushFolderOf(target);
    }
    /// As moveTo, but only to a name that nothing has.
    void moveToNew(const std::string& target) {
        if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) {
            keep();
        } else if ((errno != EINVAL && errno != ENOSYS) || ::link(path_.c_str(), target.c_str()) != 0) {
            throw systemFailure(errno);
        }
        flushFolderOf(target);
    }

private:
    std::unique_ptr<Descriptor> open(::mode_t mode) {
        const std::string stem = path_;
        for (int attempt = 0;; ++attempt) {
            path_ = stem + randomSuffix();
            try {
                return std::make_unique<Descriptor>(path_, O_WRONLY | O_CREAT | O_EXCL, mode);
            } catch (const Failure& failure) {
                if (failure.kind != FailureKind::exists || attempt == 100) throw;
            }
        }
    }
    static std::string randomSuffix() {
        constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
        std::random_device random;
        std::string suffix;
        while (suffix.size() < 6) suffix += letters[random() % letters.size()];
        return suffix;
    }

    std::string path_;
    std::unique_ptr<Descriptor> file_;
    bool kept_ = false;
};

/// Access lists and labels. What the file system does not take stays behind.
void copyAttributes(const Descriptor& from, const Descriptor& to) {
    const auto length = ::flistxattr(from.number(), nullptr, 0);
    if (length <= 0) return;
    std::string names(static_cast<std::size_t>(length), '\0');
    const auto filled = ::flistxattr(from.number(), names.data(), names.size());
    if (filled <= 0) return;
    names.resize(static_cast<std::size_t>(filled));
    for (std::size_t at = 0; at < names.size(); at += std::string_view(names.data() + at).size() + 1) {
        const char* name = names.data() + at;
        const auto size = ::fgetxattr(from.number(), name, nullptr, 0);
        if (size < 0) continue;
        std::string value(static_cast<std::size_t>(size), '\0');
        const auto got = ::fgetxattr(from.number(), name, value.data(), value.size());
        if (got < 0 || ::fsetxattr(to.number(), name, value.data(), static_cast<std::size_t>(got), 0) != 0) {
            continue;
        }
    }
}

/// Gives `copy` the owner and the mode of `original`. Returns false if it cannot be done in full.
bool takeIdentity(const Descriptor& original, const Descriptor& copy) {
    struct stat of {};
    if (::fstat(original.number(), &of) != 0) throw systemFailure(errno);
    // The owner first: a change of owner takes some mode bits away.
    if (::fchown(copy.number(), of.st_uid, of.st_gid) != 0) return false;
    copyAttributes(original, copy);
    return ::fchmod(copy.number(), of.st_mode & 07777) == 0;
}

void checkUnchanged(const std::string& path, const FileStatus& seen) {
    if (!seen.isUnchanged(statusOf(path))) {
        throw Failure{FailureKind::changed, "The file has been changed meanwhile"};
    }
}

void writeInPlace(const std::string& path, std::string_view bytes) {
    Descriptor file(path, O_WRONLY);
    // On a full disk this says so before the first byte is touched; not all file systems know how.
    if (!bytes.empty() &&
        ::fallocate(file.number(), FALLOC_FL_KEEP_SIZE, 0, static_cast<::off_t>(bytes.size())) != 0 &&
        errno != EOPNOTSUPP && errno != ENOSYS) {
        throw systemFailure(errno);
    }
    file.writeAll(bytes);
    if (::ftruncate(file.number(), static_cast<::off_t>(bytes.size())) != 0) throw systemFailure(errno);
    file.flush();
    file.close();
}

void overwriteWithBackup(const std::string& path, std::string_view bytes, const FileStatus& seen) {
    const std::string old = Descriptor(path, O_RDONLY).readAll();
    Sibling backup(path, 0600);
    backup.write(old);
    flushFolderOf(path);
    checkUnchanged(path, seen);
    try {
        writeInPlace(path, bytes);
    } catch (const Failure& failure) {
        try {
            writeInPlace(path, old);
        } catch (const Failure&) {
            backup.keep();
            throw Failure{failure.kind, failure.text + "; the old text is in \"" + backup.path() + '"'};
        }
        throw;
    }
}

} // namespace

void SafeFile::create(std::string_view bytes) const {
    Sibling sibling(path_, 0666);
    sibling.write(bytes);
    sibling.moveToNew(path_);
}

void SafeFile::replace(std::string_view bytes, const FileStatus& seen) const {
    const std::string target = resolved(path_);
    const FileStatus now = statusOf(target);
    checkUnchanged(target, seen);
    if (!now.writable) throw systemFailure(EACCES);
    if (now.links > 1) return overwriteWithBackup(target, bytes, seen);
    {
        Sibling sibling(target, 0600);
        if (takeIdentity(Descriptor(target, O_RDONLY), sibling.file())) {
            sibling.write(bytes);
            checkUnchanged(target, seen);
            return sibling.moveTo(target);
        }
    }
    overwriteWithBackup(target, bytes, seen);
}

void SafeFile::copyFrom(const std::string& from) const {
    const Descriptor source(from, O_RDONLY);
    struct stat of {};
    if (::fstat(source.number(), &of) != 0) throw systemFailure(errno);
    Sibling sibling(path_, 0600);
    // A copy that belongs to whoever made it is still a copy.
    if (!takeIdentity(source, sibling.file()) && ::fchmod(sibling.file().number(), of.st_mode & 0777) != 0) {
        throw systemFailure(errno);
    }
    sibling.file().writeAll(source.readAll());
    const struct timespec times[2] = {of.st_atim, of.st_mtim};
    if (::futimens(sibling.file().number(), times) != 0) throw systemFailure(errno);
    sibling.write({});
    sibling.moveTo(path_);
}

} // namespace NorvaneUI
