#!/usr/bin/env bash
# Measures orbisgrid-batch against wwl, GeodSolve, cat and the window's own computation:
#   scripts/benchmark_batch.sh [rounds]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
. scripts/build.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${BENCHMARK_PACKAGES[@]}"
build benchmark --target orbisgrid_batch_program batch_benchmark

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
build-benchmark/bin/batch_benchmark build-benchmark/bin/orbisgrid-batch "$folder" "${1:-9}"
