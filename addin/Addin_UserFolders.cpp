#include "addin/Addin_UserFolders.h"

#include <cstdlib>
#include <string_view>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace Addin {

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::string homeFromPasswordFile() {
    std::vector<char> buffer(1 << 14);
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr) return {};
    return found->pw_dir;
}

std::string inConfigurationFolder(std::string_view name) {
    const std::string folder = userConfigurationFolder();
    return folder.empty() ? folder : folder + '/' + std::string(name);
}

} // namespace

std::string userConfigurationFolder() {
    const std::string configuration = environment("XDG_CONFIG_HOME");
    if (configuration.starts_with('/')) return configuration + "/kerfline";
    std::string home = environment("HOME");
    if (home.empty()) home = homeFromPasswordFile();
    return home.empty() ? home : home + "/.config/kerfline";
}

std::string userSchemeFolder() { return inConfigurationFolder("schemes"); }

std::string userSettingsFile() { return inConfigurationFolder("settings"); }

} // namespace Addin
