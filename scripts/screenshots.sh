#!/usr/bin/env bash
# Takes the screenshots in docs/ from the built application on a private X
# server: the splash, the main window at start, the main window with the
# worked example's report, and the Information window. With SCALE 2, as on a
# high-density screen (QT_SCALE_FACTOR=2): the splash and the report, as
# splash-2x.png and report-2x.png.
#   scripts/screenshots.sh BUILD_DIR [SCALE]
set -euo pipefail

build_dir=${1:?usage: scripts/screenshots.sh BUILD_DIR [SCALE]}
scale=${2:-1}
case $scale in 1) suffix= ;; 2) suffix=-2x ;; *) echo "error: SCALE is 1 or 2" >&2 && exit 1 ;; esac
at() { echo $(($1 * scale)); } # window coordinates at this scale
repo=$(cd "$(dirname "$0")/.." && pwd)
app=$(realpath "$build_dir/app/tovarin")
data_file="$repo/examples/worked-example.txt"
docs="$repo/docs"
for tool in Xvfb xdotool import; do
    command -v "$tool" >/dev/null || { echo "error: $tool missing: run scripts/install-deps.sh" >&2; exit 1; }
done
[ -x "$app" ] || { echo "error: $app not built" >&2; exit 1; }

# shellcheck source=xvfb.sh
source "$repo/scripts/xvfb.sh"
# shellcheck source=x-windows.sh
source "$repo/scripts/x-windows.sh"

app_pid=
cleanup() {
    if [ -n "$app_pid" ]; then
        kill "$app_pid" 2>/dev/null || true
        wait "$app_pid" 2>/dev/null || true
    fi
    stop_xvfb
}
trap cleanup EXIT
fail() { echo "error: $*" >&2; exit 1; }

# A window is mapped before it is painted: take pictures until two in a row
# agree, then keep that one. Date chunks left out so that an unchanged
# window gives an unchanged file.
capture() { # WINDOW FILE
    local previous="" current tmp
    tmp=$(mktemp --suffix=.ppm)
    local deadline=$((SECONDS + step_timeout))
    while :; do
        sleep 0.2
        import -window "$1" "ppm:$tmp"
        current=$(md5sum <"$tmp")
        [ "$current" != "$previous" ] || break
        [ $SECONDS -lt $deadline ] || fail "window $1 never settled"
        previous=$current
    done
    convert "$tmp" -strip -define png:exclude-chunks=date,time "$2"
    rm -f "$tmp"
    echo "wrote $2"
}

start_xvfb "$(at 1280)x$(at 1024)x24"
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale
"$app" &
app_pid=$!
started=$(date +%s%N)

splash=$(wait_for "the splash" window_sized "$(at 450)" "$(at 350)")
capture "$splash" "$docs/splash$suffix.png"
click_at "$splash" "$(at 225)" "$(at 175)"

main=$(wait_for "the main window" window_named Velmoran)
eval "$(xdotool getwindowgeometry --shell "$main")"
dx=$((WIDTH - $(at 700))) dy=$((HEIGHT - $(at 600)))
# Park the pointer off the window so that no button shows a hover state.
xdotool mousemove "$(at 1200)" "$(at 1000)"
[ "$scale" != 1 ] || capture "$main" "$docs/main-window.png"

focus "$main"
click_at "$main" $((dx + $(at 260))) $((dy + $(at 176)))
xdotool type --delay 30 3
click_at "$main" $((dx + $(at 107))) $((dy + $(at 555)))
dialog=$(wait_for "the file dialog" other_window "$main")
focus "$dialog"
xdotool type --delay 10 "$data_file"
xdotool key Return
wait_for "the file dialog to close" window_gone "$dialog" >/dev/null
xdotool mousemove "$(at 1200)" "$(at 1000)"
capture "$main" "$docs/report$suffix.png"
[ "$scale" = 1 ] || exit 0

# The splash's timer brings the main window to the front 4000 ms after start,
# over an Information window opened before then: open it after that moment.
while [ $((($(date +%s%N) - started) / 1000000)) -lt 4500 ]; do sleep 0.1; done
click_at "$main" $((dx + 604)) $((dy + 556))
info=$(wait_for "the Information window" window_named Info)
xdotool mousemove 1200 1000
capture "$info" "$docs/information.png"
