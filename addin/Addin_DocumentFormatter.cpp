#include "addin/Addin_DocumentFormatter.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "files/Zelmar_Trace.h"

namespace Addin {

namespace {

/// What stands in messages about a document.
std::string fullNameOf(const DocumentInfo& info) {
    if (!info.path.empty()) return info.path;
    return info.name.empty() ? std::string(Texts::kUnknownName) : info.name;
}

std::string shownNameOf(const DocumentInfo& info, Occasion occasion) {
    if (occasion == Occasion::command) return std::string(Texts::kActiveDocument);
    return info.name.empty() ? std::string(Texts::kUnknownName) : info.name;
}

/// Puts the cursor back to its line and column, whatever has become of the text.
class CursorKeeper {
public:
    CursorKeeper(Host& host, Document document)
        : host_(host), document_(document), cursor_(host.cursor(document)) {}
    CursorKeeper(const CursorKeeper&) = delete;
    CursorKeeper& operator=(const CursorKeeper&) = delete;
    ~CursorKeeper() {
        if (cursor_) host_.setCursor(document_, *cursor_);
    }

private:
    Host& host_;
    Document document_;
    Result<Cursor> cursor_;
};

} // namespace

FormatResult DocumentFormatter::FormatDocument(Document document, const Norvane::PropertySet& scheme,
                                               FileProgressDlg* dialog, Occasion occasion) {
    const Zelmar::Trace trace("FormatDocument");
    Zelmar::Trace::switchOff();
    const auto info = bench_.host.document(document);
    const DocumentInfo known = info ? *info : DocumentInfo();
    FormatJob job(bench_, shownNameOf(known, occasion), fullNameOf(known), dialog);
    if (!job.pump() || !job.tell(Texts::kOpening)) return FormatResult::cancelled;
    if (!info) {
        job.send(Trn::kSeverityError, Texts::kNoText);
        return FormatResult::failed;
    }
    return job.guarded([&] { return formatOpen(job, document, known, scheme, occasion); });
}

FormatResult DocumentFormatter::formatOpen(FormatJob& job, Document document, DocumentInfo info,
                                           const Norvane::PropertySet& scheme, Occasion occasion) {
    if (const auto end = endForbidden(job, info, occasion)) return *end;
    job.send(Trn::kSeverityInformation, Texts::kFormatting);
    if (const auto end = endUnsaved(job, document, info, occasion)) return *end;
    return formatText(job, document, info.path, scheme);
}

std::optional<FormatResult> DocumentFormatter::endForbidden(FormatJob& job, const DocumentInfo& info,
                                                            Occasion occasion) {
    if (!info.isText) {
        Zelmar::Trace("FormatDocument") << "The document did not have a TEXT_DOCUMENT_TYPE.\n";
        return FormatResult::skipped;
    }
    if (info.isReadOnly) {
        job.send(Trn::kSeverityInformation, Texts::kReadOnlyDocument);
        return FormatResult::refused;
    }
    const std::string name = fullNameOf(info);
    if (isListedExtension(name, bench_.options.fileExtensions)) return std::nullopt;
    const Answer answer = bench_.host.ask(NorvaneUI::filled(Texts::kAskExtension, {name}), occasion);
    if (answer == Answer::yes) return std::nullopt;
    return FormatResult::skipped;
}

std::optional<FormatResult> DocumentFormatter::endUnsaved(FormatJob& job, Document document,
                                                          DocumentInfo& info, Occasion occasion) {
    if (!bench_.options.promptUnsaved || info.saved == Saved::yes) return std::nullopt;
    const Answer answer = bench_.host.ask(std::string(Texts::kAskSave), occasion);
    if (answer == Answer::no) return std::nullopt;
    if (answer == Answer::cancel) {
        Zelmar::Trace("FormatDocument") << "The document has not been saved.\n";
        return FormatResult::cancelled;
    }
    const Status saved = bench_.host.save(document);
    const auto now = bench_.host.document(document);
    if (!saved.isDone() || !now) {
        job.sendAndShow(Texts::kSaveFailed);
        return FormatResult::failed;
    }
    // A text that had no file may have got one.
    info = *now;
    job.setFullName(fullNameOf(info));
    return std::nullopt;
}

FormatResult DocumentFormatter::formatText(FormatJob& job, Document document, const std::string& path,
                                           const Norvane::PropertySet& scheme) {
    const CursorKeeper keeper(bench_.host, document);
    const auto source = bench_.host.text(document);
    if (!source) {
        job.send(Trn::kSeverityError, Texts::kNoText);
        return FormatResult::failed;
    }
    if (source->text.empty()) return FormatResult::skipped;
    return job.run(scheme, source->text, [&](const std::string& result) {
        if (!backUp(job, path)) return FormatResult::failed;
        if (bench_.host.replaceText(document, result, source->revision).isDone()) return FormatResult::formatted;
        job.send(Trn::kSeverityError, Texts::kUnwritable);
        return FormatResult::failed;
    });
}

/// A text that is not on the disk has nothing to back up.
bool DocumentFormatter::backUp(FormatJob& job, const std::string& path) {
    if (path.empty()) return true;
    const auto status = bench_.files.status(path);
    if (status && status->kind == NorvaneUI::FileKind::missing) return true;
    return job.backUp(path);
}

} // namespace Addin
