#include "src/scheme/Norvane_ExprOptions.h"

#include "src/scheme/Norvane_LayoutOptions.h"

namespace Norvane {

namespace {

PointerStyle pointerStyle(int anchor, const OptionalString& ws) {
    PointerStyle style;
    style.ws = ws;
    if (anchor == 0) style.anchor = PointerAnchor::kAtType;
    if (anchor == 1) style.anchor = PointerAnchor::kAtName;
    return style;
}

/// One argument on each line, unless the scheme says something else about what is between them.
OptionalString argumentSeparator(const LayoutOptions& options) {
    const OptionalString& between = options.wsBetweenFnCallArgs;
    const bool aligned = options.alignFnCallArgsLeft && !options.keepLineBreaks;
    return !between.set && aligned ? OptionalString{true, "\n"} : between;
}

} // namespace

ExprOptions::ExprOptions(const LayoutOptions& options)
    : aroundOperator(options.wsBetweenExprOpOperands), afterCallName(options.wsAfterFnCallName),
      afterCast(options.wsAfterCast), beforeCastParen(options.wsBeforeNamedCastParen),
      parens{options.wsAfterExprOpenParen, options.wsBeforeExprCloseParen},
      squares{options.wsAfterLbracket, options.wsBeforeRbracket},
      angles{options.wsAfterTpOpenBracket, options.wsBeforeTpCloseBracket},
      callArgs{options.wsBeforeFnCallComma, argumentSeparator(options),
               options.alignFnCallArgsLeft && options.keepLineBreaks},
      templateArgs{OptionalString(), options.wsBetweenTpParams, false},
      asterisk(pointerStyle(options.asteriskAnchor, options.wsBetweenAsteriskAnchor)),
      ampersand(pointerStyle(options.ampersandAnchor, options.wsBetweenAmpersandAnchor)),
      beforeInitBrace(options.wsBeforeDdOpenBrace),
      initBraces{options.wsAfterDdOpenBrace, options.wsBeforeDdCloseBrace},
      initElements{options.wsBeforeDdComma, options.wsBetweenDdElements, false}, initIndent(options.indentDdContent),
      beforeClosureParams(options.wsBeforeClosureParams), beforeClosureBrace(options.wsBeforeClosureOpenBrace),
      beforeListBrace(options.wsBeforeListOpenBrace), listBraces{options.wsWithinListBraces, options.wsWithinListBraces},
      betweenListValues(options.wsBetweenListValues),
      keepsBreaks(options.keepLineBreaks), columns(options.keptColumns()), joinsStrings(options.lineWrap) {
    any = aroundOperator.set || afterCast.set || beforeCastParen.set || afterCallName.set || parens.isSet() || squares.isSet() || angles.isSet() ||
          callArgs.isSet() || templateArgs.isSet() || asterisk.anchor != PointerAnchor::kAsInSource ||
          ampersand.anchor != PointerAnchor::kAsInSource || beforeInitBrace.set || initBraces.isSet() ||
          initElements.isSet() || initIndent.set || joinsStrings || beforeClosureParams.set || beforeClosureBrace.set ||
          beforeListBrace.set || listBraces.isSet() || betweenListValues.set;
}

} // namespace Norvane
