# The commands of the README. Everything else is internal plumbing.
BUILD_DIR ?= build
JOBS ?= $(shell nproc)
# CI sets WERROR=ON so that a warning fails the build; developers see warnings without the failure.
WERROR ?= OFF
# Paths below the project are hashed relative to it, so a clone elsewhere (CI) reuses the cache.
export CCACHE_BASEDIR := $(CURDIR)

.PHONY: run test bench package deps configure build

# A fresh copy of the sample project each time, in the build folder: trying Velto never touches the
# committed example, its lock or its backups.
run: build
	@cp examples/Beispielprojekt.VT5 $(BUILD_DIR)/Beispielprojekt.VT5
	./$(BUILD_DIR)/src/velto --new-instance $(BUILD_DIR)/Beispielprojekt.VT5

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

# Builds the benchmarks (they are not part of `build`) and says how to run them.
bench: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS) --target velto_bench
	@echo "Benchmarks built. Run them one at a time on a quiet machine (see docs/performance.md):"
	@echo "  $(BUILD_DIR)/bench/velto_core_bench    # node list, project file, RTF"
	@echo "  $(BUILD_DIR)/bench/velto_gui_bench     # chart redraw, view commands, note pane, printing (offscreen)"
	@echo "  add e.g. --benchmark_filter=BM_Rtf to run only some of them"

# The Debian package (velto_<version>_<arch>.deb in the build folder); see cmake/VeltoPackage.cmake.
package: build
	cd $(BUILD_DIR) && cpack -G DEB

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELTO_BUILD_GUI=ON \
	    -DVELTO_WERROR=$(WERROR) -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null

build: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS)
