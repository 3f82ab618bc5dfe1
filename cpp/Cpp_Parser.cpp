#include "cpp/Cpp_Parser.h"

#include "cpp/Cpp_ConditionalFolder.h"
#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_ParsedText.h"
#include "cpp/Cpp_TreeBuilder.h"
#include "trn/Trn_Exception.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace Cpp {

namespace {

bool hasErrors(const Trn::MessageList& messages) {
    return std::any_of(messages.begin(), messages.end(), [](const Trn::Message& m) { return m.code != Parser::kNoteCode; });
}

/// One attempt over one choice of tokens.
struct Attempt {
    RootNode root;
    Trn::MessageList messages;
    bool hasStrayBrace = false;

    bool isWhole() const { return !hasErrors(messages) && !hasStrayBrace; }
};

using Source = std::shared_ptr<const Zelmar::SourceText>;

Attempt build(const Source& source, std::vector<ParseToken> tokens) {
    Attempt attempt;
    const auto parsed = std::make_shared<ParsedText>(source, std::move(tokens));
    attempt.root.setParsed(parsed);
    TreeBuilder builder(parsed->tokens(), parsed->pool(), attempt.messages);
    builder.parseRoot(attempt.root);
    attempt.hasStrayBrace = builder.hasStrayBrace();
    return attempt;
}

/// Some brace is not closed, or closes nothing.
bool hasUnevenBraces(const std::vector<ParseToken>& tokens) {
    int open = 0;
    for (const ParseToken& token : tokens) {
        if (token.type == tkOpenBrace) ++open;
        if (token.type == tkCloseBrace && --open < 0) return true;
    }
    return open != 0;
}

/// The tokens that an attempt without folds was made from.
std::span<const ParseToken> tokensOf(const Attempt& attempt) { return attempt.root.parsed()->tokens().tokens(); }

/// The best of the attempts with and without the branches of conditional groups.
Attempt buildFolded(const Source& source, std::vector<ParseToken> tokens) {
    std::optional<Attempt> first;
    if (hasUnevenBraces(tokens)) {
        // As it stands it can't be whole, and most texts are with the first branches alone.
        first = build(source, foldConditionals(source->text(), tokens, Fold::UnbalancedKeepFirst));
        if (first->isWhole()) return std::move(*first);
    }
    Attempt plain = build(source, std::move(tokens));
    if (plain.isWhole()) return plain;
    std::optional<Attempt> best;
    // A stray brace alone stops nothing, but it shows that the nesting has been misread.
    for (Fold fold : {Fold::UnbalancedKeepFirst, Fold::UnbalancedKeepLast, Fold::AllKeepFirst, Fold::AllKeepLast}) {
        const bool isMade = fold == Fold::UnbalancedKeepFirst && first;
        Attempt attempt = isMade ? std::move(*first) : build(source, foldConditionals(source->text(), tokensOf(plain), fold));
        const bool whole = attempt.isWhole();
        const Attempt& toBeat = best ? *best : plain;
        if (!whole && (hasErrors(attempt.messages) || !hasErrors(toBeat.messages))) continue;
        best = std::move(attempt);
        if (whole) break;
    }
    if (best) return std::move(*best);
    return plain;
}

} // namespace

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::MessageList& messages) {
    auto* ownLexer = dynamic_cast<Lexer*>(&lexer);
    auto* ownRoot = dynamic_cast<RootNode*>(&root);
    if (!ownLexer || !ownRoot) throw Trn::InvalidParameterException();
    parse(ownLexer->sharedSource(), *ownRoot, messages);
}

void Parser::parse(std::shared_ptr<const Zelmar::SourceText> source, RootNode& root, Trn::MessageList& messages) {
    ParserTokens scanned = scanForParser(*source);
    const bool folds = !scanned.regionUnclosed && hasConditionals(source->text(), scanned.tokens);
    Attempt best = folds ? buildFolded(source, std::move(scanned.tokens)) : build(source, std::move(scanned.tokens));
    if (scanned.regionUnclosed)
        best.messages.push_back({Trn::kSeverityError, source->positionOf(scanned.last), 1, messageText(1)});
    root.swap(best.root);
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
