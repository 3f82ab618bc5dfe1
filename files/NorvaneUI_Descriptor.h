#ifndef KERFLINE_NORVANEUI_DESCRIPTOR_H
#define KERFLINE_NORVANEUI_DESCRIPTOR_H

#include "files/NorvaneUI_Failure.h"
#include "files/NorvaneUI_FileStatus.h"

#include <string>
#include <string_view>

#include <sys/types.h>

namespace NorvaneUI {

/// The system's reason for the last failed call, by its number in errno.
Failure systemFailure(int errorNumber);

/// An open file that is closed with its scope. Every operation throws a Failure.
class Descriptor {
public:
    /// As the system's open; `flags` need not ask for closing on exec.
    Descriptor(const std::string& path, int flags, ::mode_t mode = 0);
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    int number() const { return number_; }
    FileStatus status() const;
    std::string readAll() const;
    void writeAll(std::string_view bytes) const;
    /// Returns when the content is on the disk.
    void flush() const;
    /// Some file systems report a failed write only here.
    void close();

private:
    int number_;
};

/// Never fails for a file that is missing.
FileStatus statusOf(const std::string& path);

} // namespace NorvaneUI

#endif
