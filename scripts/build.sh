#!/usr/bin/env bash
# Configures and builds one preset quietly: build.sh PRESET [TARGET...]. The whole output is shown on failure.
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
targets=()
[[ $# -eq 0 ]] || targets=(--target "$@")

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! cmake --preset "$preset" > "$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
echo "Building ($preset) ..."
if ! cmake --build --preset "$preset" --parallel "${JOBS:-$(nproc)}" "${targets[@]}" > "$log" 2>&1; then
  grep -v '^\[[0-9]*/[0-9]*\] \(Building\|Linking\)' "$log" >&2
  exit 1
fi
grep -A12 'warning:' "$log" || true
