#!/usr/bin/env bash
# `make bench`: the benchmarks whose figures the README gives.
set -euo pipefail
build_dir=${1:-build}

echo "== One whole analysis run of 99 models (read, statistics, report text)"
"$build_dir/bench/engine/bench_engine" --benchmark_repetitions=10 --benchmark_report_aggregates_only=true

echo "== tovarin-report --format json on a file of 10,000 models (read, statistics, JSON text)"
"$build_dir/bench/cli/bench_cli" --benchmark_repetitions=10 --benchmark_report_aggregates_only=true

echo "== Doubles to text and back: fast_float and {fmt} against the standard library"
"$build_dir/bench/numbers/bench_numbers"

echo "== A million models to JSON: tovarin-report, pandas and R on the same file"
bash bench/million/run.sh "$build_dir"

echo "== Appending a 99-model report to a results area holding 50 reports (offscreen)"
QT_QPA_PLATFORM=offscreen "$build_dir/bench/gui/bench_gui" --benchmark_repetitions=10 --benchmark_report_aggregates_only=true

echo "== From process start to the splash on screen, against a bare Qt window (Xvfb)"
bash bench/startup/run.sh "$build_dir" 20

echo "== Resident memory over 300 runs and 300 cancelled file dialogs (Xvfb)"
bash bench/memory/run.sh "$build_dir" 300
