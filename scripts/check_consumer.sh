#!/usr/bin/env bash
# check_consumer.sh BUILD SCRATCH [COMPILER [FLAGS]]: installs a build to a prefix of its own, builds tests/consumer
# against it through find_package(Tool) and runs it. The consumer itself says whether the table is right.
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(realpath "$1")
scratch=$2
rm -rf "$scratch"
mkdir -p "$scratch"
scratch=$(realpath "$scratch")

cmake --install "$build" --prefix "$scratch/prefix" > "$scratch/install.log"
cmake -S tests/consumer -B "$scratch/build" -G Ninja -DCMAKE_PREFIX_PATH="$scratch/prefix" \
  -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_COMPILER="${3:-g++}" -DCMAKE_CXX_FLAGS="${4:-}" > "$scratch/configure.log"
cmake --build "$scratch/build" > "$scratch/build.log" || { cat "$scratch/build.log"; exit 1; }
XDG_CONFIG_HOME=$scratch/config "$scratch/build/consumer"
if [[ -x $scratch/build/consumer_qt ]]; then
  "$scratch/build/consumer_qt"
fi
if [[ -x $scratch/prefix/bin/ceph ]]; then
  XDG_CONFIG_HOME=$scratch/config "$scratch/prefix/bin/ceph" analyses > "$scratch/analyses.txt"
  test -s "$scratch/analyses.txt"
fi
