# make run    builds Kelp and starts it with the simulated fluorometer; without a display it plays the
#             demo station in the terminal
# make test   builds everything and runs all tests
# make package   makes the Debian package, in build/package
# make windows   makes the installer and the zip for Windows, in build/windows; the first time it builds Qt,
#                which takes 35 minutes (tools/windows-qt)
# make test-windows   tests all of that under Wine
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

# Ccache finds what another folder's build has compiled already.
export CCACHE_BASEDIR = $(CURDIR)
export CCACHE_NOHASHDIR = 1

.PHONY: run test package windows test-windows lint format clean deps

run: deps
	cmake --preset release --log-level=WARNING
	cmake --build --preset release -j $(JOBS) --target kelp_programs
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ] && [ -x build/release/desktop/kelp ]; then \
	  build/release/desktop/kelp --simulate; \
	else \
	  demo/run build/release; \
	fi

test: deps
	cmake --preset dev --log-level=WARNING
	cmake --build --preset dev -j $(JOBS)
	ctest --test-dir build/dev --output-on-failure -j $(JOBS)

package: deps
	cmake --preset release -B build/package -DKELP_TESTS=OFF -DKELP_BENCH=OFF --log-level=WARNING
	cmake --build build/package -j $(JOBS)
	cd build/package && cpack

windows: deps
	JOBS=$(JOBS) tools/windows-build

test-windows: deps
	JOBS=$(JOBS) tools/test-windows

lint: deps
	tools/format --check
	tools/lint

format: deps
	tools/format

clean:
	rm -rf build

deps:
	@tools/install-deps
