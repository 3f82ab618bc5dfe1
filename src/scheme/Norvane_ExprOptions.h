#ifndef KERFLINE_NORVANE_EXPROPTIONS_H
#define KERFLINE_NORVANE_EXPROPTIONS_H

#include "src/scheme/Norvane_ColumnRule.h"
#include "src/scheme/Norvane_OptionalString.h"

namespace Norvane {

struct LayoutOptions;

/// Where a "*" or "&" stands between a type and a name.
enum class PointerAnchor { kAsInSource, kAtType, kAtName };

struct PointerStyle {
    PointerAnchor anchor = PointerAnchor::kAsInSource;
    /// Between the mark and what it stays with.
    OptionalString ws;
};

/// The white space around a separated list and its elements.
struct ListStyle {
    OptionalString beforeComma;
    OptionalString between;
    /// The lines are those of the source, and start in the column of the first element.
    bool rows = false;

    bool isSet() const { return beforeComma.set || between.set || rows; }
    bool breaksLine() const { return beforeComma.breaksLine() || between.breaksLine(); }
};

/// The white space inside a pair of brackets.
struct BracketStyle {
    OptionalString afterOpen;
    OptionalString beforeClose;

    bool isSet() const { return afterOpen.set || beforeClose.set; }
};

/// The options of a scheme that lay out expressions.
struct ExprOptions {
    ExprOptions() = default;
    explicit ExprOptions(const LayoutOptions& options);

    OptionalString aroundOperator;
    OptionalString afterCallName;
    /// Of casts; not set, they go by aroundOperator.
    OptionalString afterCast;
    OptionalString beforeCastParen;
    BracketStyle parens;
    BracketStyle squares;
    BracketStyle angles;
    ListStyle callArgs;
    ListStyle templateArgs; // has no white space in front of the comma
    PointerStyle asterisk;
    PointerStyle ampersand;
    OptionalString beforeInitBrace;
    BracketStyle initBraces;
    ListStyle initElements;
    OptionalString initIndent;
    OptionalString beforeClosureParams;
    OptionalString beforeClosureBrace;
    // None of these three acts on white space that breaks a line.
    OptionalString beforeListBrace;
    BracketStyle listBraces;
    OptionalString betweenListValues;
    /// A value without a line feed leaves a gap alone that holds one.
    bool keepsBreaks = false;
    /// A value without a line feed leaves a gap alone that lines something up.
    ColumnRule columns;
    /// Adjacent string literals come together on one line, to be broken again where needed.
    bool joinsStrings = false;
    /// False if no option changes anything.
    bool any = false;
};

} // namespace Norvane

#endif
