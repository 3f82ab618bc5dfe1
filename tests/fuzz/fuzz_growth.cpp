#include "tests/format/runner/GoldenEngine.h"
#include "tests/fuzz/Fuzz_Input.h"
#include "tests/fuzz/Fuzz_Report.h"

#include <ctime>
#include <string>

namespace {

constexpr std::size_t kShort = std::size_t{1} << 14;
constexpr std::size_t kLong = std::size_t{1} << 17;

double secondsFor(const Golden::Engine& engine, const std::string& piece, std::size_t size) {
    std::string text;
    text.reserve(size + piece.size());
    while (text.size() < size) text += piece;
    const std::clock_t start = std::clock();
    engine.format(text);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

} // namespace

// The same piece over and over: what costs the square of the length shows in how the time grows. Times
// are those of the processor, so that other work on the machine does not count, and of the better of two runs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::Input input = Fuzz::inputOf(data, size);
    if (input.source.empty()) return 0;
    const Golden::Engine engine(input.scheme);
    constexpr double kFew = 0.3;
    constexpr double kGrowth = 3 * static_cast<double>(kLong) / kShort;
    const double shortTime = secondsFor(engine, input.source, kShort);
    double longTime = secondsFor(engine, input.source, kLong);
    if (longTime > kFew + kGrowth * shortTime) longTime = secondsFor(engine, input.source, kLong);
    Fuzz::require(longTime <= kFew + kGrowth * shortTime, "time grows faster than the text",
                  std::to_string(shortTime) + " s and " + std::to_string(longTime) + " s\n" + Fuzz::describe(input));
    return 0;
}
