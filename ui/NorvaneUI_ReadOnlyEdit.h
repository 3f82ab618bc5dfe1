#ifndef KERFLINE_NORVANEUI_READONLYEDIT_H
#define KERFLINE_NORVANEUI_READONLYEDIT_H

#include "ui/NorvaneUI_Preview.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// The preview field: text that can be looked at, with the lines marked that the last change of the
/// scheme touched.
///
///     const PreviewJob job = field.start(scheme, sample);
///     ... runPreview(job, &field.newest()), on this thread or another ...
///     field.finish(result);       // does nothing if a newer job was started meanwhile
class ReadOnlyEdit {
public:
    /// A new job. What is shown stays until it is finished.
    PreviewJob start(const Norvane::PropertySet& scheme, std::string_view source);
    /// Shows the result of the newest job and returns true. That of an older one is dropped.
    bool finish(const PreviewResult& result);
    /// Shows words in the place of code. Jobs that are under way are outdated.
    void showNote(std::string_view note);
    /// The next result is of another scheme or page: compared with what is shown now, it would say
    /// nothing of the change.
    void forgetLastChange() { comparable_ = false; }

    /// For the thread that runs jobs.
    const std::atomic<std::uint64_t>& newest() const { return newest_; }

    const std::string& text() const { return text_; }
    bool isNote() const { return isNote_; }
    /// Why the text stands there unformatted. Empty if it does not.
    const std::vector<std::string>& messages() const { return messages_; }
    /// Lines of text(), counted from 0, in rising order.
    const std::vector<std::size_t>& touchedLines() const { return touchedLines_; }

private:
    std::atomic<std::uint64_t> newest_ = 0;
    // Of the newest job.
    std::string source_;
    // What is shown.
    std::string text_;
    std::string shownSource_;
    bool isNote_ = true;
    bool comparable_ = false;
    std::vector<std::string> messages_;
    std::vector<std::size_t> touchedLines_;
};

} // namespace NorvaneUI

#endif
