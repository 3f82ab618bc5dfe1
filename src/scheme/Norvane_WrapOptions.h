#ifndef KERFLINE_NORVANE_WRAPOPTIONS_H
#define KERFLINE_NORVANE_WRAPOPTIONS_H

#include "src/scheme/Norvane_ExprOptions.h"
#include "src/scheme/Norvane_OptionalString.h"

namespace Norvane {

struct LayoutOptions;

/// Where new lines start: at column 0, under the first element, or at the indent and WRAP_INDENT.
enum class WrapStyle { kFlush = 0, kAligned = 1, kIndented = 2 };
/// Where a line is broken: not at all, in front of the operator, or behind it.
enum class BreakStyle { kNone = 0, kFirst = 1, kLast = 2 };
enum class ListStrategy { kKeepLines = 0, kFillLines = 1, kOneToALine = 2 };

/// The options of a scheme that break lines. A style out of range counts as its default. An indent
/// that holds more than blanks and tabs is not set: it would become code at the start of every new
/// line.
struct WrapOptions {
    WrapOptions() = default;
    explicit WrapOptions(const LayoutOptions& options);

    /// False if no line is ever too long.
    bool isOn = false;
    int rightMargin = 0;
    WrapStyle style = WrapStyle::kFlush;
    BreakStyle exprBreak = BreakStyle::kFirst;
    BreakStyle shiftBreak = BreakStyle::kFirst;
    BreakStyle commaBreak = BreakStyle::kLast;
    ListStrategy listStrategy = ListStrategy::kKeepLines;
    /// Where elements are joined their commas stand right behind them.
    bool commasStick = true;

    OptionalString indent;
    OptionalString leftMargin;
    OptionalString namespaceIndent;
    OptionalString blockIndent;
    OptionalString classIndent;
    OptionalString functionIndent;
    OptionalString controlIndent;
    OptionalString caseIndent;
    OptionalString dataIndent;
    OptionalString enumIndent;

    OptionalString afterTypeId;
    BracketStyle conditionParens;
    OptionalString betweenClauses;
    ListStyle bases;
    ListStyle parameters;
    ListStyle templateParameters;
    ListStyle initializers;
    ListStyle enumerators;
};

} // namespace Norvane

#endif
