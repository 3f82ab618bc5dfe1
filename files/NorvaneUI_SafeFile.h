#ifndef KERFLINE_NORVANEUI_SAFEFILE_H
#define KERFLINE_NORVANEUI_SAFEFILE_H

#include "files/NorvaneUI_FileStatus.h"

#include <string>
#include <string_view>
#include <utility>

namespace NorvaneUI {

/// Writes a file whole or not at all.
///
/// The text is written to a new file beside the target, flushed to the disk, and renamed over the
/// target. Whoever opens the target, at any moment and after any crash, finds the old text or the
/// new one. A run that is killed leaves at most a file ".kerfline-" with six characters behind.
///
/// A file that has several names would lose the others by a rename, and one of somebody else would
/// change hands. Such a file is written in place, with its old text in a file beside it until the
/// new text is on the disk.
///
/// Every operation throws a Failure, and has changed nothing then.
class SafeFile {
public:
    explicit SafeFile(std::string path) : path_(std::move(path)) {}

    /// Makes the file, readable as the process's mask says. Nothing may have its name.
    void create(std::string_view bytes) const;
    /// Follows links. Keeps the owner, the mode and the extended attributes of the file. Throws
    /// `changed` if the file is no longer as it was `seen`.
    void replace(std::string_view bytes, const FileStatus& seen) const;
    /// Takes the place of whatever has the name, with the content, the mode and the times of `from`.
    void copyFrom(const std::string& from) const;

private:
    std::string path_;
};

} // namespace NorvaneUI

#endif
