#include "schemes/NorvaneUI_SchemeConversion.h"

#include "files/NorvaneUI_Text.h"
#include "files/Zelmar_Trace.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <set>
#include <span>
#include <vector>

namespace NorvaneUI {

namespace {

using Norvane::PropertySet;

constexpr std::string_view kOneSkipped =
    "The scheme '%s' was created using a previous version of Kerfline. The file is marked read-only and so "
    "cannot be converted. Please ensure the file is read-write and run Kerfline again. Once the scheme has "
    "been converted, the file can be set read-only again.";
constexpr std::string_view kSeveralSkipped =
    "The following schemes were created using a previous version of Kerfline:\r\n%sThe files are read-only "
    "and so cannot be converted. Please ensure that the scheme files listed are read-write and run Kerfline "
    "again. Once the schemes have been converted, the files can be set read-only again.";

constexpr std::string_view kConverted =
    "The scheme '%s' was created using a previous version of Kerfline and has been converted. Its file as it was is "
    "kept as \"%s\".";

struct NamedInt {
    std::string_view name;
    std::int32_t value;
};
// WRAP_INDENT and DATA_DO_NOT_FORMAT are read as a string and a bool. Written as ints they are not
// found, and the reader's default holds: that is what converted schemes have always meant.
constexpr NamedInt kWrapping[] = {
    {"LINE_WRAP_DO_NOT_FORMAT", 0}, {"RIGHT_MARGIN", 78},      {"COMMA_WRAP_STYLE", 2},
    {"EXPR_WRAP_STYLE", 2},         {"LIST_WRAP_STRATEGY", 1}, {"SHIFT_WRAP_STYLE", 1},
    {"WRAP_STYLE", 1},              {"WRAP_INDENT", 0},        {"DATA_DO_NOT_FORMAT", 0},
};

struct Move {
    std::string_view from;
    std::string_view to;
};
constexpr Move kGlobalsForData[] = {
    {"GLOBAL_WS_BEFORE_OPEN_BRACE", "WS_BEFORE_DD_OPEN_BRACE"},
    {"GLOBAL_WS_AFTER_OPEN_BRACE", "WS_AFTER_DD_OPEN_BRACE"},
    {"GLOBAL_WS_BEFORE_CLOSE_BRACE", "WS_BEFORE_DD_CLOSE_BRACE"},
    {"GLOBAL_INDENT_CONTENT", "INDENT_DD_CONTENT"},
};
constexpr Move kParametersForCalls[] = {
    {"WS_AFTER_FN_NAME", "WS_AFTER_FN_CALL_NAME"},
    {"WS_BETWEEN_FN_PARAMS", "WS_BETWEEN_FN_CALL_ARGS"},
};
constexpr Move kRenamedStrings[] = {
    {"WS_AFTER_CLASS_HEAD", "WS_BEFORE_CLASS_OPEN_BRACE"}, {"WS_AFTER_NS_HEAD", "WS_BEFORE_NS_OPEN_BRACE"},
    {"WS_AFTER_ENUM_HEAD", "WS_BEFORE_ENUM_OPEN_BRACE"},   {"WS_AFTER_FN_HEAD", "WS_BEFORE_FN_OPEN_BRACE"},
    {"WS_AFTER_CS_HEAD", "WS_BEFORE_CS_OPEN_BRACE"},
};

constexpr std::string_view kWithdrawn[] = {
    "WS_AFTER_DD_NAME",          "ALIGN_FN_PARAMS_LEFT",
    "ALIGN_FN_PARAMS_LEFT_ON_WRAP", "ALIGN_CS_FOR_CLAUSES_LEFT",
    "ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP",
};
/// The others that were withdrawn still have a place in schemes of today.
constexpr std::string_view kOnlyOlder[] = {"SPACES_PER_TAB", "ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP"};
constexpr std::string_view kCommas[] = {
    "GLOBAL_WS_BEFORE_COMMA", "WS_BEFORE_CLASS_INITS_COMMA", "WS_BEFORE_DD_COMMA", "WS_BEFORE_ENUM_COMMA",
    "WS_BEFORE_FN_CALL_COMMA", "WS_BEFORE_FN_COMMA",         "WS_BEFORE_TP_COMMA", "WS_BEFORE_BASE_CLAUSES_COMMA",
};

/// Under every kind: one left behind under another kind would be an unknown name from now on.
void eraseAll(PropertySet& scheme, std::string_view name) {
    while (scheme.erase(name)) {
    }
}

bool isTrue(const PropertySet& scheme, std::string_view name) {
    bool value = false;
    scheme.getBool(name, value);
    return value;
}

/// What used to be switched on as an alignment is now a line feed between the elements.
void replaceAlignments(PropertySet& scheme) {
    if (isTrue(scheme, "ALIGN_FN_PARAMS_LEFT")) scheme.setString("WS_BETWEEN_FN_PARAMS", "\n");
    if (isTrue(scheme, "ALIGN_CS_FOR_CLAUSES_LEFT")) scheme.setString("WS_BETWEEN_CS_FOR_CLAUSES", "\n");
    for (const std::string_view name : kWithdrawn) eraseAll(scheme, name);
}

void setWrapping(PropertySet& scheme) {
    scheme.setBool("LINE_WRAP", false);
    for (const NamedInt& option : kWrapping) scheme.setInt(option.name, option.value);
}

/// A source that is not set gives the empty string, not an option that is not set.
void copyStrings(PropertySet& scheme, std::span<const Move> moves) {
    for (const Move& move : moves) {
        std::string value;
        scheme.getString(move.from, value);
        scheme.setString(move.to, value);
    }
}

void renameOptions(PropertySet& scheme) {
    std::int32_t tabSize = 0;
    if (scheme.getInt("SPACES_PER_TAB", tabSize)) {
        scheme.setInt("TAB_SIZE", tabSize);
        eraseAll(scheme, "SPACES_PER_TAB");
    }
    for (const Move& move : kRenamedStrings) {
        std::string value;
        if (!scheme.getString(move.from, value)) continue;
        scheme.setString(move.to, value);
        eraseAll(scheme, move.from);
    }
}

std::string messageForSkipped(const std::vector<std::string>& names) {
    if (names.empty()) return {};
    if (names.size() == 1) return filled(kOneSkipped, {names.front()});
    std::string lines;
    for (const std::string& name : names) lines += name + "\r\n";
    return filled(kSeveralSkipped, {lines});
}

} // namespace

void convertScheme(PropertySet& scheme) {
    // In this order: each step may read what the one before has set.
    replaceAlignments(scheme);
    setWrapping(scheme);
    copyStrings(scheme, kGlobalsForData);
    scheme.setString("WS_BETWEEN_DD_ELEMENTS", " ");
    for (const std::string_view name : kCommas) scheme.setString(name, "");
    copyStrings(scheme, kParametersForCalls);
    renameOptions(scheme);
    scheme.setString(kVersionKey, kCurrentVersion);
}

bool isOlderName(std::string_view name) {
    const auto isFrom = [name](const Move& move) { return move.from == name; };
    return std::find(std::begin(kOnlyOlder), std::end(kOnlyOlder), name) != std::end(kOnlyOlder) ||
           std::any_of(std::begin(kRenamedStrings), std::end(kRenamedStrings), isFrom);
}

bool isOldScheme(const PropertySet& scheme) {
    std::string version;
    if (scheme.getString(kVersionKey, version)) return false;
    const std::set<std::string> names = scheme.names();
    return std::any_of(names.begin(), names.end(), isOlderName);
}

std::string convertSchemes(PropertySetStore& store, std::vector<ConvertedScheme>& converted) {
    const Zelmar::Trace trace("convertSchemes");
    std::vector<std::string> skipped;
    for (auto& [name, entry] : store) {
        if (!isOldScheme(entry.scheme)) continue;
        if (entry.readOnly) {
            skipped.push_back(name);
            continue;
        }
        convertScheme(entry.scheme);
        converted.push_back({name, {}});
    }
    // All copies before the first write: the store stops at the first file that fails.
    for (ConvertedScheme& scheme : converted) scheme.copy = store.keepCopy(scheme.name);
    if (!converted.empty()) store.write();
    return messageForSkipped(skipped);
}

std::string convertedText(const ConvertedScheme& scheme) { return filled(kConverted, {scheme.name, scheme.copy}); }

} // namespace NorvaneUI
