# The two commands of the README. Everything else is internal plumbing.
BUILD_DIR ?= build
JOBS ?= $(shell nproc)

.PHONY: run test deps build

run: build
	./$(BUILD_DIR)/src/velto examples/Beispielprojekt.VT5

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

deps:
	@bash scripts/install-deps.sh

build: deps
	@cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELTO_BUILD_GUI=ON -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
	@cmake --build $(BUILD_DIR) -j $(JOBS)
