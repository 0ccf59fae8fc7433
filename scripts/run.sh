#!/usr/bin/env bash
# `make run`: `run.sh --check` fails with one line when no display can be
# reached, before anything is built; `run.sh BUILD_DIR` starts the desktop app.
set -uo pipefail

reachable() {
    case "${QT_QPA_PLATFORM:-}" in offscreen* | minimal* | vnc* | eglfs* | linuxfb*) return 0 ;; esac
    if [ -n "${WAYLAND_DISPLAY:-}" ]; then
        local socket=$WAYLAND_DISPLAY
        [[ $socket == /* ]] || socket=${XDG_RUNTIME_DIR:-/nonexistent}/$socket
        [ -S "$socket" ] && return 0
    fi
    [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1
}

if [ "${1:-}" = --check ]; then
    reachable && exit 0
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        echo "make run: no display found (set DISPLAY or WAYLAND_DISPLAY, or run under Xvfb); the desktop app needs one" >&2
    else
        echo "make run: the display ${WAYLAND_DISPLAY:-$DISPLAY} cannot be reached; the desktop app needs a running one" >&2
    fi
    exit 1
fi
exec "${1:-build}/app/tovarin"
