#!/usr/bin/env bash
# `make run`: starts the desktop app. Without a display it says so in one line
# and fails, rather than letting Qt abort with a long diagnostic.
set -uo pipefail
build_dir=${1:-build}

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  echo "make run: no display found (set DISPLAY, or run under Xvfb); the desktop app needs one" >&2
  exit 1
fi
exec "$build_dir/app/tovarin"
