#include "addin/Addin_FileFormatter.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_SourceForm.h"
#include "addin/Addin_Texts.h"
#include "files/Zelmar_Trace.h"

namespace Addin {

using NorvaneUI::FileKind;
using NorvaneUI::FileStatus;

FormatResult FileFormatter::format(const std::string& path, const Norvane::PropertySet& scheme,
                                   FileProgressDlg* dialog, ExtensionTest test) {
    Zelmar::Trace trace("FormatFile");
    Zelmar::Trace::switchOff();
    FormatJob job(bench_, path, path, dialog);
    if (!job.pump() || !job.tell(Texts::kOpening)) return FormatResult::cancelled;
    if (test == ExtensionTest::apply && !isListedExtension(path, bench_.options.fileExtensions)) {
        trace << "Wrong file extension";
        return FormatResult::skipped;
    }
    job.send(Trn::kSeverityInformation, Texts::kFormatting);
    return job.guarded([&] { return formatExisting(job, path, scheme); });
}

FormatResult FileFormatter::formatExisting(FormatJob& job, const std::string& path,
                                           const Norvane::PropertySet& scheme) {
    const auto status = bench_.files.status(path);
    const bool denied = !status && status.failure().kind == FailureKind::denied;
    if (status && status->kind == FileKind::missing) {
        job.send(Trn::kSeverityError, Texts::kNotFound);
        return FormatResult::failed;
    }
    const bool isRegular = status && status->kind == FileKind::regular;
    if (denied || (isRegular && !(status->readable && status->writable))) {
        job.send(Trn::kSeverityError, Texts::kNoPermissions);
        return FormatResult::failed;
    }
    if (!status || (isRegular && status->size == 0)) return FormatResult::skipped;
    return formatRegular(job, path, *status, scheme);
}

FormatResult FileFormatter::formatRegular(FormatJob& job, const std::string& path, const FileStatus& seen,
                                          const Norvane::PropertySet& scheme) {
    const Result<std::string> bytes = seen.kind == FileKind::regular
                                          ? bench_.files.read(path)
                                          : Result<std::string>(Failure{FailureKind::unsupported});
    if (!bytes) {
        job.sendAndShow(Texts::kUnreadable);
        return FormatResult::failed;
    }
    const SourceForm form(*bytes);
    return job.run(scheme, form.textOf(*bytes), [&](const std::string& result) {
        if (!job.backUp(path)) return FormatResult::failed;
        if (bench_.files.replace(path, form.bytesOf(result), seen).isDone()) return FormatResult::formatted;
        job.send(Trn::kSeverityError, Texts::kUnwritable);
        return FormatResult::failed;
    });
}

} // namespace Addin
