#ifndef KERFLINE_NORVANE_LAYOUTOPTIONS_H
#define KERFLINE_NORVANE_LAYOUTOPTIONS_H

#include "src/scheme/Norvane_ExprOptions.h"
#include "src/scheme/Norvane_OptionalString.h"
#include "src/scheme/Norvane_PropertySet.h"
#include "src/scheme/Norvane_WrapOptions.h"

#include <memory>

namespace Norvane {

/// Where ALIGN_PPD_LEFT_MOST and LEFT_MARGIN put a directive that stands inside other text.
struct DirectivePlace {
    bool found = false; // unless set, directives stay where the source has them
    bool leftMost = false;
    OptionalString leftMargin;
};

/// What a scheme says to the passes. Each option is read by its name here and nowhere else, once a
/// run; its default and its limits are settled here too. The members are named like the options:
/// wsBeforeFnOpenBrace holds WS_BEFORE_FN_OPEN_BRACE, and so on. A new option takes a member and a
/// row in the tables of the source file.
struct LayoutOptions {
    /// Takes a normalised copy of `scheme` to read from.
    explicit LayoutOptions(PropertySet scheme);

    // The edge of the text and its white space. A value out of range counts as the nearest one that
    // does no harm: a pass that can write nothing would lose the whole text.
    OptionalString leftMargin;
    int tabSize = 1; // never below 1
    int convertWs = 0;
    int rightMargin = 0; // never below 0
    DirectivePlace directives;

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
    OptionalString wsBeforeDdOpenBrace;
    OptionalString wsAfterDdOpenBrace;
    OptionalString wsBeforeDdCloseBrace;
    OptionalString wsBeforeDdComma;
    OptionalString wsBetweenDdElements;

    OptionalString wsBetweenExprOpOperands;
    OptionalString wsAfterExprOpenParen;
    OptionalString wsBeforeExprCloseParen;
    OptionalString wsAfterLbracket;
    OptionalString wsBeforeRbracket;
    OptionalString wsAfterFnCallName;
    OptionalString wsBeforeFnCallComma;
    OptionalString wsBetweenFnCallArgs;
    OptionalString wsBetweenAsteriskAnchor;
    OptionalString wsBetweenAmpersandAnchor;

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

    // Closures and lists of values.
    OptionalString indentClosureContent;
    OptionalString wsBeforeClosureOpenBrace;
    OptionalString wsBeforeClosureParams;
    OptionalString wsBeforeListOpenBrace;
    OptionalString wsBetweenListValues;
    OptionalString wsWithinListBraces;

    // The shape that the author has given a text.
    bool keepShape = false;
    ColumnRule keptColumns() const;
    bool keepColumns = false;
    bool keepLineBreaks = false;
    bool keepOneLiners = false;
    bool alignFurtherLines = false;
    OptionalString indentFurtherLines;
    OptionalString wsWithinOneLineBraces;

    OptionalString indentLabels;
    OptionalString wsAfterCast;
    OptionalString wsBeforeNamedCastParen;

    // 1 anchors a pointer mark to the name, 0 to the type, -1 leaves it.
    int asteriskAnchor = -1;
    int ampersandAnchor = -1;
    bool hangingAsterisk = false;
    bool hangingAmpersand = false;

    bool alignFnParamsLeft = false;
    bool alignTpParamsLeft = false;
    bool lineWrap = false;
    OptionalString wrapIndent;
    // As they stand in the scheme, or their defaults. What they mean is up to `wrap`.
    int wrapStyle = 0;
    int exprWrapStyle = 1;
    int shiftWrapStyle = 1;
    int commaWrapStyle = 2;
    int listWrapStrategy = 0;

    /// What the options say to the text of expressions, and to the breaking of lines.
    ExprOptions expr;
    WrapOptions wrap;

private:
    void readStrings(const PropertySet& scheme);
    void readSwitches(const PropertySet& scheme);
    void readNumbers(const PropertySet& scheme);
    void settle();
};

/// The passes of one run share what they read.
using SharedOptions = std::shared_ptr<const LayoutOptions>;

/// Reads `scheme`; never null.
inline SharedOptions readOptions(const PropertySet& scheme) {
    return std::make_shared<const LayoutOptions>(scheme);
}

} // namespace Norvane

#endif
