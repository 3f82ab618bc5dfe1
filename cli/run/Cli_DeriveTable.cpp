#include "cli/run/Cli_DeriveTable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iomanip>
#include <vector>

namespace Cli {

namespace {

double agreementOf(const Derive::Measure& measure) {
    return measure.places == 0 ? 1.0 : static_cast<double>(measure.agreeing) / static_cast<double>(measure.places);
}

std::vector<const Derive::Measure*> surestFirst(const Derive::Derivation& result) {
    std::vector<const Derive::Measure*> rows;
    for (const Derive::Measure& measure : result.measures) rows.push_back(&measure);
    std::stable_sort(rows.begin(), rows.end(), [](const Derive::Measure* a, const Derive::Measure* b) {
        return a->isSet != b->isSet ? a->isSet : agreementOf(*a) > agreementOf(*b);
    });
    return rows;
}

/// The value as a scheme file has it.
std::string valueText(const Derive::Measure& measure) {
    const std::string record = Derive::recordOf("-", measure.value);
    return record.substr(record.find("- ") + 2);
}

std::string shownSpace(const std::string& space) {
    const std::string record = Derive::recordOf("-", space);
    return record.substr(record.find('"'));
}

} // namespace

void writeDeriveTable(std::ostream& out, const Derive::Derivation& result, const DeriveTotals& totals) {
    out << std::left << std::setw(32) << "option" << std::setw(14) << "value" << std::right << std::setw(9) << "places"
        << std::setw(9) << "agree" << std::setw(8) << "%" << std::setw(14) << "lines changed" << '\n';
    bool wasSet = true;
    for (const Derive::Measure* row : surestFirst(result)) {
        if (wasSet && !row->isSet) out << "not set, since places disagree:\n";
        wasSet = row->isSet;
        out << std::left << std::setw(32) << row->option->name << std::setw(14) << valueText(*row) << std::right
            << std::setw(9) << row->places << std::setw(9) << row->agreeing << std::setw(8) << std::fixed
            << std::setprecision(1) << 100 * agreementOf(*row) << std::setw(14) << row->changedLines << '\n';
    }
    out << "Measured on " << result.bytes << " of " << totals.bytes << " bytes; of all " << totals.lines << " lines in "
        << totals.files << " files the scheme changes " << totals.changedLines << ".\n";
    if (totals.refused > 0) out << totals.refused << " files could not be read.\n";
}

void writeDeriveJson(std::ostream& out, const Derive::Derivation& result, const DeriveTotals& totals) {
    nlohmann::ordered_json options = nlohmann::ordered_json::array();
    for (const Derive::Measure* row : surestFirst(result)) {
        nlohmann::ordered_json one{{"option", std::string(row->option->name)}};
        std::visit([&](const auto& value) { one["value"] = value; }, row->value);
        one["places"] = row->places;
        one["agreeing"] = row->agreeing;
        one["changedLines"] = row->changedLines;
        one["set"] = row->isSet;
        options.push_back(std::move(one));
    }
    const nlohmann::ordered_json all{{"files", totals.files},
                                     {"bytes", totals.bytes},
                                     {"measuredBytes", result.bytes},
                                     {"lines", totals.lines},
                                     {"changedLines", totals.changedLines},
                                     {"unreadableFiles", totals.refused},
                                     {"options", std::move(options)}};
    out << all.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

void writeDissents(std::ostream& out, const Derive::Derivation& result, std::string_view option) {
    const auto measure = std::find_if(result.measures.begin(), result.measures.end(),
                                      [&](const Derive::Measure& one) { return one.option->name == option; });
    if (measure == result.measures.end()) {
        out << option << " acts nowhere in these sources.\n";
        return;
    }
    for (const Derive::Dissent& dissent : measure->dissents) {
        out << result.names[dissent.text] << ':' << dissent.line << ':' << dissent.column << ": "
            << shownSpace(dissent.found) << ", not " << shownSpace(dissent.wanted) << '\n';
    }
}

} // namespace Cli
