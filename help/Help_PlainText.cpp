#include "help/Help_PlainText.h"

#include <algorithm>

namespace Help {

namespace {

constexpr std::string_view kBodyIndent = "  ";
constexpr std::string_view kSettingIndent = "    ";
constexpr std::string_view kCodeIndent = "      ";
constexpr std::string_view kShownTab = "--->";

using Lines = std::vector<std::string>;

Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// The lines of a sample, in which a tab is to be told from blanks.
Lines shownCode(std::string_view code) {
    std::string shown;
    for (const char c : code) {
        if (c == '\t') {
            shown += kShownTab;
        } else {
            shown += c;
        }
    }
    return linesOf(shown);
}

std::size_t widthOf(const Lines& lines) {
    std::size_t width = 0;
    for (const std::string& line : lines) width = std::max(width, line.size());
    return width;
}

std::string indented(const Lines& lines, std::string_view indent) {
    std::string text;
    for (const std::string& line : lines) {
        if (!line.empty()) text.append(indent).append(line);
        text += '\n';
    }
    return text;
}

std::string sideBySide(Lines left, const Lines& right) {
    constexpr std::string_view kDivider = "  |  ";
    const std::size_t width = widthOf(left);
    left.resize(std::max(left.size(), right.size()));
    for (std::size_t i = 0; i < left.size(); ++i) {
        left[i].resize(width, ' ');
        left[i] += kDivider;
        if (i < right.size()) left[i] += right[i];
        left[i].erase(left[i].find_last_not_of(' ') + 1);
    }
    return indented(left, kCodeIndent);
}

/// `text` without its marks. The blanks of code are fixed: they can be what the code is about.
std::string fillable(std::string_view text) {
    std::string words;
    for (const Piece& piece : inlinePieces(text)) {
        std::string part = piece.kind == Piece::Kind::link ? fillable(piece.text) : std::string(piece.text);
        if (piece.kind == Piece::Kind::code) std::replace(part.begin(), part.end(), ' ', kFixedBlank);
        words += part;
    }
    return words;
}

class TextWriter {
public:
    std::string take() { return std::move(text_); }

    void operator()(const Heading& heading) {
        startBlock();
        const std::string words = withoutMarks(heading.text);
        text_ += words + '\n';
        if (heading.level == 1) text_ += std::string(words.size(), '-') + '\n';
    }

    void operator()(const Paragraph& paragraph) {
        startBlock();
        text_ += filledText(fillable(paragraph.text), kBodyIndent, kTextWidth);
    }

    void operator()(const CodeBlock& code) {
        startBlock();
        text_ += indented(linesOf(code.text), kCodeIndent);
    }

    void operator()(const Picture&) {}

    void operator()(const Bullets& bullets) {
        startBlock();
        for (const std::string& item : bullets.items) {
            text_ += filledText(fillable(item), "  - ", kTextWidth);
        }
    }

    void operator()(const Terms& terms) {
        startBlock();
        std::size_t widest = 0;
        for (const auto& row : terms.rows) widest = std::max(widest, withoutMarks(row.first).size());
        for (const auto& [term, meaning] : terms.rows) {
            std::string first = std::string(kBodyIndent) + withoutMarks(term);
            first.resize(kBodyIndent.size() + widest + 2, ' ');
            text_ += filledText(fillable(meaning), first, kTextWidth);
        }
    }

    void operator()(const Comparison& comparison) {
        startBlock();
        text_.append(kSettingIndent).append(comparison.setting).append("\n");
        if (!comparison.with.empty()) {
            text_.append(kSettingIndent).append("(with ").append(inOneLine(comparison.with)).append(")\n");
        }
        text_ += '\n';
        const Lines before = shownCode(comparison.before);
        const Lines after = shownCode(comparison.after);
        constexpr std::size_t kDividerWidth = 5;
        if (kCodeIndent.size() + widthOf(before) + kDividerWidth + widthOf(after) <= kTextWidth) {
            text_ += sideBySide(before, after);
        } else {
            text_.append(kSettingIndent).append("without:\n").append(indented(before, kCodeIndent));
            text_.append(kSettingIndent).append("with:\n").append(indented(after, kCodeIndent));
        }
        const bool hasTab = (comparison.before + comparison.after).find('\t') != std::string::npos;
        if (hasTab) text_.append("\n").append(kCodeIndent).append("(").append(kShownTab).append(" is a tab)\n");
    }

private:
    void startBlock() {
        if (!text_.empty()) text_ += '\n';
    }

    std::string text_;
};

} // namespace

std::string filledText(std::string_view text, std::string_view first, std::size_t width) {
    std::string filled;
    std::string line(first);
    bool lineHasWord = false;
    while (!text.empty()) {
        const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
        text.remove_prefix(start);
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(word.size());
        if (word.empty()) break;
        if (lineHasWord && line.size() + 1 + word.size() > width) {
            filled += line + '\n';
            line.assign(first.size(), ' ');
            lineHasWord = false;
        }
        if (lineHasWord) line += ' ';
        line += word;
        lineHasWord = true;
    }
    filled += line + '\n';
    std::replace(filled.begin(), filled.end(), kFixedBlank, ' ');
    return filled;
}

std::string plainText(const Document& document) {
    TextWriter writer;
    for (const Block& block : document.blocks) std::visit(writer, block);
    return writer.take();
}

std::string plainTextWithTitle(const Document& document) {
    return document.title + '\n' + std::string(document.title.size(), '=') + "\n\n" + plainText(document);
}

} // namespace Help
