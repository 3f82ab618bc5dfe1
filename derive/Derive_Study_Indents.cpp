#include "derive/Derive_Study.h"

#include <algorithm>
#include <array>

namespace Derive {

namespace {

using Norvane::PropertyInfo;
using Norvane::PropertyKind;
using Norvane::PropertySet;

/// What one step of the code may be, and how its white space is kept.
struct Unit {
    const char* indent;
    std::int32_t tabSize;
    /// As CONVERT_WS has it.
    std::int32_t conversion;
};

constexpr Unit kUnits[] = {{"\t", 8, 0}, {"\t", 8, 2}, {"\t", 4, 0}, {"\t", 4, 2},   {"    ", 4, 0}, {"  ", 2, 0},  {"        ", 8, 0},
                           {"   ", 3, 0}, {"  ", 8, 2},  {"    ", 8, 2}, {"    ", 4, 2}};

bool isIndentOfContent(const PropertyInfo& option) {
    return option.kind == PropertyKind::Indent && option.formats && option.name != "LEFT_MARGIN" &&
           option.name != "WRAP_INDENT" && option.name != "INDENT_FURTHER_LINES";
}

/// Most houses leave these where the construct around them stands.
bool usuallyHasNoStep(std::string_view name) {
    return name == "INDENT_NS_CONTENT" || name == "INDENT_CS_CASE_LABELS" || name == "INDENT_ACCESS_SPEC_LABEL";
}

bool breaksLine(std::string_view gap) { return gap.find('\n') != std::string_view::npos; }

} // namespace

/// Tries each unit with the steps that most houses have, and keeps the one that changes least.
void Study::chooseUnit() {
    PropertySet best = context_;
    leastChanged_ = static_cast<std::size_t>(-1);
    for (const Unit& unit : kUnits) {
        PropertySet scheme = context_;
        for (const PropertyInfo& option : Norvane::propertyCatalogue()) {
            if (isIndentOfContent(option)) scheme.setString(option.name, usuallyHasNoStep(option.name) ? "" : unit.indent);
        }
        scheme.setInt("TAB_SIZE", unit.tabSize);
        if (unit.conversion != 0) scheme.setInt("CONVERT_WS", unit.conversion);
        const std::size_t changed = changedLines(scheme);
        if (changed >= leastChanged_) continue;
        leastChanged_ = changed;
        best = std::move(scheme);
        unit_ = unit.indent;
        tabSize_ = static_cast<std::size_t>(unit.tabSize);
    }
    context_ = std::move(best);
}

/// Takes the step for one option that changes least while the others stay.
void Study::improveIndent(std::string_view name) {
    std::vector<std::string> steps = {"", unit_};
    if (unit_ == "\t") {
        steps.push_back("    ");
    } else {
        steps.push_back(unit_ + unit_);
        if (unit_.size() > 1) steps.push_back(unit_.substr(0, unit_.size() / 2));
    }
    std::string now;
    context_.getString(name, now);
    for (const std::string& step : steps) {
        if (step == now) continue;
        PropertySet scheme = with(name, step);
        const std::size_t changed = changedLines(scheme);
        if (changed >= leastChanged_) continue;
        leastChanged_ = changed;
        context_ = std::move(scheme);
    }
}

Measure Study::measureIndent(const PropertyInfo& option) const {
    Measure measure{&option, std::string()};
    std::string& value = std::get<std::string>(measure.value);
    context_.getString(option.name, value);
    const std::vector<Layout> layouts = lab_.layOut(context_);
    const std::vector<Layout> probed = lab_.layOut(with(option.name, std::string(13, ' ')));
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        visitDifferences(layouts[i], probed[i], lab_.sources()[i],
                         [&](std::string_view wanted, std::string_view, std::string_view found, std::uint32_t offset) {
                             if (!breaksLine(wanted)) return;
                             takePlace(measure, wanted == found, i, offset, found, wanted);
                         });
    }
    judge(measure);
    if (measure.places == 0) return measure;
    PropertySet without = context_;
    without.erase(option.name);
    const std::size_t changed = changedLines(without);
    measure.changedLines = leastChanged_ - std::min(changed, leastChanged_);
    return measure;
}

std::vector<Measure> Study::measureIndents(const std::function<bool()>& goOn) {
    chooseUnit();
    std::vector<const PropertyInfo*> options;
    for (const PropertyInfo& option : Norvane::propertyCatalogue()) {
        if (isIndentOfContent(option)) options.push_back(&option);
    }
    constexpr int kRounds = 2; // the second settles what the first one moved
    for (int round = 0; round < kRounds; ++round) {
        const std::size_t before = leastChanged_;
        for (const PropertyInfo* option : options) {
            if (lab_.isCancelled()) return {};
            improveIndent(option->name);
        }
        if (leastChanged_ == before) break;
    }
    std::vector<Measure> measures;
    for (const PropertyInfo* option : options) {
        if (!goOn()) return {};
        measures.push_back(measureIndent(*option));
    }
    Measure tabs{Norvane::findProperty("TAB_SIZE"), static_cast<std::int32_t>(tabSize_)};
    std::int32_t conversion = 0;
    for (const Measure& measure : measures) {
        tabs.places += measure.places;
        tabs.agreeing += measure.agreeing;
    }
    tabs.isSet = tabs.places > 0;
    if (context_.getInt("CONVERT_WS", conversion)) {
        Measure converted = tabs;
        converted.option = Norvane::findProperty("CONVERT_WS");
        converted.value = conversion;
        measures.push_back(std::move(converted));
    }
    measures.push_back(std::move(tabs));
    return measures;
}

std::vector<Measure> Study::measureFurtherLines() {
    const PropertyInfo* align = Norvane::findProperty("ALIGN_FURTHER_LINES");
    const PropertyInfo* indent = Norvane::findProperty("INDENT_FURTHER_LINES");
    const std::vector<Layout> flush = lab_.layOut(context_, spoilt_);
    Measure best{indent, std::string()};
    bool bestAligns = false;
    for (const bool aligns : {true, false}) {
        for (const std::string& step : {unit_, unit_ + unit_, std::string("    ")}) {
            PropertySet scheme = with(indent->name, step);
            scheme.setBool(align->name, aligns);
            Measure measure{indent, step};
            const std::vector<Layout> layouts = lab_.layOut(scheme, spoilt_);
            for (std::size_t i = 0; i < layouts.size(); ++i) {
                visitDifferences(layouts[i], flush[i], lab_.sources()[i],
                                 [&](std::string_view wanted, std::string_view, std::string_view found, std::uint32_t offset) {
                                     takePlace(measure, wanted == found, i, offset, found, wanted);
                                 });
            }
            if (measure.agreeing <= best.agreeing) continue;
            best = std::move(measure);
            bestAligns = aligns;
        }
    }
    judge(best);
    if (best.places == 0) return {};
    PropertySet scheme = with(indent->name, best.value);
    scheme.setBool(align->name, bestAligns);
    const std::size_t before = changedLines(context_);
    const std::size_t changed = changedLines(scheme);
    best.changedLines = changed - std::min(before, changed);
    Measure alignment = best;
    alignment.option = align;
    alignment.value = bestAligns;
    return {std::move(alignment), std::move(best)};
}

} // namespace Derive
