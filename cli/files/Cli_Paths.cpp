#include "cli/files/Cli_Paths.h"

#include <filesystem>

namespace Cli {

std::string absolutePath(const std::string& path) {
    std::error_code error;
    std::filesystem::path full = std::filesystem::absolute(path, error);
    if (error) return path;
    if (full.string().find("/..") != std::string::npos) {
        const std::filesystem::path folder = std::filesystem::weakly_canonical(full.parent_path(), error);
        if (!error) full = folder / full.filename();
    }
    std::string text = full.lexically_normal().string();
    while (text.size() > 1 && text.ends_with('/')) text.pop_back();
    return text;
}

std::string folderOf(std::string_view absolutePath) {
    if (absolutePath == "/") return {};
    const std::size_t slash = absolutePath.rfind('/');
    if (slash == std::string_view::npos) return {};
    return std::string(absolutePath.substr(0, slash == 0 ? 1 : slash));
}

std::string shortestPath(const std::string& absolutePath) {
    std::error_code error;
    const std::string here = std::filesystem::current_path(error).string();
    if (absolutePath == here) return ".";
    if (error || here.size() <= 1 || !absolutePath.starts_with(here + '/')) return absolutePath;
    return absolutePath.substr(here.size() + 1);
}

std::string_view nameOf(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string joined(std::string_view folder, std::string_view name) {
    std::string path;
    if (folder != ".") path.append(folder);
    if (!path.empty() && !path.ends_with('/')) path += '/';
    return path.append(name);
}

} // namespace Cli
