#!/usr/bin/env bash
# Configures and builds into ./build (Release with debug info).
# With --program-only, a build folder configured here for the first time leaves
# out the tests and benchmarks (whose libraries ./run.sh does not install), and
# only the programs are built.
# A compiler cache is used when the machine has one; the build does not need it.
set -euo pipefail
cd "$(dirname "$0")/.."
launcher=()
if command -v ccache >/dev/null 2>&1; then
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi
parts=()
targets=()
case "${1:-}" in
  --program-only)
    [ -f build/CMakeCache.txt ] || parts=(-DTESSALY_BUILD_TESTS=OFF -DTESSALY_BUILD_BENCHMARKS=OFF)
    targets=(--target tessaly tessaly-render tessaly-script) ;;
  "") parts=(-DTESSALY_BUILD_TESTS=ON -DTESSALY_BUILD_BENCHMARKS=ON) ;;
  *) echo "usage: $0 [--program-only]" >&2; exit 2 ;;
esac
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" "${parts[@]}" >/dev/null
cmake --build build -j"$(nproc)" "${targets[@]}"
