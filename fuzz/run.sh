#!/usr/bin/env bash
# Runs every fuzz target for a bounded time on a copy of its seed corpus, so the
# repository is never written to. Fails if any target finds a crash.
#   fuzz/run.sh BUILD_DIR [SECONDS_PER_TARGET]
set -uo pipefail

build_dir=${1:?usage: fuzz/run.sh BUILD_DIR [SECONDS_PER_TARGET]}
seconds=${2:-60}
here=$(cd "$(dirname "$0")" && pwd)
targets=(fuzz_run fuzz_format fuzz_val fuzz_table)

work=$(mktemp -d "${TMPDIR:-/tmp}/tovarin-fuzz.XXXXXX")
trap 'rm -rf "$work"' EXIT
# Findings are kept where the build is, for a look after the run.
findings="$build_dir/fuzz-findings"

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$here/lsan.supp}

failed=()
for target in "${targets[@]}"; do
  binary="$build_dir/fuzz/$target"
  if [ ! -x "$binary" ]; then
    echo "fuzz: $binary is missing; build with make fuzz" >&2
    failed+=("$target (not built)")
    continue
  fi
  corpus="$work/$target/corpus"
  artifacts="$work/$target/artifacts"
  mkdir -p "$corpus" "$artifacts"
  cp "$here/corpus/${target#fuzz_}/"* "$corpus/"
  echo "fuzz: $target for ${seconds}s"
  # -timeout catches an input that hangs, -rss_limit_mb one that eats memory.
  if "$binary" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096 \
       -print_final_stats=1 -artifact_prefix="$artifacts/" "$corpus" \
       >"$work/$target/log" 2>&1; then
    grep -E '^stat::number_of_executed_units|^Done' "$work/$target/log" | sed "s/^/fuzz: $target: /"
  else
    tail -n 60 "$work/$target/log" >&2
    mkdir -p "$findings/$target"
    cp "$artifacts"/* "$findings/$target/" 2>/dev/null
    echo "fuzz: $target FAILED; inputs kept in $findings/$target" >&2
    failed+=("$target")
  fi
done

if [ ${#failed[@]} -ne 0 ]; then
  echo "fuzz: failures in: ${failed[*]}" >&2
  exit 1
fi
echo "fuzz: all targets ran ${seconds}s without a finding"
