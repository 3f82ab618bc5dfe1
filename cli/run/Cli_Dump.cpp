#include "cli/run/Cli_Dump.h"

#include "cli/run/Cli_TerminalHost.h"
#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "cpp/Cpp_TokenDumper.h"
#include "cpp/Cpp_TreeDumper.h"
#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <sstream>

namespace Cli {

namespace {

/// A statement without its end, with which a parse still counts as a good one.
constexpr std::int32_t kHarmlessCode = 2;

Trn::MessageList parse(const std::string& text, Cpp::RootNode& root) {
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    Trn::MessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    return messages;
}

/// All diagnostics of the parser, those included that let a file pass.
void writeMessages(const Trn::MessageList& messages, const std::string& path, const MessageStyle& style,
                   std::ostream& out) {
    for (const Trn::Message& message : messages) {
        const std::string text = message.text + " [" + std::to_string(message.code) + ']';
        const Place place = {path, std::max<std::uint32_t>(message.position.line, 1),
                             std::max<std::uint32_t>(message.position.column, 1)};
        out << messageLine(place, severityWord(message.severity), text, style) << '\n';
    }
}

bool passes(const Trn::MessageList& messages) {
    return std::all_of(messages.begin(), messages.end(),
                       [](const Trn::Message& message) { return message.code == kHarmlessCode; });
}

} // namespace

bool dumpText(Dump what, const std::string& path, const std::string& text, const MessageStyle& style,
              std::ostream& out) {
    if (what == Dump::tokens) {
        Cpp::dumpTokens(text, out);
        return true;
    }
    Cpp::RootNode root;
    const Trn::MessageList messages = parse(text, root);
    if (what == Dump::tree) Cpp::dumpTree(root, Zelmar::SourceText(text), out);
    if (what == Dump::messages) writeMessages(messages, path, style, out);
    return passes(messages);
}

} // namespace Cli
