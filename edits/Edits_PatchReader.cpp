#include "edits/Edits_PatchReader.h"

#include <charconv>
#include <optional>

namespace Edits {

namespace {

/// A count that a hunk tells; 1 where it tells none.
struct Span {
    std::size_t first = 0;
    std::size_t count = 1;
};

struct Hunk {
    Span before;
    Span after;
};

class Cursor {
public:
    explicit Cursor(std::string_view text) : text_(text) {}

    bool take(std::string_view word) {
        if (!text_.starts_with(word)) return false;
        text_.remove_prefix(word.size());
        return true;
    }
    bool takeNumber(std::size_t& number) {
        const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), number);
        if (error != std::errc()) return false;
        text_.remove_prefix(static_cast<std::size_t>(end - text_.data()));
        return true;
    }
    bool takeSpan(Span& span) { return takeNumber(span.first) && (!take(",") || takeNumber(span.count)); }

private:
    std::string_view text_;
};

std::optional<Hunk> hunkOf(std::string_view line) {
    Hunk hunk;
    Cursor cursor(line);
    const bool isHunk = cursor.take("@@ -") && cursor.takeSpan(hunk.before) && cursor.take(" +") &&
                        cursor.takeSpan(hunk.after) && cursor.take(" @@");
    return isHunk ? std::optional(hunk) : std::nullopt;
}

/// What stands between quotes in a path as git writes it.
std::string unquoted(std::string_view text) {
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            path += text[i];
            continue;
        }
        const char c = text[++i];
        const std::string_view names = "abfnrtv";
        const std::size_t name = names.find(c);
        if (name != std::string_view::npos) {
            path += "\a\b\f\n\r\t\v"[name];
        } else if (c >= '0' && c <= '3') {
            unsigned value = 0;
            std::size_t digits = 0;
            for (; digits < 3 && i + digits < text.size(); ++digits) value = value * 8 + static_cast<unsigned>(text[i + digits] - '0');
            path += static_cast<char>(value);
            i += digits - 1;
        } else {
            path += c;
        }
    }
    return path;
}

/// The path in a line that starts with "+++ "; empty for a file that is no more.
std::string pathOf(std::string_view text, unsigned strip) {
    std::string path;
    if (text.starts_with('"')) {
        const std::size_t end = text.rfind('"');
        path = unquoted(text.substr(1, end < 1 ? 0 : end - 1));
    } else {
        // What diff writes behind a tab is the time.
        path = text.substr(0, text.find('\t'));
    }
    if (path == "/dev/null") return {};
    for (; strip > 0; --strip) {
        const std::size_t slash = path.find('/');
        if (slash == std::string::npos) break;
        path.erase(0, slash + 1);
    }
    return path;
}

/// Takes the lines of a patch one after the other.
class Reader {
public:
    explicit Reader(unsigned strip) : strip_(strip) {}

    void take(std::string_view line) {
        if (isInHunk()) {
            takeContent(line);
        } else if (line.starts_with("+++ ")) {
            std::string path = pathOf(line.substr(4), strip_);
            hasFile_ = !path.empty();
            if (hasFile_) files_.push_back({std::move(path), {}});
        } else if (const auto hunk = hunkOf(line)) {
            enter(*hunk);
        }
    }
    std::vector<ChangedFile> files() && { return std::move(files_); }

private:
    bool isInHunk() const { return oldLeft_ > 0 || newLeft_ > 0; }

    void enter(const Hunk& hunk) {
        oldLeft_ = hunk.before.count;
        newLeft_ = hunk.after.count;
        line_ = hunk.after.first;
    }
    /// A line of a hunk may look like the head of a file; only the counts tell.
    void takeContent(std::string_view line) {
        const char kind = line.empty() ? ' ' : line.front();
        if (kind == '\\') return;
        if (kind == '+') note(line_);
        if (kind != '+' && oldLeft_ > 0) --oldLeft_;
        if (kind != '-' && newLeft_ > 0) {
            --newLeft_;
            ++line_;
        }
    }
    void note(std::size_t line) {
        if (!hasFile_) return;
        auto& lines = files_.back().lines;
        if (!lines.empty() && lines.back().last + 1 == line) {
            lines.back().last = line;
        } else {
            lines.push_back({line, line});
        }
    }

    const unsigned strip_;
    std::vector<ChangedFile> files_;
    bool hasFile_ = false;
    std::size_t oldLeft_ = 0;
    std::size_t newLeft_ = 0;
    std::size_t line_ = 0;
};

} // namespace

std::vector<ChangedFile> readPatch(std::string_view patch, unsigned strip) {
    Reader reader(strip);
    while (!patch.empty()) {
        const std::size_t feed = patch.find('\n');
        std::string_view line = patch.substr(0, feed);
        if (line.ends_with('\r')) line.remove_suffix(1);
        reader.take(line);
        patch.remove_prefix(feed == std::string_view::npos ? patch.size() : feed + 1);
    }
    return std::move(reader).files();
}

} // namespace Edits
