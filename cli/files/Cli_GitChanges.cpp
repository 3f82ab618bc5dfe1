#include "cli/files/Cli_GitChanges.h"

#include <array>
#include <cstdio>

namespace Cli {

namespace {

/// One word for a shell, whatever is in it.
std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word) {
        if (c == '\'') {
            text += "'\\''";
        } else {
            text += c;
        }
    }
    return text + '\'';
}

} // namespace

std::optional<std::string> gitChanges(const std::string& revision, const std::vector<std::string>& paths) {
    // What users have set for their own eyes must not get into the patch.
    std::string command = "git diff -U0 --no-color --no-ext-diff --no-textconv --relative "
                          "--src-prefix=a/ --dst-prefix=b/ --diff-filter=d " +
                          quoted(revision) + " --";
    for (const std::string& path : paths) command += ' ' + quoted(path);
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return std::nullopt;
    std::string patch;
    std::array<char, 1 << 14> block;
    for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), pipe)) > 0;) {
        patch.append(block.data(), count);
    }
    if (::pclose(pipe) != 0) return std::nullopt;
    return patch;
}

} // namespace Cli
