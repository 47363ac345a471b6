#!/usr/bin/env bash
# Writes a score of about N characters for measure.sh --score: the first line
# of the demonstration song 小星星 over and over, 68 characters a line (CR LF),
# ending in TZ.
#   benchmarks/e2e/long_score.sh N OUT
set -euo pipefail
chars="$1"
out="$2"
line="KC8KCKGKGKAKAKG16KF8KFKEKEKDKDKC16KC8KCKGKGKAKAKG16KF8KFKEKEKDKDKC16"
: > "$out"
for _ in $(seq 1 $(( (chars - 2) / ${#line} ))); do printf '%s\r\n' "$line" >> "$out"; done
printf 'TZ\r\n' >> "$out"
