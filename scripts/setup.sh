#!/usr/bin/env bash
# Installs what is missing to build Kerfline on Debian: scripts/setup.sh [--windows] [--editors] [--fuzz]
# The windows of the options, with Qt, are built only with --windows, or where Qt is already. The editors
# are for the tests of their recipes, which are skipped without them; clang builds the fuzz targets.
# docs/dependencies.md has the reason for each package.
set -euo pipefail

packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libgtest-dev libbenchmark-dev)
for choice in "$@"; do
    case $choice in
    --windows) packages+=(qt6-base-dev fonts-dejavu-core) ;;
    --editors) packages+=(vim emacs-nox) ;;
    --fuzz) packages+=(clang libclang-rt-14-dev) ;;
    *) echo "setup.sh knows --windows, --editors and --fuzz, and no $choice" >&2; exit 2 ;;
    esac
done

missing=()
for package in "${packages[@]}"; do
    dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing ${missing[*]}" >&2
"${as_root[@]}" apt-get update -qq >&2
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
