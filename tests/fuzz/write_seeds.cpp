#include "tests/format/runner/GoldenFile.h"
#include "tests/fuzz/Fuzz_Input.h"

#include "cli/scheme/Cli_ShippedSchemes.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

/// The folder of one target's inputs, which is made if it is not there.
class Corpus {
public:
    explicit Corpus(fs::path folder) : folder_(std::move(folder)) { fs::create_directories(folder_); }

    void add(std::string_view bytes) {
        std::ofstream(folder_ / ("seed" + std::to_string(++count_)), std::ios::binary) << bytes;
    }

private:
    fs::path folder_;
    int count_ = 0;
};

void addGoldenCases(const fs::path& target) {
    Corpus scanner(target / "fuzz_scanner");
    Corpus engine(target / "fuzz_engine");
    Corpus growth(target / "fuzz_growth");
    for (const auto& entry : fs::recursive_directory_iterator(KERFLINE_CASES)) {
        if (entry.path().extension() != ".case") continue;
        for (const Golden::Case& golden : Golden::readCases(entry.path().string())) {
            scanner.add(golden.source);
            engine.add(Fuzz::bytesOf(golden.scheme, golden.source));
            growth.add(Fuzz::bytesOf(golden.scheme, golden.source));
        }
    }
}

void addSchemes(const fs::path& target) {
    Corpus schemes(target / "fuzz_scheme");
    for (const Cli::ShippedScheme& shipped : Cli::shippedSchemes()) schemes.add(shipped.text);
    schemes.add("Norvane::PropertySet\n1\n\"a \\\"b\\\"\"\n\n# c\n1 A true\n2 B -7\n3 C \"\\n\\t \\\\\"\n");
}

void addIgnoreFiles(const fs::path& target) {
    Corpus ignored(target / "fuzz_ignore");
    ignored.add("a/b.c\n*.c\n!b.c\n# c\n/a/\n**/b.?\na/**/[a-z!].c\n\\#d\\ \n");
    ignored.add("lib/x/y/z.cpp\nlib/**\n!lib/x/\n*x*y*z*\n");
}

} // namespace

/// Writes the first inputs of every target below a folder, each into the folder of that target.
int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: write_seeds FOLDER\n";
        return 2;
    }
    const fs::path target = arguments[1];
    addGoldenCases(target);
    addSchemes(target);
    addIgnoreFiles(target);
    return 0;
}
