#include "tests/format/runner/GoldenFile.h"

#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Report.h"
#include "schemes/NorvaneUI_SchemeChecker.h"
#include "cli/scheme/Cli_SchemeLoader.h"
#include "cli/scheme/Cli_ShippedSchemes.h"

#include <fstream>
#include <sstream>
#include <string_view>

namespace Golden {

namespace {

constexpr std::string_view kSection = "###";
constexpr std::string_view kSource = ">>>";
constexpr std::string_view kExpected = "<<<";
constexpr std::string_view kScheme = "scheme ";

std::vector<std::string> splitLines(const std::string& content) {
    std::vector<std::string> lines;
    std::istringstream in(content);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

bool isMarker(std::string_view line) {
    return line.starts_with(kSection) || line.starts_with(kSource) || line.starts_with(kExpected);
}

/// Takes `flag` out of `text` and tells whether it was there.
bool takeFlag(std::string& text, std::string_view flag) {
    const std::size_t at = text.find(flag);
    if (at == std::string::npos) return false;
    text = trimmed(text.erase(at, flag.size()));
    return true;
}

std::string unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        switch (const char c = text[++i]) {
        case 't': result += '\t'; break;
        case 'n': result += '\n'; break;
        case 'r': result += '\r'; break;
        case '\n': break;
        case 'x':
            result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
            break;
        default: result += c;
        }
    }
    return result;
}

std::string escaped(const std::string& text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool endsLine = i + 1 == text.size() || text[i + 1] == '\n';
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\') {
            result += "\\\\";
        } else if (c == '\t') {
            result += "\\t";
        } else if (c == '\n') {
            result += c;
        } else if (byte < 0x20 || byte >= 0x7f || (c == ' ' && endsLine)) {
            result += {'\\', 'x', digits[byte >> 4], digits[byte & 0xf]};
        } else {
            result += c;
        }
    }
    if (!text.empty() && text.back() != '\n') result += "\\\n";
    return result;
}

/// Reads one file line by line.
class CaseReader {
public:
    CaseReader(const std::string& fileName, const std::string& content)
        : fileName_(fileName), lines_(splitLines(content)) {}

    std::vector<Case> read() {
        while (at_ < lines_.size()) {
            const std::string& line = lines_[at_];
            if (line.starts_with(kSection)) {
                startSection(trimmed(line.substr(kSection.size())));
            } else if (line.starts_with(kSource)) {
                cases_.push_back(readCase());
            } else if (!trimmed(line).empty()) {
                readOption(line);
            } else {
                ++at_;
            }
        }
        return std::move(cases_);
    }

private:
    [[noreturn]] void fail(std::size_t index, const std::string& text) const {
        throw FormatError(fileName_ + ':' + std::to_string(index + 1) + ": " + text);
    }

    void startSection(std::string title) {
        title_ = std::move(title);
        scheme_ = Norvane::PropertySet();
        ++at_;
    }

    void readOption(const std::string& line) {
        const std::size_t index = at_++;
        if (line.starts_with('#')) return;
        if (line.starts_with(kScheme)) {
            startFrom(trimmed(line.substr(kScheme.size())), index);
        } else if (const auto problem = NorvaneUI::readRecord(line, scheme_); problem && !problem->isWarning) {
            fail(index, problem->text);
        }
    }

    void startFrom(const std::string& name, std::size_t index) {
        Cli::Report report;
        const Cli::ShippedScheme* shipped = Cli::findShippedScheme(name);
        const auto scheme = shipped ? Cli::parseSchemeText(name, shipped->text, report) : std::nullopt;
        if (!scheme) return fail(index, "no scheme " + name);
        scheme_ = *scheme;
    }

    Case readCase() {
        Case result;
        const std::size_t start = at_;
        std::string heading = trimmed(lines_[at_++].substr(kSource.size()));
        result.line = static_cast<int>(start) + 1;
        result.hasEscapes = takeFlag(heading, "(escapes)");
        result.isUnstable = takeFlag(heading, "(unstable)");
        result.title = heading.empty() ? title_ : heading;
        result.scheme = scheme_;
        result.source = readText(result.hasEscapes, false);
        result.expected = readExpected(result.source, result.hasEscapes, start);
        if (result.isUnstable) result.second = readExpected(result.expected.text, result.hasEscapes, start);
        return result;
    }

    ExpectedText readExpected(const std::string& before, bool hasEscapes, std::size_t start) {
        if (at_ == lines_.size() || !lines_[at_].starts_with(kExpected)) fail(start, "an expected text is missing");
        ExpectedText result;
        result.line = static_cast<int>(at_) + 1;
        const std::string word = trimmed(lines_[at_].substr(kExpected.size()));
        if (!word.empty() && word != "same") fail(at_, "only \"same\" can stand behind <<<");
        result.isSame = word == "same";
        ++at_;
        const std::string text = readText(hasEscapes, true);
        if (result.isSame && !trimmed(text).empty()) fail(at_ - 1, "a text behind \"<<< same\"");
        result.text = result.isSame ? before : text;
        return result;
    }

    std::string readText(bool hasEscapes, bool dropBlankEnd) {
        const std::size_t first = at_;
        while (at_ < lines_.size() && !isMarker(lines_[at_])) ++at_;
        std::size_t last = at_;
        while (dropBlankEnd && last > first && lines_[last - 1].empty()) --last;
        std::string text;
        for (std::size_t i = first; i < last; ++i) {
            text += lines_[i] + '\n';
        }
        return hasEscapes ? unescaped(text) : text;
    }

    std::string fileName_;
    std::vector<std::string> lines_;
    std::size_t at_ = 0;
    std::string title_;
    Norvane::PropertySet scheme_;
    std::vector<Case> cases_;
};

bool holdsMarker(const std::string& lines) {
    for (const std::string& line : splitLines(lines)) {
        if (isMarker(line)) return true;
    }
    return false;
}

/// What nobody can see in a file, or what its reader would not give back.
bool needsEscapes(const std::string& text) {
    const bool endsOdd = !text.empty() && (text.back() != '\n' || text == "\n" || text.ends_with("\n\n"));
    return endsOdd || text.find_first_of("\t\r") != std::string::npos || text.find(" \n") != std::string::npos;
}

} // namespace

std::vector<Case> parseCases(const std::string& fileName, const std::string& content) {
    return CaseReader(fileName, content).read();
}

std::vector<Case> readCases(const std::string& path) {
    return parseCases(path, readWholeFile(path));
}

std::optional<std::string> spellText(const std::string& text, bool hasEscapes) {
    if (!hasEscapes && needsEscapes(text)) return std::nullopt;
    std::string lines = hasEscapes ? escaped(text) : text;
    if (hasEscapes && (text == "\n" || text.ends_with("\n\n"))) {
        // A blank line at the end would be taken for the space between two cases.
        lines.replace(lines.size() - 1, 1, "\\n\\\n");
    }
    if (holdsMarker(lines)) return std::nullopt;
    return lines;
}

std::string readWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw FormatError(path + ": cannot be read");
    std::ostringstream out;
    if (in.peek() != std::ifstream::traits_type::eof()) out << in.rdbuf();
    return out.str();
}

} // namespace Golden
