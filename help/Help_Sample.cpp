#include "help/Help_Sample.h"

#include "help/Help_SampleTable.h"
#include "src/Norvane_FormatDriver.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace Help {

namespace {

char kindDigit(Norvane::PropertyKind kind) {
    switch (kind) {
    case Norvane::PropertyKind::Bool: return '1';
    case Norvane::PropertyKind::Int: return '2';
    case Norvane::PropertyKind::WhiteSpace:
    case Norvane::PropertyKind::Indent:
    case Norvane::PropertyKind::Text: break;
    }
    return '3';
}

class NeverCancels : public Norvane::UpdateFunctor {
public:
    bool operator()(const std::string&) override { return true; }
};

std::string formatted(std::string_view source, const std::string& settings) {
    std::istringstream schemeText("Norvane::PropertySet\n1\n\"sample\"\n" + settings);
    const Norvane::PropertySet scheme(schemeText);
    std::istringstream in{std::string(source)};
    std::ostringstream out;
    Trn::MessageList messages;
    NeverCancels update;
    const Norvane::FormatOptions options(scheme, Norvane::defaultFormatMarkers());
    if (schemeText.fail() || Norvane::FormatDriver().format(options, in, out, messages, update) != 0) {
        throw std::logic_error("a sample that cannot be formatted: " + settings);
    }
    return out.str();
}

} // namespace

std::span<const Sample> samplesOf(std::string_view option) {
    const std::span<const Sample> all = sampleTable();
    const auto isOfOption = [&](const Sample& sample) { return sample.option == option; };
    const auto first = std::find_if(all.begin(), all.end(), isOfOption);
    const auto last = std::find_if_not(first, all.end(), isOfOption);
    return {first, last};
}

std::string schemeLine(const Norvane::PropertyInfo& option, std::string_view value) {
    std::string line{kindDigit(option.kind), ' '};
    return line.append(option.name).append(" ").append(value);
}

Comparison compare(const Sample& sample) {
    const Norvane::PropertyInfo* option = Norvane::findProperty(sample.option);
    if (!option) throw std::logic_error("a sample of an unknown option: " + std::string(sample.option));
    Comparison result;
    result.with = sample.with;
    result.setting = schemeLine(*option, sample.value);
    result.before = formatted(sample.source, result.with);
    result.after = formatted(sample.source, result.with + result.setting + '\n');
    return result;
}

} // namespace Help
