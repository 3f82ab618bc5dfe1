#include "src/Norvane_FormatDriver.h"

#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "src/format/Norvane_CppFormatter.h"
#include "src/format/Norvane_CppPreFormatter.h"
#include "src/scheme/Norvane_LayoutOptions.h"
#include "src/wrap/Norvane_CppLineWrapper.h"
#include "streams/Zelmar_ITextDocStream.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Exception.h"

#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace Norvane {

namespace {

const Trn::Message& cancelledMessage() {
    static const Trn::Message message{
        Trn::kSeverityInformation, {}, 0, "Formatting cancelled at user's request."};
    return message;
}

const Trn::Message& noRewindMessage() {
    static const Trn::Message message{Trn::kSeverityError, {}, 0, "Unable to rewind input."};
    return message;
}

std::int32_t endWith(const Trn::Message& message, Trn::MessageList& messages) {
    messages.push_back(message);
    return 1;
}

/// The parser raises this one where it looked for a ";" or a "{" and found something else, most
/// often a macro that only the preprocessor knows. It goes on, and the tree is whole.
constexpr std::int32_t kWithdrawnCode = 2;

/// Writes the text and not its stream buffer: a buffer that holds nothing would set the fail state
/// of `output`, and the empty text would look like one that could not be written.
void writeAll(std::string_view text, std::ostream& output) {
    output.write(text.data(), static_cast<std::streamsize>(text.size()));
    output.flush();
}

/// An empty stream with room for a text a little longer than `source`: growing to it step by step
/// would copy it twice over.
std::stringstream streamWithRoom(std::string_view source) {
    std::string room;
    room.reserve(source.size() + source.size() / 4);
    return std::stringstream(std::move(room));
}

/// What a failed stream did not take would be missing from the text that replaces the user's.
void checkWritten(const std::ostream& text) {
    if (!text.good()) throw Trn::Exception("The formatted text could not be written.");
}

/// One run: the stages that both parses share, and what the run was called with.
class Run {
public:
    Run(const FormatOptions& options, Trn::MessageList& messages, UpdateFunctor& update)
        : preFormatter_(options.markers()), options_(readOptions(options)), messages_(messages), update_(update) {}

    /// Both return 0, or the number of messages with which the run ends.
    std::int32_t format(std::stringstream& source, std::stringstream& formatted);
    std::int32_t wrap(std::stringstream& formatted, std::ostream& wrapped);
    /// True if no line of the text is to be broken.
    bool fits(std::string_view formatted) const { return CppLineWrapper::leavesAsItIs(*options_, formatted); }

private:
    std::int32_t parse(Cpp::Lexer& lexer, Cpp::RootNode& root);
    std::int32_t buildTree(std::istream& text, Cpp::Lexer& lexer, Cpp::RootNode& root);

    CppPreFormatter preFormatter_;
    Cpp::Parser parser_;
    SharedOptions options_;
    Trn::MessageList& messages_;
    UpdateFunctor& update_;
};

std::int32_t Run::parse(Cpp::Lexer& lexer, Cpp::RootNode& root) {
    Trn::MessageList diagnostics;
    parser_.parse(lexer, root, diagnostics);
    diagnostics.remove_if([](const Trn::Message& message) { return message.code == kWithdrawnCode; });
    const auto count = static_cast<std::int32_t>(diagnostics.size());
    messages_.splice(messages_.end(), diagnostics);
    return count;
}

/// Makes the tree that a pass walks, and puts `text` back to its start for that pass to read.
std::int32_t Run::buildTree(std::istream& text, Cpp::Lexer& lexer, Cpp::RootNode& root) {
    const std::int32_t diagnostics = parse(lexer, root);
    if (diagnostics != 0) return diagnostics;
    if (!Zelmar::rewind(text)) return endWith(noRewindMessage(), messages_);
    root.accept(preFormatter_);
    return 0;
}

std::int32_t Run::format(std::stringstream& source, std::stringstream& formatted) {
    if (!update_("Analyzing file:\n%s")) return endWith(cancelledMessage(), messages_);
    Cpp::RootNode root;
    Cpp::Lexer lexer(source);
    const std::int32_t ended = buildTree(source, lexer, root);
    if (ended != 0) return ended;
    if (!update_("Formatting file:\n%s")) return endWith(cancelledMessage(), messages_);
    CppFormatter formatter(source, formatted, options_);
    root.accept(formatter);
    checkWritten(formatted);
    return 0;
}

std::int32_t Run::wrap(std::stringstream& formatted, std::ostream& wrapped) {
    Cpp::RootNode root;
    Cpp::Lexer lexer(formatted);
    const std::int32_t ended = buildTree(formatted, lexer, root);
    if (ended != 0) return ended;
    const std::string text = std::move(formatted).str();
    CppLineWrapper wrapper(options_, text, wrapped);
    root.accept(wrapper);
    checkWritten(wrapped);
    return 0;
}

} // namespace

std::int32_t FormatDriver::format(const FormatOptions& options, std::istream& input, std::ostream& output,
                                  Trn::MessageList& messages, UpdateFunctor& update) {
    Run run(options, messages, update);
    std::stringstream source(Zelmar::readAll(input));
    std::stringstream formatted = streamWithRoom(source.view());
    const std::int32_t ended = run.format(source, formatted);
    if (ended != 0) return ended;
    if (run.fits(formatted.view())) {
        writeAll(formatted.view(), output);
        return 0;
    }
    std::stringstream wrapped = streamWithRoom(formatted.view());
    const std::int32_t wrapEnded = run.wrap(formatted, wrapped);
    if (wrapEnded == 0) writeAll(wrapped.view(), output);
    return wrapEnded;
}

} // namespace Norvane
