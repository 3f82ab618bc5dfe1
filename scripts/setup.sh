#!/usr/bin/env bash
# Installs what is missing to build Kerfline on Debian: scripts/setup.sh [--windows]
# The windows of the options, with Qt, are built only with --windows, or where Qt is already.
# docs/dependencies.md has the reason for each package.
set -euo pipefail

packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libgtest-dev libbenchmark-dev)
[ "${1:-}" = --windows ] && packages+=(qt6-base-dev fonts-dejavu-core)

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
