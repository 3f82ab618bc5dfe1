#include "tests/property/Checks.h"

#include "guard/Guard_Difference.h"
#include "streams/Zelmar_SourceText.h"
#include "tests/format/runner/GoldenEngine.h"

#include <algorithm>

namespace Property {

namespace {

using Unreadable = Golden::Engine::Unreadable;

constexpr int kShownBreaches = 3;

/// The surroundings of the first place in which two texts differ.
std::string difference(const std::string& a, const std::string& b) {
    const auto place = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto at = static_cast<std::size_t>(place.first - a.begin());
    const std::size_t start = at < 40 ? 0 : at - 40;
    return "\n  [" + a.substr(start, 80) + "]\n  [" + b.substr(start, 80) + ']';
}

std::string breach(const Golden::Engine& engine, const std::string& text, Demand demand) {
    const Golden::Outcome first = engine.format(text);
    if (!first.text) return "refused: " + first.messages.front().text;
    if (demand == Demand::giveBack) {
        return *first.text == text ? "" : "not given back" + difference(text, *first.text);
    }
    if (Guard::firstDifference(text, *first.text)) return "a token changed" + difference(text, *first.text);
    if (demand == Demand::keepTokens) return "";
    const Golden::Outcome second = engine.format(*first.text);
    if (!second.text) return "the result does not parse: " + second.messages.front().text;
    return *second.text == *first.text ? "" : "not settled" + difference(*first.text, *second.text);
}

/// What `check` says of the first few sources that it finds fault with.
template <class Check>
std::string collect(const Scheme& scheme, const std::vector<Source>& sources, Unreadable unreadable, Check check) {
    const Golden::Engine engine(scheme.options, unreadable);
    std::string found;
    int count = 0;
    for (const Source& source : sources) {
        std::string text = source.text;
        Zelmar::normaliseLineEnds(text);
        const std::string what = check(engine, text);
        if (what.empty()) continue;
        if (++count <= kShownBreaches) found += scheme.name + ", " + source.name + ": " + what + '\n';
    }
    if (count > kShownBreaches) found += "and " + std::to_string(count - kShownBreaches) + " more\n";
    return found;
}

std::string stretch(const std::string& text, const std::string& opening, const std::string& closing) {
    const std::size_t begin = text.find(opening);
    const std::size_t end = text.find(closing, begin);
    if (begin == std::string::npos || end == std::string::npos) return "none";
    return text.substr(begin, end + closing.size() - begin);
}

} // namespace

std::string breaches(const Scheme& scheme, const std::vector<Source>& sources, Demand demand) {
    return collect(scheme, sources, Unreadable::LeaveAlone, [demand](const auto& engine, const std::string& text) {
        return breach(engine, text, demand);
    });
}

std::string breachesOrRefusals(const Scheme& scheme, const std::vector<Source>& sources, Demand demand) {
    return collect(scheme, sources, Unreadable::Report, [demand](const auto& engine, const std::string& text) {
        return breach(engine, text, demand);
    });
}

std::string changedStretches(const Scheme& scheme, const std::vector<Source>& sources, const std::string& opening,
                             const std::string& closing) {
    return collect(scheme, sources, Unreadable::LeaveAlone, [&](const auto& engine, const std::string& text) {
        const Golden::Outcome outcome = engine.format(text);
        if (!outcome.text) return "refused: " + outcome.messages.front().text;
        const std::string before = stretch(text, opening, closing);
        const std::string after = stretch(*outcome.text, opening, closing);
        return before == after ? std::string() : "changed" + difference(before, after);
    });
}

std::string changesWithoutFeed(const Scheme& scheme, const std::vector<Source>& sources, const std::string& tail) {
    return collect(scheme, sources, Unreadable::LeaveAlone, [&](const auto& engine, const std::string& text) {
        const std::string whole = text + tail;
        const Golden::Outcome ended = engine.format(whole);
        const Golden::Outcome open = engine.format(whole.substr(0, whole.size() - 1));
        if (!ended.text || !open.text) return std::string("refused");
        return *ended.text == *open.text + '\n' ? std::string() : "changed" + difference(*ended.text, *open.text);
    });
}

} // namespace Property
