#include "cli/Cli_Report.h"

namespace Cli {

namespace {

void appendPrintable(std::string& line, std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n') {
            line += "\\n";
        } else if (c == '\t') {
            line += "\\t";
        } else if (byte < 0x20 || byte == 0x7f) {
            line += "\\x";
            line += digits[byte >> 4];
            line += digits[byte & 0xf];
        } else {
            line += c;
        }
    }
}

} // namespace

std::string messageLine(const Place& place, std::string_view severity, std::string_view text) {
    std::string line;
    appendPrintable(line, place.path);
    line += ':' + std::to_string(place.line) + ':' + std::to_string(place.column) + ": ";
    line += severity;
    line += ": ";
    appendPrintable(line, text);
    return line;
}

void Report::error(const Place& place, std::string_view text, ExitStatus status) {
    add(place, "error", text);
    raise(status);
}

void Report::add(const Place& place, std::string_view severity, std::string_view text) {
    lines_.push_back(messageLine(place, severity, text));
}

void Report::raise(ExitStatus status) {
    if (status > status_) status_ = status;
}

void Report::flush(std::ostream& out) {
    for (const std::string& line : lines_) out << line << '\n';
    out.flush();
    lines_.clear();
}

} // namespace Cli
