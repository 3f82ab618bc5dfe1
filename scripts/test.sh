#!/usr/bin/env bash
# Builds Kerfline and runs all its tests: scripts/test.sh [release|debug|sanitizers]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-debug}

scripts/setup.sh --windows --editors
# The benchmark is built where its numbers would mean something, so that it keeps up with the code.
bench=OFF
[ "$preset" != release ] || bench=ON
cmake --preset "$preset" -DKERFLINE_TESTS=ON -DKERFLINE_BENCH="$bench"
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)"
