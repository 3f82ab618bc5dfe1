#include "bench/Bench_Stages.h"

#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "cpp/Cpp_Scanner.h"
#include "guard/Guard_Difference.h"
#include "src/Norvane_FormatDriver.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

namespace Bench {

namespace {

std::vector<Cpp::RawToken> tokensOf(std::string_view text) {
    std::vector<Cpp::RawToken> tokens;
    Cpp::scanAll(text, tokens);
    return tokens;
}

std::size_t visibleCharacters(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), Cpp::isSpace));
}

/// The spelling, without white space where a pass may move it together with the indentation.
std::string comparable(std::string_view text, const Cpp::RawToken& token) {
    std::string spelled = Cpp::spelling(text, token);
    if (Cpp::isCommentOrDirective(token.type)) {
        spelled.erase(std::remove_if(spelled.begin(), spelled.end(), Cpp::isSpace), spelled.end());
    }
    return spelled;
}

std::string compareTokens(std::string_view source, std::string_view result) {
    const std::vector<Cpp::RawToken> before = tokensOf(source);
    const std::vector<Cpp::RawToken> after = tokensOf(result);
    if (before.size() != after.size()) return "the number of tokens has changed";
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i].type != after[i].type ||
            comparable(source, before[i]) != comparable(result, after[i])) {
            return "a token of line " + std::to_string(before[i].line) + " has changed";
        }
    }
    return {};
}

std::string firstMessage(const Trn::MessageList& messages) {
    constexpr int kHarmless = 2;
    for (const Trn::Message& message : messages) {
        if (message.code != kHarmless)
            return "line " + std::to_string(message.position.line) + ": " + message.text;
    }
    return {};
}

} // namespace

void LexStage::run(const std::string& text) { tokens_ = tokensOf(text).size(); }

std::string LexStage::check(const std::string& text) const {
    std::size_t visible = 0;
    const std::vector<Cpp::RawToken> tokens = tokensOf(text);
    for (const Cpp::RawToken& token : tokens) {
        visible += visibleCharacters(std::string_view(text).substr(token.begin, token.end - token.begin));
    }
    if (visible != visibleCharacters(text)) return "the tokens do not cover the text";
    return tokens.size() == tokens_ ? "" : "the number of tokens differs from run to run";
}

void ParseStage::run(const std::string& text) {
    Cpp::RootNode root;
    Trn::MessageList messages;
    Cpp::Parser().parse(std::make_shared<const Zelmar::SourceText>(text), root, messages);
    message_ = firstMessage(messages);
    nodes_ = root.size();
}

std::string ParseStage::check(const std::string&) const {
    if (!message_.empty()) return message_;
    return nodes_ == 0 ? "the tree is empty" : "";
}

void CheckStage::run(const std::string& text) {
    const auto difference = Guard::firstDifference(text, "\n" + text);
    fault_ = difference ? difference->reason : std::string_view();
}

std::string CheckStage::check(const std::string&) const { return std::string(fault_); }

void FormatStage::run(const std::string& text) {
    Trn::MessageList messages;
    Norvane::UpdateFunctor update;
    const Norvane::FormatOptions options(scheme_, Norvane::defaultFormatMarkers());
    const bool done = Norvane::FormatDriver().format(options, std::make_shared<const Zelmar::SourceText>(text), result_, messages, update) == 0;
    message_ = done ? "" : firstMessage(messages);
}

std::string FormatStage::check(const std::string& text) const {
    return message_.empty() ? compareTokens(text, result_) : message_;
}

Norvane::PropertySet shippedScheme(const std::string& name, bool wrap) {
    constexpr int kMargin = 100;
    const std::string path = std::string(KERFLINE_SCHEME_FOLDER) + "/" + name + ".kls";
    std::ifstream in(path);
    Norvane::PropertySet scheme;
    scheme.read(in);
    if (in.fail() || scheme.size() == 0) throw std::runtime_error("cannot read the scheme " + path);
    scheme.setBool("LINE_WRAP", wrap);
    scheme.setInt("RIGHT_MARGIN", kMargin);
    return scheme;
}

} // namespace Bench
