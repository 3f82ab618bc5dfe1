#include "tests/format/runner/GoldenEngine.h"

#include "src/Norvane_FormatDriver.h"
#include "src/Norvane_UpdateFunctor.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <sstream>

namespace Golden {

Engine::Engine(const Norvane::PropertySet& scheme) : options_(scheme, Norvane::defaultFormatMarkers()) {}

Outcome Engine::format(const std::string& text) const {
    std::istringstream in(text);
    std::ostringstream out;
    Norvane::UpdateFunctor update;
    Outcome outcome;
    if (Norvane::FormatDriver().format(options_, in, out, outcome.messages, update) == 0) {
        outcome.text = std::move(out).str();
    }
    return outcome;
}

} // namespace Golden
