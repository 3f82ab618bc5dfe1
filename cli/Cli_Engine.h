#ifndef KERFLINE_CLI_ENGINE_H
#define KERFLINE_CLI_ENGINE_H

#include "src/Norvane_FormatOptions.h"
#include "trn/Trn_Message.h"

#include <optional>
#include <ostream>
#include <string>

namespace Cli {

/// What came of one text. Without a text the source must stay as it is, and the messages say why.
struct Outcome {
    std::optional<std::string> text;
    Trn::MessageList messages;
    /// The messages point into the laid out text: it is parsed once more before lines are wrapped.
    bool pointIntoResult = false;
};

/// The format engine as the program uses it: one scheme, any number of texts in line feeds.
class Engine {
public:
    explicit Engine(const Norvane::PropertySet& scheme);

    Outcome format(const std::string& text) const;

private:
    Norvane::FormatOptions options_;
};

/// Each writes what the engine sees of a text, for people who work on the engine.
void dumpTokensOf(const std::string& text, std::ostream& out);
/// Return all diagnostics of the parser, those included that let a file pass.
Trn::MessageList dumpTreeOf(const std::string& text, std::ostream& out);
Trn::MessageList diagnosticsOf(const std::string& text);

/// True if a parse with these diagnostics is a failed one.
bool refusesFile(const Trn::MessageList& messages);

} // namespace Cli

#endif
