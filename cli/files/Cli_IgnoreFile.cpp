#include "cli/files/Cli_IgnoreFile.h"

#include "cli/files/Cli_Paths.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace Cli {

namespace {

bool isInClass(std::string_view name, unsigned char c) {
    using Test = int (*)(int);
    constexpr std::pair<std::string_view, Test> classes[] = {
        {"alnum", std::isalnum}, {"alpha", std::isalpha}, {"blank", std::isblank}, {"cntrl", std::iscntrl},
        {"digit", std::isdigit}, {"graph", std::isgraph}, {"lower", std::islower}, {"print", std::isprint},
        {"punct", std::ispunct}, {"space", std::isspace}, {"upper", std::isupper}, {"xdigit", std::isxdigit}};
    for (const auto& [known, test] : classes) {
        if (known == name) return test(c) != 0;
    }
    return false;
}

/// One "[...]" of a pattern.
class Bracket {
public:
    /// Starts behind the "[".
    Bracket(std::string_view pattern, std::size_t start) : pattern_(pattern), at_(start) {}

    /// False if there is no "]", and then no text fits.
    bool read(unsigned char c) {
        negated_ = at_ < pattern_.size() && (pattern_[at_] == '!' || pattern_[at_] == '^');
        if (negated_) ++at_;
        // A "]" that comes first is one of the characters.
        for (bool isFirst = true; at_ < pattern_.size(); isFirst = false) {
            if (pattern_[at_] == ']' && !isFirst) {
                ++at_;
                return true;
            }
            readItem(c);
        }
        return false;
    }
    bool fits() const { return found_ != negated_; }
    std::size_t end() const { return at_; }

private:
    void readItem(unsigned char c) {
        if (pattern_.substr(at_, 2) == "[:") {
            const std::size_t end = pattern_.find(":]", at_ + 2);
            if (end != std::string_view::npos) {
                found_ = found_ || isInClass(pattern_.substr(at_ + 2, end - at_ - 2), c);
                at_ = end + 2;
                return;
            }
        }
        const unsigned char low = character();
        unsigned char high = low;
        if (at_ + 1 < pattern_.size() && pattern_[at_] == '-' && pattern_[at_ + 1] != ']') {
            ++at_;
            high = character();
        }
        found_ = found_ || (c >= low && c <= high);
    }
    unsigned char character() {
        if (pattern_[at_] == '\\' && at_ + 1 < pattern_.size()) ++at_;
        return static_cast<unsigned char>(pattern_[at_++]);
    }

    std::string_view pattern_;
    std::size_t at_;
    bool negated_ = false;
    bool found_ = false;
};

/// Compares from left to right. At a dead end it goes back to the last "*" of the same name, or else
/// to the last "**", and lets that take one character more: earlier ones need never be tried again.
class PathMatcher {
public:
    PathMatcher(std::string_view pattern, std::string_view text) : pattern_(pattern), text_(text) {}

    bool run() {
        while (true) {
            if (p_ == pattern_.size() && t_ == text_.size()) return true;
            if (takesStar() || takesOne()) continue;
            if (!goBack()) return false;
        }
    }

private:
    static constexpr std::size_t npos = std::string_view::npos;

    struct Star {
        std::size_t pattern = npos;
        std::size_t text = 0;
    };

    bool takesStar() {
        if (p_ == pattern_.size() || pattern_[p_] != '*') return false;
        std::size_t end = p_;
        while (end < pattern_.size() && pattern_[end] == '*') ++end;
        const bool startsName = p_ == 0 || pattern_[p_ - 1] == '/';
        const bool endsName = end == pattern_.size() || pattern_[end] == '/';
        if (end - p_ >= 2 && startsName && endsName) {
            takeFolders(end);
        } else {
            p_ = end;
            inName_ = {p_, t_};
        }
        return true;
    }
    void takeFolders(std::size_t end) {
        inName_ = {};
        if (end == pattern_.size()) {
            // Everything below, which is at least one character.
            p_ = end;
            t_ = t_ < text_.size() ? text_.size() : npos;
            return;
        }
        p_ = end + 1;
        acrossFolders_ = {p_, t_};
    }
    bool takesOne() {
        if (t_ == npos || p_ == pattern_.size() || t_ >= text_.size()) return false;
        const char c = text_[t_];
        std::size_t next = p_ + 1;
        if (pattern_[p_] == '?') {
            if (c == '/') return false;
        } else if (pattern_[p_] == '[') {
            Bracket bracket(pattern_, next);
            if (!bracket.read(static_cast<unsigned char>(c)) || c == '/' || !bracket.fits()) return false;
            next = bracket.end();
        } else {
            const bool isEscaped = pattern_[p_] == '\\';
            // A backslash that guards nothing stands for nothing.
            if (isEscaped && next == pattern_.size()) return false;
            if (pattern_[isEscaped ? next++ : p_] != c) return false;
        }
        p_ = next;
        ++t_;
        return true;
    }
    bool goBack() {
        if (inName_.pattern != npos && inName_.text < text_.size() && text_[inName_.text] != '/') {
            p_ = inName_.pattern;
            t_ = ++inName_.text;
            return true;
        }
        if (acrossFolders_.pattern == npos) return false;
        const std::size_t slash = text_.find('/', acrossFolders_.text);
        if (slash == npos) return false;
        acrossFolders_.text = slash + 1;
        p_ = acrossFolders_.pattern;
        t_ = acrossFolders_.text;
        inName_ = {};
        return true;
    }

    std::string_view pattern_;
    std::string_view text_;
    std::size_t p_ = 0;
    std::size_t t_ = 0;
    Star inName_;
    Star acrossFolders_;
};

/// Blanks at the end do not count unless a backslash guards them.
std::string_view withoutEndBlanks(std::string_view line) {
    while (line.ends_with(' ')) {
        std::size_t slashes = 0;
        while (slashes + 1 < line.size() && line[line.size() - 2 - slashes] == '\\') ++slashes;
        if (slashes % 2 == 1) break;
        line.remove_suffix(1);
    }
    return line;
}

} // namespace

bool matchesPath(std::string_view pattern, std::string_view text) { return PathMatcher(pattern, text).run(); }

IgnoreFile::IgnoreFile(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        add(line, number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void IgnoreFile::add(std::string_view line, std::size_t number) {
    if (line.starts_with('#')) return;
    line = withoutEndBlanks(line);
    Pattern pattern;
    pattern.line = number;
    pattern.isNegated = line.starts_with('!');
    if (pattern.isNegated) line.remove_prefix(1);
    pattern.foldersOnly = line.ends_with('/');
    if (pattern.foldersOnly) line.remove_suffix(1);
    if (line.empty()) return;
    pattern.isAnchored = line.find('/') != std::string_view::npos;
    if (line.starts_with('/')) line.remove_prefix(1);
    pattern.text = line;
    patterns_.push_back(std::move(pattern));
}

/// Git compares what stands in front of the first special character by itself, so that a "**" behind
/// it counts as one behind a slash.
bool IgnoreFile::fits(const Pattern& pattern, std::string_view path) {
    if (!pattern.isAnchored) return matchesPath(pattern.text, nameOf(path));
    const std::size_t plain = std::min(pattern.text.find_first_of("*?[\\"), pattern.text.size());
    if (path.substr(0, plain) != std::string_view(pattern.text).substr(0, plain)) return false;
    return matchesPath(std::string_view(pattern.text).substr(plain), path.substr(plain));
}

IgnoreFile::Match IgnoreFile::match(std::string_view path, bool isFolder) const {
    for (auto pattern = patterns_.rbegin(); pattern != patterns_.rend(); ++pattern) {
        if (pattern->foldersOnly && !isFolder) continue;
        if (!fits(*pattern, path)) continue;
        return {pattern->isNegated ? Verdict::kept : Verdict::ignored, pattern->line};
    }
    return {};
}

} // namespace Cli
