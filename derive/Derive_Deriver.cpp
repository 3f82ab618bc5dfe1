#include "derive/Derive_Deriver.h"

#include "derive/Derive_Study.h"

#include <algorithm>
#include <utility>

namespace Derive {

namespace {

using Norvane::PropertyInfo;
using Norvane::PropertyKind;

/// They only keep what the source has, so code changes least with them.
bool keepsSource(const PropertyInfo& option) {
    return option.kind == PropertyKind::Bool && option.name.starts_with("KEEP_");
}

/// Options that only make sense together, or for which any code reads well, and so are not measured
/// one by one.
bool isMeasuredAlone(const PropertyInfo& option) {
    constexpr std::string_view kTogether[] = {
        "WS_BETWEEN_ASTERISK_ANCHOR", "WS_BETWEEN_AMPERSAND_ANCHOR", "LINE_WRAP", "DATA_DO_NOT_FORMAT",
        "FN_DO_NOT_FORMAT",           "LEFT_MARGIN",                 "WRAP_INDENT",
        "ALIGN_FURTHER_LINES",        "INDENT_FURTHER_LINES"};
    return option.formats && std::find(std::begin(kTogether), std::end(kTogether), option.name) == std::end(kTogether);
}

class Run {
public:
    Run(std::vector<Text> texts, const Settings& settings, const Progress& progress, const std::atomic<bool>* cancelled)
        : progress_(progress), lab_(std::move(texts), settings.threads, cancelled),
          study_(lab_, settings) {}

    Derivation derive() {
        Derivation result;
        describe(result);
        if (lab_.texts().empty()) return result;
        countSteps();
        keepWhatTheSourceHas();
        measureIndents(result);
        measureSpaces(result);
        measureAnchors(result);
        measureSwitches(result);
        measureFurtherLines(result);
        dropWhatHarms(result);
        measureMargin(result);
        finish(result);
        return result;
    }

private:
    void describe(Derivation& result) const {
        result.refused = lab_.refused();
        for (const Text& text : lab_.texts()) {
            result.names.push_back(text.name);
            result.bytes += text.source.size();
            result.lines += static_cast<std::size_t>(std::count(text.source.begin(), text.source.end(), '\n'));
        }
    }
    void countSteps() {
        for (const PropertyInfo& option : Norvane::propertyCatalogue()) steps_ += isMeasuredAlone(option) ? 1 : 0;
        steps_ += 6; // both anchors, further lines, what harms, exactness, the margin
    }
    bool step() {
        ++done_;
        if (progress_) progress_(std::min(done_, steps_), steps_);
        return !lab_.isCancelled();
    }
    void keepWhatTheSourceHas() {
        for (const PropertyInfo& option : Norvane::propertyCatalogue()) {
            if (keepsSource(option)) study_.set(option.name, true);
        }
    }
    void measureIndents(Derivation& result) {
        for (Measure& measure : study_.measureIndents([this] { return step(); })) take(result, std::move(measure));
    }
    void measureSpaces(Derivation& result) {
        // Refinements take places away from the options that they refine.
        for (const bool refines : {true, false}) measureSpaces(result, refines);
    }
    void measureSpaces(Derivation& result, bool refinements) {
        std::vector<Measure> found;
        for (const PropertyInfo& option : Norvane::propertyCatalogue()) {
            const bool isRefinement = option.family == Norvane::PropertyFamily::Refinements;
            if (option.kind != PropertyKind::WhiteSpace || !isMeasuredAlone(option) || isRefinement != refinements) continue;
            if (!step()) return;
            found.push_back(study_.measureSpace(option));
        }
        // Only now: each was measured for itself.
        for (Measure& measure : found) take(result, std::move(measure));
    }
    void measureAnchors(Derivation& result) {
        for (const char* mark : {"ASTERISK", "AMPERSAND"}) {
            if (!step()) return;
            for (Measure& measure : study_.measureAnchor(mark)) take(result, std::move(measure));
        }
    }
    void measureSwitches(Derivation& result) {
        for (const PropertyInfo& option : Norvane::propertyCatalogue()) {
            if (option.kind != PropertyKind::Bool || !isMeasuredAlone(option) || keepsSource(option)) continue;
            if (!step()) return;
            take(result, study_.measureSwitch(option));
        }
    }
    void measureFurtherLines(Derivation& result) {
        if (!step()) return;
        for (Measure& measure : study_.measureFurtherLines()) take(result, std::move(measure));
    }
    void dropWhatHarms(Derivation& result) {
        if (!step()) return;
        study_.dropWhatHarms(result.measures);
        if (!step()) return;
        study_.preferExact(result.measures);
    }
    void measureMargin(Derivation& result) {
        if (!step()) return;
        for (Measure& measure : study_.measureMargin()) take(result, std::move(measure));
    }
    void take(Derivation& result, Measure measure) {
        if (measure.places == 0) return study_.forget(measure.option->name);
        if (measure.isSet) study_.set(measure.option->name, measure.value);
        result.measures.push_back(std::move(measure));
    }
    void finish(Derivation& result) {
        result.isCancelled = lab_.isCancelled();
        std::sort(result.measures.begin(), result.measures.end(),
                  [](const Measure& a, const Measure& b) { return a.option < b.option; });
        result.scheme = study_.context();
        if (result.isCancelled) return;
        result.changedLines = study_.changedLines(result.scheme);
        for (Measure& measure : result.measures) findLines(measure.dissents);
    }
    /// The dissents of one text stand in the order of their offsets.
    void findLines(std::vector<Dissent>& dissents) const {
        std::size_t text = static_cast<std::size_t>(-1);
        std::uint32_t at = 0;
        std::uint32_t line = 1;
        std::uint32_t lineBegin = 0;
        for (Dissent& dissent : dissents) {
            if (dissent.text != text) {
                text = dissent.text;
                at = lineBegin = 0;
                line = 1;
            }
            const std::string& source = lab_.texts()[text].source;
            for (; at < dissent.offset; ++at) {
                if (source[at] != '\n') continue;
                ++line;
                lineBegin = at + 1;
            }
            dissent.line = line;
            dissent.column = dissent.offset - lineBegin + 1;
        }
    }

    const Progress& progress_;
    Laboratory lab_;
    Study study_;
    std::size_t steps_ = 0;
    std::size_t done_ = 0;
};

std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
    return digits;
}

std::string escaped(std::string_view value) {
    std::string text;
    for (const char c : value) {
        const std::size_t at = std::string_view("\t\n\v\r\"'\\").find(c);
        if (at != std::string_view::npos) text += '\\';
        text += at == std::string_view::npos ? c : "tnvr\"'\\"[at];
    }
    return text;
}

} // namespace

void setValue(Norvane::PropertySet& scheme, std::string_view name, const Value& value) {
    if (const bool* flag = std::get_if<bool>(&value)) scheme.setBool(name, *flag);
    if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) scheme.setInt(name, *number);
    if (const std::string* text = std::get_if<std::string>(&value)) scheme.setString(name, *text);
}

Derivation derive(std::vector<Text> texts, const Settings& settings, const Progress& progress,
                  const std::atomic<bool>* cancelled) {
    return Run(std::move(texts), settings, progress, cancelled).derive();
}

Effect effectOf(const Norvane::PropertySet& scheme, std::vector<Text> texts, unsigned threads) {
    Effect effect;
    const Laboratory lab(std::move(texts), threads, nullptr);
    const Settings settings;
    for (const Text& text : lab.texts()) {
        effect.lines += static_cast<std::size_t>(std::count(text.source.begin(), text.source.end(), '\n'));
    }
    effect.changedLines = Study(lab, settings).changedLines(scheme);
    effect.refused = lab.refused();
    return effect;
}

std::string recordOf(std::string_view name, const Value& value) {
    std::string record = std::to_string(value.index() + 1) + ' ' + std::string(name) + ' ';
    if (const bool* flag = std::get_if<bool>(&value)) return record + (*flag ? '1' : '0');
    if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) return record + std::to_string(*number);
    return record + '"' + escaped(std::get<std::string>(value)) + '"';
}

std::string schemeText(const Derivation& derivation, std::string_view name) {
    std::string text = "Norvane::PropertySet\n1\n\"" + std::string(name) + "\"\n\n";
    text += "# Made from " + grouped(derivation.lines) + " lines of " + grouped(derivation.names.size()) +
            " files, of which it changes " + grouped(derivation.changedLines) + ".\n";
    text += "# Behind each value: at how many of the places where it acts the code has it already.\n";
    std::string_view family;
    for (const Norvane::PropertyInfo& option : Norvane::propertyCatalogue()) {
        const auto measure = std::find_if(derivation.measures.begin(), derivation.measures.end(),
                                          [&](const Measure& one) { return one.option == &option; });
        const bool isMeasured = measure != derivation.measures.end();
        bool keeps = false;
        if (!isMeasured && !(keepsSource(option) && derivation.scheme.getBool(option.name, keeps))) continue;
        if (family != Norvane::propertyFamilyName(option.family)) {
            family = Norvane::propertyFamilyName(option.family);
            text += "\n# " + std::string(family) + ".\n";
        }
        if (!isMeasured) {
            text += recordOf(option.name, keeps) + '\n';
            continue;
        }
        std::string record = recordOf(option.name, measure->value);
        record.resize(std::max<std::size_t>(record.size(), 44), ' ');
        text += (measure->isSet ? "" : "# ") + record + " # " + grouped(measure->agreeing) + " of " +
                grouped(measure->places) + " places\n";
    }
    return text;
}

} // namespace Derive
