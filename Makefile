# Shortcuts for the usual tasks; CMake does the building (CMakePresets.json).
# SPDX-License-Identifier: Apache-2.0
.PHONY: all help demo check check-desktop bench asan tsan fuzz soak mutants coverage format lint macos-check package package-check package-test check-debian13 install clean

all: ## build the programs, the PPD and the manual pages
	@scripts/install-deps build && scripts/build release all
help: ## show this list
	@sed -n 's/^\([a-z][a-z0-9-]*\):.*## /\1\t/p' $(MAKEFILE_LIST) | expand -t 16
demo: ## send the example job through the filter and show what changed
	@scripts/install-deps demo && scripts/build demo all && scripts/demo
check: ## build and run all tests
	@scripts/install-deps build check && scripts/build release all tests/all && scripts/check
check-desktop: ## print through the dialogs of GTK, Qt and LibreOffice, open pages in a browser
	@scripts/install-deps build check desktop && scripts/build release all
	@for test in tests/desktop/*_test.sh; do echo "$$test"; sh "$$test" || exit 1; done
bench: ## measure throughput, start-up and memory
	@scripts/install-deps build check && scripts/build release all tests/bench/all && scripts/bench
asan: ## run the tests under the address and undefined-behaviour sanitizers
	@scripts/install-deps build check && scripts/build asan all tests/all && ctest --preset asan
tsan: ## run the tests under the thread sanitizer
	@scripts/install-deps build check && scripts/build tsan all tests/all && ctest --preset tsan
fuzz: ## run every fuzz target for a minute
	@scripts/install-deps build check lint && scripts/build fuzz tests/fuzz/all && scripts/fuzz
soak: ## print 2,000 jobs in 5 minutes through a real cupsd, with cancels and restarts
	@scripts/install-deps build check && scripts/build release all && sh tests/system/soak.sh
mutants: ## break the program in one place at a time: does a test notice?
	@scripts/install-deps build check && python3 tests/mutants/run.py
coverage: ## print the line coverage of each directory
	@scripts/install-deps build check && scripts/build coverage all tests/all && scripts/coverage
format: ## format every C++ file with clang-format
	@scripts/install-deps lint && scripts/format
lint: ## check format, warnings of both compilers, clang-tidy, shell scripts, licences
	@scripts/install-deps build check lint && scripts/lint
macos-check: ## compile and link for macOS, with a zig in PATH
	@scripts/install-deps build check && scripts/macos-check
package: ## build the Debian packages of the last commit and run lintian
	@scripts/install-deps package && scripts/package
package-check: ## build the packages twice and compare them
	@scripts/install-deps package && scripts/check-reproducible
package-test: ## install, upgrade and remove those packages in a throw-away Debian, as root
	@scripts/install-deps tree && scripts/check-packages
check-debian13: ## build the last commit, run all tests and make the packages in a Debian 13 tree, as root
	@scripts/install-deps tree && scripts/check-debian13
install: ## install what "make" built
	@cmake --install build
clean: ## remove all build directories
	@rm -rf build build-*
