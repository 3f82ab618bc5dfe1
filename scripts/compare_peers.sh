#!/bin/bash
# Times kerfline, with and without wrapping, and the other formatters that are installed on the same
# files, in one run, and prints a table. Each program reads the file from its standard input and
# writes the result. What counts is the time of the processor, which a busy machine does not add to,
# and the best of several rounds, each of which takes every program once.
#
#   scripts/compare_peers.sh [BUILD_FOLDER [FILE...]]
#
# Without files it takes the texts of the benchmark (needs a build with KERFLINE_BENCH on).
# From the environment: ROUNDS, the number of rounds (5), and LIMIT, the seconds after which a program
# is stopped and out of the race (20).
set -u
export LC_ALL=C

build=${1:-build/release}
[ $# -gt 0 ] && shift
rounds=${ROUNDS:-5}
limit=${LIMIT:-20}

find_in_build() {
    local candidate
    for candidate in "$build/cli/$1" "$build/bench/$1" "$build/bin/$1" "$build/$1"; do
        [ -x "$candidate" ] && echo "$candidate" && return 0
    done
    return 1
}

kerfline=$(find_in_build kerfline) || { echo "no kerfline below $build: build it first" >&2; exit 2; }
work=$(mktemp -d) || exit 3
trap 'rm -rf "$work"' EXIT

files=("$@")
if [ ${#files[@]} -eq 0 ]; then
    writer=$(find_in_build kerfline_bench_text) || {
        echo "no benchmark below $build: configure with -DKERFLINE_BENCH=ON, or name files" >&2
        exit 2
    }
    for text in c_functions cpp_classes table_10000_rows one_line_functions_5000; do
        case $text in cpp_*) name=$work/$text.cpp ;; *) name=$work/$text.c ;; esac
        "$writer" "$text" > "$name" || exit 3
        files+=("$name")
    done
fi

# Without options uncrustify does next to nothing, so it gets the everyday ones.
cat > "$work/uncrustify.cfg" <<'CONFIG'
indent_columns = 4
indent_with_tabs = 0
sp_arith = force
sp_assign = force
sp_compare = force
sp_bool = force
sp_after_comma = force
sp_before_sparen = force
nl_if_brace = remove
nl_fdef_brace = add
CONFIG

# indent is made for C and stops at C++.
programs=(kerfline kerfline-nowrap)
for peer in astyle uncrustify indent clang-format; do
    command -v "$peer" > /dev/null && programs+=("$peer")
done

run_program() { # program, file
    local language=C
    case $2 in *.cpp | *.cc | *.cxx | *.hpp | *.hh) language=CPP ;; esac
    case $1 in
    kerfline) timeout "$limit" "$kerfline" --scheme default - < "$2" ;;
    kerfline-nowrap) timeout "$limit" "$kerfline" --scheme default --set LINE_WRAP=0 - < "$2" ;;
    astyle) timeout "$limit" astyle --style=kr < "$2" ;;
    uncrustify) timeout "$limit" uncrustify -q -c "$work/uncrustify.cfg" -l $language < "$2" ;;
    indent) [ $language = C ] && timeout "$limit" indent -kr -nut -st < "$2" ;;
    clang-format) timeout "$limit" clang-format --style=LLVM --assume-filename="$2" < "$2" ;;
    esac
}

visible() { tr -d ' \t\n\v\f\r' < "$1"; }

# Prints the milliseconds of the processor that the program takes; its result goes to a file.
milliseconds_of() { # program, file
    local TIMEFORMAT='%3U %3S'
    { time run_program "$1" "$2" > "$work/result" 2> "$work/errors"; } 2> "$work/time"
    local status=$?
    awk '{ printf "%d\n", ($1 + $2) * 1000 + 0.5 }' "$work/time"
    return $status
}

declare -A best kept failed
time_file() { # file
    local round program spent
    best=() kept=() failed=()
    for ((round = 0; round < rounds; round++)); do
        for program in "${programs[@]}"; do
            [ -n "${failed[$program]-}" ] && continue
            spent=$(milliseconds_of "$program" "$1") || { failed[$program]=$?; continue; }
            if [ $round -eq 0 ]; then
                kept[$program]=changed
                cmp -s <(visible "$1") <(visible "$work/result") && kept[$program]=kept
            fi
            if [ -z "${best[$program]-}" ] || [ "$spent" -lt "${best[$program]}" ]; then best[$program]=$spent; fi
        done
    done
}

print_file() { # file
    local program size
    size=$(stat -c %s "$1")
    printf '%s (%s bytes)\n' "$(basename "$1")" "$size"
    printf '    %-16s %10s %10s %12s   %s\n' program seconds MB/s "of kerfline" "characters"
    for program in "${programs[@]}"; do
        if [ -n "${failed[$program]-}" ]; then
            local why="not for this file"
            [ "${failed[$program]}" -eq 124 ] && why="stopped after $limit s"
            printf '    %-16s %10s %10s %12s   %s\n' "$program" - - - "$why"
            continue
        fi
        awk -v p="$program" -v t="${best[$program]}" -v k="${best[kerfline]-0}" -v s="$size" -v w="${kept[$program]}" \
            'BEGIN { t = t ? t : 1; k = k ? k : 1
                     printf "    %-16s %10.3f %10.1f %11.2fx   %s\n", p, t / 1e3, s / t / 1e3, t / k, w }'
    done
}

status=0
echo "Best of $rounds rounds. \"characters\" says whether all but the white space came out as it went in."
for file in "${files[@]}"; do
    [ -r "$file" ] || { echo "cannot read $file" >&2; status=3; continue; }
    time_file "$file"
    echo
    print_file "$file"
    [ "${kept[kerfline]-}" = kept ] || status=1
done
exit $status
