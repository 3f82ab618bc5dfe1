#include "cli/run/Cli_Tally.h"

#include <string_view>
#include <utility>

namespace Cli {

using Addin::FormatResult;

void Tally::count(FormatResult result) {
    switch (result) {
    case FormatResult::formatted: ++formatted; break;
    case FormatResult::unchanged: ++unchanged; break;
    case FormatResult::skipped: ++skipped; break;
    case FormatResult::refused: ++refused; break;
    case FormatResult::failed: ++failed; break;
    // Not done, and so not counted.
    case FormatResult::cancelled: break;
    }
}

std::string Tally::text(Destination destination) const {
    const bool writes = destination == Destination::sameFile || destination == Destination::standardOutput;
    const std::pair<std::size_t, std::string_view> parts[] = {
        {formatted, writes ? "formatted" : "would change"}, {unchanged, "unchanged"}, {skipped, "skipped"},
        {refused, "refused"}, {failed, "failed"}};
    std::string text = std::to_string(total()) + (total() == 1 ? " file" : " files");
    std::string_view separator = ": ";
    for (const auto& [number, word] : parts) {
        if (number == 0) continue;
        text.append(separator).append(std::to_string(number)).append(" ").append(word);
        separator = ", ";
    }
    return text;
}

} // namespace Cli
