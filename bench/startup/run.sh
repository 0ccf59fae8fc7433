#!/usr/bin/env bash
# Start-up cost of Tovarin against a bare Qt window: time from exec to the
# first window on screen, processor time used until then, and peak resident
# memory at that moment.
#   bench/startup/run.sh BUILD_DIR [RUNS]
set -euo pipefail

build_dir=${1:?usage: bench/startup/run.sh BUILD_DIR [RUNS]}
runs=${2:-20}
here=$(cd "$(dirname "$0")" && pwd)
timer="$build_dir/bench/startup/window-map-timer"
bare="$build_dir/bench/startup/bare-window"
app="$build_dir/app/tovarin"
for f in "$timer" "$bare" "$app"; do
    [ -x "$f" ] || { echo "error: $f not built" >&2; exit 1; }
done

# shellcheck source=../../scripts/xvfb.sh
source "$here/../../scripts/xvfb.sh"
start_xvfb
# A desktop session's theme settings would make the two programs load different things.
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb

# Alternate the two programs run by run, so that a change in the machine's load
# during the benchmark falls on both alike.
samples=$(mktemp)
trap 'rm -f "$samples"; stop_xvfb' EXIT
echo "Xvfb $DISPLAY, $runs runs each, alternating" >&2
for ((i = 1; i <= runs; i++)); do
    for name in bare tovarin; do
        [ $name = bare ] && program=$bare || program=$app
        line=$("$timer" --display "$DISPLAY" --runs 1 -- "$program" | grep '^run ')
        echo "  $name: ${line/run 1/run $i}" >&2
        echo "$name $line" >>"$samples"
    done
done

median_of() { # NAME FIELD(ms|cpu_ms|peak_kib)
    grep "^$1 " "$samples" | grep -o " $2=[0-9.]*" | cut -d= -f2 | sort -g |
        awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'
}
bare_ms=$(median_of bare ms) bare_cpu=$(median_of bare cpu_ms) bare_kib=$(median_of bare peak_kib)
app_ms=$(median_of tovarin ms) app_cpu=$(median_of tovarin cpu_ms) app_kib=$(median_of tovarin peak_kib)
echo
printf '%-10s %12s %12s %12s\n' program "median ms" "cpu ms" "peak KiB" \
    bare "$bare_ms" "$bare_cpu" "$bare_kib" tovarin "$app_ms" "$app_cpu" "$app_kib"
awk -v am="$app_ms" -v bm="$bare_ms" -v ac="$app_cpu" -v bc="$bare_cpu" \
    -v ak="$app_kib" -v bk="$bare_kib" 'BEGIN {
    printf "ratio tovarin/bare: time %.2f, cpu time %.2f, memory %.2f (target: <= 1.30)\n",
        am / bm, ac / bc, ak / bk }'
