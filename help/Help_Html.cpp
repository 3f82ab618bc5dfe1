#include "help/Help_Html.h"

#include "help/Help_Difference.h"
#include "help/Help_Topic.h"

namespace Help {

namespace {

std::string escaped(std::string_view text) {
    std::string html;
    html.reserve(text.size());
    for (const char c : text) {
        switch (c) {
        case '&': html += "&amp;"; break;
        case '<': html += "&lt;"; break;
        case '>': html += "&gt;"; break;
        case '"': html += "&quot;"; break;
        default: html += c;
        }
    }
    return html;
}

std::string element(std::string_view name, std::string_view content) {
    return std::string("<").append(name).append(">").append(content).append("</").append(name).append(">");
}

/// The name of an option leads to where it is explained.
std::string codeHtml(std::string_view code) {
    const std::string html = element("code", escaped(code));
    const Topic* topic = topicOf(code);
    if (!topic) return html;
    return std::string("<a href=\"").append(topic->file).append("#").append(code).append("\">") + html + "</a>";
}

std::string inlineHtml(std::string_view text) {
    std::string html;
    for (const Piece& piece : inlinePieces(text)) {
        switch (piece.kind) {
        case Piece::Kind::text: html += escaped(piece.text); break;
        case Piece::Kind::code: html += codeHtml(piece.text); break;
        case Piece::Kind::link:
            html += "<a href=\"" + escaped(piece.target) + "\">" + inlineHtml(piece.text) + "</a>";
            break;
        }
    }
    return html;
}

/// White space cannot be seen by itself, so each character of it gets a mark of its own.
std::string markedSpace(std::string_view space) {
    if (space.empty()) return "<mark class=\"gone\"></mark>";
    std::string html;
    for (const char c : space) {
        switch (c) {
        case '\n': html += "<mark class=\"line\"></mark>\n"; break;
        case '\t': html += "<mark class=\"tab\">\t</mark>"; break;
        default: html += "<mark> </mark>";
        }
    }
    return html;
}

std::string markedCode(std::string_view code, const std::vector<Range>& ranges) {
    std::string html;
    std::size_t done = 0;
    for (const Range& range : ranges) {
        html += escaped(code.substr(done, range.start - done));
        html += markedSpace(code.substr(range.start, range.end - range.start));
        done = range.end;
    }
    return html + escaped(code.substr(done));
}

class HtmlWriter {
public:
    std::string take() { return std::move(html_); }

    void operator()(const Heading& heading) {
        const std::string name = heading.level == 1 ? "h2" : "h3";
        html_ += '<' + name;
        if (!heading.anchor.empty()) html_ += " id=\"" + escaped(heading.anchor) + '"';
        html_ += '>' + inlineHtml(heading.text) + "</" + name + ">\n";
    }

    void operator()(const Paragraph& paragraph) { html_ += element("p", inlineHtml(paragraph.text)) + '\n'; }

    void operator()(const CodeBlock& code) { html_ += element("pre", escaped(code.text)) + '\n'; }

    void operator()(const Bullets& bullets) {
        html_ += "<ul>\n";
        for (const std::string& item : bullets.items) html_ += element("li", inlineHtml(item)) + '\n';
        html_ += "</ul>\n";
    }

    void operator()(const Terms& terms) {
        html_ += "<dl>\n";
        for (const auto& [term, meaning] : terms.rows) {
            html_ += element("dt", inlineHtml(term)) + element("dd", inlineHtml(meaning)) + '\n';
        }
        html_ += "</dl>\n";
    }

    void operator()(const Comparison& comparison) {
        const Differences differences = whiteSpaceDifferences(comparison.before, comparison.after);
        html_ += "<figure>\n<figcaption>";
        html_ += element("code", escaped(comparison.setting));
        if (!comparison.with.empty()) html_ += " with " + element("code", escaped(inOneLine(comparison.with)));
        html_ += "</figcaption>\n<div class=\"sides\">\n";
        html_ += side("Without", markedCode(comparison.before, differences.before));
        html_ += side("With", markedCode(comparison.after, differences.after));
        html_ += "</div>\n</figure>\n";
    }

    void operator()(const Picture& picture) {
        html_ += "<p><img src=\"" + escaped(picture.file) + "\" alt=\"" + escaped(picture.words) + "\"></p>\n";
    }

private:
    static std::string side(std::string_view heading, const std::string& code) {
        return "<div>" + element("h4", heading) + element("pre", code) + "</div>\n";
    }

    std::string html_;
};

std::string navigation(std::string_view file, const std::vector<PageLink>& pages) {
    std::string html = "<nav aria-label=\"Pages\">\n<ul>\n";
    for (const PageLink& page : pages) {
        const std::string current = page.file == file ? " aria-current=\"page\"" : "";
        html += "<li><a href=\"" + escaped(page.file) + '"' + current + '>';
        html += escaped(page.title) + "</a></li>\n";
    }
    return html + "</ul>\n</nav>\n";
}

} // namespace

std::string htmlPage(const Document& document, std::string_view file, const std::vector<PageLink>& pages) {
    HtmlWriter body;
    for (const Block& block : document.blocks) std::visit(body, block);
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<meta name=\"color-scheme\" content=\"light dark\">\n";
    html += element("title", escaped(document.title) + " - Kerfline") + '\n';
    html += "<link rel=\"stylesheet\" href=\"" + std::string(kStylesheet) + "\">\n</head>\n<body>\n";
    html += navigation(file, pages);
    html += "<main>\n" + element("h1", escaped(document.title)) + '\n' + body.take();
    return html + "</main>\n</body>\n</html>\n";
}

} // namespace Help
