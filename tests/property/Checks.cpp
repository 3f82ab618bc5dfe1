#include "tests/property/Checks.h"

#include "cli/Cli_Engine.h"
#include "cli/Cli_TokenCheck.h"
#include "streams/Zelmar_SourceText.h"

#include <algorithm>

namespace Property {

namespace {

constexpr int kShownBreaches = 3;

/// The surroundings of the first place in which two texts differ.
std::string difference(const std::string& a, const std::string& b) {
    const auto place = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto at = static_cast<std::size_t>(place.first - a.begin());
    const std::size_t start = at < 40 ? 0 : at - 40;
    return "\n  [" + a.substr(start, 80) + "]\n  [" + b.substr(start, 80) + ']';
}

std::string breach(const Cli::Engine& engine, const std::string& text, Demand demand, bool mayRefuse) {
    const Cli::Outcome first = engine.format(text);
    if (!first.text) return mayRefuse ? "" : "refused: " + first.messages.front().text;
    if (demand == Demand::giveBack) {
        return *first.text == text ? "" : "not given back" + difference(text, *first.text);
    }
    if (Cli::firstTokenDifference(text, *first.text)) return "a token changed" + difference(text, *first.text);
    if (demand == Demand::keepTokens) return "";
    const Cli::Outcome second = engine.format(*first.text);
    if (!second.text) return "the result does not parse: " + second.messages.front().text;
    return *second.text == *first.text ? "" : "not settled" + difference(*first.text, *second.text);
}

std::string collect(const Scheme& scheme, const std::vector<Source>& sources, Demand demand, bool mayRefuse) {
    const Cli::Engine engine(scheme.options);
    std::string found;
    int count = 0;
    for (const Source& source : sources) {
        std::string text = source.text;
        Zelmar::normaliseLineEnds(text);
        const std::string what = breach(engine, text, demand, mayRefuse);
        if (what.empty()) continue;
        if (++count <= kShownBreaches) found += scheme.name + ", " + source.name + ": " + what + '\n';
    }
    if (count > kShownBreaches) found += "and " + std::to_string(count - kShownBreaches) + " more\n";
    return found;
}

} // namespace

std::string breaches(const Scheme& scheme, const std::vector<Source>& sources, Demand demand) {
    return collect(scheme, sources, demand, true);
}

std::string breachesOrRefusals(const Scheme& scheme, const std::vector<Source>& sources, Demand demand) {
    return collect(scheme, sources, demand, false);
}

} // namespace Property
