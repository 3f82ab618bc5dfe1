#include "addin/Addin_FormatJob.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_Texts.h"
#include "addin/Addin_Utf16.h"
#include "files/NorvaneUI_Text.h"
#include "src/Norvane_FormatDriver.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"
#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Addin {

namespace {

using NorvaneUI::filled;

/// The engine counts offsets in 32 bits, and the result may be longer than the source.
constexpr std::size_t kLargestSource = 0xffff0000;

Trn::Message refusal(std::string_view text, const Trn::Position& position = {}) {
    return {Trn::kSeverityError, position, 0, std::string(text)};
}

Trn::Position positionOf(std::string_view text, std::size_t offset) {
    const auto lines = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n');
    const std::size_t lineFeed = offset == 0 ? std::string::npos : text.rfind('\n', offset - 1);
    const std::size_t lineStart = lineFeed == std::string::npos ? 0 : lineFeed + 1;
    return {static_cast<std::uint32_t>(lines + 1), static_cast<std::uint32_t>(offset - lineStart + 1)};
}

/// Why the engine must not be given `text`; nothing if it may be.
std::optional<Trn::Message> faultOf(std::string_view text) {
    if (text.size() > kLargestSource) return refusal(Texts::kTooLarge);
    // White space of one byte would shift all that follows.
    if (isMarkedUtf32(text)) return refusal(Texts::kUtf32);
    if (utf16OrderOf(text)) return refusal(Texts::kBrokenUtf16);
    const std::size_t nul = text.find('\0');
    if (nul != std::string::npos) return refusal(Texts::kHoldsNul, positionOf(text, nul));
    return std::nullopt;
}

/// Learns from the reports of progress how far a run came.
class StageWatcher : public Norvane::UpdateFunctor {
public:
    explicit StageWatcher(Norvane::UpdateFunctor& next) : next_(next) {}

    bool operator()(const std::string& step) override {
        ++stages_;
        return next_(step);
    }
    /// The source has been parsed without a fault.
    bool sourceParsed() const { return stages_ > 1; }

private:
    Norvane::UpdateFunctor& next_;
    int stages_ = 0;
};

} // namespace

FormatJob::FormatJob(const Workbench& bench, const std::string& shownName, std::string fullName,
                     FileProgressDlg* dialog)
    : bench_(bench), messages_(bench.host, bench.options), fullName_(std::move(fullName)), dialog_(dialog),
      update_(dialog, shownName) {}

bool FormatJob::pump() {
    if (dialog_ != nullptr) bench_.host.pump();
    return !isCancelled();
}

bool FormatJob::tell(std::string_view step) {
    // Without a dialog there is nobody to show it to, and nobody who could have cancelled.
    return dialog_ == nullptr || update_(std::string(step));
}

void FormatJob::send(std::uint32_t severity, std::string_view format) {
    messages_.send({severity, filled(format, {fullName_}), fullName_});
}

void FormatJob::sendAndShow(std::string_view format) {
    messages_.sendAndShow(filled(format, {fullName_}), fullName_);
}

FormatResult FormatJob::guarded(const std::function<FormatResult()>& action) {
    try {
        return action();
    } catch (...) {
        const std::string text = currentExceptionText();
        messages_.send({Trn::kSeverityError, text + filled(Texts::kFileEnding, {fullName_}), fullName_});
        return FormatResult::failed;
    }
}

FormatResult FormatJob::run(const Norvane::PropertySet& scheme, std::string text, const Store& store) {
    if (!pump()) return FormatResult::cancelled;
    const auto source = std::make_shared<const Zelmar::SourceText>(std::move(text));
    std::string result;
    Trn::MessageList messages;
    if (!format(scheme, source, result, messages)) return refuse(messages);
    if (!bench_.lines.empty()) {
        std::int32_t tabSize = 1;
        scheme.getInt("TAB_SIZE", tabSize);
        const std::string_view before = source->text();
        result = Edits::layOutWithin(before, result, Edits::bytesOf(before, bench_.lines), tabSize);
    }
    sendAll(messages);
    return finish(source->text(), result, store);
}

bool FormatJob::format(const Norvane::PropertySet& scheme, const Source& source, std::string& result,
                       Trn::MessageList& messages) {
    if (const auto fault = faultOf(source->text())) {
        messages.push_back(*fault);
        return false;
    }
    const Norvane::FormatOptions options(scheme, Norvane::defaultFormatMarkers());
    Norvane::UpdateFunctor silent;
    StageWatcher watcher(dialog_ == nullptr ? silent : update_);
    using Unreadable = Norvane::FormatDriver::Unreadable;
    Norvane::FormatDriver driver(bench_.isStrict ? Unreadable::Report : Unreadable::LeaveAlone);
    if (driver.format(options, source, result, messages, watcher) == 0) return true;
    // The laid out text is parsed once more before lines are wrapped.
    if (watcher.sourceParsed() && !isCancelled()) {
        for (Trn::Message& message : messages) message.text += Texts::kPlaceInResult;
    }
    return false;
}

FormatResult FormatJob::finish(std::string_view source, const std::string& result, const Store& store) {
    if (!tell(Texts::kWriting)) return FormatResult::cancelled;
    FormatResult outcome = FormatResult::unchanged;
    if (result != source) {
        if (isObjectedTo(source, result)) return FormatResult::refused;
        outcome = store(result);
    }
    tell(Texts::kCompleted);
    return outcome;
}

bool FormatJob::isObjectedTo(std::string_view source, const std::string& result) {
    if (!bench_.gate) return false;
    const auto objection = bench_.gate(fullName_, source, result);
    if (objection) {
        messages_.send({Trn::kSeverityError, objection->reason, fullName_, objection->position});
    }
    return objection.has_value();
}

void FormatJob::sendAll(const Trn::MessageList& messages) {
    for (const Trn::Message& message : messages) {
        messages_.send({message.severity, message.text, fullName_, message.position, message.code, true});
    }
}

FormatResult FormatJob::refuse(const Trn::MessageList& messages) {
    tell(Texts::kNotFormatted);
    sendAll(messages);
    // A run that was cancelled has parsed nothing that could be at fault.
    if (isCancelled()) return FormatResult::cancelled;
    send(Trn::kSeverityError, Texts::kNotParsed);
    return FormatResult::refused;
}

bool FormatJob::backUp(const std::string& path) {
    if (!bench_.options.createBackups) return true;
    const std::string extension = backupExtensionOf(bench_.options.backupExtension);
    if (isValidExtension(extension) && bench_.files.copy(path, path + '.' + extension).isDone()) return true;
    send(Trn::kSeverityError, Texts::kBackupFailed);
    return false;
}

} // namespace Addin
