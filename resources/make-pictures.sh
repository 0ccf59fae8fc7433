#!/usr/bin/env bash
# Rebuilds Icon256.png, Tovarinbanner.png and their @2x versions in this folder
# from make_pictures.cpp.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
g++ -std=c++20 -O1 -fPIC "$here/make_pictures.cpp" -o "$work/make_pictures" \
    $(pkg-config --cflags --libs Qt6Gui)
QT_QPA_PLATFORM=offscreen "$work/make_pictures" "$here"
