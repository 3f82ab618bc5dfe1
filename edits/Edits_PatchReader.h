#ifndef KERFLINE_EDITS_PATCHREADER_H
#define KERFLINE_EDITS_PATCHREADER_H

#include "edits/Edits_Ranges.h"

#include <string>
#include <string_view>
#include <vector>

namespace Edits {

/// The lines that a patch adds to or changes in one file.
struct ChangedFile {
    /// As the patch names the new file, without quotes and without the folders that `strip` takes off.
    std::string path;
    /// In the order of the patch. Lines are those of the new file. A hunk that only takes lines away
    /// leaves none.
    std::vector<LineRange> lines;
};

/// Reads a unified patch, such as git and diff write, with any number of lines of context. Files that
/// the patch deletes and binary ones are left out; one that is only renamed has no lines. Takes the
/// first `strip` folders off each path, as patch does with -p. What is no patch gives nothing.
std::vector<ChangedFile> readPatch(std::string_view patch, unsigned strip = 1);

} // namespace Edits

#endif
