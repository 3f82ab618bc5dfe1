#include "derive/Derive_Study.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace Derive {

namespace {

using Norvane::PropertyInfo;
using Norvane::PropertyKind;
using Norvane::PropertySet;

/// White space that no source holds, so that its places in a layout are those of the option.
const std::string kProbe = "\v";

/// An indent that no source has.
const std::string kProbeIndent(13, ' ');

std::size_t lineFeeds(std::string_view gap) {
    return static_cast<std::size_t>(std::count(gap.begin(), gap.end(), '\n'));
}

std::string_view lastLine(std::string_view gap) { return gap.substr(gap.rfind('\n') + 1); }

std::size_t widthOf(std::string_view gap, std::size_t tabSize) {
    std::size_t column = 0;
    for (const char c : gap) column = c == '\t' ? (column / tabSize + 1) * tabSize : column + 1;
    return column;
}

bool isSameBreak(std::string_view a, std::string_view b) {
    const std::size_t feeds = lineFeeds(a);
    return feeds == lineFeeds(b) && (feeds > 0 || a == b);
}

/// The value that would give a gap: of one that breaks lines, only the breaks.
std::string valueOf(std::string_view gap) {
    const std::size_t feeds = lineFeeds(gap);
    return feeds > 0 ? std::string(feeds, '\n') : std::string(gap);
}

/// The text without indents, and with one blank where a line has several.
std::string spoiltText(const Layout& layout) {
    std::string text;
    text.reserve(layout.text.size());
    std::size_t at = 0;
    for (std::size_t i = 0; i < layout.gaps.size(); ++i) {
        const Gap& gap = layout.gaps[i];
        text.append(layout.text, at, gap.begin - at);
        const std::string_view space = layout.gapAt(i);
        const std::size_t feeds = lineFeeds(space);
        text += feeds > 0 ? std::string(feeds, '\n') : gap.begin == 0 ? std::string() : std::string(1, ' ');
        at = gap.end;
    }
    return text.append(layout.text, at, std::string::npos);
}

} // namespace

Study::Study(const Laboratory& lab, const Settings& settings) : lab_(lab), settings_(settings) {
    for (const Layout& source : lab.sources()) spoilt_.push_back(spoiltText(source));
}

PropertySet Study::with(std::string_view name, const Value& value) const {
    PropertySet scheme = context_;
    setValue(scheme, name, value);
    return scheme;
}

void Study::judge(Measure& measure) const {
    const auto least = settings_.agreement * static_cast<double>(measure.places);
    measure.isSet = measure.places > 0 && static_cast<double>(measure.agreeing) >= least;
}

void Study::takePlace(Measure& measure, bool agrees, std::size_t text, std::uint32_t offset, std::string_view found,
                      std::string_view wanted) const {
    ++measure.places;
    if (agrees) {
        ++measure.agreeing;
    } else if (measure.dissents.size() < settings_.mostDissents) {
        measure.dissents.push_back({text, offset, 1, 1, std::string(found), std::string(wanted)});
    }
}

/// Holds the layouts with a value against those with another one, and against the sources.
Measure Study::compare(const PropertyInfo& option, const Value& value, const std::vector<Layout>& layouts,
                       const std::vector<Layout>& others) const {
    Measure measure{&option, value};
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        visitDifferences(layouts[i], others[i], lab_.sources()[i],
                         [&](std::string_view wanted, std::string_view other, std::string_view found, std::uint32_t offset) {
                             // Both break the line, and the option at hand is not about the indent.
                             if (lineFeeds(wanted) > 0 && isSameBreak(wanted, other)) return;
                             takePlace(measure, isSameBreak(wanted, found), i, offset, found, wanted);
                         });
    }
    judge(measure);
    return measure;
}

std::size_t Study::changedLines(const std::vector<Layout>& layouts) const {
    std::size_t changed = 0;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        const Layout& source = lab_.sources()[i];
        std::size_t line = 0;
        std::size_t at = 0;
        std::size_t lastCounted = static_cast<std::size_t>(-1);
        visitDifferences(source, layouts[i], source,
                         [&](std::string_view before, std::string_view after, std::string_view, std::uint32_t offset) {
                             line += lineFeeds(std::string_view(source.text).substr(at, offset - at));
                             at = offset;
                             const std::size_t feeds = lineFeeds(before);
                             const std::size_t first = feeds > 0 && isSameBreak(before, after) ? line + feeds : line;
                             const std::size_t last = line + feeds;
                             for (const std::size_t one : {first, last}) {
                                 if (one == lastCounted) continue;
                                 lastCounted = one;
                                 ++changed;
                             }
                         });
    }
    return changed;
}

std::size_t Study::changedLines(const PropertySet& scheme) const { return changedLines(lab_.layOut(scheme)); }

std::vector<std::string> Study::commonestValues(const std::vector<Layout>& probed) const {
    std::map<std::string, std::size_t> found;
    for (std::size_t i = 0; i < probed.size(); ++i) {
        visitDifferences(probed[i], lab_.sources()[i], lab_.sources()[i],
                         [&](std::string_view wanted, std::string_view, std::string_view source, std::uint32_t) {
                             if (wanted.find(kProbe) != std::string_view::npos) ++found[valueOf(source)];
                         });
    }
    std::vector<std::pair<std::string, std::size_t>> values(found.begin(), found.end());
    std::stable_sort(values.begin(), values.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
    constexpr std::size_t kTried = 2;
    std::vector<std::string> commonest;
    for (const auto& [value, count] : values) {
        if (commonest.size() < kTried) commonest.push_back(value);
    }
    return commonest;
}

/// `value` with the white space that most of its places have behind the line break in addition.
std::string Study::withIndentBehindBreak(const std::string& value, const std::vector<Layout>& layouts,
                                         const std::vector<Layout>& probed) const {
    std::map<std::size_t, std::size_t> steps;
    std::size_t places = 0;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        visitDifferences(layouts[i], probed[i], lab_.sources()[i],
                         [&](std::string_view wanted, std::string_view, std::string_view found, std::uint32_t) {
                             if (lineFeeds(wanted) == 0 || !isSameBreak(wanted, found)) return;
                             ++places;
                             const std::size_t have = widthOf(lastLine(wanted), tabSize_);
                             const std::size_t want = widthOf(lastLine(found), tabSize_);
                             if (want > have) ++steps[want - have];
                         });
    }
    for (const auto& [step, count] : steps) {
        if (count * 2 > places) return value + (unit_ == "\t" && step == tabSize_ ? "\t" : std::string(step, ' '));
    }
    return value;
}

Measure Study::measureSpace(const PropertyInfo& option) {
    const std::vector<Layout> probed = lab_.layOut(with(option.name, kProbe));
    Measure best{&option, std::string()};
    std::vector<Layout> bestLayouts;
    for (const std::string& value : commonestValues(probed)) {
        std::vector<Layout> layouts = lab_.layOut(with(option.name, value));
        Measure measure = compare(option, value, layouts, probed);
        if (best.places > 0 && measure.agreeing * best.places <= best.agreeing * measure.places) continue;
        best = std::move(measure);
        bestLayouts = std::move(layouts);
    }
    if (best.places == 0) return best;
    best.changedLines = changedLines(bestLayouts) - std::min(leastChanged_, changedLines(bestLayouts));
    const std::string& value = std::get<std::string>(best.value);
    if (best.isSet && lineFeeds(value) > 0) best.value = withIndentBehindBreak(value, bestLayouts, probed);
    return best;
}

Measure Study::measureSwitch(const PropertyInfo& option) {
    const std::vector<Layout> on = lab_.layOut(with(option.name, true), spoilt_);
    const std::vector<Layout> off = lab_.layOut(with(option.name, false), spoilt_);
    Measure measure{&option, true};
    for (std::size_t i = 0; i < on.size(); ++i) {
        visitDifferences(on[i], off[i], lab_.sources()[i],
                         [&](std::string_view wanted, std::string_view, std::string_view found, std::uint32_t offset) {
                             takePlace(measure, wanted == found, i, offset, found, wanted);
                         });
    }
    judge(measure);
    if (measure.places == 0) return measure;
    const std::size_t changed = changedLines(with(option.name, true));
    const std::size_t before = changedLines(context_);
    measure.changedLines = changed - std::min(before, changed);
    return measure;
}

std::vector<Measure> Study::measureAnchor(std::string_view mark) {
    const std::string anchorName = std::string(mark) + "_ANCHOR";
    const std::string spaceName = "WS_BETWEEN_" + anchorName;
    const PropertyInfo* anchor = Norvane::findProperty(anchorName);
    const PropertyInfo* space = Norvane::findProperty(spaceName);
    const auto schemeFor = [&](std::int32_t value) {
        PropertySet scheme = with(anchorName, value);
        scheme.setString(spaceName, "");
        return scheme;
    };
    const std::array<std::vector<Layout>, 2> layouts = {lab_.layOut(schemeFor(0)), lab_.layOut(schemeFor(1))};
    Measure best;
    for (const std::int32_t value : {0, 1}) {
        const auto index = static_cast<std::size_t>(value);
        Measure measure = compare(*anchor, value, layouts[index], layouts[1 - index]);
        const std::size_t changed = changedLines(layouts[index]);
        measure.changedLines = changed - std::min(changed, leastChanged_);
        if (value == 0 || measure.agreeing > best.agreeing) best = std::move(measure);
    }
    Measure between = best;
    between.option = space;
    between.value = std::string();
    return {std::move(best), std::move(between)};
}

std::vector<Measure> Study::measureMargin() {
    std::size_t longest = 0;
    std::size_t lines = 0;
    std::map<std::size_t, std::size_t> widths;
    for (const Layout& source : lab_.sources()) {
        std::string_view text = source.text;
        while (!text.empty()) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            const std::size_t width = widthOf(text.substr(0, end), tabSize_);
            ++widths[width];
            longest = std::max(longest, width);
            ++lines;
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }
    Measure margin{Norvane::findProperty("RIGHT_MARGIN"), std::int32_t{0}};
    Measure wrap{Norvane::findProperty("LINE_WRAP"), true};
    for (const std::size_t limit : {79U, 80U, 90U, 99U, 100U, 110U, 120U, 132U, 140U, 160U}) {
        std::size_t within = 0;
        for (const auto& [width, count] : widths) within += width <= limit ? count : 0;
        if (static_cast<double>(within) < settings_.agreement * static_cast<double>(lines) && limit < 160) continue;
        margin.value = static_cast<std::int32_t>(limit);
        margin.places = wrap.places = lines;
        margin.agreeing = within;
        break;
    }
    PropertySet wrapping = with(margin.option->name, margin.value);
    wrapping.setBool("LINE_WRAP", true);
    const std::size_t changed = changedLines(wrapping);
    const std::size_t before = changedLines(context_);
    wrap.changedLines = margin.changedLines = changed - std::min(changed, before);
    wrap.agreeing = lines - std::min(lines, wrap.changedLines);
    // Beyond a line in a thousand, wrapping is no rule of this code.
    margin.isSet = wrap.isSet = wrap.changedLines * 1000 <= lines;
    return {std::move(margin), std::move(wrap)};
}

void Study::dropWhatHarms(std::vector<Measure>& measures) {
    // Up to here the others were measured with the indents that fit best, doubtful or not.
    for (const Measure& measure : measures) {
        if (!measure.isSet) context_.erase(measure.option->name);
    }
    std::vector<Layout> all = lab_.layOut(context_);
    for (Measure& measure : measures) {
        if (!measure.isSet || lab_.isCancelled()) continue;
        PropertySet scheme = context_;
        scheme.erase(measure.option->name);
        const std::vector<Layout> without = lab_.layOut(scheme);
        std::size_t harmed = 0;
        for (std::size_t i = 0; i < all.size(); ++i) {
            visitDifferences(all[i], without[i], lab_.sources()[i],
                             [&](std::string_view now, std::string_view left, std::string_view found, std::uint32_t) {
                                 harmed += now != found && left == found ? 1 : 0;
                             });
        }
        if (static_cast<double>(harmed) <= (1 - settings_.agreement) * static_cast<double>(measure.places)) continue;
        measure.isSet = false;
        measure.agreeing = measure.places - std::min(measure.places, harmed);
        context_ = std::move(scheme);
        all = without;
    }
}

void Study::preferExact(std::vector<Measure>& measures) {
    std::size_t lines = 0;
    for (const Layout& source : lab_.sources()) lines += lineFeeds(source.text);
    const std::size_t changed = changedLines(context_);
    constexpr std::size_t kOneOf = 500; // people are never as even as that
    if (changed == 0 || changed * kOneOf > lines) return;
    PropertySet scheme = context_;
    std::vector<Measure*> dissenting;
    for (Measure& measure : measures) {
        if (!measure.isSet || measure.agreeing == measure.places || measure.option->name == "TAB_SIZE") continue;
        scheme.erase(measure.option->name);
        dissenting.push_back(&measure);
    }
    if (changedLines(scheme) != 0) return;
    context_ = scheme;
    for (Measure* measure : dissenting) {
        PropertySet more = with(measure->option->name, measure->value);
        measure->isSet = changedLines(more) == 0;
        if (measure->isSet) context_ = std::move(more);
    }
}

} // namespace Derive
