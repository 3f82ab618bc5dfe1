#include "cli/guide/Cli_ManPages.h"

#include "cli/console/Cli_CommandTable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "cli/scheme/Cli_ShippedSchemes.h"
#include "help/Help_OptionEntry.h"
#include "help/Help_Overview.h"
#include "help/Help_Roff.h"
#include "help/Help_Topic.h"

namespace Cli {

namespace {

using Help::Document;
using Row = std::pair<std::string, std::string>;

constexpr const char* kProduct = "kerfline " KERFLINE_VERSION_TEXT;

void section(Document& document, std::string title) {
    document.blocks.push_back(Help::Heading{1, std::move(title), {}});
}

void subsection(Document& document, std::string_view title) {
    document.blocks.push_back(Help::Heading{2, std::string(title), {}});
}

void paragraph(Document& document, std::string text) {
    document.blocks.push_back(Help::Paragraph{std::move(text)});
}

std::string spelling(const Switch& row) {
    std::string words;
    if (row.shortName != 0) words += std::string("`-") + row.shortName + "`, ";
    words += "`--" + std::string(row.name) + '`';
    if (row.takesArgument()) words += (row.argumentIsOptional() ? "" : " ") + std::string(row.argument);
    return words;
}

std::string meaning(const Switch& row) {
    std::string text(row.text);
    if (!row.choices.empty()) text += ": " + std::string(row.choices);
    return text + '.';
}

void appendSynopsis(Document& document) {
    section(document, "Synopsis");
    paragraph(document, "`kerfline` [SWITCHES] [FILE|FOLDER|@LIST|-]...");
    paragraph(document, "`kerfline` COMMAND [ARGUMENTS]");
}

void appendDescription(Document& document) {
    section(document, "Description");
    paragraph(document,
              "Lays out C and C++ by a scheme, a set of options. It copies the source, and replaces white "
              "space only at the places that the scheme speaks of. Comments, directives and disabled code "
              "always stay, and nothing that is not white space is ever lost, added or moved.");
    paragraph(document,
              "The result goes to standard output, unless a switch says otherwise. A folder stands for the "
              "sources in it and below it, and @LIST for a file with a path a line. Nothing, or \"-\", is "
              "standard input. A file with the name of a command is written ./NAME.");
    paragraph(document,
              "Before anything is written, the tokens of source and result are compared. A file that does "
              "not parse, or whose tokens would change, is left as it is.");
}

void appendSwitches(Document& document) {
    section(document, "Switches");
    const Switch* before = nullptr;
    for (const Switch& row : switchTable()) {
        if (!before || before->group != row.group) subsection(document, switchGroupTitle(row.group));
        document.blocks.push_back(Help::Terms{{Row{spelling(row), meaning(row)}}});
        before = &row;
    }
}

void appendCommands(Document& document) {
    section(document, "Commands");
    Help::Terms commands;
    for (const Command& command : commandTable()) {
        std::string words = '`' + std::string(command.name) + '`';
        if (!command.arguments.empty()) words += ' ' + std::string(command.arguments);
        commands.rows.emplace_back(std::move(words), std::string(command.text) + '.');
    }
    document.blocks.push_back(std::move(commands));
    paragraph(document, "Each of them shows how it is called when `--help` stands behind it.");
}

void appendWindow(Document& document) {
    section(document, "Window");
    paragraph(document, "`kerfline-options`, if it is installed, is a window in which schemes and settings are edited, "
                        "with a preview of what each option does. `kerfline options --edit` opens it, too.");
}

void appendExitStatus(Document& document) {
    section(document, "Exit status");
    document.blocks.push_back(Help::Terms{{
        {"`0`", "All went well."},
        {"`1`", "A file would change (`--check`, `--diff`)."},
        {"`2`", "The program was used in a wrong way, or the scheme is wrong."},
        {"`3`", "A file could not be read or written."},
        {"`4`", "A file was refused: it does not parse, or its tokens would have changed."},
    }});
    paragraph(document, "With several files the highest counts.");
}

void appendFiles(Document& document) {
    section(document, "Files");
    document.blocks.push_back(Help::Terms{{
        {"`.kerfline.kls`", "The scheme of a project: the one nearest above a source is used for it."},
        {"`.kerflineignore`", "Files and folders of a project that are left alone, in the form of a "
                              ".gitignore."},
        {"`~/.config/kerfline/schemes`", "Schemes of your own."},
        {"`~/.config/kerfline/settings`", "Settings, such as the scheme to use where nothing names one. "
                                          "The folder is below XDG_CONFIG_HOME, if that is set."},
    }});
}

void appendExamples(Document& document) {
    section(document, "Examples");
    document.blocks.push_back(Help::CodeBlock{
        "kerfline --diff src/\nkerfline -i --scheme allman main.cpp\n"
        "kerfline --scheme none --set 'WS_AFTER_CS_KEY= ' main.c\nkerfline options WS_AFTER_CS_KEY\n"});
}

void appendSeeAlso(Document& document, const char* other) {
    section(document, "See also");
    paragraph(document, other);
}

void appendShippedSchemes(Document& document) {
    section(document, "Schemes that come with the program");
    std::string names;
    for (const ShippedScheme& scheme : shippedSchemes()) names += '`' + std::string(scheme.name) + "`, ";
    paragraph(document, names + "and `none`, which has no options.");
}

Row optionRow(const Norvane::PropertyInfo& option) {
    std::string text = Help::withMarkedOptions(option.description) + ". Values: " + Help::valueWords(option);
    if (option.formats) text += ". Not set: " + Help::withMarkedOptions(Help::whenNotSet(option));
    return {'`' + std::string(option.name) + "` (" + std::string(Norvane::propertyKindName(option.kind)) + ')',
            text + '.'};
}

/// What is the same for all white space and indents has been said once, above.
Row shortOptionRow(const Norvane::PropertyInfo& option) {
    const bool isSpace = option.kind == Norvane::PropertyKind::WhiteSpace;
    const bool isUsual = isSpace || option.kind == Norvane::PropertyKind::Indent;
    if (!isUsual || option.defaultValue != "not set") return optionRow(option);
    return {'`' + std::string(option.name) + "` (" + std::string(Norvane::propertyKindName(option.kind)) + ')',
            Help::withMarkedOptions(option.description) + '.'};
}

void appendOptions(Document& document) {
    section(document, "Options");
    paragraph(document, "Each is explained with an example by `kerfline options` NAME.");
    for (const Help::Topic& topic : Help::topicTable()) {
        const auto options = Help::optionsOf(topic);
        if (options.empty()) continue;
        subsection(document, topic.title);
        Help::Terms rows;
        for (const Norvane::PropertyInfo* option : options) rows.rows.push_back(shortOptionRow(*option));
        document.blocks.push_back(std::move(rows));
    }
}

} // namespace

std::string programManual() {
    Document document{"lay out C and C++ by a scheme", {}};
    appendSynopsis(document);
    appendDescription(document);
    appendSwitches(document);
    appendCommands(document);
    appendWindow(document);
    appendExitStatus(document);
    appendFiles(document);
    appendExamples(document);
    appendSeeAlso(document, "`kerfline-scheme`(5)");
    return Help::manualPage(document, {"kerfline", 1, kProduct});
}

std::string schemeManual() {
    Document document{"files that tell kerfline how to lay out code", {}};
    section(document, "Description");
    Help::appendSchemeFiles(document);
    Help::appendValues(document);
    appendShippedSchemes(document);
    Help::appendMarkers(document);
    appendOptions(document);
    appendSeeAlso(document, "`kerfline`(1)");
    return Help::manualPage(document, {"kerfline-scheme", 5, kProduct});
}

} // namespace Cli
