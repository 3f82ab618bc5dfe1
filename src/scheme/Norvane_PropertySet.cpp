#include "src/scheme/Norvane_PropertySet.h"

#include "cpp/Cpp_Scanner.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace Norvane {

namespace {

constexpr std::string_view kHeader = "Norvane::PropertySet";

enum TypeCode : int { kBool = 1, kInt = 2, kString = 3 };

/// A character that stands in the text form as a backslash and another one.
struct Escape {
    char plain;
    char escaped;
};
constexpr Escape kEscapes[] = {{'\t', 't'}, {'\n', 'n'},  {'\v', 'v'}, {'\r', 'r'},
                               {'"', '"'},  {'\'', '\''}, {'\\', '\\'}};

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && Cpp::isSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && Cpp::isSpace(text.back())) text.remove_suffix(1);
    return text;
}

std::string escaped(std::string_view value) {
    std::string result;
    for (const char c : value) {
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [c](const Escape& e) { return e.plain == c; });
        if (escape == std::end(kEscapes)) {
            result += c;
        } else {
            result += '\\';
            result += escape->escaped;
        }
    }
    return result;
}

/// A backslash that is followed by nothing is dropped, and one in front of a character that has no
/// escape leaves that character.
std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        if (++i == text.size()) break;
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [&](const Escape& e) { return e.escaped == text[i]; });
        result += escape == std::end(kEscapes) ? text[i] : escape->plain;
    }
    return result;
}

std::string_view withoutQuotes(std::string_view text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') return text.substr(1, text.size() - 2);
    return text;
}

/// The next line that says something, trimmed; empty at the end of the text. Running into the end
/// is no failure here: it leaves the stream at end-of-file only.
std::string readLine(std::istream& in) {
    std::string line;
    while (in.good()) {
        std::getline(in, line);
        if (in.eof() && in.fail() && !in.bad()) {
            in.clear(std::ios::eofbit);
            return {};
        }
        const std::string_view text = trimmed(line);
        if (!text.empty() && text.front() != '#') return std::string(text);
    }
    return {};
}

/// Takes a decimal number from the front of `text`, behind white space. What follows it stays.
bool takeInt(std::string_view& text, std::int32_t& value) {
    while (!text.empty() && Cpp::isSpace(text.front())) text.remove_prefix(1);
    std::string_view digits = text;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.remove_prefix(1);
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc()) return false;
    text = std::string_view(rest, static_cast<std::size_t>(end - rest));
    return true;
}

/// Takes the characters up to the next white space, behind white space.
std::string_view takeWord(std::string_view& text) {
    while (!text.empty() && Cpp::isSpace(text.front())) text.remove_prefix(1);
    std::size_t length = 0;
    while (length < text.size() && !Cpp::isSpace(text[length])) ++length;
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

/// Takes a value with its quotes. Behind a quote that nothing closes, the last character comes
/// twice: schemes in use were read in this way, and they keep their meaning.
std::string takeQuoted(std::string_view text) {
    std::size_t i = 1;
    while (i < text.size() && text[i] != '"') i += text[i] == '\\' ? 2 : 1;
    if (i < text.size()) return std::string(text.substr(0, i + 1));
    return std::string(text) + text.back();
}

void checkName(std::string_view name) {
    if (name.empty() || std::any_of(name.begin(), name.end(), Cpp::isSpace)) throw InvalidPropertyName();
}

template <class Value> bool find(const PropertySet::Map<Value>& map, std::string_view name, Value& value) {
    const auto found = map.find(name);
    if (found == map.end()) return false;
    value = found->second;
    return true;
}

template <class Value> bool eraseFrom(PropertySet::Map<Value>& map, std::string_view name) {
    const auto found = map.find(name);
    if (found == map.end()) return false;
    map.erase(found);
    return true;
}

template <class Value> void collectNames(const PropertySet::Map<Value>& map, std::set<std::string>& names) {
    for (const auto& entry : map) names.insert(entry.first);
}

} // namespace

void PropertySet::swap(PropertySet& other) noexcept {
    name_.swap(other.name_);
    std::swap(version_, other.version_);
    bools_.swap(other.bools_);
    ints_.swap(other.ints_);
    strings_.swap(other.strings_);
}

std::set<std::string> PropertySet::names() const {
    std::set<std::string> result;
    collectNames(bools_, result);
    collectNames(ints_, result);
    collectNames(strings_, result);
    return result;
}

bool PropertySet::exists(std::string_view name) const {
    return bools_.count(name) != 0 || ints_.count(name) != 0 || strings_.count(name) != 0;
}

bool PropertySet::getBool(std::string_view name, bool& value) const { return find(bools_, name, value); }

bool PropertySet::getInt(std::string_view name, std::int32_t& value) const {
    return find(ints_, name, value);
}

bool PropertySet::getString(std::string_view name, std::string& value) const {
    return find(strings_, name, value);
}

void PropertySet::setBool(std::string_view name, bool value) {
    checkName(name);
    bools_.insert_or_assign(std::string(name), value);
}

void PropertySet::setInt(std::string_view name, std::int32_t value) {
    checkName(name);
    ints_.insert_or_assign(std::string(name), value);
}

void PropertySet::setString(std::string_view name, std::string_view value) {
    checkName(name);
    strings_.insert_or_assign(std::string(name), std::string(value));
}

bool PropertySet::erase(std::string_view name) {
    checkName(name);
    return eraseFrom(strings_, name) || eraseFrom(ints_, name) || eraseFrom(bools_, name);
}

// A line of no known kind makes the whole text one of another format.
bool PropertySet::readRecord(std::string_view line) {
    std::int32_t code = 0;
    if (!takeInt(line, code) || code < kBool || code > kString) return false;
    const std::string_view name = takeWord(line);
    if (name.empty()) return true;
    if (code == kString) {
        line = trimmed(line);
        const std::string value =
            unescaped(line.starts_with('"') ? takeQuoted(line) : std::string(takeWord(line)));
        setString(name, withoutQuotes(value));
        return true;
    }
    std::int32_t value = 0;
    if (!takeInt(line, value)) return true;
    if (code == kInt) {
        setInt(name, value);
    } else if (value == 0 || value == 1) {
        setBool(name, value == 1);
    }
    return true;
}

void PropertySet::read(std::istream& in) {
    if (!in.good()) return;
    const std::string header = readLine(in);
    const std::string versionLine = header == kHeader ? readLine(in) : std::string();
    std::string_view versionText = versionLine;
    std::int32_t version = 0;
    if (!takeInt(versionText, version) || version != 1) {
        in.setstate(std::ios::failbit);
        return;
    }
    const std::string nameLine = readLine(in);
    PropertySet scratch{std::string(withoutQuotes(nameLine))};
    while (in.good()) {
        // The last line may lack its line feed: it arrives together with the end of the text.
        const std::string line = readLine(in);
        if (!line.empty() && !scratch.readRecord(line)) in.setstate(std::ios::failbit);
    }
    if (!in.fail()) swap(scratch);
}

void PropertySet::write(std::ostream& out) const {
    if (!out.good()) return;
    out << kHeader << '\n' << version_ << '\n' << '"' << name_ << "\"\n";
    for (const auto& [name, value] : bools_) out << int{kBool} << ' ' << name << ' ' << int{value} << '\n';
    for (const auto& [name, value] : ints_) out << int{kInt} << ' ' << name << ' ' << value << '\n';
    for (const auto& [name, value] : strings_) {
        out << int{kString} << ' ' << name << " \"" << escaped(value) << "\"\n";
    }
}

namespace {

constexpr std::string_view kTypeSeparators[] = {"WS_AFTER_DD_TYPE_ID", "WS_AFTER_FN_DECL_RETURN_TYPE",
                                                "WS_AFTER_FN_DEFN_RETURN_TYPE"};

void setMissingInt(PropertySet& scheme, std::string_view name, std::int32_t value) {
    if (!scheme.exists(name)) scheme.setInt(name, value);
}

void setMissingString(PropertySet& scheme, std::string_view name, std::string_view value) {
    if (!scheme.exists(name)) scheme.setString(name, value);
}

/// Never lets a type and a name run together. An anchored "*" takes away the white space that was
/// between the two, so with one even a separator that is not set must be a blank.
void separateTypesFromNames(PropertySet& scheme) {
    const bool anchored =
        scheme.exists("WS_BETWEEN_AMPERSAND_ANCHOR") || scheme.exists("WS_BETWEEN_ASTERISK_ANCHOR");
    for (const std::string_view name : kTypeSeparators) {
        std::string value;
        const bool set = scheme.getString(name, value);
        if (value.empty() && (set || anchored)) scheme.setString(name, " ");
    }
}

} // namespace

void normalizeProperties(PropertySet& scheme) {
    setMissingInt(scheme, "ASTERISK_ANCHOR", -1);
    setMissingInt(scheme, "AMPERSAND_ANCHOR", -1);
    setMissingInt(scheme, "TAB_SIZE", 1);
    setMissingString(scheme, "WS_AFTER_PARAM_TYPE_ID", " ");
    separateTypesFromNames(scheme);
    setMissingInt(scheme, "CONVERT_WS", 0);
    bool wrap = false;
    scheme.getBool("LINE_WRAP", wrap);
    if (wrap) setMissingString(scheme, "WS_BETWEEN_EXPR_OP_OPERANDS", " ");
    std::int32_t wrapStyle = 0;
    if (!scheme.getInt("EXPR_WRAP_STYLE", wrapStyle)) scheme.setInt("EXPR_WRAP_STYLE", 1);
}

} // namespace Norvane
