#include "cpp/Cpp_Parser.h"

#include "cpp/Cpp_ConditionalFolder.h"
#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_TreeBuilder.h"
#include "trn/Trn_Exception.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Cpp {

namespace {

/// The one diagnostic that is a note and no failure.
constexpr std::int32_t kNoteCode = 2;

bool hasErrors(const Trn::MessageList& messages) {
    return std::any_of(messages.begin(), messages.end(), [](const Trn::Message& m) { return m.code != kNoteCode; });
}

/// One attempt over one choice of tokens.
struct Attempt {
    RootNode root;
    Trn::MessageList messages;
    bool hasStrayBrace = false;

    bool isWhole() const { return !hasErrors(messages) && !hasStrayBrace; }
};

Attempt build(const Zelmar::SourceText& source, std::vector<ParseToken> tokens) {
    Attempt attempt;
    const TokenTable table(source, std::move(tokens));
    TreeBuilder builder(table, attempt.messages);
    builder.parseRoot(attempt.root);
    attempt.hasStrayBrace = builder.hasStrayBrace();
    return attempt;
}

} // namespace

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::MessageList& messages) {
    auto* ownLexer = dynamic_cast<Lexer*>(&lexer);
    auto* ownRoot = dynamic_cast<RootNode*>(&root);
    if (!ownLexer || !ownRoot) throw Trn::InvalidParameterException();

    const Zelmar::SourceText& source = ownLexer->source();
    const ParserTokens scanned = scanForParser(source);
    Attempt best = build(source, scanned.tokens);
    if (scanned.regionUnclosed) {
        best.messages.push_back({Trn::kSeverityError, source.positionOf(scanned.last), 1, messageText(1)});
    } else if (!best.isWhole() && hasConditionals(source.text(), scanned.tokens)) {
        // A stray brace alone stops nothing, but it shows that the nesting has been misread.
        for (Fold fold : {Fold::UnbalancedKeepFirst, Fold::UnbalancedKeepLast, Fold::AllKeepFirst, Fold::AllKeepLast}) {
            Attempt attempt = build(source, foldConditionals(source.text(), scanned.tokens, fold));
            if (!attempt.isWhole() && (hasErrors(attempt.messages) || !hasErrors(best.messages))) continue;
            const bool whole = attempt.isWhole();
            best = std::move(attempt);
            if (whole) break;
        }
    }
    ownRoot->swap(best.root);
    messages.splice(messages.end(), best.messages);
}

std::string Parser::messageText(std::int32_t code) {
    static constexpr std::array<const char*, 15> texts = {
        "Unknown error.",
        "Unexpected EOF found.",
        "Unexpected token. Was expecting to find \";\" or \"{\".",
        "Unexpected token. Was expecting to find \";\", \"(\" or \"=\".",
        "Data declaration is missing a type specifier",
        "An unexpected semicolon was found.",
        "An unexpected semicolon was found.",
        "The statement cannot be parsed.",
        "public: protected: private: labels are not allowed inside block statements.",
        "template declarations are not allowed inside block statements.",
        "Namespace declarations are not allowed inside block statements.",
        "Expected: if, else, for, do, while, try, catch, switch.",
        "Expected \")\". Possible unbalanced parentheses.",
        "Expected \"(\".",
        "Expected one of \"public\", \"protected\" or \"private\".",
    };
    const bool known = code > 0 && code < static_cast<std::int32_t>(texts.size());
    return texts[known ? static_cast<std::size_t>(code) : 0];
}

} // namespace Cpp
