#!/usr/bin/env bash
# The size of the tests against the product code, in non-blank lines of the
# files git tracks, C++ counted as clang-format leaves it (packing lines past
# the formatter changes nothing): every file under tests/, against the sources
# under engine/ text/ system/ framework/ ui/ app/ cli/ web/, the help text's data
# (files named *helptext*, in any case) left out, and npm's lock file, which npm
# writes, left out of the tests.
set -euo pipefail
cd "$(dirname "$0")/.."

non_blank() { # FILE... -> the number of non-blank lines in all of them
    local file
    for file in "$@"; do
        case "$file" in
        *.cpp | *.hpp | *.h) clang-format "$file" ;;
        *) cat -- "$file" ;;
        esac
    done | grep -c -v '^[[:space:]]*$' || true
}
mapfile -t test_files < <(git ls-files -- tests)
mapfile -t product_files < <(git ls-files -- engine text system framework ui app cli web |
    grep -E '\.(cpp|hpp|h|js|mjs|html|css)$' | grep -v -i -E '(^|/)[^/]*helptext[^/]*$')
tests=$(non_blank "${test_files[@]}")
product=$(non_blank "${product_files[@]}")
echo "tests:   $tests non-blank lines in ${#test_files[@]} files"
echo "product: $product non-blank lines in ${#product_files[@]} files"
awk -v t="$tests" -v p="$product" 'BEGIN { printf "ratio:   %.1f %% (at most 35 %%)\n", p ? 100 * t / p : 0 }'
