#ifndef KERFLINE_CPP_TOKENS_H
#define KERFLINE_CPP_TOKENS_H

#include <array>
#include <cstddef>
#include <string_view>

namespace Cpp {

/// The numbers of the C and C++ tokens, as they stand in Trn::Token::type(). They are part of the
/// interface: trees hold them and tests print them. 4 and 95 are not produced.
enum TokenType : int {
    tkEnd = -1,
    tkInvalid = 0,
    tkDirective = 1,
    tkCharLiteral = 2,
    tkNumber = 3,
    tkStringLiteral = 5,
    tkSemicolon = 6, // ;
    tkColon = 7, // :
    tkComma = 8, // ,
    tkOpenParen = 9, // (
    tkCloseParen = 10, // )
    tkOpenBrace = 11, // {
    tkCloseBrace = 12, // }
    tkAssign = 13, // =
    tkAsterisk = 14, // *
    tkAmpersand = 15, // &
    tkOpenBracket = 16, // [
    tkCloseBracket = 17, // ]
    tkSlash = 18, // /
    tkDot = 19, // .
    tkPlus = 20, // +
    tkMinus = 21, // -
    tkExclamation = 22, // !
    tkTilde = 23, // ~
    tkArrow = 24, // ->
    tkIncrement = 25, // ++
    tkDecrement = 26, // --
    tkPercent = 27, // %
    tkShiftLeft = 28, // <<
    tkShiftRight = 29, // >>
    tkLess = 30, // <
    tkGreater = 31, // >
    tkLessEqual = 32, // <=
    tkGreaterEqual = 33, // >=
    tkEqual = 34, // ==
    tkNotEqual = 35, // !=
    tkCaret = 36, // ^
    tkBar = 37, // |
    tkMulAssign = 38, // *=
    tkDivAssign = 39, // /=
    tkModAssign = 40, // %=
    tkAddAssign = 41, // +=
    tkSubAssign = 42, // -=
    tkShiftLeftAssign = 43, // <<=
    tkShiftRightAssign = 44, // >>=
    tkAndAssign = 45, // &=
    tkXorAssign = 46, // ^=
    tkOrAssign = 47, // |=
    tkLogicalAnd = 48, // &&
    tkLogicalOr = 49, // ||
    tkQuestion = 50, // ?
    tkDotStar = 51, // .*
    tkArrowStar = 52, // ->*
    tkClass = 53,
    tkStruct = 54,
    tkPublic = 55,
    tkPrivate = 56,
    tkProtected = 57,
    tkVirtual = 58,
    tkNamespace = 59,
    tkUsing = 60,
    tkConst = 61,
    tkMutable = 62,
    tkVolatile = 63,
    tkStatic = 64,
    tkInline = 65,
    tkExplicit = 66,
    tkSigned = 67,
    tkUnsigned = 68,
    tkAuto = 69,
    tkRegister = 70,
    tkFriend = 71,
    tkTypedef = 72,
    tkTypename = 73,
    tkEnum = 74,
    tkUnion = 75,
    tkStaticCast = 76,
    tkDynamicCast = 77,
    tkConstCast = 78,
    tkReinterpretCast = 79,
    tkTemplate = 80,
    tkOperator = 81,
    tkAsm = 82,
    tkNew = 83,
    tkDelete = 84,
    tkThrow = 85,
    tkSizeof = 86,
    tkTypeid = 87,
    tkThis = 88,
    tkExport = 89,
    tkExtern = 90,
    tkTrue = 91,
    tkFalse = 92,
    tkIf = 93,
    tkElse = 94,
    tkFor = 96,
    tkDo = 97,
    tkWhile = 98,
    tkTry = 99,
    tkCatch = 100,
    tkSwitch = 101,
    tkCase = 102,
    tkDefault = 103,
    tkContinue = 104,
    tkBreak = 105,
    tkGoto = 106,
    tkReturn = 107,
    tkChar = 108,
    tkWcharT = 109,
    tkBool = 110,
    tkShort = 111,
    tkInt = 112,
    tkLong = 113,
    tkFloat = 114,
    tkDouble = 115,
    tkVoid = 116,
    tkLineComment = 117,
    tkBlockComment = 118,
    tkIdentifier = 119,
};

/// What tokenTypeName gives, by type.
inline constexpr std::array<std::string_view, 120> kTokenTypeNames = {
    "<invalid>", "<directive>", "<character>", "<number>", "<unused>", "<string>",
    ";", ":", ",", "(", ")", "{", "}", "=", "*", "&", "[", "]", "/", ".", "+", "-", "!", "~",
    "->", "++", "--", "%", "<<", ">>", "<", ">", "<=", ">=", "==", "!=", "^", "|",
    "*=", "/=", "%=", "+=", "-=", "<<=", ">>=", "&=", "^=", "|=", "&&", "||", "?", ".*", "->*",
    "class", "struct", "public", "private", "protected", "virtual", "namespace", "using",
    "const", "mutable", "volatile", "static", "inline", "explicit", "signed", "unsigned",
    "auto", "register", "friend", "typedef", "typename", "enum", "union",
    "static_cast", "dynamic_cast", "const_cast", "reinterpret_cast",
    "template", "operator", "asm", "new", "delete", "throw", "sizeof", "typeid", "this",
    "export", "extern", "true", "false", "if", "else", "<unused>", "for", "do", "while",
    "try", "catch", "switch", "case", "default", "continue", "break", "goto", "return",
    "char", "wchar_t", "bool", "short", "int", "long", "float", "double", "void",
    "<line comment>", "<block comment>", "<identifier>"};

static_assert(kTokenTypeNames[tkSemicolon] == ";" && kTokenTypeNames[tkShiftRightAssign] == ">>=" &&
              kTokenTypeNames[tkArrowStar] == "->*" && kTokenTypeNames[tkClass] == "class" &&
              kTokenTypeNames[tkReinterpretCast] == "reinterpret_cast" && kTokenTypeNames[tkElse] == "else" &&
              kTokenTypeNames[tkFor] == "for" && kTokenTypeNames[tkVoid] == "void" &&
              kTokenTypeNames[tkIdentifier] == "<identifier>");

/// The spelling of an operator or keyword; for the other types a word in angle brackets, such as
/// "<number>". Never empty.
constexpr std::string_view tokenTypeName(int type) {
    if (type == tkEnd) return "<end>";
    if (type < 0 || type >= static_cast<int>(kTokenTypeNames.size())) return "<unknown>";
    return kTokenTypeNames[static_cast<std::size_t>(type)];
}

constexpr bool isComment(int type) { return type == tkLineComment || type == tkBlockComment; }
constexpr bool isCommentOrDirective(int type) { return isComment(type) || type == tkDirective; }
/// A keyword that only statements begin with.
constexpr bool beginsControl(int type) {
    return (type >= tkIf && type <= tkTry) || type == tkSwitch || type == tkReturn || type == tkBreak ||
           type == tkContinue || type == tkGoto;
}
/// "public", "private", "protected".
constexpr bool isAccessKeyword(int type) { return type >= tkPublic && type <= tkProtected; }

} // namespace Cpp

#endif
