#include "cli/Cli_Engine.h"

#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "cpp/Cpp_TokenDumper.h"
#include "cpp/Cpp_TreeDumper.h"
#include "src/Norvane_FormatDriver.h"
#include "src/Norvane_FormatMarkerTable.h"
#include "src/Norvane_UpdateFunctor.h"
#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <sstream>

namespace Cli {

namespace {

/// A statement without its end, with which a parse still counts as a good one.
constexpr std::int32_t kHarmlessCode = 2;

/// Learns from the reports of progress how far a run came.
class StageWatcher : public Norvane::UpdateFunctor {
public:
    bool operator()(const std::string&) override {
        ++stages_;
        return true;
    }
    /// The source has been parsed without a fault.
    bool sourceParsed() const { return stages_ > 1; }

private:
    int stages_ = 0;
};

Trn::MessageList parse(const std::string& text, Cpp::RootNode& root) {
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    Trn::MessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    return messages;
}

} // namespace

Engine::Engine(const Norvane::PropertySet& scheme) : options_(scheme, Norvane::defaultFormatMarkers()) {}

Outcome Engine::format(const std::string& text) const {
    std::istringstream in(text);
    std::ostringstream out;
    StageWatcher watcher;
    Outcome outcome;
    if (Norvane::FormatDriver().format(options_, in, out, outcome.messages, watcher) == 0) {
        outcome.text = std::move(out).str();
    }
    outcome.pointIntoResult = !outcome.text && watcher.sourceParsed();
    return outcome;
}

void dumpTokensOf(const std::string& text, std::ostream& out) {
    Cpp::dumpTokens(text, out);
}

Trn::MessageList dumpTreeOf(const std::string& text, std::ostream& out) {
    Cpp::RootNode root;
    Trn::MessageList messages = parse(text, root);
    Cpp::dumpTree(root, Zelmar::SourceText(text), out);
    return messages;
}

Trn::MessageList diagnosticsOf(const std::string& text) {
    Cpp::RootNode root;
    return parse(text, root);
}

bool refusesFile(const Trn::MessageList& messages) {
    return std::any_of(messages.begin(), messages.end(),
                       [](const Trn::Message& message) { return message.code != kHarmlessCode; });
}

} // namespace Cli
