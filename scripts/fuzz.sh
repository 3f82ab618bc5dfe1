#!/usr/bin/env bash
# Gives the engine made-up inputs and looks for one that breaks a promise:
#   scripts/fuzz.sh [SECONDS] [TARGET...]
# Each target of tests/fuzz runs for SECONDS (60). What it learns stays in build/fuzz/corpus for the next time.
# An input that breaks something is kept in build/fuzz/found, and ends the run with status 1.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true

scripts/setup.sh --fuzz
cmake --preset fuzz
cmake --build --preset fuzz
cd build/fuzz
tests/fuzz/write_seeds corpus
mkdir -p found

[ $# -gt 0 ] || set -- fuzz_scanner fuzz_engine fuzz_growth fuzz_scheme fuzz_ignore
for target in "$@"; do
    echo "$target"
    # Asked for too much memory or stuck in one input: both count as found.
    "tests/fuzz/$target" "corpus/$target" -max_total_time="$seconds" -max_len=2048 -timeout=20 \
        -dict=../../tests/fuzz/cpp.dict -artifact_prefix="found/$target-" -print_final_stats=1 -verbosity=0 || {
        echo "$target found the input above. To run it again: build/fuzz/tests/fuzz/$target FILE" >&2
        exit 1
    }
done
