#ifndef KERFLINE_NORVANEUI_FILESYSTEM_H
#define KERFLINE_NORVANEUI_FILESYSTEM_H

#include "files/NorvaneUI_Failure.h"
#include "files/NorvaneUI_FileStatus.h"

#include <string>
#include <vector>

namespace NorvaneUI {

/// The files, as all layers above the engine reach them. Paths are bytes, "/" separates.
///
/// No operation throws for a failure of the system. What writes leaves the old text or the new one
/// under the path, never a part of one.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The names in a folder, without "." and "..", in no order.
    virtual Result<std::vector<std::string>> list(const std::string& folder) = 0;
    /// A missing file, or a link that leads nowhere, is no failure.
    virtual Result<FileStatus> status(const std::string& path) = 0;
    /// The whole content. Fails for everything but a regular file, without waiting for one.
    virtual Result<std::string> read(const std::string& path) = 0;

    /// Makes a file. Fails with `exists` if anything has that name, a link that leads nowhere too.
    virtual Status create(const std::string& path, const std::string& bytes) = 0;
    /// Replaces the content of a file that is there, through links, and keeps its owner and mode.
    /// Fails with `changed` if the file is no longer the one of `seen`, with `denied` if its mode
    /// lets nobody write.
    virtual Status replace(const std::string& path, const std::string& bytes, const FileStatus& seen) = 0;
    /// Copies content, mode and times. What has the name `to` is replaced, whatever its mode; of a
    /// link, the link itself and not what it leads to.
    virtual Status copy(const std::string& from, const std::string& to) = 0;
    /// Removes a file, or a link alone.
    virtual Status remove(const std::string& path) = 0;
    /// Makes a folder and those above it, if missing.
    virtual Status makeFolders(const std::string& folder) = 0;
};

} // namespace NorvaneUI

#endif
