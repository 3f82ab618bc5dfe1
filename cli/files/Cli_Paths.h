#ifndef KERFLINE_CLI_PATHS_H
#define KERFLINE_CLI_PATHS_H

#include <string>
#include <string_view>

namespace Cli {

/// The same file from the root, without "." and "..". What the path leads to through links stays
/// apart, except for folders in front of a ".."; those that cannot be resolved are taken by their
/// names.
std::string absolutePath(const std::string& path);

/// The folder of an absolute path, without a "/" at its end unless it is the root. That of the root
/// is empty.
std::string folderOf(std::string_view absolutePath);

/// An absolute path as seen from the current folder, if it is below that; otherwise as it is.
std::string shortestPath(const std::string& absolutePath);

/// The last part of a path.
std::string_view nameOf(std::string_view path);

/// `name` in `folder`; the folder "." is left out.
std::string joined(std::string_view folder, std::string_view name);

} // namespace Cli

#endif
