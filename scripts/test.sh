#!/usr/bin/env bash
# Builds Kerfline and runs all its tests: scripts/test.sh [release|debug|sanitizers]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-debug}

scripts/setup.sh --windows
cmake --preset "$preset" -DKERFLINE_TESTS=ON
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)"
