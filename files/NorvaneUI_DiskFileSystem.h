#ifndef KERFLINE_NORVANEUI_DISKFILESYSTEM_H
#define KERFLINE_NORVANEUI_DISKFILESYSTEM_H

#include "files/NorvaneUI_FileSystem.h"

namespace NorvaneUI {

/// The files of this machine. Holds nothing, and can be used by several threads at once.
class DiskFileSystem : public FileSystem {
public:
    Result<std::vector<std::string>> list(const std::string& folder) override;
    Result<FileStatus> status(const std::string& path) override;
    Result<std::string> read(const std::string& path) override;
    Status create(const std::string& path, const std::string& bytes) override;
    Status replace(const std::string& path, const std::string& bytes, const FileStatus& seen) override;
    Status copy(const std::string& from, const std::string& to) override;
    Status remove(const std::string& path) override;
    Status makeFolders(const std::string& folder) override;
};

} // namespace NorvaneUI

#endif
