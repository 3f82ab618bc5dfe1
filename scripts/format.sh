#!/usr/bin/env bash
# Builds Kerfline if need be and runs it: scripts/format.sh [options] FILE...
# Everything but the program's own output goes to standard error.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

"$top/scripts/setup.sh"
(cd "$top" && cmake --preset release -DKERFLINE_TESTS=OFF && cmake --build --preset release --target kerfline) >&2
exec "$top/build/release/cli/kerfline" "$@"
