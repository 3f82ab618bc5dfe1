#include "cli/files/Cli_IgnoreFile.h"
#include "tests/fuzz/Fuzz_Report.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Cli::IgnoreFile;

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines(1);
    for (const char c : text) {
        if (c == '\n') lines.emplace_back();
        else lines.back() += c;
    }
    return lines;
}

} // namespace

// The first line of an input is a path, the rest an ignore file. Its last line that speaks of the path decides.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::size_t feed = std::min(text.find('\n'), text.size());
    const std::string path = text.substr(0, feed);
    const std::string patterns = text.substr(std::min(feed + 1, text.size()));
    for (const bool isFolder : {false, true}) {
        const IgnoreFile::Match match = IgnoreFile(patterns).match(path, isFolder);
        IgnoreFile::Match expected;
        std::size_t number = 0;
        for (const std::string& line : linesOf(patterns)) {
            ++number;
            // Only the first line may start with a byte order mark.
            const IgnoreFile::Match one = IgnoreFile(number == 1 ? line : '\n' + line).match(path, isFolder);
            if (one.verdict != IgnoreFile::Verdict::none) expected = {one.verdict, number};
        }
        Fuzz::require(match.verdict == expected.verdict && match.line == expected.line, "another line decides", text);
    }
    return 0;
}
