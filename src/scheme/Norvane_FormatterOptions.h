#ifndef KERFLINE_NORVANE_FORMATTEROPTIONS_H
#define KERFLINE_NORVANE_FORMATTEROPTIONS_H

#include "src/scheme/Norvane_OptionalString.h"
#include "src/scheme/Norvane_PropertySet.h"

namespace Norvane {

/// What the formatter pass reads from a scheme, read once. The names are those of the options:
/// wsBeforeFnOpenBrace holds WS_BEFORE_FN_OPEN_BRACE, and so on.
struct FormatterOptions {
    /// `scheme` must be normalised.
    explicit FormatterOptions(const PropertySet& scheme);

    // The edge of the text and its white space. A value out of range counts as the nearest one that
    // does no harm: a pass that can write nothing would lose the whole text.
    OptionalString leftMargin;
    int tabSize = 1;
    int convertWs = 0;

    // Free blocks and linkage blocks.
    OptionalString globalWsBeforeOpenBrace;
    OptionalString globalIndentContent;
    OptionalString globalWsAfterOpenBrace;
    OptionalString globalWsBeforeCloseBrace;

    OptionalString wsBeforeNsOpenBrace;
    OptionalString indentNsContent;
    OptionalString wsAfterNsOpenBrace;
    OptionalString wsBeforeNsCloseBrace;

    OptionalString wsBeforeClassOpenBrace;
    OptionalString wsAfterClassName;
    OptionalString indentClassContent;
    OptionalString wsAfterClassOpenBrace;
    OptionalString wsBeforeClassCloseBrace;
    OptionalString wsBeforeBaseClauses;
    OptionalString wsBeforeBaseClausesComma;
    OptionalString wsBetweenBaseClauses;
    OptionalString wsBeforeAccessSpecs;
    OptionalString indentAccessSpecLabel;

    OptionalString wsBeforeClassInitList;
    OptionalString wsBeforeClassInits;
    OptionalString wsBeforeClassInitsComma;
    OptionalString wsBetweenClassInits;
    OptionalString wsAfterClassInitList;

    OptionalString wsBeforeFnOpenBrace;
    OptionalString wsAfterFnName;
    OptionalString indentFnContent;
    OptionalString wsAfterFnOpenBrace;
    OptionalString wsBeforeFnCloseBrace;
    OptionalString wsBeforeFnComma;
    OptionalString wsBetweenFnParams;
    OptionalString wsAfterFnOpenParen;
    OptionalString wsBeforeFnCloseParen;
    OptionalString wsAfterFnDeclReturnType;
    OptionalString wsAfterFnDefnReturnType;

    OptionalString wsBeforeCsOpenBrace;
    OptionalString wsAfterCsKey;
    OptionalString wsAfterCsOpenBrace;
    OptionalString wsBetweenCs;
    OptionalString wsBeforeCsCloseBrace;
    OptionalString indentCsContent;
    OptionalString wsBetweenCsForClauses;
    OptionalString wsAfterCsOpenParen;
    OptionalString wsBeforeCsCloseParen;
    OptionalString indentCsCaseContent;
    OptionalString wsAfterCsCaseLabels;
    OptionalString indentCsCaseLabels;

    OptionalString wsAfterParamTypeId;
    OptionalString wsAfterDdTypeId;
    OptionalString indentDdContent;
    OptionalString wsAfterDdName;
    OptionalString wsAfterDdRbracket;
    OptionalString wsBetweenExprOpOperands;
    OptionalString wsAfterFnCallName;

    OptionalString wsBeforeTpOpenBracket;
    OptionalString wsAfterTpOpenBracket;
    OptionalString wsBeforeTpComma;
    OptionalString wsBetweenTpParams;
    OptionalString wsBeforeTpCloseBracket;
    OptionalString wsAfterTpCloseBracket;

    OptionalString wsBeforeEnumOpenBrace;
    OptionalString wsAfterEnumOpenBrace;
    OptionalString wsBeforeEnumCloseBrace;
    OptionalString wsBeforeEnumComma;
    OptionalString wsBetweenEnumElements;
    OptionalString indentEnumContent;

    bool alignBaseClausesLeft = false;
    bool dataDoNotFormat = false;
    bool fnDoNotFormat = false;
    bool alignForClausesLeft = false;
    bool alignFnCallArgsLeft = false;
    bool alignDdNamesLeft = false;
    bool alignDdInitializers = false;
    bool alignFnDeclNamesLeft = false;
    bool alignEnumInitializers = false;
    bool alignClassMemberNamesLeft = false;

    // 1 anchors a pointer mark to the name, 0 to the type, -1 leaves it.
    int asteriskAnchor = -1;
    int ampersandAnchor = -1;
    bool hangingAsterisk = false;
    bool hangingAmpersand = false;

private:
    void readStrings(const PropertySet& scheme);
    void readSwitches(const PropertySet& scheme);
    void readNumbers(const PropertySet& scheme);
};

} // namespace Norvane

#endif
