// Runs every case file under the folder of the cases, each case as a test of its own. Called with
// --update-golden [FILE.case...] it rewrites the expected texts instead.

#include "tests/format/runner/GoldenCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string_view>

namespace {

class GoldenTest : public testing::Test {
public:
    explicit GoldenTest(std::shared_ptr<const Golden::Case> golden) : golden_(std::move(golden)) {}

    void TestBody() override {
        const Golden::Result result = Golden::runCase(*golden_);
        ASSERT_TRUE(result.accepted) << result.messages;
        EXPECT_EQ(result.once, golden_->expected.text) << "from the source:\n" << golden_->source;
        EXPECT_EQ(result.lostToken, "");
        EXPECT_EQ(result.twice, golden_->second ? golden_->second->text : result.once) << "at the second run";
    }

private:
    std::shared_ptr<const Golden::Case> golden_;
};

/// A case file that cannot be read fails as a test, so that it is never passed over.
class BrokenFileTest : public testing::Test {
public:
    explicit BrokenFileTest(std::string why) : why_(std::move(why)) {}
    void TestBody() override { FAIL() << why_; }

private:
    std::string why_;
};

std::string asIdentifier(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool keep = std::isalnum(static_cast<unsigned char>(c)) != 0;
        if (keep) {
            result += c;
        } else if (!result.empty() && result.back() != '_') {
            result += '_';
        }
    }
    while (!result.empty() && result.back() == '_') result.pop_back();
    return result;
}

std::vector<std::filesystem::path> caseFiles(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".case") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

struct Totals {
    int cases = 0;
    int unstable = 0;
};

void registerFile(const std::filesystem::path& folder, const std::filesystem::path& path, Totals& totals) {
    const std::string file = path.string();
    const std::string suite = asIdentifier(std::filesystem::relative(path, folder).replace_extension().string());
    try {
        for (Golden::Case& golden : Golden::readCases(file)) {
            ++totals.cases;
            if (golden.isUnstable) ++totals.unstable;
            const int line = golden.line;
            const std::string name = "L" + std::to_string(line) + '_' + asIdentifier(golden.title).substr(0, 80);
            const auto shared = std::make_shared<const Golden::Case>(std::move(golden));
            testing::RegisterTest(suite.c_str(), name.c_str(), nullptr, nullptr, file.c_str(), line,
                                  [shared]() -> testing::Test* { return new GoldenTest(shared); });
        }
    } catch (const std::exception& error) {
        testing::RegisterTest(suite.c_str(), "CanBeRead", nullptr, nullptr, file.c_str(), 1,
                              [why = std::string(error.what())]() -> testing::Test* { return new BrokenFileTest(why); });
    }
}

int updateAll(const std::vector<std::filesystem::path>& files) {
    int refused = 0;
    for (const auto& file : files) std::cout << Golden::updateFile(file.string(), refused);
    return refused == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const std::filesystem::path folder = KERFLINE_CASES;
    const auto files = caseFiles(folder);
    if (argc > 1 && std::string_view(argv[1]) == "--update-golden") {
        return argc == 2 ? updateAll(files) : updateAll({argv + 2, argv + argc});
    }

    Totals totals;
    for (const auto& file : files) registerFile(folder, file, totals);
    const int status = RUN_ALL_TESTS();
    if (!testing::GTEST_FLAG(list_tests)) {
        std::cout << totals.cases << " cases, " << totals.unstable << " of them marked (unstable)\n";
    }
    return status;
}
