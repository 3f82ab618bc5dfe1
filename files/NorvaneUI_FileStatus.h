#ifndef KERFLINE_NORVANEUI_FILESTATUS_H
#define KERFLINE_NORVANEUI_FILESTATUS_H

#include <cstdint>

namespace NorvaneUI {

enum class FileKind { missing, regular, folder, other };

/// What is known of a file without opening it. Links have been followed.
struct FileStatus {
    FileKind kind = FileKind::missing;
    std::uint64_t size = 0;
    /// The twelve permission bits.
    std::uint32_t mode = 0;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    /// Time of the last change of the content, in nanoseconds.
    std::int64_t changed = 0;
    /// How many names the file has.
    std::uint64_t links = 1;
    /// Of a missing file: a link is there, and what it leads to is not.
    bool leadsNowhere = false;
    /// The permission bits let somebody do it, and the system lets this process do it. Root, whom the
    /// system lets do everything, may do what the bits let the owner do: a file that is marked
    /// read-only stays as it is for everybody.
    bool readable = false;
    bool writable = false;

    bool isSameFile(const FileStatus& other) const { return device == other.device && inode == other.inode; }
    /// True if nobody has written to the file, or put another one in its place, in between.
    bool isUnchanged(const FileStatus& later) const {
        return kind == later.kind && isSameFile(later) && size == later.size && changed == later.changed;
    }
};

} // namespace NorvaneUI

#endif
