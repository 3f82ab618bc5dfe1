#include "help/Help_PageFolder.h"

#include <filesystem>
#include <system_error>

namespace Help {

std::optional<std::string> findPage(const Topic& topic) {
    namespace fs = std::filesystem;
    std::error_code failure;
    const fs::path program = fs::read_symlink("/proc/self/exe", failure);
    const fs::path beside = program.parent_path() / KERFLINE_HELP_BESIDE_PROGRAM;
    for (const fs::path& folder : {beside, fs::path(KERFLINE_HELP_INSTALLED)}) {
        const fs::path page = (folder / topic.file).lexically_normal();
        if (fs::is_regular_file(page, failure)) return page.string();
    }
    return std::nullopt;
}

} // namespace Help
