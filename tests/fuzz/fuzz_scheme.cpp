#include "schemes/NorvaneUI_SchemeChecker.h"
#include "schemes/NorvaneUI_SchemeConversion.h"
#include "tests/fuzz/Fuzz_Report.h"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>

namespace {

std::string written(const Norvane::PropertySet& scheme) {
    std::ostringstream out;
    scheme.write(out);
    return out.str();
}

} // namespace

// What the checker lets pass can be read, and what was read is the same when it was written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const auto problems = NorvaneUI::checkSchemeText(text);
    const bool isSound = std::all_of(problems.begin(), problems.end(), [](const auto& problem) { return problem.isWarning; });
    std::istringstream in(text);
    Norvane::PropertySet scheme(in);
    if (in.fail()) {
        Fuzz::require(!isSound, "no error is told of a scheme that cannot be read", text);
        return 0;
    }
    const std::string once = written(scheme);
    std::istringstream again(once);
    const std::string twice = written(Norvane::PropertySet(again));
    Fuzz::require(once == twice, "a scheme that was written reads as another one", text + "\n---\n" + once + "\n---\n" + twice);
    NorvaneUI::convertScheme(scheme);
    std::istringstream converted(written(scheme));
    Fuzz::require(written(Norvane::PropertySet(converted)) == written(scheme), "a converted scheme reads as another one", text);
    return 0;
}
