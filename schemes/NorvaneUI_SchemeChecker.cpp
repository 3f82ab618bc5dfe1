#include "schemes/NorvaneUI_SchemeChecker.h"

#include "schemes/NorvaneUI_SchemeConversion.h"
#include "schemes/NorvaneUI_SchemeRecord.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <algorithm>
#include <map>

namespace NorvaneUI {

namespace {

constexpr std::string_view kHeader = "Norvane::PropertySet";
constexpr std::string_view kVersion = "1";

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string_view expectedValue(Norvane::PropertyKind kind) {
    switch (kind) {
    case Norvane::PropertyKind::Bool: return "type 1 with the value 0 or 1";
    case Norvane::PropertyKind::Int: return "type 2 with a whole number";
    case Norvane::PropertyKind::Text: return "type 3 with a text in double quotes";
    case Norvane::PropertyKind::WhiteSpace:
    case Norvane::PropertyKind::Indent: break;
    }
    return "type 3 with white space in double quotes";
}

std::string wrongKindText(const Norvane::PropertyInfo& info) {
    return std::string(info.name) + " takes " + std::string(expectedValue(info.kind));
}

std::string rangeText(const Norvane::PropertyInfo& info) {
    return std::string(info.name) + " takes a value from " + std::to_string(info.minimum) + " to " +
           std::to_string(info.maximum);
}

std::string faultText(Norvane::PropertyFault fault, const SchemeRecord& record) {
    const Norvane::PropertyInfo* info = Norvane::findProperty(record.name);
    if (info == nullptr) return unknownOptionText(record.name);
    switch (fault) {
    case Norvane::PropertyFault::OutOfRange: return rangeText(*info);
    case Norvane::PropertyFault::NotWhiteSpace:
        return std::string(info->name) + " takes white space only, not " + std::string(record.value);
    case Norvane::PropertyFault::LineBreakInIndent:
        return std::string(info->name) + " is an indent and cannot hold a line break";
    case Norvane::PropertyFault::None:
    case Norvane::PropertyFault::UnknownName:
    case Norvane::PropertyFault::WrongKind: break;
    }
    return wrongKindText(*info);
}

/// The fault of the one value of `one`, which the record made.
Norvane::PropertyFault faultOf(const Norvane::PropertySet& one) {
    for (const auto& [name, value] : one.bools()) return Norvane::checkBoolProperty(name, value);
    for (const auto& [name, value] : one.ints()) return Norvane::checkIntProperty(name, value);
    for (const auto& [name, value] : one.strings()) return Norvane::checkStringProperty(name, value);
    // A bool or an int that could not be read.
    return Norvane::PropertyFault::WrongKind;
}

bool isClosed(std::string_view value) {
    return value.empty() || value.front() != '"' || (value.size() > 1 && value.back() == '"');
}

std::uint32_t columnOf(std::string_view line, std::string_view part) {
    return static_cast<std::uint32_t>(part.data() - line.data()) + 1;
}

/// The value is read by the engine itself, so that the check and the real reading cannot differ.
Norvane::PropertySet readValue(const SchemeRecord& record) {
    const std::string code(record.typeCode);
    return readAlone(code + ' ' + std::string(record.name) + ' ' + std::string(record.value));
}

/// What keeps a line from being a record of a known option, whatever its value.
std::optional<SchemeProblem> shapeProblem(std::string_view line, const SchemeRecord& record) {
    const auto problemAt = [&](std::string_view part, std::string text) {
        return SchemeProblem{1, columnOf(line, part), std::move(text), false};
    };
    const std::string name(record.name);
    if (record.typeCode != "1" && record.typeCode != "2" && record.typeCode != "3") {
        return problemAt(record.typeCode, "a line starts with 1 (yes or no), 2 (number) or 3 (text), not with " +
                                              quoted(record.typeCode));
    }
    if (name.empty()) return problemAt(record.typeCode, "the name of an option is missing");
    if (Norvane::findProperty(name) == nullptr) return problemAt(record.name, unknownOptionText(name));
    if (record.value.empty()) return problemAt(record.name, "the value of " + name + " is missing");
    if (!isClosed(record.value)) return problemAt(record.value, "the closing quote is missing");
    if (!record.rest.empty() && record.rest.front() != '#') {
        return problemAt(record.rest, "unexpected text behind the value");
    }
    return std::nullopt;
}

/// A value of the right kind that hardly does what was meant.
bool isSlip(Norvane::PropertyFault fault) {
    return fault == Norvane::PropertyFault::OutOfRange || fault == Norvane::PropertyFault::LineBreakInIndent;
}

void copyValue(const Norvane::PropertySet& one, Norvane::PropertySet& scheme) {
    for (const auto& [name, value] : one.bools()) scheme.setBool(name, value);
    for (const auto& [name, value] : one.ints()) scheme.setInt(name, value);
    for (const auto& [name, value] : one.strings()) scheme.setString(name, value);
}

std::optional<std::string> headerProblem(int number, std::string_view line) {
    if (number == 0 && line != kHeader) return "not a scheme: its first line should be " + std::string(kHeader);
    if (number == 1 && line != kVersion) {
        return "version " + quoted(line) + " of the scheme text is not known; it should be 1";
    }
    return std::nullopt;
}

/// A record in the place of the name: whoever wrote it has forgotten the name, and the option would
/// be lost. No name looks like this by chance, and one that does can be put in quotes.
bool isRecordForName(std::string_view line) {
    const SchemeRecord record = splitRecord(line);
    const bool isCode = record.typeCode == "1" || record.typeCode == "2" || record.typeCode == "3";
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789";
    return isCode && record.name.find('_') != std::string_view::npos &&
           record.name.find_first_not_of(letters) == std::string_view::npos;
}

/// Takes the lines of a scheme one by one: three of them are the header, the others are records.
class TextCheck {
public:
    void take(std::string_view line) {
        ++line_;
        const std::string_view content = trimmedLine(line);
        if (!isSchemeLine(content) || failed_) return;
        const auto indent = static_cast<std::uint32_t>(content.data() - line.data());
        if (seen_ < kHeaderLines) checkHeader(content, indent);
        else checkRecord(content, indent);
    }

    std::vector<SchemeProblem> finish() {
        if (seen_ < kHeaderLines && !failed_) add(0, "not a scheme: the text ends before its name");
        return std::move(problems_);
    }

private:
    static constexpr int kHeaderLines = 3;

    void checkHeader(std::string_view line, std::uint32_t indent) {
        const int number = seen_++;
        if (const auto problem = headerProblem(number, line)) {
            // What follows a wrong header is no scheme: one error tells all.
            add(indent, *problem);
            failed_ = true;
        } else if (number == kHeaderLines - 1 && isRecordForName(line)) {
            add(indent, "the name of the scheme is missing: it stands here, in double quotes, in front of the options");
        }
    }

    void checkRecord(std::string_view line, std::uint32_t indent) {
        if (auto problem = readRecord(line, scratch_)) {
            problem->line = line_;
            problem->column += indent;
            problems_.push_back(std::move(*problem));
            if (!problems_.back().isWarning) return;
        }
        checkRepeated(line, indent);
    }

    /// A value of another kind under the same name is another value.
    void checkRepeated(std::string_view line, std::uint32_t indent) {
        const SchemeRecord record = splitRecord(line);
        const auto [place, isFirst] =
            lineOf_.try_emplace(std::string(record.typeCode) + ' ' + std::string(record.name), line_);
        if (isFirst) return;
        add(indent + columnOf(line, record.name) - 1, std::string(record.name) + " is given twice: the value of line " +
                                                          std::to_string(place->second) + " does not count");
        problems_.back().isWarning = true;
        place->second = line_;
    }

    void add(std::uint32_t offset, std::string text) {
        problems_.push_back({std::max<std::uint32_t>(line_, 1), offset + 1, std::move(text), false});
    }

    std::vector<SchemeProblem> problems_;
    Norvane::PropertySet scratch_;
    /// The last line of each record, by its type code and name.
    std::map<std::string, std::uint32_t> lineOf_;
    std::uint32_t line_ = 0;
    int seen_ = 0;
    bool failed_ = false;
};

} // namespace

std::string unknownOptionText(std::string_view name) {
    if (isOlderName(name)) {
        return quoted(name) + " is a name of older schemes; \"kerfline schemes convert\" brings those in your folder up to date";
    }
    const std::string_view nearest = Norvane::nearestPropertyName(name);
    return "unknown option " + quoted(name) + "; did you mean " + quoted(nearest) + '?';
}

std::optional<SchemeProblem> readRecord(std::string_view line, Norvane::PropertySet& scheme) {
    const SchemeRecord record = splitRecord(line);
    if (auto problem = shapeProblem(line, record)) return problem;
    const Norvane::PropertySet one = readValue(record);
    const Norvane::PropertyFault fault = faultOf(one);
    if (fault == Norvane::PropertyFault::None || isSlip(fault)) copyValue(one, scheme);
    if (fault == Norvane::PropertyFault::None) return std::nullopt;
    const bool wrongType = fault == Norvane::PropertyFault::WrongKind && one.size() != 0;
    const std::string_view where = wrongType ? record.typeCode : record.value;
    return SchemeProblem{1, columnOf(line, where), faultText(fault, record), isSlip(fault)};
}

std::vector<SchemeProblem> checkSchemeText(std::string_view text) {
    TextCheck check;
    text = withoutByteOrderMark(text);
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        check.take(text.substr(start, end - start));
        start = end + 1;
    }
    return check.finish();
}

} // namespace NorvaneUI
