#include "cpp/Cpp_Parser.h"

#include "cpp/Cpp_ConditionalFolder.h"
#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_ParsedText.h"
#include "cpp/Cpp_Recovery.h"
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

using Tokens = std::vector<ParseToken>;

constexpr std::array<Fold, 4> kFolds = {Fold::UnbalancedKeepFirst, Fold::UnbalancedKeepLast, Fold::AllKeepFirst,
                                        Fold::AllKeepLast};

bool hasErrors(const Trn::MessageList& messages) {
    return std::any_of(messages.begin(), messages.end(), [](const Trn::Message& m) { return m.code != Parser::kNoteCode; });
}

/// One attempt over one choice of tokens.
struct Attempt {
    RootNode root;
    Trn::MessageList messages;
    bool hasStrayBrace = false;
    std::size_t tokensLeftAlone = 0;

    bool isWhole() const { return !hasErrors(messages) && !hasStrayBrace; }
};

using Source = std::shared_ptr<const Zelmar::SourceText>;

Attempt build(const Source& source, Tokens tokens) {
    Attempt attempt;
    const auto parsed = std::make_shared<ParsedText>(source, std::move(tokens));
    attempt.root.setParsed(parsed);
    TreeBuilder builder(parsed->tokens(), parsed->pool(), attempt.messages);
    builder.parseRoot(attempt.root);
    attempt.hasStrayBrace = builder.hasStrayBrace();
    return attempt;
}

/// The tokens that an attempt without folds was made from.
std::span<const ParseToken> tokensOf(const Attempt& attempt) { return attempt.root.parsed()->tokens().tokens(); }

/// The best of the attempts with and without the branches of conditional groups.
Attempt buildFolded(const Source& source, Tokens tokens) {
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
    for (Fold fold : kFolds) {
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

/// One attempt that leaves alone what it cannot read.
Attempt recover(const Source& source, Tokens tokens) {
    Attempt attempt;
    markUnclosedBraces(*source, tokens);
    const auto parsed = std::make_shared<ParsedText>(source, std::move(tokens));
    attempt.root.setParsed(parsed);
    Recovery recovery(*source, parsed->tokens());
    TreeBuilder builder(parsed->tokens(), parsed->pool(), attempt.messages, &recovery);
    builder.parseRoot(attempt.root);
    attempt.messages.splice(attempt.messages.end(), recovery.warnings());
    attempt.tokensLeftAlone = recovery.tokensLeftAlone();
    return attempt;
}

/// Says of each stretch of Objective-C that nobody looks into it.
void tellOfObjectiveC(const Zelmar::SourceText& source, Tokens& tokens, Trn::MessageList& messages) {
    for (const std::size_t i : foldObjectiveC(source.text(), tokens)) {
        messages.push_back({Trn::kSeverityWarning, source.positionOf(tokens[i].begin), 0,
                            "Objective-C is left as it stands."});
    }
}

/// The tokens of a text from which nothing is to be refused. What is left alone in any case, `messages` tell.
ParserTokens scanToLeaveAlone(const Zelmar::SourceText& source, Trn::MessageList& messages) {
    ParserTokens scanned = scanForParser(source);
    foldUnclosedStrings(source, scanned.tokens);
    tellOfObjectiveC(source, scanned.tokens, messages);
    return scanned;
}

/// The attempt that leaves least of the text alone. Takes the tokens from the text once more: most texts
/// never need them again.
Attempt recoverFolded(const Source& source) {
    Trn::MessageList told;
    const Tokens tokens = scanToLeaveAlone(*source, told).tokens;
    Attempt best = recover(source, tokens);
    if (!hasConditionals(source->text(), tokens)) return best;
    for (Fold fold : kFolds) {
        Attempt attempt = recover(source, foldConditionals(source->text(), tokens, fold));
        if (attempt.tokensLeftAlone < best.tokensLeftAlone) best = std::move(attempt);
    }
    return best;
}

bool isInFront(const Trn::Message& a, const Trn::Message& b) { return a.position < b.position; }

} // namespace

void Parser::parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::MessageList& messages) {
    auto* ownLexer = dynamic_cast<Lexer*>(&lexer);
    auto* ownRoot = dynamic_cast<RootNode*>(&root);
    if (!ownLexer || !ownRoot) throw Trn::InvalidParameterException();
    parse(ownLexer->sharedSource(), *ownRoot, messages);
}

void Parser::parse(std::shared_ptr<const Zelmar::SourceText> source, RootNode& root, Trn::MessageList& messages) {
    const bool leavesAlone = unreadable_ == Unreadable::LeaveAlone;
    Trn::MessageList found;
    ParserTokens scanned = leavesAlone ? scanToLeaveAlone(*source, found) : scanForParser(*source);
    if (scanned.regionUnclosed) {
        const auto severity = leavesAlone ? Trn::kSeverityWarning : Trn::kSeverityError;
        found.push_back({severity, source->positionOf(scanned.last), kEndCode, messageText(kEndCode)});
    }
    const bool folds = !scanned.regionUnclosed && hasConditionals(source->text(), scanned.tokens);
    Attempt best = folds ? buildFolded(source, std::move(scanned.tokens)) : build(source, std::move(scanned.tokens));
    if (leavesAlone && hasErrors(best.messages)) best = recoverFolded(source);
    root.swap(best.root);
    best.messages.splice(best.messages.end(), found);
    if (leavesAlone) best.messages.sort(isInFront);
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
