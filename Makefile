# The project's two commands are `make demo` and `make test`; the rest are
# their parts.
JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 600
FUZZ_SHORT_SECONDS ?= 20
MUTANTS ?= 200
SEED ?= 1
CMAKE_FLAGS ?=
# No "Entering directory" lines from the build's own makefiles.
MAKEFLAGS += --no-print-directory

.PHONY: all deps configure build demo-build asan-build fuzz-build test test-plain test-asan demo bench scale screenshots fuzz fuzz-short mutants valgrind format clean package package-check try-package

all: build

deps:
	@scripts/install-deps

configure: deps
	cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_FLAGS) >/dev/null

build: configure
	cmake --build build -j $(JOBS)

# Only what the demo runs: iccp-host and the plug-in, not the test programs.
demo-build: configure
	cmake --build build -j $(JOBS) --target iccp-host CfgIecArven

asan-build: deps
	cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DICCP_SANITIZE=ON $(CMAKE_FLAGS) >/dev/null
	cmake --build build-asan -j $(JOBS)

test-plain: build
	cd build && ctest --output-on-failure -j $(JOBS)

test-asan: asan-build
	cd build-asan && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

test: test-plain test-asan fuzz-short package-check

# The Debian package of iccp-host and the plug-in, in build/.
package: build
	cmake --build build --target package

package-check: package
	scripts/check-package build

# Installs the package into a fresh Debian 12 root (needs root and
# debootstrap); outside `make test`.
try-package: package
	scripts/try-package build

demo: demo-build
	scripts/demo

bench: deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DICCP_TESTS=OFF -DICCP_BENCH=ON >/dev/null
	cmake --build build-bench -j $(JOBS)
	scripts/run-bench build-bench

# Retakes the pictures of docs/ on a virtual display.
screenshots: build
	scripts/take-screenshots build

# Opens and closes generated units of 5,000 to 200,000 tags headless, in
# three shapes, and prints the times, the peak memory and the plug-in's own.
scale: deps
	scripts/run-scale build-scale

# iccp-host under valgrind's memcheck on the demo project and a 5,000-tag unit.
valgrind: build
	scripts/run-valgrind build

# Breaks the plug-in's code one small change at a time and reports which
# changes the suite notices; outside `make test`.
mutants: deps
	MUTANTS=$(MUTANTS) SEED=$(SEED) scripts/mutants build-mutants

fuzz-build: deps
	CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DICCP_TESTS=OFF -DICCP_FUZZ=ON >/dev/null
	cmake --build build-fuzz -j $(JOBS)

fuzz: fuzz-build
	scripts/run-fuzz build-fuzz $(FUZZ_SECONDS)

fuzz-short: fuzz-build
	scripts/run-fuzz build-fuzz $(FUZZ_SHORT_SECONDS)

format: deps
	find plugin model form tags editing views dialogs support host app tests bench fuzz \
	  -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf build build-asan build-bench build-fuzz build-mutants
