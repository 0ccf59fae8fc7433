#!/usr/bin/env bash
# weston.sh COMMAND...: runs COMMAND on a private headless Weston with Qt's
# Wayland platform, in a runtime folder of its own, and ends with its status.
# Exit status 77 (skipped): Weston or Qt's Wayland plugin is not installed.
set -uo pipefail
command -v weston >/dev/null && compgen -G "/usr/lib/*/qt6/plugins/platforms/libqwayland-generic.so" >/dev/null ||
    { echo "SKIP: weston or qt6-wayland is not installed" && exit 77; }
XDG_RUNTIME_DIR=$(mktemp -d) && chmod 700 "$XDG_RUNTIME_DIR" && export XDG_RUNTIME_DIR
log=$XDG_RUNTIME_DIR/weston.log
weston --backend=headless-backend.so --socket=wayland-tovarin --idle-time=0 >"$log" 2>&1 &
weston_pid=$!
trap 'kill "$weston_pid" 2>/dev/null; wait "$weston_pid" 2>/dev/null; rm -rf "$XDG_RUNTIME_DIR"' EXIT
for _ in $(seq 200); do
    [ -S "$XDG_RUNTIME_DIR/wayland-tovarin" ] && break
    kill -0 "$weston_pid" 2>/dev/null || { echo "error: weston did not start" >&2 && cat "$log" >&2 && exit 1; }
    sleep 0.05
done
unset DISPLAY
export WAYLAND_DISPLAY=wayland-tovarin QT_QPA_PLATFORM=wayland
"$@"
