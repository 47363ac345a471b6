#!/usr/bin/env bash
# Builds the score reader's fuzzer with clang into ./build-fuzz and runs it.
# Arguments go to the fuzzer, e.g. scripts/fuzz-score.sh -runs=1000000
set -euo pipefail
cd "$(dirname "$0")/.."
if ! command -v clang++ >/dev/null; then
  echo "clang++ not found: fuzzer skipped"
  exit 0
fi
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
  -DTESSALY_BUILD_TESTS=OFF -DTESSALY_FUZZ=ON >/dev/null
cmake --build build-fuzz --target score_reader_fuzzer -j"$(nproc)" >/dev/null
corpus=build-fuzz/score-corpus
mkdir -p "$corpus"
cp -n data/演奏记录/*.txt "$corpus"/ 2>/dev/null || true
exec build-fuzz/tests/fuzz/score_reader_fuzzer "$corpus" -max_len=4096 "$@"
