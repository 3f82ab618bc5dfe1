#include "schemes/NorvaneUI_SchemeDocument.h"

#include "schemes/NorvaneUI_PropertySetStore.h"
#include "schemes/NorvaneUI_SchemeRecord.h"

#include <algorithm>
#include <cstring>

namespace NorvaneUI {

namespace {

using Norvane::PropertySet;

constexpr int kHeaderLines = 3;

/// One set for each value of `scheme`, in the order in which a new file has them.
std::vector<PropertySet> singleValues(const PropertySet& scheme) {
    std::vector<PropertySet> result;
    for (const auto& [name, value] : scheme.bools()) result.emplace_back().setBool(name, value);
    for (const auto& [name, value] : scheme.ints()) result.emplace_back().setInt(name, value);
    for (const auto& [name, value] : scheme.strings()) result.emplace_back().setString(name, value);
    return result;
}

std::pair<char, std::string> keyOf(const PropertySet& one) {
    if (!one.bools().empty()) return {'1', one.bools().begin()->first};
    if (!one.ints().empty()) return {'2', one.ints().begin()->first};
    return {'3', one.strings().begin()->first};
}

/// Puts `replacement` in the place of `part`, which is a view of `text`.
void replacePart(std::string& text, std::string_view part, const std::string& replacement) {
    text.replace(static_cast<std::size_t>(part.data() - text.data()), part.size(), replacement);
}

} // namespace

SchemeDocument::SchemeDocument(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) mark_ = kByteOrderMark;
    text = withoutByteOrderMark(text);
    endsWithNewLine_ = text.ends_with('\n');
    int header = 0;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        Line& line = lines_.emplace_back();
        line.text = text.substr(0, length);
        text.remove_prefix(std::min(length + 1, text.size()));
        const std::string_view content = trimmedLine(line.text);
        if (!isSchemeLine(content)) continue;
        if (header < kHeaderLines) {
            if (++header == kHeaderLines) nameLine_ = lines_.size() - 1;
            continue;
        }
        end_ = lines_.size();
        line.value = readAlone(content);
        if (line.value.size() != 0) lineOf_[keyOf(line.value)] = lines_.size() - 1;
    }
    if (end_ == 0) end_ = lines_.size();
}

void SchemeDocument::setContent(const PropertySet& scheme) {
    setName(scheme.getName());
    std::map<Key, PropertySet> wanted;
    std::vector<PropertySet> added;
    for (PropertySet& value : singleValues(scheme)) {
        if (lineOf_.count(keyOf(value)) == 0) added.push_back(value);
        wanted.emplace(keyOf(value), std::move(value));
    }
    for (Line& line : lines_) {
        if (line.value.size() == 0) continue;
        const Key key = keyOf(line.value);
        const auto value = wanted.find(key);
        line.gone = value == wanted.end();
        const bool counts = &lines_[lineOf_.at(key)] == &line;
        if (!line.gone && counts && !isSameScheme(line.value, value->second)) setValue(line, value->second);
    }
    for (const PropertySet& value : added) add(value);
}

void SchemeDocument::setName(const std::string& name) {
    if (nameLine_ == 0) return;
    std::string& line = lines_[nameLine_].text;
    std::string_view old = trimmedLine(line);
    const bool isQuoted = old.size() >= 2 && old.front() == '"' && old.back() == '"';
    if ((isQuoted ? old.substr(1, old.size() - 2) : old) != name) replacePart(line, old, '"' + name + '"');
}

void SchemeDocument::setValue(Line& line, const PropertySet& value) {
    const SchemeRecord record = splitRecord(trimmedLine(line.text));
    if (record.value.empty()) {
        const auto behindName = record.name.data() + record.name.size() - line.text.data();
        line.text.insert(static_cast<std::size_t>(behindName), ' ' + valueText(value));
    } else {
        replacePart(line.text, record.value, valueText(value));
    }
    line.value = value;
}

void SchemeDocument::add(const PropertySet& value) {
    const auto [code, name] = keyOf(value);
    const std::string lineEnd = endOf(end_ == 0 ? 0 : end_ - 1);
    const std::string text = std::string(1, code) + ' ' + name + ' ' + valueText(value) + lineEnd;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(end_), Line{text, value, false});
    ++end_;
}

/// What a line has in front of its line feed.
std::string SchemeDocument::endOf(std::size_t line) const {
    return line < lines_.size() && lines_[line].text.ends_with('\r') ? "\r" : "";
}

std::string SchemeDocument::text() const {
    std::string result(mark_);
    for (const Line& line : lines_) {
        if (!line.gone) result.append(line.text).append("\n");
    }
    if (!endsWithNewLine_ && result.ends_with('\n')) result.pop_back();
    return result;
}

std::string editedSchemeText(std::string_view text, const PropertySet& scheme) {
    SchemeDocument document(text);
    document.setContent(scheme);
    std::string edited = document.text();
    // Nothing may be lost to a line that the engine reads in a way of its own.
    PropertySet back;
    const bool saysTheSame = parseScheme(edited, back) && isSameScheme(back, scheme);
    return saysTheSame ? edited : schemeText(scheme);
}

} // namespace NorvaneUI
