#include "schemes/NorvaneUI_SchemeRecord.h"

#include "cpp/Cpp_Scanner.h"

#include <algorithm>
#include <sstream>

namespace NorvaneUI {

namespace {

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

} // namespace

SchemeRecord splitRecord(std::string_view line) {
    LineCursor cursor(line);
    SchemeRecord record;
    record.typeCode = cursor.word();
    record.name = cursor.word();
    record.value = cursor.value();
    record.rest = cursor.rest();
    return record;
}

Norvane::PropertySet readAlone(std::string_view line) {
    Norvane::PropertySet one;
    one.readRecord(line);
    return one;
}

std::string valueText(const Norvane::PropertySet& one) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    one.write(out);
    const std::string text = std::move(out).str();
    const std::size_t start = text.rfind('\n', text.size() - 2) + 1;
    return std::string(splitRecord(std::string_view(text).substr(start)).value);
}

std::string_view trimmedLine(std::string_view line) {
    while (!line.empty() && Cpp::isSpace(line.front())) line.remove_prefix(1);
    while (!line.empty() && Cpp::isSpace(line.back())) line.remove_suffix(1);
    return line;
}

bool isSchemeLine(std::string_view trimmed) { return !trimmed.empty() && trimmed.front() != '#'; }

std::string_view withoutByteOrderMark(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return text;
}

} // namespace NorvaneUI
