#include "cli/scheme/Cli_ShippedSchemes.h"

namespace Cli {

std::string summaryOf(std::string_view text) {
    const std::size_t begin = text.find("\n# ");
    if (begin == std::string_view::npos) return {};
    std::string summary;
    for (text.remove_prefix(begin + 1); text.starts_with("# ");) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (!summary.empty()) summary += ' ';
        summary += line.substr(2);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    summary = summary.substr(0, summary.find(". "));
    if (summary.ends_with('.')) summary.pop_back();
    return summary;
}

} // namespace Cli
