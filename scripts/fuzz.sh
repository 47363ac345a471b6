#!/usr/bin/env bash
# The fuzzers, in their own clang build in ./build-fuzz (libFuzzer, ASan, UBSan).
#   scripts/fuzz.sh --build                     configures and builds every fuzzer
#   scripts/fuzz.sh NAME SEEDS [ARGS...]        runs build-fuzz/tests/fuzz/NAME on its
#                                               corpus, seeded from the files in SEEDS
#   scripts/fuzz.sh --soak [--seed N] [--minutes M]
#                                               random play in virtual time, same checks
# e.g. scripts/fuzz.sh score_reader_fuzzer data/演奏记录 -runs=1000000
set -euo pipefail
cd "$(dirname "$0")/.."
if ! command -v clang++ >/dev/null; then
  echo "clang++ not found: fuzzer skipped"
  exit 0
fi
if [ "${1:-}" = "--build" ]; then
  cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DTESSALY_BUILD_TESTS=OFF -DTESSALY_BUILD_BENCHMARKS=OFF -DTESSALY_FUZZ=ON >/dev/null
  exec cmake --build build-fuzz --target fuzzers -j"$(nproc)"
fi
if [ "${1:-}" = "--soak" ]; then
  shift
  exec build-fuzz/tests/fuzz/random_play_soak "$@"
fi
name=$1 seeds=$2
shift 2
corpus=build-fuzz/corpus/$name
mkdir -p "$corpus"
find "$seeds" -maxdepth 1 -type f -exec cp -n {} "$corpus"/ \; 2>/dev/null || true
exec "build-fuzz/tests/fuzz/$name" "$corpus" "$@"
