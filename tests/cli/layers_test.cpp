#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

/// Each folder may use itself and those in front of it.
const std::string kFolders[] = {"console", "files", "scheme", "guide", "run"};

std::ptrdiff_t levelOf(const std::string& folder) {
    return std::find(std::begin(kFolders), std::end(kFolders), folder) - std::begin(kFolders);
}

TEST(Layers, PointDown) {
    constexpr std::string_view start = "#include \"cli/";
    int seen = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(KERFLINE_SOURCES "/cli")) {
        if (!entry.is_regular_file() || entry.path().extension() == ".txt") continue;
        const std::ptrdiff_t own = levelOf(entry.path().parent_path().filename().string());
        ASSERT_LT(own, std::ssize(kFolders)) << entry.path();
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            if (!line.starts_with(start)) continue;
            ++seen;
            const std::string used = line.substr(start.size(), line.find('/', start.size()) - start.size());
            EXPECT_LE(levelOf(used), own) << entry.path() << ": " << line;
        }
    }
    EXPECT_GT(seen, 100);
}

} // namespace
