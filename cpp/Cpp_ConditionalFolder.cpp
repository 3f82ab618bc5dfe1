#include "cpp/Cpp_ConditionalFolder.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Cpp {

namespace {

/// The brackets of a stretch: how many it closes that it did not open, and leaves open.
struct Balance {
    std::array<int, 3> open{};
    std::array<int, 3> missing{};

    void take(int type) {
        switch (type) {
        case tkOpenParen: ++open[0]; break;
        case tkOpenBracket: ++open[1]; break;
        case tkOpenBrace: ++open[2]; break;
        case tkCloseParen: close(0); break;
        case tkCloseBracket: close(1); break;
        case tkCloseBrace: close(2); break;
        default: break;
        }
    }
    void close(std::size_t kind) { open[kind] > 0 ? --open[kind] : ++missing[kind]; }
    /// Goes on with the brackets of a stretch that has been counted by itself.
    void take(const Balance& inner) {
        for (std::size_t kind = 0; kind < open.size(); ++kind) {
            const int closed = std::min(open[kind], inner.missing[kind]);
            missing[kind] += inner.missing[kind] - closed;
            open[kind] += inner.open[kind] - closed;
        }
    }
    bool isEven() const { return open == std::array<int, 3>{} && missing == std::array<int, 3>{}; }
};

/// One group: the places of its directives, the last being the "#endif".
struct Group {
    std::vector<std::size_t> directives;
    bool unbalanced = false;
    Balance balance; // of the branch that is being read
    Balance first;   // of the first branch
};

class Folder {
public:
    Folder(std::string_view source, std::span<const ParseToken> tokens, Fold fold)
        : source_(source), tokens_(tokens), fold_(fold), hiddenUpTo_(tokens.size(), 0) {}

    std::vector<ParseToken> run() {
        findGroups();
        std::vector<ParseToken> result;
        result.reserve(tokens_.size() + 1); // a table adds the end
        for (std::size_t i = 0; i < tokens_.size(); ++i) {
            ParseToken token = tokens_[i];
            if (hiddenUpTo_[i] > 0) {
                const std::size_t last = hiddenUpTo_[i];
                token.type = tkDirective;
                token.isRegion = true;
                token.end = tokens_[last].end;
                i = last;
            }
            result.push_back(token);
        }
        return result;
    }

private:
    std::string_view text(std::size_t i) const {
        return source_.substr(tokens_[i].begin, tokens_[i].end - tokens_[i].begin);
    }

    void findGroups() {
        for (std::size_t i = 0; i < tokens_.size(); ++i) {
            const ParseToken& token = tokens_[i];
            if (token.type != tkDirective || token.isRegion) {
                if (!open_.empty()) open_.back().balance.take(token.type);
                continue;
            }
            const Conditional kind = conditionalOf(text(i));
            if (kind == Conditional::If) open_.push_back({{i}, false, {}, {}});
            else if (kind != Conditional::None && !open_.empty()) takeBranchEnd(i, kind == Conditional::EndIf);
        }
    }

    void takeBranchEnd(std::size_t i, bool endIf) {
        Group& group = open_.back();
        group.unbalanced = group.unbalanced || !group.balance.isEven();
        if (group.directives.size() == 1) group.first = group.balance;
        group.directives.push_back(i);
        const Balance last = group.balance;
        group.balance = {};
        if (!endIf) return;
        hide(group);
        // Around the group only the branch that stays visible counts.
        const Balance seen = group.directives.size() == 2 ? Balance{} : keepsFirst() ? group.first : last;
        open_.pop_back();
        if (!open_.empty()) open_.back().balance.take(seen);
    }

    bool keepsFirst() const { return fold_ == Fold::AllKeepFirst || fold_ == Fold::UnbalancedKeepFirst; }

    void hide(const Group& group) {
        const bool all = fold_ == Fold::AllKeepFirst || fold_ == Fold::AllKeepLast;
        const std::vector<std::size_t>& marks = group.directives;
        if (marks.size() == 2) {
            if (group.unbalanced) hiddenUpTo_[marks[0]] = marks[1];
        } else if (group.unbalanced || all) {
            if (keepsFirst()) hiddenUpTo_[marks[1]] = marks.back();
            else hiddenUpTo_[marks[0]] = marks[marks.size() - 2];
        }
    }

    std::string_view source_;
    std::span<const ParseToken> tokens_;
    Fold fold_;
    std::vector<Group> open_;
    std::vector<std::size_t> hiddenUpTo_; // by the first token of a hidden stretch its last, else 0
};

} // namespace

std::vector<ParseToken> foldConditionals(std::string_view source, std::span<const ParseToken> tokens, Fold fold) {
    return Folder(source, tokens, fold).run();
}

bool hasConditionals(std::string_view source, std::span<const ParseToken> tokens) {
    for (const ParseToken& token : tokens) {
        if (token.type == tkDirective && !token.isRegion &&
            conditionalOf(source.substr(token.begin, token.end - token.begin)) == Conditional::If)
            return true;
    }
    return false;
}

} // namespace Cpp
