#!/usr/bin/env bash
# The CI checks beyond `make test`: every test once more (the GUI ones on the offscreen platform)
# under the address and undefined-behaviour sanitizers, and every fuzz target for a bounded time.
# Both builds treat warnings as errors.
set -euo pipefail
cd "$(dirname "$0")/.."
JOBS=$(nproc)
ROOT=$PWD
export CCACHE_BASEDIR="$ROOT"

echo "== Sanitizer build (all tests)"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVELTO_BUILD_GUI=ON -DVELTO_BUILD_BENCH=OFF \
    -DVELTO_SANITIZE=ON -DVELTO_WERROR=ON -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
cmake --build build-asan -j "$JOBS"
# Leaks are reported and fail a test; tests/support/lsan.supp names only memory that system libraries
# keep until the process ends.
(cd build-asan && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1 \
    LSAN_OPTIONS="suppressions=$ROOT/tests/support/lsan.supp:print_suppressions=0" \
    UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure -j "$JOBS")

echo "== Fuzz targets"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DVELTO_BUILD_GUI=OFF -DVELTO_BUILD_BENCH=OFF -DVELTO_BUILD_TESTS=OFF -DVELTO_FUZZ=ON -DVELTO_SANITIZE=ON \
    -DVELTO_WERROR=ON -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
cmake --build build-fuzz -j "$JOBS" --target $(cd fuzz && ls fuzz_*.cpp | sed "s/\.cpp$//")
targets=(build-fuzz/fuzz/fuzz_*)
# About a minute in all, shared between the targets.
per_target=$(( 60 / ${#targets[@]} ))
for t in "${targets[@]}"; do
    name=$(basename "$t")
    corpus="fuzz/corpus/${name#fuzz_}"
    mkdir -p "build-fuzz/runs/$name"
    seeds=()
    [ -d "$corpus" ] && seeds+=("$corpus")
    echo "-- $name (${per_target}s)"
    "$t" -max_total_time="$per_target" -rss_limit_mb=2048 -print_final_stats=1 \
        "build-fuzz/runs/$name" "${seeds[@]}" 2>&1 | tail -n 12
done
echo "fuzz: all targets ran without a crash"
