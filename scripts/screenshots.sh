#!/usr/bin/env bash
# Pictures of the options window, made without a screen:
#
#   scripts/screenshots.sh PROGRAM FOLDER     each page in two sizes and two palettes
#   scripts/screenshots.sh PROGRAM            the few in docs/images, anew
#
# PROGRAM is kerfline-options. Settings and schemes of the user are neither read nor written.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

[ $# -ge 1 ] || { sed -n '2,7s/^# \{0,1\}//p' "$0" >&2; exit 2; }
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
folder=${2:-$work/pictures}
mkdir -p "$folder"

# One font and one size everywhere, so that pictures differ only where the window does.
XDG_CONFIG_HOME=$work/configuration XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 \
    timeout 120 "$program" --screenshots "$folder" 2> "$work/errors" || { cat "$work/errors" >&2; exit 1; }

# Thirteen pages, five states and the settings, in four looks.
count=$(find "$folder" -name '*.png' -size +4k | wc -l)
[ "$count" -ge 76 ] || { echo "only $count pictures were made" >&2; exit 1; }

if [ $# -eq 1 ]; then
    mkdir -p "$top/docs/images"
    cp "$folder/1280-light-Editing.png" "$top/docs/images/options-light.png"
    cp "$folder/1280-dark-Editing.png" "$top/docs/images/options-dark.png"
    cp "$folder/1000-light-Settings.png" "$top/docs/images/settings.png"
fi
