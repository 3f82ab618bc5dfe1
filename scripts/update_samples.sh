#!/bin/bash
# Rewrites the results in a page of samples with what the program makes of their sources now. With
# --check it changes nothing, and fails if a result is out of date.
#
#   scripts/update_samples.sh [--check] KERFLINE PAGE.md
#
# In the page, a code block behind the line "<!-- source -->" is a source. One behind the line
# "<!-- result: NAME=VALUE ... -->" is what becomes of the last source under the scheme knr with these
# options set. A value has no blank in it; "~" stands for one. "scheme=NAME" takes another scheme.
set -u
export LC_ALL=C

check=
[ "${1:-}" = --check ] && { check=yes; shift; }
[ $# -eq 2 ] || { sed -n '2,10s/^# \{0,1\}//p' "$0"; exit 2; }
kerfline=$1
page=$2
work=$(mktemp -d) || exit 3
trap 'rm -rf "$work"' EXIT

lay_out() { # NAME=VALUE... ; the source is in $work/source
    local edits=() option scheme=knr
    for option in "$@"; do
        case $option in
        scheme=*) scheme=${option#scheme=} ;;
        *) edits+=(--set "${option//\~/ }") ;;
        esac
    done
    "$kerfline" --scheme "$scheme" ${edits[@]+"${edits[@]}"} - < "$work/source"
}

# What the block that comes next is: text, source or result.
kind=text
within=
while IFS= read -r line; do
    case $line in
    '<!-- source -->') kind=source ;;
    '<!-- result: '*' -->')
        kind=result
        options=${line#<!-- result: }
        options=${options% -->}
        ;;
    '```'*)
        if [ -n "$within" ]; then
            within=
            kind=text
        else
            within=$kind
            [ "$kind" = source ] && : > "$work/source"
            if [ "$kind" = result ]; then
                echo "$line"
                # The options are split at their blanks.
                # shellcheck disable=SC2086
                lay_out $options || exit 4
                continue
            fi
        fi
        ;;
    *)
        [ "$within" = source ] && echo "$line" >> "$work/source"
        [ "$within" = result ] && continue
        ;;
    esac
    echo "$line"
done < "$page" > "$work/page" || { echo "$page: a source cannot be laid out" >&2; exit 4; }

cmp -s "$work/page" "$page" && exit 0
if [ -n "$check" ]; then
    diff -u "$page" "$work/page" >&2
    echo "$page is out of date: run scripts/update_samples.sh $kerfline $page" >&2
    exit 1
fi
cat "$work/page" > "$page"
