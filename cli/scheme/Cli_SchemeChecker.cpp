#include "cli/scheme/Cli_SchemeChecker.h"

#include "cpp/Cpp_Scanner.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <algorithm>
#include <sstream>

namespace Cli {

namespace {

constexpr std::string_view kHeader = "Norvane::PropertySet";
constexpr std::string_view kVersion = "1";

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// The parts of one record, as views of its line.
struct Record {
    std::string_view typeCode;
    std::string_view name;
    std::string_view value;
    std::string_view rest;
};

/// Walks over one line from left to right.
class LineCursor {
public:
    explicit LineCursor(std::string_view line) : line_(line) {}

    std::string_view word() {
        skipSpace();
        const std::size_t start = at_;
        while (at_ < line_.size() && !Cpp::isSpace(line_[at_])) ++at_;
        return line_.substr(start, at_ - start);
    }
    /// A word, or a text in double quotes in which a backslash guards the character behind it.
    std::string_view value() {
        skipSpace();
        if (at_ == line_.size() || line_[at_] != '"') return word();
        const std::size_t start = at_++;
        while (at_ < line_.size() && line_[at_] != '"') at_ += line_[at_] == '\\' ? 2 : 1;
        at_ = std::min(at_ + 1, line_.size());
        return line_.substr(start, at_ - start);
    }
    std::string_view rest() {
        skipSpace();
        return line_.substr(at_);
    }

private:
    void skipSpace() {
        while (at_ < line_.size() && Cpp::isSpace(line_[at_])) ++at_;
    }

    std::string_view line_;
    std::size_t at_ = 0;
};

Record split(std::string_view line) {
    LineCursor cursor(line);
    Record record;
    record.typeCode = cursor.word();
    record.name = cursor.word();
    record.value = cursor.value();
    record.rest = cursor.rest();
    return record;
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

std::string faultText(Norvane::PropertyFault fault, const Record& record) {
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
Norvane::PropertySet readAlone(const Record& record) {
    std::stringstream text;
    text << kHeader << '\n' << kVersion << "\n\"\"\n"
         << record.typeCode << ' ' << record.name << ' ' << record.value << '\n';
    return Norvane::PropertySet(text);
}

/// What keeps a line from being a record of a known option, whatever its value.
std::optional<SchemeProblem> shapeProblem(std::string_view line, const Record& record) {
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

/// Takes the lines of a scheme one by one: three of them are the header, the others are records.
class TextCheck {
public:
    void take(std::string_view line) {
        ++line_;
        std::size_t start = 0;
        while (start < line.size() && Cpp::isSpace(line[start])) ++start;
        while (line.size() > start && Cpp::isSpace(line.back())) line.remove_suffix(1);
        line.remove_prefix(start);
        if (line.empty() || line.front() == '#' || failed_) return;
        check(line, static_cast<std::uint32_t>(start));
    }

    std::vector<SchemeProblem> finish() {
        if (seen_ < kHeaderLines && !failed_) add(0, "not a scheme: the text ends before its name");
        return std::move(problems_);
    }

private:
    static constexpr int kHeaderLines = 3;

    void check(std::string_view line, std::uint32_t indent) {
        const int number = seen_;
        if (seen_ < kHeaderLines) ++seen_;
        if (number < kHeaderLines) {
            // What follows a wrong header is no scheme: one error tells all.
            if (const auto problem = headerProblem(number, line)) {
                add(indent, *problem);
                failed_ = true;
            }
            return;
        }
        if (auto problem = readRecord(line, scratch_)) {
            problem->line = line_;
            problem->column += indent;
            problems_.push_back(std::move(*problem));
        }
    }
    void add(std::uint32_t offset, std::string text) {
        problems_.push_back({std::max<std::uint32_t>(line_, 1), offset + 1, std::move(text), false});
    }

    std::vector<SchemeProblem> problems_;
    Norvane::PropertySet scratch_;
    std::uint32_t line_ = 0;
    int seen_ = 0;
    bool failed_ = false;
};

} // namespace

std::string unknownOptionText(std::string_view name) {
    const std::string_view nearest = Norvane::nearestPropertyName(name);
    return "unknown option " + quoted(name) + "; did you mean " + quoted(nearest) + '?';
}

std::optional<SchemeProblem> readRecord(std::string_view line, Norvane::PropertySet& scheme) {
    const Record record = split(line);
    if (auto problem = shapeProblem(line, record)) return problem;
    const Norvane::PropertySet one = readAlone(record);
    const Norvane::PropertyFault fault = faultOf(one);
    if (fault == Norvane::PropertyFault::None || isSlip(fault)) copyValue(one, scheme);
    if (fault == Norvane::PropertyFault::None) return std::nullopt;
    const bool wrongType = fault == Norvane::PropertyFault::WrongKind && one.size() != 0;
    const std::string_view where = wrongType ? record.typeCode : record.value;
    return SchemeProblem{1, columnOf(line, where), faultText(fault, record), isSlip(fault)};
}

std::vector<SchemeProblem> checkSchemeText(std::string_view text) {
    TextCheck check;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        check.take(text.substr(start, end - start));
        start = end + 1;
    }
    return check.finish();
}

} // namespace Cli
