#!/usr/bin/env bash
# Runs every fuzz target, as many at a time as there are processors.
#   scripts/fuzz.sh [executions] [target ...]     10,000,000 executions each, every target
# The window and the maps take a part of the executions: they are that much slower.
# They start from the inputs that the build makes of the tests' rows. New ones stay in
# build-fuzz/found/<target>, a crash in build-fuzz/crash-<target>-*: copy it with a name that says
# what it shows into fuzz/corpus/<target>, where ./test replays it.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

run_target() { # <executions> <target>
  local runs=$1 target=$2 longest=64 log
  # Texts of a person are short, and so are five actions on the converter; files are longer.
  case $target in
    locator_list_ini) longest=512 ;;
    manual_search) longest=256 ;;
    records_*) longest=256 runs=$((runs / 100)) ;; # whole runs of the program
    map_outlines) longest=512 runs=$((runs / 20)) ;;
    map) longest=128 runs=$((runs / 500)) ;;
    window) longest=128 runs=$((runs / 1000)) ;;
  esac
  local kept=()
  [ ! -d "fuzz/corpus/$target" ] || kept=("fuzz/corpus/$target")
  mkdir -p "build-fuzz/found/$target"
  log=build-fuzz/$target.log
  if "build-fuzz/fuzz/${target}_fuzz" -runs="$runs" -max_len=$longest -timeout=30 \
    -artifact_prefix="build-fuzz/crash-$target-" \
    "build-fuzz/found/$target" "build-fuzz/fuzz-corpus/$target" "${kept[@]}" >"$log" 2>&1; then
    echo "$target: $(grep -oE 'Seed: [0-9]+' "$log"), $(grep -oE 'Done [0-9]+ runs in [0-9]+ second' "$log")s"
  else
    echo "$target: FAILED"
    grep -E 'differs:|ERROR|runtime error|Test unit written' "$log" || tail -20 "$log"
    return 1
  fi
}

corpora() {
  (cd build-fuzz/fuzz-corpus && printf '%s\n' *)
}

if [ "${1:-}" = --one ]; then
  run_target "$2" "$3"
  exit
fi

. scripts/packages.sh
. scripts/build.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${ALL_PACKAGES[@]}"
runs=${1:-10000000}
shift || true
build fuzz --target fuzz_targets
targets=("$@")
# Those that take longest begin, so that the processors end together.
slowest='converter|locator_list_ini|manual_search'
[ ${#targets[@]} -gt 0 ] ||
  mapfile -t targets < <(corpora | grep -Ex "$slowest"; corpora | grep -Evx "$slowest")
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -n 1 "$0" --one "$runs"
