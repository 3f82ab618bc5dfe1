#include "src/Norvane_FormatDriver.h"

#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "src/format/Norvane_CppFormatter.h"
#include "src/format/Norvane_CppPreFormatter.h"
#include "src/format/Norvane_FurtherLines.h"
#include "src/scheme/Norvane_LayoutOptions.h"
#include "src/wrap/Norvane_CppLineWrapper.h"
#include "streams/Zelmar_SourceText.h"

#include <memory>
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

using Source = std::shared_ptr<const Zelmar::SourceText>;

Source sourceOf(std::string text) { return std::make_shared<const Zelmar::SourceText>(std::move(text)); }

/// Each wraps the lines of closures in the expressions that the one before has wrapped.
constexpr int kMostWraps = 4;

/// One run: the stages that both parses share, and what the run was called with.
class Run {
public:
    Run(const FormatOptions& options, FormatDriver::Unreadable unreadable, Trn::MessageList& messages,
        UpdateFunctor& update)
        : markers_(options.markers()), preFormatter_(markers_), parser_(unreadable), options_(readOptions(options)),
          messages_(messages), update_(update),
          leavesAlone_(unreadable == FormatDriver::Unreadable::LeaveAlone) {}

    /// Both return 0, or the number of messages with which the run ends.
    std::int32_t format(const Source& source, std::string& formatted);
    std::int32_t wrap(Source formatted, std::string& wrapped);
    /// True if no line of the text is to be broken.
    bool fits(std::string_view formatted) const { return CppLineWrapper::leavesAsItIs(*options_, formatted); }

private:
    std::int32_t parse(const Source& source, Cpp::RootNode& root);
    std::int32_t buildTree(const Source& source, Cpp::RootNode& root);

    const FormatMarkerTable& markers_;
    CppPreFormatter preFormatter_;
    Cpp::Parser parser_;
    SharedOptions options_;
    Trn::MessageList& messages_;
    UpdateFunctor& update_;
    bool leavesAlone_;
    bool isTold_ = false; // what the source leaves alone
};

std::int32_t Run::parse(const Source& source, Cpp::RootNode& root) {
    Trn::MessageList diagnostics;
    parser_.parse(source, root, diagnostics);
    diagnostics.remove_if([](const Trn::Message& message) { return message.code == kWithdrawnCode; });
    const auto count = static_cast<std::int32_t>(diagnostics.size());
    if (leavesAlone_) {
        // The second parse finds the same once more, at other places.
        if (!std::exchange(isTold_, true)) messages_.splice(messages_.end(), diagnostics);
        return 0;
    }
    messages_.splice(messages_.end(), diagnostics);
    return count;
}

/// Makes the tree that a pass walks.
std::int32_t Run::buildTree(const Source& source, Cpp::RootNode& root) {
    const std::int32_t diagnostics = parse(source, root);
    if (diagnostics == 0) root.accept(preFormatter_);
    return diagnostics;
}

std::int32_t Run::format(const Source& source, std::string& formatted) {
    if (!update_("Analyzing file:\n%s")) return endWith(cancelledMessage(), messages_);
    Cpp::RootNode root;
    const std::int32_t ended = buildTree(source, root);
    if (ended != 0) return ended;
    if (!update_("Formatting file:\n%s")) return endWith(cancelledMessage(), messages_);
    CppFormatter formatter(source, options_);
    root.accept(formatter);
    formatted = placeFurtherLines(formatter.takeText(), *options_, markers_);
    return 0;
}

std::int32_t Run::wrap(Source formatted, std::string& wrapped) {
    for (int round = 1;; ++round) {
        Cpp::RootNode root;
        const std::int32_t ended = buildTree(formatted, root);
        if (ended != 0) return ended;
        CppLineWrapper wrapper(formatted, options_);
        root.accept(wrapper);
        wrapped = wrapper.takeText();
        if (!wrapper.leavesCode() || round == kMostWraps || fits(wrapped)) return 0;
        formatted = sourceOf(std::move(wrapped));
    }
}

} // namespace

std::int32_t FormatDriver::format(const FormatOptions& options, Source text, std::string& result,
                                  Trn::MessageList& messages, UpdateFunctor& update) {
    Run run(options, unreadable_, messages, update);
    std::string formatted;
    const std::int32_t ended = run.format(text, formatted);
    if (ended != 0) return ended;
    if (run.fits(formatted)) {
        result = std::move(formatted);
        return 0;
    }
    return run.wrap(sourceOf(std::move(formatted)), result);
}

std::int32_t FormatDriver::format(const FormatOptions& options, std::istream& input, std::ostream& output,
                                  Trn::MessageList& messages, UpdateFunctor& update) {
    std::string result;
    const std::int32_t ended = format(options, sourceOf(Zelmar::readAll(input)), result, messages, update);
    if (ended == 0) writeAll(result, output);
    return ended;
}

} // namespace Norvane
