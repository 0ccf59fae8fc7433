#!/usr/bin/env bash
# The size of the tests against the product code, in non-blank lines of the
# files git tracks: every file under tests/, against the C++ sources and
# headers under engine/ text/ framework/ ui/ app/ cli/, the help text's data
# (files named *helptext*, in any case) left out.
set -euo pipefail
cd "$(dirname "$0")/.."

non_blank() { # FILE... -> the number of non-blank lines in all of them
    if [ $# -eq 0 ]; then echo 0; else cat -- "$@" | grep -c -v '^[[:space:]]*$' || true; fi
}
mapfile -t test_files < <(git ls-files -- tests)
mapfile -t product_files < <(git ls-files -- engine text framework ui app cli |
    grep -E '\.(cpp|hpp|h)$' | grep -v -i -E '(^|/)[^/]*helptext[^/]*$')
tests=$(non_blank "${test_files[@]}")
product=$(non_blank "${product_files[@]}")
echo "tests:   $tests non-blank lines in ${#test_files[@]} files"
echo "product: $product non-blank lines in ${#product_files[@]} files"
awk -v t="$tests" -v p="$product" 'BEGIN { printf "ratio:   %.1f %% (at most 35 %%)\n", p ? 100 * t / p : 0 }'
