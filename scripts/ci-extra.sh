#!/usr/bin/env bash
# The CI checks beyond `make test`: the core and CLI tests once more under the address and
# undefined-behaviour sanitizers, and every fuzz target for a bounded time.
set -euo pipefail
cd "$(dirname "$0")/.."
JOBS=$(nproc)

echo "== Sanitizer build (core and CLI tests)"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVELTO_BUILD_GUI=OFF -DVELTO_BUILD_BENCH=OFF \
    -DVELTO_SANITIZE=ON -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
cmake --build build-asan -j "$JOBS"
(cd build-asan && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --output-on-failure -j "$JOBS")

echo "== Fuzz targets"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DVELTO_BUILD_GUI=OFF -DVELTO_BUILD_BENCH=OFF -DVELTO_BUILD_TESTS=OFF -DVELTO_FUZZ=ON -DVELTO_SANITIZE=ON \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
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
