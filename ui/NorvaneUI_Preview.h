#ifndef KERFLINE_NORVANEUI_PREVIEW_H
#define KERFLINE_NORVANEUI_PREVIEW_H

#include "src/scheme/Norvane_PropertySet.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// A text to be formatted with a scheme. It holds copies of both, so that it can be run on any
/// thread while the user goes on editing.
struct PreviewJob {
    /// Grows from job to job.
    std::uint64_t generation = 0;
    Norvane::PropertySet scheme;
    std::string text;
};

struct PreviewResult {
    std::uint64_t generation = 0;
    /// The formatted text, or the text as it was if it could not be formatted.
    std::string text;
    bool formatted = false;
    /// Why it could not, one message to a line of a list.
    std::vector<std::string> messages;
};

/// Runs the whole of the engine. Throws nothing and touches nothing but its arguments. `newest`, if
/// given, is the generation of the newest job: a run for an older one ends early, unformatted.
PreviewResult runPreview(const PreviewJob& job, const std::atomic<std::uint64_t>* newest = nullptr);

/// The lines of `after`, counted from 0, that differ from `before` in white space; one that was
/// broken off another counts, and so does the one that it was broken off. Empty if the two differ in
/// more than white space, since they are two texts then and not two layouts of one.
std::vector<std::size_t> touchedLines(std::string_view before, std::string_view after);

/// The text with a mark for each blank and each tab and in front of each line end, in UTF-8. A tab
/// keeps its width under its mark.
std::string withVisibleWhiteSpace(std::string_view text);

} // namespace NorvaneUI

#endif
