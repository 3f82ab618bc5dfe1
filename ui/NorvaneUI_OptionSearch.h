#ifndef KERFLINE_NORVANEUI_OPTIONSEARCH_H
#define KERFLINE_NORVANEUI_OPTIONSEARCH_H

#include "src/scheme/Norvane_PropertyCatalogue.h"
#include "ui/NorvaneUI_PageTable.h"

#include <string_view>
#include <vector>

namespace NorvaneUI {

struct SearchHit {
    const Norvane::PropertyInfo* option = nullptr;
    /// Null for an option without a control.
    const PageInfo* page = nullptr;
};

/// Options in whose label, name or explanation every word of `text` occurs, whatever the case of
/// ASCII letters. Those with all words in label and name come first, else in the order of the pages.
/// None for a text without words.
std::vector<SearchHit> searchOptions(std::string_view text);

} // namespace NorvaneUI

#endif
