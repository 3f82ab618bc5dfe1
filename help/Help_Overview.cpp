#include "help/Help_Overview.h"

#include "help/Help_Topic.h"

namespace Help {

namespace {

void heading(Document& document, std::string text, std::string anchor) {
    document.blocks.push_back(Heading{1, std::move(text), std::move(anchor)});
}

void paragraph(Document& document, std::string text) { document.blocks.push_back(Paragraph{std::move(text)}); }

void appendPromise(Document& document) {
    paragraph(document,
              "Kerfline lays out C and C++ by your rules, and by no others. It does not print a program "
              "anew: it copies the source and replaces white space only at the places that a scheme speaks "
              "of.");
    document.blocks.push_back(Bullets{{
        "An option that is not set leaves its place as you wrote it. A scheme without options changes "
        "nothing.",
        "Comments, directives and disabled code always stay. Nothing that is not white space is ever lost, "
        "added or moved.",
        "A text that has been laid out stays as it is when it is laid out again.",
        "A file that cannot be understood is left as it is, and a message says where.",
    }});
}

void appendCommands(Document& document) {
    heading(document, "Commands", "commands");
    paragraph(document, "On the command line:");
    document.blocks.push_back(Terms{{
        {"`kerfline FILE...`", "Write each file, laid out, to standard output"},
        {"`kerfline -i FILE...`", "Write it back to the file, if it changed"},
        {"`kerfline --check FILE...`", "Name the files that would change"},
        {"`kerfline --diff FILE...`", "Show what would change, as a patch"},
        {"`kerfline options [NAME]`", "Explain the options of schemes"},
        {"`kerfline help [TOPIC]`", "Show a page of this help"},
        {"`kerfline --help`", "Show all switches and commands"},
    }});
    paragraph(document, "In an editor or a development environment that Kerfline is connected to:");
    document.blocks.push_back(Terms{{
        {"`FormatActiveDocument`", "Format the active file"},
        {"`FormatActiveProject`", "Format each C and C++ file of the active project"},
        {"`FormatActiveWorkspace`", "Format each file of every project in the workspace"},
        {"`ShowOptions`", "Open the options"},
        {"`ShowHelp`", "Open this page"},
    }});
}

void appendSchemes(Document& document) {
    heading(document, "Schemes", "schemes");
    paragraph(document,
              "A scheme is a set of options with a name. Several come with the program: `default`, `knr`, "
              "`stroustrup`, `allman`, `gnu`, `whitesmiths` and `minimal`, and the styles of houses: `google`, "
              "`chromium`, `llvm`, `mozilla`, `webkit`, `microsoft`, `linux` and `qt`. The scheme `none` has no "
              "options, and gives every text back as it is.");
    paragraph(document,
              "Which one is used? The one that `--scheme` names. Without it, the file `.kerfline.kls` in "
              "the folder of the source or the nearest one above it; without that, the scheme of the "
              "setting `OnFormat`; without that, `default`. A name is looked up among your own schemes "
              "first, in `~/.config/kerfline/schemes`, and then among those that come with the program.");
    appendSchemeFiles(document);
    paragraph(document,
              "A comment in a scheme file stays until the scheme is changed in the options window: what is "
              "written then holds the options alone.");
}

void appendSettings(Document& document) {
    heading(document, "Settings", "settings");
    paragraph(document, "Kept in `~/.config/kerfline/settings`, under `[Options]`, as lines of "
                        "`Name=value`:");
    document.blocks.push_back(Terms{{
        {"`OnFormat`", "The scheme of the format commands"},
        {"`OnOpen`", "The scheme to apply when a document opens; none leaves it alone"},
        {"`OnClose`", "The scheme to apply before a document closes; none leaves it alone"},
        {"`FileExtensions`", "What counts as C or C++: `c,cc,cpp,cxx,h,hh,hpp,hxx` unless set"},
        {"`CreateBackups`", "An editor keeps a copy of a file before it is written; on unless set. The command "
                            "line does so with `--backup` alone"},
        {"`BackupExtension`", "The extension of such a copy"},
        {"`PromptUnsaved`", "Ask before an unsaved document is formatted; on unless set"},
        {"`MessagesThreshold`", "The least message that is shown: `0` none, `1` information, `2` warnings, "
                                "`3` errors; `1` unless set"},
    }});
}

void appendWindow(Document& document) {
    heading(document, "The options window", "window");
    paragraph(document,
              "`kerfline options --edit` opens every option of a scheme in a window, page by page, with a "
              "preview that follows each key. A tick in front of an option says that the scheme decides; "
              "without it the code stays as it is. Built-in schemes can be tried out like others; what you "
              "change is saved as a new scheme.");
    document.blocks.push_back(
        Picture{"options-light.png", "A page of options beside a preview with the changed lines marked"});
}

void appendPages(Document& document) {
    heading(document, "The options, page by page", "pages");
    Terms pages;
    for (const Topic& topic : topicTable()) {
        if (topic.file == kOverviewFile) continue;
        pages.rows.emplace_back('[' + std::string(topic.title) + "](" + std::string(topic.file) + ')',
                                std::string(topic.summary));
    }
    document.blocks.push_back(std::move(pages));
}

} // namespace

void appendSchemeFiles(Document& document) {
    paragraph(document,
              "A scheme file ends in `.kls`. Its first three lines are fixed but for the name; each line "
              "behind them sets one option: a digit for the kind, the name, and the value. `1` is a "
              "switch, `2` a number, `3` a text. Blank lines and lines that start with `#` do not count.");
    document.blocks.push_back(CodeBlock{"Norvane::PropertySet\n1\n\"my scheme\"\n\n"
                                        "# Braces of functions on lines of their own\n"
                                        "3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\n2 RIGHT_MARGIN 100\n"
                                        "1 LINE_WRAP 1\n"});
}

void appendValues(Document& document) {
    heading(document, "Values", "values");
    document.blocks.push_back(Terms{{
        {"white space", "The exact white space for a place, in quotes. `\" \"` is one blank, `\"\\n\"` a "
                        "new line, `\"\\n\\n\"` a new line behind a blank one, `\"\\t\"` a tab. Where an "
                        "indent is due, it follows a new line by itself"},
        {"indent", "Blanks or tabs, in quotes, that are added to the indent for what stands in a construct"},
        {"bool", "`1` for on, `0` for off"},
        {"int", "A number; often one that stands for a choice"},
    }});
    paragraph(document,
              "Not set and empty are two things: an option that is not in the scheme leaves its place "
              "alone, one that is `\"\"` takes the white space away. Where that would glue two words "
              "together, one blank stays.");
}

void appendMarkers(Document& document) {
    heading(document, "Leaving code alone", "leaving-alone");
    paragraph(document,
              "What stands between two comments that say `KL-FORMAT-OFF` and `KL-FORMAT-ON`, and nothing "
              "else, is copied as it is:");
    document.blocks.push_back(CodeBlock{"// KL-FORMAT-OFF\nconst int identity[] = { 1, 0,\n"
                                        "                         0, 1 };\n// KL-FORMAT-ON\n"});
    paragraph(document,
              "The comments `{{AFX_...` and `AFX_...}}`, which class wizards write around the code that "
              "they look after, work the same way.");
}

Document overviewDocument() {
    Document document{"Formatting with Kerfline", {}};
    appendPromise(document);
    appendPages(document);
    appendCommands(document);
    appendWindow(document);
    appendSchemes(document);
    appendValues(document);
    appendMarkers(document);
    appendSettings(document);
    return document;
}

} // namespace Help
