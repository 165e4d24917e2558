#!/usr/bin/env bash
# run_fuzzers.sh FOLDER SECONDS: runs every fuzz target of a build folder, as many at a time as there are
# processors. New inputs go to FOLDER/found; with FUZZ_KEEP=1 those that reach new code join fuzz/corpus.
# An input that fails is left in FOLDER/failed and shown.
set -euo pipefail
cd "$(dirname "$0")/.."

folder=$(realpath "$1")
export FUZZ_FOLDER=$folder FUZZ_TIME=$2
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

run_one() {
  local name=$1
  mkdir -p "$FUZZ_FOLDER/found/$name" "$FUZZ_FOLDER/failed"
  local log=$FUZZ_FOLDER/$name.log
  local dictionary=()
  [[ ! -e fuzz/$name.dict ]] || dictionary=("-dict=fuzz/$name.dict")
  if "$FUZZ_FOLDER/$name" "$FUZZ_FOLDER/found/$name" "fuzz/corpus/$name" "${dictionary[@]}" -max_len=16384 \
      -timeout=10 -rss_limit_mb=2048 -max_total_time="$FUZZ_TIME" -print_final_stats=1 \
      -artifact_prefix="$FUZZ_FOLDER/failed/$name-" > "$log" 2>&1; then
    local runs
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    echo "$name: $runs runs in $FUZZ_TIME s, nothing found"
  else
    echo "$name: FAILED"
    tail -n 60 "$log"
    return 1
  fi
  if [[ ${FUZZ_KEEP:-0} == 1 ]]; then
    "$FUZZ_FOLDER/$name" -merge=1 "fuzz/corpus/$name" "$FUZZ_FOLDER/found/$name" > /dev/null 2>&1
  fi
}
export -f run_one

names=$(find "$folder" -maxdepth 1 -name 'fuzz_*' -type f -executable -printf '%f\n' | sort)
[[ -n $names ]] || { echo "no fuzz targets in $folder" >&2; exit 1; }
xargs -P "$(nproc)" -I{} bash -euo pipefail -c 'run_one {}' <<< "$names"
