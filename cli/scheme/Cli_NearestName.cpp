#include "cli/scheme/Cli_NearestName.h"

#include <algorithm>
#include <numeric>

namespace Cli {

namespace {

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::size_t editDistance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = diagonal + (lowered(from[i - 1]) == lowered(to[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string_view nearestName(std::string_view typed, const std::vector<std::string_view>& names) {
    // Names are short; what is much longer than one is no slip of the finger, and costs a lot to compare.
    constexpr std::size_t longest = 200;
    std::string_view nearest;
    // Half of the letters may be wrong, or more of a name that is not much longer than a slip.
    std::size_t fewest = std::max<std::size_t>(2, typed.size() / 2) + 1;
    if (typed.size() > longest) return nearest;
    for (const std::string_view name : names) {
        const std::size_t distance = editDistance(typed, name);
        if (distance >= fewest) continue;
        fewest = distance;
        nearest = name;
    }
    return nearest;
}

std::string nearestNameHint(std::string_view typed, const std::vector<std::string_view>& names,
                            std::string_view prefix) {
    const std::string_view nearest = nearestName(typed, names);
    if (nearest.empty()) return {};
    return "; did you mean \"" + std::string(prefix) + std::string(nearest) + "\"?";
}

} // namespace Cli
