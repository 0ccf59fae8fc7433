#!/usr/bin/env bash
# Configures, builds and tests the standard-C++ core (text/, system/, engine/,
# cli/ and their GoogleTest suites) with one toolchain of this folder, then
# prints the digest of its number texts (tests/numbers):
#   toolchains/check.sh clang-libcxx|mingw-w64|emscripten BUILD_DIR [LINUX_PROGRAM]
# LINUX_PROGRAM: the Linux build's tovarin-report, whose bytes this build's must
# give (the test cli.same_bytes). A warning is an error. JOBS (2) builds at once.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
toolchain=$1
build=$2
reference=${3:-}
bash "$here/configure.sh" "$toolchain" "$build" "$reference"
# em++ runs on Node, which must find Debian's node-acorn.
export NODE_PATH=/usr/share/nodejs
cmake --build "$build" -j "${JOBS:-2}"
cmake --build "$build" -j "${JOBS:-2}" --target number_digest

run=()
digest=$build/tests/numbers/number_digest
case $toolchain in
mingw-w64)
    # One Wine server for the whole run, started here with its output going
    # nowhere: started by the first test, it and the services it starts would
    # hold ctest's pipes open, and the listing of the tests would time out.
    # Each program then starts in a fraction of a second. The first run in a
    # new prefix sets the prefix up, without offering Mono and Gecko, which
    # nothing here needs.
    WINEPREFIX=$(sed -n 's/^TOVARIN_WINEPREFIX:PATH=//p' "$build/CMakeCache.txt")
    export WINEDEBUG=-all WINEPREFIX
    mkdir -p "$WINEPREFIX"
    wineserver -p </dev/null >/dev/null 2>&1
    trap 'wineserver -k </dev/null >/dev/null 2>&1 || true' EXIT
    WINEDLLOVERRIDES='mscoree,mshtml=' wine cmd /c exit </dev/null >/dev/null 2>&1
    run=(wine)
    digest=$digest.exe
    ;;
emscripten)
    run=(node)
    digest=$digest.js
    ;;
esac
(cd "$build" && ctest -j "${JOBS:-2}" --output-on-failure)
# What cli.same_bytes compared, from the log of the run.
grep -E '^[0-9]+ passed, [0-9]+ failed$' "$build/Testing/Temporary/LastTest.log" || true
# A Windows program ends its lines in CR LF on a console.
echo "number texts: $("${run[@]}" "$digest" "${DIGEST_ROUNDS:-200000}" | tr -d '\r')"
