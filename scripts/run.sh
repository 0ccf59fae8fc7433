#!/usr/bin/env bash
# `make run`: prints the bundled example's report through the command-line tool.
set -euo pipefail
build_dir=${1:-build}
exec "$build_dir/cli/tovarin-report" 3 examples/worked-example.txt
