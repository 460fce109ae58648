# SPDX-License-Identifier: GPL-3.0-or-later
# make run       builds Kelp and starts it with the simulated fluorometer; without a display it plays the
#                demo station in the terminal
# make test      builds everything and runs all tests
# make package   makes the Debian package, in build/package, and lets lintian look at it
# make windows   makes the installer and the zip for Windows, in build/windows; the first time it builds Qt,
#                which takes 35 minutes on two idle cores and can be stopped and continued (tools/windows-qt)
# make test-windows   tests all of that under Wine
# make lint      checks format and code
# make format    formats the code
# make bench     builds the benchmarks, in build/bench
# make sanitize  runs the tests below the desktop under AddressSanitizer and UndefinedBehaviorSanitizer
# make clean     removes build/
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

# Warnings stop a build only where somebody looks after them: KELP_WERROR=ON make test
KELP_WERROR ?= OFF
CONFIGURE = cmake --log-level=WARNING -DKELP_WERROR=$(KELP_WERROR)

# Ccache finds what another folder's build has compiled already.
export CCACHE_BASEDIR = $(CURDIR)
export CCACHE_NOHASHDIR = 1

.PHONY: run test package windows test-windows lint format bench sanitize clean

run:
	@tools/install-deps run
	$(CONFIGURE) --preset release
	cmake --build --preset release -j $(JOBS)
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ] && [ -x build/release/desktop/kelp ]; then \
	  build/release/desktop/kelp --simulate; \
	else \
	  demo/run build/release; \
	fi

test:
	@tools/install-deps test
	$(CONFIGURE) --preset dev
	cmake --build --preset dev -j $(JOBS)
	ctest --test-dir build/dev --output-on-failure -j $(JOBS)

sanitize:
	@tools/install-deps test
	$(CONFIGURE) --preset sanitize -DKELP_DESKTOP=OFF
	cmake --build --preset sanitize -j $(JOBS)
	ctest --test-dir build/sanitize --output-on-failure -j $(JOBS)

bench:
	@tools/install-deps bench
	$(CONFIGURE) --preset bench
	cmake --build --preset bench -j $(JOBS)

package:
	@tools/install-deps package
	$(CONFIGURE) --preset release -B build/package
	cmake --build build/package -j $(JOBS)
	cd build/package && cpack
	lintian --fail-on error,warning build/package/kelp_*.deb

windows:
	@tools/install-deps windows
	JOBS=$(JOBS) tools/windows-build

test-windows:
	@tools/install-deps windows
	JOBS=$(JOBS) tools/test-windows

lint:
	@tools/install-deps lint
	tools/format --check
	tools/mutants --check
	tools/lint

format:
	@tools/install-deps lint
	tools/format

clean:
	rm -rf build
