#include "cli/files/Cli_UnifiedDiff.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// What a reader of patches makes of `before`. Fails the test where the patch does not fit it.
std::string applied(const std::string& before, const std::string& patch) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < before.size();) {
        const std::size_t end = std::min(before.find('\n', start), before.size() - 1) + 1;
        lines.push_back(before.substr(start, end - start));
        start = end;
    }
    std::istringstream in(patch);
    std::string result;
    std::size_t at = 0;
    std::string line;
    std::getline(in, line);
    std::getline(in, line);
    while (std::getline(in, line)) {
        if (line.starts_with("@@")) {
            const std::size_t comma = line.find_first_of(", ", 4);
            std::size_t first = std::stoul(line.substr(4));
            const bool isEmpty = line.compare(comma, 3, ",0 ") == 0;
            if (!isEmpty) --first;
            while (at < first) result += lines.at(at++);
            continue;
        }
        std::string text = line.substr(1) + '\n';
        if (in.peek() == '\\') {
            std::string marker;
            std::getline(in, marker);
            text.pop_back();
        }
        if (line[0] != '+') {
            EXPECT_EQ(lines.at(at), text);
            ++at;
        }
        if (line[0] != '-') result += text;
    }
    while (at < lines.size()) result += lines.at(at++);
    return result;
}

TEST(UnifiedDiff, OfEqualTextsIsEmpty) {
    EXPECT_EQ(Cli::unifiedDiff("a.c", "int a;\n", "int a;\n"), "");
}

TEST(UnifiedDiff, ShowsThreeLinesAroundAChange) {
    const std::string before = "1;\n2;\n3;\n4;\nif(a)b();\n6;\n7;\n8;\n9;\n";
    const std::string after = "1;\n2;\n3;\n4;\nif (a)\n    b();\n6;\n7;\n8;\n9;\n";
    EXPECT_EQ(Cli::unifiedDiff("x/a.c", before, after),
              "--- a/x/a.c\n+++ b/x/a.c\n@@ -2,7 +2,8 @@\n 2;\n 3;\n 4;\n-if(a)b();\n+if (a)\n+    b();\n 6;\n 7;\n 8;\n");
}

TEST(UnifiedDiff, KeepsLinesThatStay) {
    // A line that is like another one further on must not be taken for that.
    const std::string before = "}\n\n}\n\n}\na ;\n}\n";
    const std::string after = "}\n\n}\n\n}\na;\n}\n";
    EXPECT_EQ(Cli::unifiedDiff("a", before, after),
              "--- a/a\n+++ b/a\n@@ -3,5 +3,5 @@\n }\n \n }\n-a ;\n+a;\n }\n");
}

TEST(UnifiedDiff, MarksALastLineWithoutLineFeed) {
    EXPECT_EQ(Cli::unifiedDiff("a", "a ;", "a;"),
              "--- a/a\n+++ b/a\n@@ -1 +1 @@\n-a ;\n\\ No newline at end of file\n+a;\n\\ No newline at end of file\n");
}

TEST(UnifiedDiff, IsRightForAnyTwoTexts) {
    std::mt19937 random(7);
    const std::string pieces[] = {"a\n", "b\n", "\n", " \n", "a b\n", "a\nb\n", "  a\n", "}\n", "c"};
    const auto invent = [&] {
        std::string text;
        for (auto left = random() % 20; left > 0; --left) text += pieces[random() % std::size(pieces)];
        return text;
    };
    for (int i = 0; i < 3000; ++i) {
        const std::string before = invent();
        const std::string after = invent();
        if (before == after) continue;
        const std::string patch = Cli::unifiedDiff("a", before, after);
        ASSERT_EQ(applied(before, patch), after) << "from\n" << before << "\npatch\n" << patch;
    }
}

TEST(UnifiedDiff, OfALargeFileThatChangesAllOverIsQuick) {
    std::string before;
    std::string after;
    for (int i = 0; i < 200000; ++i) {
        before += "if(a)b();\n\n";
        after += "if (a)\n    b();\n\n";
    }
    // A walk that tries every pair of lines would take hours.
    EXPECT_EQ(applied(before, Cli::unifiedDiff("a", before, after)), after);
}

} // namespace
