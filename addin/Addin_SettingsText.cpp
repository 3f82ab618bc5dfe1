#include "addin/Addin_SettingsText.h"

#include <algorithm>
#include <utility>

namespace Addin {

namespace {

constexpr std::string_view kSection = "[Options]";
constexpr std::string_view kBlanks = " \t\r";

/// Plain characters, and behind each the letter that stands for it after a backslash.
constexpr std::pair<char, char> kEscapes[] = {{'\n', 'n'}, {'\t', 't'}, {'\v', 'v'},
                                              {'\r', 'r'}, {'"', '"'},  {'\\', '\\'}};

std::string_view trimmed(std::string_view text) {
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
}

bool isSectionHead(std::string_view line) { return line.starts_with('[') && line.ends_with(']'); }

bool isComment(std::string_view line) { return line.starts_with('#') || line.starts_with(';'); }

bool needsQuotes(std::string_view value) {
    return trimmed(value).size() != value.size() || value.find_first_of("\"#;\\") != std::string_view::npos ||
           std::any_of(value.begin(), value.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
}

std::string quoted(std::string_view value) {
    std::string result = "\"";
    for (const char c : value) {
        const auto* escape =
            std::find_if(std::begin(kEscapes), std::end(kEscapes), [c](const auto& e) { return e.first == c; });
        if (escape != std::end(kEscapes)) result += '\\';
        result += escape == std::end(kEscapes) ? c : escape->second;
    }
    return result + '"';
}

std::string unquoted(std::string_view text) {
    if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"')) return std::string(text);
    text = text.substr(1, text.size() - 2);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char letter = text[++i];
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [letter](const auto& e) { return e.second == letter; });
        result += escape == std::end(kEscapes) ? letter : escape->first;
    }
    return result;
}

} // namespace

SettingsText::SettingsText(std::string_view text) {
    // Some editors put it there, and the head of the section behind it would not be known.
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (text.starts_with(byteOrderMark)) start_ = byteOrderMark;
    text.remove_prefix(start_.size());
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines_.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::string SettingsText::text() const {
    std::string result(start_);
    for (const std::string& line : lines_) result.append(line).append("\n");
    return result;
}

std::size_t SettingsText::lineOf(std::string_view name) const {
    std::size_t found = npos;
    bool inSection = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = trimmed(lines_[i]);
        if (isSectionHead(line)) inSection = line == kSection;
        const std::size_t equals = line.find('=');
        if (!inSection || isComment(line) || equals == std::string_view::npos) continue;
        if (trimmed(line.substr(0, equals)) == name) found = i;
    }
    return found;
}

std::optional<std::string> SettingsText::value(std::string_view name) const {
    const std::size_t at = lineOf(name);
    if (at == npos) return std::nullopt;
    return unquoted(trimmed(std::string_view(lines_[at]).substr(lines_[at].find('=') + 1)));
}

void SettingsText::setValue(std::string_view name, std::string_view value) {
    const std::string text = needsQuotes(value) ? quoted(value) : std::string(value);
    const std::size_t at = lineOf(name);
    if (at != npos) {
        std::string& line = lines_[at];
        const bool hasReturn = line.ends_with('\r');
        line.replace(line.find('=') + 1, std::string::npos, text);
        if (hasReturn) line += '\r';
        return;
    }
    const std::size_t end = endOfSection();
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(end), std::string(name) + '=' + text);
}

/// Behind the last line of the section that is not blank. Adds the section if there is none.
std::size_t SettingsText::endOfSection() {
    std::size_t end = npos;
    bool inSection = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = trimmed(lines_[i]);
        if (isSectionHead(line)) inSection = line == kSection;
        if (inSection && !line.empty()) end = i + 1;
    }
    if (end != npos) return end;
    if (!lines_.empty()) lines_.emplace_back();
    lines_.emplace_back(kSection);
    return lines_.size();
}

} // namespace Addin
