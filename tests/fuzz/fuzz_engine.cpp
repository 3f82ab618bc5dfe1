#include "guard/Guard_Difference.h"
#include "tests/format/runner/GoldenEngine.h"
#include "tests/fuzz/Fuzz_Input.h"
#include "tests/fuzz/Fuzz_Report.h"
#include "tests/fuzz/Fuzz_Soundness.h"

// Any source under any scheme: nothing is lost, and what a shipped scheme has laid out stays as it is. Only of a
// source that no compiler reads is more not asked than that the engine comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::Input input = Fuzz::inputOf(data, size);
    const Golden::Engine engine(input.scheme);
    const Golden::Outcome first = engine.format(input.source);
    if (!first.text) {
        Fuzz::require(!first.messages.empty(), "refused without a word", Fuzz::describe(input));
        return 0;
    }
    if (!Fuzz::isSound(input.source)) return 0;
    if (const auto difference = Guard::firstDifference(input.source, *first.text)) {
        Fuzz::fail(difference->reason, Fuzz::describe(input) + "\n<<<\n" + *first.text);
    }
    if (!input.isShipped) return 0;
    const Golden::Outcome second = engine.format(*first.text);
    Fuzz::require(second.text.has_value(), "a second run refuses the result", Fuzz::describe(input) + "\n<<<\n" + *first.text);
    Fuzz::require(*second.text == *first.text, "a second run changes the result",
                  Fuzz::describe(input) + "\n<<<\n" + *first.text + "\n<<<\n" + *second.text);
    return 0;
}
