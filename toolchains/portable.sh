#!/usr/bin/env bash
# `make portable`: the standard-C++ core and tovarin-report on the toolchains
# that run here besides GCC with libstdc++: Clang with libc++ as on macOS
# (build-libcxx/), MinGW-w64 for Windows under Wine (build-windows/) and
# Emscripten under Node (build-wasm/). Each builds without warnings, passes the
# engine, text and command tests, gives the Linux build's bytes (cli.same_bytes)
# and the Linux build's number texts (the digest of tests/numbers); the
# fast_float and {fmt} side is held against libstdc++ directly (the oracle).
# Ends with what each toolchain passed.
#   toolchains/portable.sh BUILD_DIR     (the Linux build, configured)
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$here")
linux=$(cd "$1" && pwd)
jobs=${JOBS:-2}
export DIGEST_ROUNDS=${DIGEST_ROUNDS:-200000}
oracle_rounds=${ORACLE_ROUNDS:-300000}
summary=()
failed=0

# tell NAME RESULT: one line of the summary; a RESULT starting "FAILED" fails the run.
tell() {
    summary+=("$(printf '%-34s %s' "$1" "$2")")
    [[ $2 != FAILED* ]] || failed=1
}

echo "== GCC with libstdc++, the reference ($linux)"
start=$SECONDS
if cmake --build "$linux" -j "$jobs" --target tovarin-report number_digest number_oracle; then
    reference=$("$linux/tests/numbers/number_digest" "$DIGEST_ROUNDS")
    echo "number texts: $reference"
    oracle=$("$linux/tests/numbers/number_oracle" "$oracle_rounds")
    oracle_status=$?
    echo "$oracle"
    compared=$(grep '^all ' <<<"$oracle")
    if [ $oracle_status -eq 0 ]; then
        tell "GCC, libstdc++ (${1%/}/)" "reference; fast_float and {fmt} against libstdc++: $compared; $((SECONDS - start)) s"
    else
        tell "GCC, libstdc++ (${1%/}/)" "FAILED: fast_float and {fmt} against libstdc++: $compared"
    fi
else
    reference=none
    tell "GCC, libstdc++ (${1%/}/)" "FAILED: the reference did not build"
fi

for pair in "clang-libcxx build-libcxx Clang 14, libc++ (as macOS)" \
    "mingw-w64 build-windows MinGW-w64 GCC 12, Wine" \
    "emscripten build-wasm Emscripten 3.1.6, Node"; do
    read -r toolchain dir name <<<"$pair"
    echo "== $name ($dir/)"
    start=$SECONDS
    log=$(mktemp)
    bash "$here/check.sh" "$toolchain" "$root/$dir" "$linux/cli/tovarin-report" 2>&1 | tee "$log"
    status=${PIPESTATUS[0]}
    tests=$(grep -E '^[0-9]+% tests passed' "$log" | tail -n 1)
    same=$(grep -E '^[0-9]+ passed, [0-9]+ failed$' "$log" | tail -n 1)
    digest=$(sed -n 's/^number texts: //p' "$log")
    rm -f "$log"
    took="$((SECONDS - start)) s"
    if [ "$status" -ne 0 ]; then
        tell "$name ($dir/)" "FAILED: ${tests:-did not build}; $took"
    elif [ "$digest" != "$reference" ]; then
        tell "$name ($dir/)" "FAILED: number texts differ from the reference's ($digest); $took"
    else
        tell "$name ($dir/)" "built, no warning; $tests; same bytes as Linux: ${same:-?}; same number texts; $took"
    fi
done

echo
echo "== make portable: what each toolchain passed"
printf '%s\n' "${summary[@]}"
exit $failed
