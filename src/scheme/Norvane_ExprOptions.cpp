#include "src/scheme/Norvane_ExprOptions.h"

#include "src/expr/Norvane_CppExprFormatterBase.h"

#include <cstdint>
#include <string_view>

namespace Norvane {

namespace {

PointerStyle readPointerStyle(const PropertySet& scheme, std::string_view anchorName,
                              std::string_view wsName) {
    std::int32_t anchor = -1;
    scheme.getInt(anchorName, anchor);
    PointerStyle style;
    style.ws = readOption(scheme, wsName);
    if (anchor == 0) style.anchor = PointerAnchor::kAtType;
    if (anchor == 1) style.anchor = PointerAnchor::kAtName;
    return style;
}

BracketStyle readBracketStyle(const PropertySet& scheme, std::string_view open, std::string_view close) {
    return {readOption(scheme, open), readOption(scheme, close)};
}

/// One argument on each line, unless the scheme says something else about what is between them.
OptionalString readArgumentSeparator(const PropertySet& scheme) {
    OptionalString between = readOption(scheme, "WS_BETWEEN_FN_CALL_ARGS");
    bool alignLeft = false;
    scheme.getBool("ALIGN_FN_CALL_ARGS_LEFT", alignLeft);
    if (!between.set && alignLeft) between = {true, "\n"};
    return between;
}

} // namespace

ExprOptions::ExprOptions(const PropertySet& scheme)
    : aroundOperator(readOption(scheme, "WS_BETWEEN_EXPR_OP_OPERANDS")),
      afterCallName(readOption(scheme, "WS_AFTER_FN_CALL_NAME")),
      parens(readBracketStyle(scheme, "WS_AFTER_EXPR_OPEN_PAREN", "WS_BEFORE_EXPR_CLOSE_PAREN")),
      squares(readBracketStyle(scheme, "WS_AFTER_LBRACKET", "WS_BEFORE_RBRACKET")),
      angles(readBracketStyle(scheme, "WS_AFTER_TP_OPEN_BRACKET", "WS_BEFORE_TP_CLOSE_BRACKET")),
      callArgs{readOption(scheme, "WS_BEFORE_FN_CALL_COMMA"), readArgumentSeparator(scheme)},
      templateArgs{OptionalString(), readOption(scheme, "WS_BETWEEN_TP_PARAMS")},
      asterisk(readPointerStyle(scheme, "ASTERISK_ANCHOR", "WS_BETWEEN_ASTERISK_ANCHOR")),
      ampersand(readPointerStyle(scheme, "AMPERSAND_ANCHOR", "WS_BETWEEN_AMPERSAND_ANCHOR")),
      beforeInitBrace(readOption(scheme, "WS_BEFORE_DD_OPEN_BRACE")),
      initBraces(readBracketStyle(scheme, "WS_AFTER_DD_OPEN_BRACE", "WS_BEFORE_DD_CLOSE_BRACE")),
      initElements{readOption(scheme, "WS_BEFORE_DD_COMMA"), readOption(scheme, "WS_BETWEEN_DD_ELEMENTS")},
      initIndent(readOption(scheme, "INDENT_DD_CONTENT")) {
    scheme.getBool("LINE_WRAP", joinsStrings);
    any = aroundOperator.set || afterCallName.set || parens.isSet() || squares.isSet() || angles.isSet() ||
          callArgs.isSet() || templateArgs.isSet() || asterisk.anchor != PointerAnchor::kAsInSource ||
          ampersand.anchor != PointerAnchor::kAsInSource || beforeInitBrace.set || initBraces.isSet() ||
          initElements.isSet() || initIndent.set || joinsStrings;
}

} // namespace Norvane
