#!/usr/bin/env bash
# Start-up cost of Tovarin against a bare Qt window: time from exec to the
# first window on screen, and peak resident memory at that moment.
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

# shellcheck source=../../tests/e2e/xvfb.sh
source "$here/../../tests/e2e/xvfb.sh"
trap stop_xvfb EXIT
start_xvfb
# A desktop session's theme settings would make the two programs load different things.
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb

measure() { # NAME PROGRAM -> "NAME ms kib"
    local out
    out=$("$timer" --display "$DISPLAY" --runs "$runs" -- "$2")
    echo "$out" | sed "s/^/  $1: /" >&2
    echo "$out" | awk -v name="$1" '/^median/ {
        split($2, t, "="); split($3, m, "="); print name, t[2], m[2] }'
}

echo "Xvfb $DISPLAY, $runs runs each" >&2
bare_line=$(measure bare "$bare")
app_line=$(measure tovarin "$app")

echo
printf '%-10s %12s %14s\n' program "median ms" "peak KiB"
read -r _ bare_ms bare_kib <<<"$bare_line"
read -r _ app_ms app_kib <<<"$app_line"
printf '%-10s %12s %14s\n' bare "$bare_ms" "$bare_kib" tovarin "$app_ms" "$app_kib"
awk -v am="$app_ms" -v bm="$bare_ms" -v ak="$app_kib" -v bk="$bare_kib" 'BEGIN {
    printf "ratio tovarin/bare: time %.2f, memory %.2f (target: both <= 1.30)\n", am / bm, ak / bk }'
