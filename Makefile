# Every target works from a fresh clone on a bare Debian 12: what is missing of packages.txt is installed first.
#   make run      build the program and analyse the shipped tracings; the report is left in out/
#   make test     build and run every test (no display needed)
#   make bench    ratios against the yardsticks, written to docs/performance.md
#   make fuzz     run each fuzz target for FUZZ_SECONDS
#   make asan     every test under the address and undefined-behaviour sanitizers
#   make tidy     clang-tidy over the whole tree
#   make format   clang-format over the whole tree
#   make install  install under PREFIX
#   make readme   renew the program's output in README.md

SHELL := /bin/bash
.SHELLFLAGS := -eu -o pipefail -c
.DEFAULT_GOAL := run

JOBS ?= $(shell nproc)
PREFIX ?= /usr/local
FUZZ_SECONDS ?= 600

build = scripts/build.sh
sources = git ls-files -- '*.h' '*.cpp'

.PHONY: run test bench fuzz asan tidy format format-check layering install readme packages packages-bench clean

packages:
	@scripts/install_packages.sh packages.txt

packages-bench: packages
	@scripts/install_packages.sh packages-bench.txt

run: packages
	@JOBS=$(JOBS) $(build) release ceph
	@scripts/run_samples.sh build/release/apps/ceph/ceph out

test: packages
	@JOBS=$(JOBS) $(build) dev
	@ctest --preset dev -j $(JOBS)

asan: packages
	@JOBS=$(JOBS) $(build) asan
	@ctest --preset asan -j $(JOBS)

bench: packages-bench
	@JOBS=$(JOBS) $(build) bench tool_bench
	@python3 scripts/bench_table.py build/bench/bench/tool_bench --update docs/performance.md

fuzz: packages
	@JOBS=$(JOBS) $(build) fuzz fuzzers
	@scripts/run_fuzzers.sh build/fuzz/fuzz $(FUZZ_SECONDS)

tidy: packages
	@scripts/tidy.sh --all

format: packages
	@$(sources) | xargs clang-format -i

format-check: packages
	@$(sources) | xargs clang-format --dry-run --Werror

layering: packages
	@python3 scripts/check_layering.py

install: packages
	@JOBS=$(JOBS) $(build) release
	@cmake --install build/release --prefix '$(PREFIX)'

readme: packages
	@JOBS=$(JOBS) $(build) release ceph
	@python3 scripts/readme_output.py build/release/apps/ceph/ceph --update

clean:
	rm -rf build out
