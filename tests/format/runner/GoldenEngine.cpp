#include "tests/format/runner/GoldenEngine.h"

#include "src/Norvane_UpdateFunctor.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <sstream>

namespace Golden {

Engine::Engine(const Norvane::PropertySet& scheme, Unreadable unreadable)
    : options_(scheme, Norvane::defaultFormatMarkers()), unreadable_(unreadable) {}

Outcome Engine::format(const std::string& text) const {
    std::istringstream in(text);
    std::ostringstream out;
    Norvane::UpdateFunctor update;
    Outcome outcome;
    if (Norvane::FormatDriver(unreadable_).format(options_, in, out, outcome.messages, update) == 0) {
        outcome.text = std::move(out).str();
    }
    return outcome;
}

} // namespace Golden
