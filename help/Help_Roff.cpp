#include "help/Help_Roff.h"

#include <algorithm>
#include <cctype>

namespace Help {

namespace {

/// The text of one line of input: a request would start with a dot or a quote.
std::string protectedLine(std::string line) {
    const bool looksLikeRequest = !line.empty() && (line.front() == '.' || line.front() == '\'');
    return looksLikeRequest ? "\\&" + line : line;
}

std::string inlineRoff(std::string_view text) {
    std::string roff;
    for (const Piece& piece : inlinePieces(text)) {
        switch (piece.kind) {
        case Piece::Kind::text: roff += roffText(piece.text); break;
        case Piece::Kind::code: roff += "\\fB" + roffText(piece.text) + "\\fR"; break;
        case Piece::Kind::link: roff += inlineRoff(piece.text); break;
        }
    }
    return protectedLine(roff);
}

std::string upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

/// A quote would end the argument of a request.
std::string asArgument(std::string text) {
    for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at)) {
        text.replace(at, 1, "\\(dq");
    }
    return '"' + text + '"';
}

std::string verbatim(std::string_view code) {
    std::string roff;
    while (!code.empty()) {
        const std::size_t end = std::min(code.find('\n'), code.size());
        roff += protectedLine(roffText(code.substr(0, end))) + '\n';
        code.remove_prefix(std::min(end + 1, code.size()));
    }
    return roff;
}

class RoffWriter {
public:
    std::string take() { return std::move(roff_); }

    void operator()(const Heading& heading) {
        const std::string words = inlineRoff(heading.text);
        roff_ += heading.level == 1 ? ".SH " + asArgument(upper(words)) : ".SS " + asArgument(words);
        roff_ += '\n';
        afterHeading_ = true;
    }

    void operator()(const Paragraph& paragraph) {
        startParagraph();
        roff_ += inlineRoff(paragraph.text) + '\n';
    }

    void operator()(const CodeBlock& code) {
        startParagraph();
        roff_ += ".RS 4\n.EX\n" + verbatim(code.text) + ".EE\n.RE\n";
    }

    void operator()(const Picture&) {}

    void operator()(const Bullets& bullets) {
        for (const std::string& item : bullets.items) roff_ += ".IP \\(bu 3\n" + inlineRoff(item) + '\n';
        afterHeading_ = false;
    }

    void operator()(const Terms& terms) {
        for (const auto& [term, meaning] : terms.rows) {
            roff_ += ".TP\n" + inlineRoff(term) + '\n' + inlineRoff(meaning) + '\n';
        }
        afterHeading_ = false;
    }

    void operator()(const Comparison& comparison) {
        startParagraph();
        roff_ += inlineRoff('`' + comparison.setting + "` turns") + '\n';
        (*this)(CodeBlock{comparison.before});
        roff_ += ".PP\ninto\n";
        (*this)(CodeBlock{comparison.after});
    }

private:
    // A paragraph macro right behind a heading is one too many.
    void startParagraph() {
        if (!afterHeading_) roff_ += ".PP\n";
        afterHeading_ = false;
    }

    std::string roff_;
    bool afterHeading_ = false;
};

} // namespace

std::string roffText(std::string_view text) {
    std::string roff;
    for (const char c : text) {
        switch (c) {
        case '\\': roff += "\\e"; break;
        case '-': roff += "\\-"; break;
        case '\'': roff += "\\(aq"; break;
        case '`': roff += "\\(ga"; break;
        case '^': roff += "\\(ha"; break;
        case '~': roff += "\\(ti"; break;
        default: roff += c;
        }
    }
    return roff;
}

std::string manualPage(const Document& document, const ManualHeader& header) {
    RoffWriter body;
    for (const Block& block : document.blocks) std::visit(body, block);
    const std::string name(header.name);
    std::string page = ".TH " + asArgument(upper(roffText(name))) + ' ';
    page += std::to_string(header.section) + " \"\" " + asArgument(roffText(header.product)) + " \"Kerfline\"\n";
    // Names of options must not be broken.
    page += ".nr HY 0\n.ad l\n.SH NAME\n" + roffText(name) + " \\- " + inlineRoff(document.title) + '\n';
    return page + body.take();
}

} // namespace Help
