#!/usr/bin/env bash
# The library as a shared one: builds, installs and serves the consumer project.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "Building (shared) ..."
log=$(mktemp)
trap 'rm -f "$log"' EXIT
{
  cmake --preset dev -B build/shared -DBUILD_SHARED_LIBS=ON -DTOOL_BUILD_TESTS=OFF &&
    cmake --build build/shared --parallel "${JOBS:-$(nproc)}"
} > "$log" 2>&1 || { cat "$log" >&2; exit 1; }
scripts/check_consumer.sh build/shared build/shared/consumer
