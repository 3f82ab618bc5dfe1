#include "files/NorvaneUI_DiskFileSystem.h"

#include "files/NorvaneUI_Descriptor.h"
#include "files/NorvaneUI_SafeFile.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace NorvaneUI {

namespace {

template <class Action> Status attempt(Action action) {
    try {
        action();
        return {};
    } catch (const Failure& failure) {
        return failure;
    }
}

template <class Value, class Action> Result<Value> attemptFor(Action action) {
    try {
        return action();
    } catch (const Failure& failure) {
        return failure;
    }
}

Failure toFailure(const std::error_code& error) { return systemFailure(error.value()); }

} // namespace

Result<std::vector<std::string>> DiskFileSystem::list(const std::string& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    std::vector<std::string> names;
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    if (error) return toFailure(error);
    return names;
}

Result<FileStatus> DiskFileSystem::status(const std::string& path) {
    return attemptFor<FileStatus>([&] { return statusOf(path); });
}

Result<std::string> DiskFileSystem::read(const std::string& path) {
    return attemptFor<std::string>([&] {
        // Without O_NONBLOCK the open of a pipe would wait for somebody to write into it.
        const Descriptor file(path, O_RDONLY | O_NONBLOCK);
        const FileKind kind = file.status().kind;
        if (kind == FileKind::folder) throw systemFailure(EISDIR);
        if (kind != FileKind::regular) throw systemFailure(EINVAL);
        return file.readAll();
    });
}

Status DiskFileSystem::create(const std::string& path, const std::string& bytes) {
    return attempt([&] { SafeFile(path).create(bytes); });
}

Status DiskFileSystem::replace(const std::string& path, const std::string& bytes, const FileStatus& seen) {
    return attempt([&] { SafeFile(path).replace(bytes, seen); });
}

Status DiskFileSystem::copy(const std::string& from, const std::string& to) {
    return attempt([&] { SafeFile(to).copyFrom(from); });
}

Status DiskFileSystem::remove(const std::string& path) {
    if (::unlink(path.c_str()) != 0) return systemFailure(errno);
    return {};
}

Status DiskFileSystem::makeFolders(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return toFailure(error);
    return {};
}

} // namespace NorvaneUI
