#!/usr/bin/env bash
# Resident memory of the app over many runs, each through the real file dialog
# and followed by Clear, and over many cancelled choices, on a private X
# server: the growth per run once the first ones have warmed the caches.
#   bench/memory/run.sh BUILD_DIR [RUNS]
set -euo pipefail

build_dir=${1:?usage: bench/memory/run.sh BUILD_DIR [RUNS]}
runs=${2:-300}
here=$(cd "$(dirname "$0")" && pwd)
app=$(realpath "$build_dir/app/tovarin")
data=$(realpath "$here/../../examples/worked-example.txt")
# shellcheck source=../../scripts/xvfb.sh
source "$here/../../scripts/xvfb.sh"
# shellcheck source=../../scripts/x-windows.sh
source "$here/../../scripts/x-windows.sh"
fail() { echo "error: $*" >&2 && exit 1; }

start_xvfb
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE WAYLAND_DISPLAY
QT_QPA_PLATFORM=xcb "$app" >/dev/null 2>&1 &
app_pid=$!
trap 'kill "$app_pid" 2>/dev/null; stop_xvfb' EXIT
click_at "$(wait_for "the splash" window_sized 450 350)" 225 175
main=$(wait_for "the main window" window_named Velmoran)
eval "$(xdotool getwindowgeometry --shell "$main")"
dy=$((HEIGHT - 600))
sleep 4.5 # past the splash's timer, which brings the main window to the front again
rss() { awk '/^VmRSS/ { print $2 }' "/proc/$app_pid/status"; }

# ACTION: "run" chooses the data file and clears the results after; "cancel" cancels the dialog.
measure() {
    local action=$1 warm=$((runs / 5)) i start=
    for ((i = 1; i <= runs; i++)); do
        [ "$i" -ne $((warm + 1)) ] || start=$(rss)
        focus "$main"
        click_at "$main" 260 $((dy + 176)) && xdotool key ctrl+a && xdotool type 3
        click_at "$main" 107 $((dy + 555))
        dialog=$(wait_for "the file dialog" other_window "$main")
        focus "$dialog"
        if [ "$action" = run ]; then
            xdotool key ctrl+a && xdotool type --delay 2 "$data" && xdotool key Return
            # A Return taken by the list of completions only completes the name: press it again.
            for _ in 1 2 3 4 5 6 7 8 9 10; do [ -z "$(window_gone "$dialog")" ] || break; sleep 0.1; done
            [ -n "$(window_gone "$dialog")" ] || xdotool key Return
        else
            xdotool key Escape
        fi
        wait_for "the file dialog to close" window_gone "$dialog" >/dev/null
        [ "$action" != run ] || { focus "$main" && click_at "$main" 350 $((dy + 555)); }
    done
    local end
    end=$(rss)
    awk -v a="$action" -v n=$((runs - warm)) -v s="$start" -v e="$end" \
        'BEGIN { printf "%-7s %d after warm-up: %d KiB to %d KiB, %.1f KiB each\n", a, n, s, e, (e - s) / n }'
}
measure run
measure cancel
