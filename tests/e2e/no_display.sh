#!/usr/bin/env bash
# no_display.sh TOVARIN: with no display it can reach, the app says so in one
# line on standard error and ends with status 1, not a signal: a display that
# is named but not running (X11, Wayland, Wayland alone as a Wayland session
# names it, Qt told to use X11), which the app tries to open, and none named.
set -uo pipefail
app=$1 failed=0
runtime=$(mktemp -d) && trap 'rm -rf "$runtime"' EXIT
for case in "DISPLAY=:999" "QT_QPA_PLATFORM=xcb" "QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=gone" \
    "WAYLAND_DISPLAY=gone" ""; do
    # shellcheck disable=SC2086 # the case is a list of assignments
    out=$(env -i PATH="$PATH" XDG_RUNTIME_DIR="$runtime" $case "$app" 2>&1 </dev/null)
    status=$?
    said="tovarin: cannot open the display: " && [ -n "$case" ] || said="tovarin: no display found"
    if [ $status -ne 1 ] || [ "$(printf '%s\n' "$out" | wc -l)" -ne 1 ] || [[ $out != "$said"* ]]; then
        echo "FAIL: ${case:-no display variable}: status $status, said: $out" && failed=1
    else
        echo "PASS: ${case:-no display variable}: $out"
    fi
done
exit $failed
