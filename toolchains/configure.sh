#!/usr/bin/env bash
# Configures the standard-C++ core (text/, system/, engine/, cli/, web/ and
# their tests) with one toolchain of this folder, a warning an error:
#   toolchains/configure.sh clang-libcxx|mingw-w64|emscripten BUILD_DIR [LINUX_PROGRAM]
# LINUX_PROGRAM: the Linux build's tovarin-report, whose bytes this build's must
# give (the test cli.same_bytes).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
case $1 in
clang-libcxx | mingw-w64 | emscripten) ;;
*)
    echo "unknown toolchain: $1" >&2
    exit 2
    ;;
esac
# em++ runs on Node, which must find Debian's node-acorn.
export NODE_PATH=/usr/share/nodejs
cmake -S "$here/.." -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_TOOLCHAIN_FILE="$here/$1.cmake" -DTOVARIN_GOOGLETEST_SOURCE=/usr/src/googletest \
    -DTOVARIN_BUILD_GUI=OFF -DTOVARIN_BUILD_BENCH=OFF -DTOVARIN_BUILD_PACKAGING=OFF \
    -DTOVARIN_REFERENCE_REPORT="${3:-}" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
