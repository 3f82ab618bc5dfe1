#include "cli/files/Cli_CompileCommands.h"

#include "cli/files/Cli_FileIo.h"
#include "cli/files/Cli_Paths.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <set>

namespace Cli {

namespace {

constexpr const char* kDatabase = "compile_commands.json";

std::string textOf(const nlohmann::json& entry, const char* name) {
    const auto found = entry.find(name);
    if (found == entry.end() || !found->is_string()) return {};
    return found->get<std::string>();
}

} // namespace

std::string compileCommandsFile(const std::string& project) {
    std::error_code ignored;
    return std::filesystem::is_directory(project, ignored) ? joined(project, kDatabase) : project;
}

std::vector<std::string> filesOfCompileCommands(const std::string& file) {
    std::ifstream in = openFile(file);
    const ReadResult text = readSource(in);
    const nlohmann::json database = nlohmann::json::parse(text.bytes, nullptr, false);
    if (!database.is_array()) {
        throw CompileCommandsError("no list of compile commands: it should be a JSON array");
    }
    const std::filesystem::path base = folderOf(absolutePath(file));
    std::vector<std::string> files;
    std::set<std::string> seen;
    for (const nlohmann::json& entry : database) {
        const std::string name = entry.is_object() ? textOf(entry, "file") : std::string();
        if (name.empty()) throw CompileCommandsError("an entry of the compile commands names no file");
        // An absolute part takes the place of what stands in front of it.
        const std::string full = absolutePath((base / textOf(entry, "directory") / name).string());
        if (seen.insert(full).second) files.push_back(shortestPath(full));
    }
    return files;
}

} // namespace Cli
