#include "bench/Bench_Memory.h"
#include "bench/Bench_Stages.h"
#include "bench/Bench_Texts.h"
#include "cli/run/Cli_Memory.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>
#include <string>

// Times every stage on every text. A result counts only if it is right: a stage checks what it made
// before its time is taken. Counters beside the time:
//   ratio2x    time for twice the text over time for the text; above 2.3 the cost outgrows the text
//   held_B     most memory from the heap that one run holds at a time, its result included, in bytes
//              for each byte of the text
//   allocs_kB  how often one run asks for memory, for each 1000 bytes of the text
// Time depends on the machine. What does not is told by the count of instructions:
//   valgrind --tool=callgrind kerfline_bench --benchmark_filter=format/large --benchmark_min_time=0

namespace {

using Bench::Stage;
using Bench::Text;
using StageMaker = std::function<std::unique_ptr<Stage>()>;

/// Time of the processor, which a busy machine does not add to.
double secondsOf(Stage& stage, const std::string& text) {
    const std::clock_t start = std::clock();
    stage.run(text);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The best of several pairs of runs, taken in turns, so that a change of clock falls on both alike.
double ratioOfTwice(Stage& stage, const std::string& once, const std::string& twice) {
    constexpr int kFewest = 3;
    constexpr int kMost = 200;
    constexpr double kEnoughSeconds = 0.5;
    double bestOnce = std::numeric_limits<double>::max();
    double bestTwice = bestOnce;
    double spent = 0;
    for (int i = 0; i < kMost && (i < kFewest || spent < kEnoughSeconds); ++i) {
        const double onceSeconds = secondsOf(stage, once);
        const double twiceSeconds = secondsOf(stage, twice);
        bestOnce = std::min(bestOnce, onceSeconds);
        bestTwice = std::min(bestTwice, twiceSeconds);
        spent += onceSeconds + twiceSeconds;
    }
    return bestTwice / bestOnce;
}

Bench::MemoryCount memoryOf(const StageMaker& make, const std::string& text) {
    Bench::startMemoryCount();
    make()->run(text);
    return Bench::stopMemoryCount();
}

void measure(benchmark::State& state, const StageMaker& make, const Text& text) {
    const std::string once = text.make(1);
    const std::string twice = text.make(2);
    const std::unique_ptr<Stage> stage = make();
    for (const std::string& source : {std::cref(once), std::cref(twice)}) {
        stage->run(source);
        const std::string fault = stage->check(source);
        if (!fault.empty()) {
            state.SkipWithError(fault.c_str());
            return;
        }
    }
    for (auto _ : state) stage->run(once);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(once.size()));
    state.counters["text_MB"] = static_cast<double>(once.size()) / 1e6;
    state.counters["ratio2x"] = ratioOfTwice(*stage, once, twice);
    const Bench::MemoryCount memory = memoryOf(make, once);
    const auto size = static_cast<double>(once.size());
    state.counters["held_B"] = static_cast<double>(memory.peakBytes) / size;
    state.counters["allocs_kB"] = 1e3 * static_cast<double>(memory.allocations) / size;
}

void add(const std::string& name, const Text& text, const StageMaker& make) {
    const std::string full = name + "/" + std::string(text.name);
    benchmark::RegisterBenchmark(full.c_str(), [make, &text](benchmark::State& state) {
        measure(state, make, text);
    })->Unit(benchmark::kMillisecond);
}

template <class Made, class... Args> StageMaker maker(const Args&... args) {
    return [args...] { return std::make_unique<Made>(args...); };
}

void addAll() {
    const Norvane::PropertySet scheme = Bench::shippedScheme("default", false);
    const Norvane::PropertySet wrapping = Bench::shippedScheme("default", true);
    for (const Text& text : Bench::texts()) {
        add("lex", text, maker<Bench::LexStage>());
        add("check", text, maker<Bench::CheckStage>());
        add("parse", text, maker<Bench::ParseStage>());
        add("copy", text, maker<Bench::FormatStage>(Norvane::PropertySet()));
        add("format", text, maker<Bench::FormatStage>(scheme));
    }
    for (const Text& text : Bench::wrapTexts()) {
        add("wrap_off", text, maker<Bench::FormatStage>(scheme));
        add("wrap_on", text, maker<Bench::FormatStage>(wrapping));
    }
}

} // namespace

int main(int argc, char** argv) try {
    Cli::keepFreedMemory();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    addAll();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
} catch (const std::exception& error) {
    std::cerr << "kerfline_bench: " << error.what() << '\n';
    return 1;
}
