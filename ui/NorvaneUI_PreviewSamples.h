#ifndef KERFLINE_NORVANEUI_PREVIEWSAMPLES_H
#define KERFLINE_NORVANEUI_PREVIEWSAMPLES_H

#include <optional>
#include <string_view>

namespace NorvaneUI {

/// The sample of source code that a page shows its options on. Nothing if there is none of the name.
std::optional<std::string_view> previewSample(std::string_view previewName);

} // namespace NorvaneUI

#endif
