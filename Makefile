# The targets that people type; the build itself is CMake's (CMakePresets.json).
# SPDX-License-Identifier: Apache-2.0
.PHONY: all demo check bench asan tsan fuzz coverage format lint install clean

all: ; @scripts/build release
demo: ; @scripts/install-deps && scripts/build release && scripts/demo
check: ; @scripts/install-deps && scripts/build release && ctest --preset release
bench: ; @scripts/install-deps && scripts/build release && build/tests/bench/bench && build/tests/bench/ppdtext_growth
asan: ; @scripts/install-deps && scripts/build asan && ctest --preset asan
tsan: ; @scripts/install-deps && scripts/build tsan && ctest --preset tsan
fuzz: ; @scripts/install-deps && scripts/build fuzz && scripts/fuzz
coverage: ; @scripts/install-deps && scripts/build coverage && scripts/coverage
format: ; @scripts/format
lint: ; @scripts/install-deps && scripts/lint
install: ; @cmake --install build
clean: ; @rm -rf build build-*
