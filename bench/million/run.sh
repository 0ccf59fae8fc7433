#!/usr/bin/env bash
# A million models to JSON: tovarin-report against pandas (read_csv, numpy,
# to_json) and R (read.table, arithmetic, jsonlite) on the same file in the
# same run, each writing its JSON to a file. Prints the median and the best
# wall time and the peak resident memory of each, and the ratios of the
# medians to tovarin-report's. A tool that is missing is skipped.
#   bench/million/run.sh BUILD_DIR [MODELS]
# RUNS (default 3) rounds, each of three runs of tovarin-report and one of
# pandas, in turn, so that a change in the machine's load falls on both; R,
# slow, runs in the first round only.
set -euo pipefail

build_dir=${1:?usage: bench/million/run.sh BUILD_DIR [MODELS]}
models=${2:-1000000}
runs=${RUNS:-3}
here=$(cd "$(dirname "$0")" && pwd)
report=$(realpath "$build_dir/cli/tovarin-report")
[ -x "$report" ] || { echo "error: $report not built" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Debian's pandas lives in the system's Python, which a python3 earlier on the PATH may not be.
python=""
for candidate in python3 /usr/bin/python3; do
    if command -v "$candidate" >/dev/null && "$candidate" -c 'import pandas' 2>/dev/null; then
        python=$candidate
        break
    fi
done
measure() { # NAME OUTPUT COMMAND... -> "NAME WALL_S PEAK_KIB" on the samples
    local name=$1 output=$2
    shift 2
    local result
    result=$(python3 "$here/measure.py" "$output" "$@")
    echo "  $name: $result" >&2
    echo "$name $result" >>"$work/samples"
    head -c 4096 "$output" | grep -o '"name": *"[^"]*"' | sed -n '1{s/ //g;p;}' >"$work/first.$name"
    rm -f "$output"
}

# Numbered names, BICs with the 15 significant digits R writes, spread over
# 3000 units so that some thousands of models share the weight and the rest
# fall far behind.
python3 - "$work/models.csv" "$models" <<'PY'
import random, sys
random.seed(20261124)
with open(sys.argv[1], 'w') as out:
    out.write('model,BIC\n')
    for i in range(int(sys.argv[2])):
        out.write('lm_%06d,%.15g\n' % (i, 24000 + random.random() * 3000))
PY
echo "$models models, $(($(stat -c %s "$work/models.csv") / 1000)) kB of CSV; $runs rounds" >&2
[ -n "$python" ] && echo "pandas $("$python" -c 'import pandas; print(pandas.__version__)')" >&2
command -v Rscript >/dev/null && Rscript -e 'cat("R", as.character(getRversion()),
    if (requireNamespace("jsonlite", quietly = TRUE)) paste("with jsonlite", packageVersion("jsonlite"))
    else "without jsonlite (JSON written with sprintf)", "\n")' >&2

for ((i = 1; i <= runs; i++)); do
    for _ in 1 2 3; do
        measure tovarin-report "$work/out.json" "$report" --format json "$work/models.csv"
    done
    [ -n "$python" ] && measure pandas "$work/out.json" "$python" "$here/table.py" "$work/models.csv" /dev/stdout
    if [ "$i" = 1 ] && command -v Rscript >/dev/null; then
        measure R "$work/out.json" Rscript "$here/table.R" "$work/models.csv" /dev/stdout
    fi
done
[ -n "$python" ] || echo "  pandas: skipped (no Python with pandas)" >&2
command -v Rscript >/dev/null || echo "  R: skipped (no Rscript)" >&2

# Every tool must have put the same model first.
for first in "$work"/first.*; do
    cmp -s "$first" "$work/first.tovarin-report" ||
        { echo "error: ${first##*.} ranks $(cat "$first") first" >&2; exit 1; }
done

median() { # NAME FIELD -> the median of that field over the tool's runs
    awk -v name="$1" -v field="$2" '$1 == name { print $field }' "$work/samples" | sort -g |
        awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'
}
best() { # NAME -> the shortest wall time of the tool's runs
    awk -v name="$1" '$1 == name { print $2 }' "$work/samples" | sort -g | sed -n 1p
}
base_s=$(median tovarin-report 2) base_kib=$(median tovarin-report 3)
echo
printf '%-16s %6s %10s %8s %10s %12s %14s\n' tool runs "median s" "best s" "peak MiB" \
    "time ratio" "memory ratio"
for name in tovarin-report pandas R; do
    grep -q "^$name " "$work/samples" || continue
    awk -v n="$name" -v r="$(grep -c "^$name " "$work/samples")" -v s="$(median "$name" 2)" \
        -v b="$(best "$name")" -v k="$(median "$name" 3)" -v bs="$base_s" -v bk="$base_kib" \
        'BEGIN { printf "%-16s %6d %10.2f %8.2f %10.0f %11.1fx %13.1fx\n", n, r, s, b, k / 1024, s / bs, k / bk }'
done
