#!/usr/bin/env bash
# report_roundtrip.sh TOVARIN TOVARIN_REPORT DATA_FILE, on a private X server: splash -> main window
# -> count 3 -> Load Data File -> file dialog -> report -> select all, copy -> the clipboard equals
# tovarin-report's output -> Ctrl+Q ends with 0. Exit status 77 (skipped): Xvfb, xdotool or xclip missing.
set -euo pipefail
app=$(realpath "$1") report_tool=$(realpath "$2") data_file=$(realpath "$3")
command -v Xvfb >/dev/null && command -v xdotool >/dev/null && command -v xclip >/dev/null ||
    { echo "SKIP: Xvfb, xdotool or xclip is not installed" && exit 77; }
source "$(dirname "$0")/../../scripts/xvfb.sh"
source "$(dirname "$0")/../../scripts/x-windows.sh"
app_pid= app_log=$(mktemp)
trap '[ -z "$app_pid" ] || kill -9 "$app_pid" 2>/dev/null; stop_xvfb; rm -f "$app_log"' EXIT
fail() { echo "FAIL: $*" >&2 && cat "$app_log" >&2 && exit 1; }

start_xvfb
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE WAYLAND_DISPLAY
QT_QPA_PLATFORM=xcb "$app" >"$app_log" 2>&1 &
app_pid=$!
click_at "$(wait_for "the 450x350 splash" window_sized 450 350)" 225 175
main=$(wait_for "the main window" window_named Velmoran)
# The menu bar sits above the 700x600 content, inside the same X window.
eval "$(xdotool getwindowgeometry --shell "$main")"
dx=$((WIDTH - 700)) dy=$((HEIGHT - 600))
focus "$main"
click_at "$main" $((dx + 260)) $((dy + 176)) # the count field
xdotool type --delay 30 3
click_at "$main" $((dx + 107)) $((dy + 555)) # Load Data File
dialog=$(wait_for "the file dialog" other_window "$main")
focus "$dialog" && xdotool type --delay 10 "$data_file" && xdotool key Return
wait_for "the file dialog to close" window_gone "$dialog" >/dev/null
copy_report() { # from the results area, once the report is complete
    focus "$main" && click_at "$main" $((dx + 350)) $((dy + 355)) && xdotool key ctrl+a ctrl+c &&
        xclip -o -selection clipboard | grep -q '^\*\* ' && xclip -o -selection clipboard
}
copied=$(wait_for "the report on the clipboard" copy_report)
grep -q '^Date: .' <<<"$copied" || fail "no date line in the copied report"
# Both with \n line ends and no empty lines at the end; the time of the run differs by nature.
normalise() { tr '\r' '\n' | sed -e '/^Date: /d' -e :a -e '/^\n*$/{$d;N;ba' -e '}'; }
diff <("$report_tool" 3 "$data_file" | normalise) <(normalise <<<"$copied") >&2 ||
    fail "the copied report (>) differs from tovarin-report's (<)"
focus "$main" && xdotool key ctrl+q
timeout "$step_timeout" tail --pid="$app_pid" -f /dev/null || fail "tovarin still running after Ctrl+Q"
wait "$app_pid" || fail "tovarin ended with status $? after Ctrl+Q"
app_pid=
echo "PASS: the report copied from the window equals tovarin-report's; Ctrl+Q ends with 0"
