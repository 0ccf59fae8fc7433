#!/usr/bin/env bash
# End to end, on a private X server: splash -> main window -> count 3 ->
# "Load Data File" -> file dialog -> report -> select all, copy -> clipboard,
# compared with what tovarin-report prints for the same file -> Ctrl+Q, exit 0.
#
#   report_roundtrip.sh TOVARIN TOVARIN_REPORT DATA_FILE [OUT_DIR]
#
# Exit status 77 (skipped) only when Xvfb, xdotool or xclip is not installed.
set -euo pipefail

app=$(realpath "${1:?usage: report_roundtrip.sh TOVARIN TOVARIN_REPORT DATA_FILE [OUT_DIR]}")
report_tool=$(realpath "${2:?missing TOVARIN_REPORT}")
data_file=$(realpath "${3:?missing DATA_FILE}")
out_dir=$(realpath "${4:-.}")
count=3

# Content geometry of the main window: size, and the centres of the controls used.
content_w=700 content_h=600
count_field_x=$((235 + 50 / 2)) count_field_y=$((165 + 22 / 2))
load_button_x=$((45 + 125 / 2)) load_button_y=$((530 + 50 / 2))
results_x=$((50 + 600 / 2)) results_y=$((193 + 325 / 2))

for tool in Xvfb xdotool xclip; do
    if ! command -v "$tool" >/dev/null; then
        echo "SKIP: $tool is not installed (scripts/install-deps.sh installs it)"
        exit 77
    fi
done

here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=xvfb.sh
source "$here/xvfb.sh"
# shellcheck source=windows.sh
source "$here/windows.sh"

app_pid=
app_log="$out_dir/e2e-tovarin.log"
cleanup() {
    if [ -n "$app_pid" ] && kill -0 "$app_pid" 2>/dev/null; then
        kill -9 "$app_pid" 2>/dev/null || true
        wait "$app_pid" 2>/dev/null || true
    fi
    stop_xvfb
}
trap cleanup EXIT

fail() {
    echo "FAIL: $*" >&2
    echo "--- visible windows:" >&2
    for w in $(xdotool search --onlyvisible --name '' 2>/dev/null); do
        echo "  $w '$(xdotool getwindowname "$w" 2>/dev/null)'" \
            "$(xdotool getwindowgeometry "$w" 2>/dev/null | tr '\n' ' ')" >&2
    done
    if [ -s "$app_log" ]; then
        echo "--- tovarin's output:" >&2
        cat "$app_log" >&2
    fi
    if command -v import >/dev/null; then
        import -window root "$out_dir/e2e-failure.png" 2>/dev/null &&
            echo "--- screen saved to $out_dir/e2e-failure.png" >&2
    fi
    exit 1
}

start_xvfb
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb

"$app" >"$app_log" 2>&1 &
app_pid=$!

echo "waiting for the splash"
splash=$(wait_for "the 450x350 splash" window_sized 450 350)
click_at "$splash" 225 175

echo "waiting for the main window"
main=$(wait_for "the main window \"Velmoran\"" window_named Velmoran)
eval "$(xdotool getwindowgeometry --shell "$main")"
# The menu bar sits above the content, inside the same X window.
dx=$((WIDTH - content_w)) dy=$((HEIGHT - content_h))
[ $dx -ge 0 ] && [ $dy -ge 0 ] ||
    fail "main window is ${WIDTH}x${HEIGHT}, smaller than its ${content_w}x${content_h} content"
echo "main window ${WIDTH}x${HEIGHT}, content offset ($dx,$dy)"

focus "$main"
click_at "$main" $((dx + count_field_x)) $((dy + count_field_y))
xdotool type --delay 30 "$count"
click_at "$main" $((dx + load_button_x)) $((dy + load_button_y))

echo "waiting for the file dialog"
dialog=$(wait_for "the file dialog" other_window "$main")
focus "$dialog"
xdotool type --delay 10 "$data_file"
xdotool key Return
wait_for "the file dialog to close" window_gone "$dialog" >/dev/null

# The report lands in the results area; copy it out until it is complete.
copy_report() {
    focus "$main" && click_at "$main" $((dx + results_x)) $((dy + results_y)) &&
        xdotool key ctrl+a ctrl+c && xclip -o -selection clipboard | tr -d '\r' |
        grep -q '^\*\* ' && xclip -o -selection clipboard
}
echo "waiting for the report"
copied=$(wait_for "the report on the clipboard" copy_report)

# Both sides: line ends to \n, no trailing empty lines.
normalise() { sed 's/\r$//' | tr '\r' '\n' | sed -e :a -e '/^\n*$/{$d;N;ba' -e '}'; }
expected=$("$report_tool" "$count" "$data_file" | normalise) ||
    fail "tovarin-report failed on $data_file"
actual=$(printf '%s\n' "$copied" | normalise)

mismatch=0
name=$(basename "$data_file")
diff_out=$(diff <(printf '%s\n' "$expected") <(printf '%s\n' "$actual")) || true
while IFS= read -r line; do
    case $line in
    [\<\>]\ Date:\ *) ;; # the time of the run differs by nature
    [\<\>]\ File:\ *)
        [[ ${line#??} == "File: "*"$name" ]] || { echo "file line: $line" >&2 && mismatch=1; } ;;
    [\<\>]*) echo "$line" >&2 && mismatch=1 ;;
    esac
done <<<"$diff_out"
grep -q '^Date: .' <<<"$actual" || { echo "no date line in the copied report" >&2 && mismatch=1; }
grep -qx "File: .*$name" <<<"$actual" || { echo "no file line naming $name" >&2 && mismatch=1; }
if [ $mismatch -ne 0 ]; then
    printf '%s\n' "$actual" >"$out_dir/e2e-copied-report.txt"
    fail "the copied report differs from tovarin-report's (< expected, > copied; copy saved to" \
        "$out_dir/e2e-copied-report.txt)"
fi
echo "report matches ($(wc -l <<<"$actual") lines)"

focus "$main"
xdotool key ctrl+q
deadline=$((SECONDS + step_timeout))
while kill -0 "$app_pid" 2>/dev/null; do
    [ $SECONDS -lt $deadline ] || fail "tovarin still running after Ctrl+Q"
    sleep 0.1
done
status=0
wait "$app_pid" || status=$?
app_pid=
[ $status -eq 0 ] || fail "tovarin exited with status $status after Ctrl+Q"
echo "PASS: report copied from the window equals tovarin-report's; Ctrl+Q exit status 0"
