#!/usr/bin/env bash
# Runs every fuzz target one after the other.
#   scripts/fuzz.sh [executions] [target ...]     10,000,000 executions each, every target
# New inputs stay in build-fuzz/found/<target>, a crash in build-fuzz/crash-<target>-*: copy it with
# a name that says what it shows into fuzz/corpus/<target>, where ./test replays it.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
runs=${1:-10000000}
shift || true
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz_targets -- --quiet

targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(ls fuzz/corpus)
failed=0
for target in "${targets[@]}"; do
  mkdir -p "build-fuzz/found/$target"
  log=build-fuzz/$target.log
  # Texts of a person are short; the two files are longer.
  longest=64
  case $target in locator_list_ini | manual_search) longest=512 ;; converter) longest=128 ;; esac
  if "build-fuzz/fuzz/${target}_fuzz" -runs="$runs" -max_len=$longest -timeout=10 -seed=1 \
    -artifact_prefix="build-fuzz/crash-$target-" \
    "build-fuzz/found/$target" "fuzz/corpus/$target" >"$log" 2>&1; then
    echo "$target: $(grep -oE 'Done [0-9]+ runs in [0-9]+ second' "$log")s"
  else
    echo "$target: FAILED"
    grep -E 'differs:|ERROR|runtime error|Test unit written' "$log" || tail -20 "$log"
    failed=1
  fi
done
exit $failed
