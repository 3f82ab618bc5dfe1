#include "cli/console/Cli_OtherProgram.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Cli {

std::optional<int> runOtherProgram(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (::posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0) return {};
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return {};
    }
    // As a shell counts it.
    constexpr int endedBySignal = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : endedBySignal + WTERMSIG(status);
}

bool hasScreen() {
    // The last one says how windows are made, and some ways need no screen.
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return true;
    }
    return false;
}

std::string besideThisProgram(const std::string& name) {
    std::error_code failure;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", failure).parent_path() / name;
    return std::filesystem::exists(path, failure) ? path.string() : name;
}

} // namespace Cli
