#include "cli/console/Cli_Report.h"

#include "cli/console/Cli_Printable.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <iterator>
#include <system_error>
#include <utility>

namespace Cli {

namespace {

std::string_view colorOf(std::string_view severity) {
    if (severity == "error") return "\x1b[1;31m";
    return severity == "warning" ? "\x1b[1;35m" : "\x1b[1;36m";
}

void appendSeverity(std::string& line, std::string_view severity, const MessageStyle& style) {
    if (style.isColored) line += colorOf(severity);
    line.append(severity).append(": ");
    if (style.isColored) line += "\x1b[0m";
}

/// Bytes that are no UTF-8 are replaced: a reader of JSON would refuse the whole line.
std::string dumped(const nlohmann::ordered_json& object) {
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string jsonLine(const Place& place, std::string_view severity, std::string_view text) {
    nlohmann::ordered_json object = {{"path", place.path}};
    if (place.line != 0) {
        object["line"] = place.line;
        object["column"] = place.column;
    }
    object["severity"] = severity;
    object["text"] = text;
    return dumped(object);
}

std::string msvcLine(const Place& place, std::string_view severity, std::string_view text) {
    std::string line;
    line += printable(place.path);
    if (place.line != 0) line += '(' + std::to_string(place.line) + ')';
    line.append(" : ").append(severity == "note" ? "information" : severity).append(": ");
    if (place.line != 0) line += "col " + std::to_string(place.column) + ": ";
    line += printable(text);
    return line;
}

} // namespace

std::string messageLine(const Place& place, std::string_view severity, std::string_view text,
                        const MessageStyle& style) {
    if (style.format == MessageFormat::json) return jsonLine(place, severity, text);
    if (style.format == MessageFormat::msvc) return msvcLine(place, severity, text);
    std::string line;
    line += printable(place.path);
    if (place.line != 0) line += ':' + std::to_string(place.line) + ':' + std::to_string(place.column);
    line += ": ";
    appendSeverity(line, severity, style);
    line += printable(text);
    return line;
}

std::string programLine(std::string_view severity, std::string_view text, const MessageStyle& style) {
    if (style.format == MessageFormat::json) return dumped({{"severity", severity}, {"text", text}});
    std::string line = "kerfline: ";
    appendSeverity(line, severity, style);
    line += printable(text);
    return line;
}

void Report::error(const Place& place, std::string_view text, ExitStatus status) {
    add(place, "error", text);
    raise(status);
}

void Report::add(const Place& place, std::string_view severity, std::string_view text) {
    lines_.push_back(messageLine(place, severity, text, style_));
}

void Report::addGeneral(std::string_view severity, std::string_view text) {
    lines_.push_back(programLine(severity, text, style_));
}

void Report::checkOutput(std::ostream& out) {
    errno = 0;
    out.flush();
    if (out) return;
    const std::string reason = errno != 0 ? std::generic_category().message(errno) : "cannot be written";
    error({"<stdout>"}, reason, ExitStatus::fileFailed);
}

void Report::raise(ExitStatus status) {
    if (status > status_) status_ = status;
}

void Report::merge(Report&& other) {
    lines_.insert(lines_.end(), std::make_move_iterator(other.lines_.begin()),
                  std::make_move_iterator(other.lines_.end()));
    raise(other.status_);
    other.lines_.clear();
}

void Report::flush(std::ostream& out) {
    for (std::string& line : lines_) {
        const auto [place, isNew] = written_.insert(std::move(line));
        if (isNew) out << *place << '\n';
    }
    out.flush();
    lines_.clear();
}

} // namespace Cli
