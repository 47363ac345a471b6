#!/usr/bin/env bash
# Builds the Debian package tessaly_VERSION_ARCH.deb into ./build from a
# build of the programs (dpkg-shlibdeps, from dpkg-dev, works out the
# libraries it depends on).
set -euo pipefail
cd "$(dirname "$0")/.."
command -v dpkg-shlibdeps >/dev/null || { echo "dpkg-shlibdeps is missing: apt-get install dpkg-dev" >&2; exit 1; }
scripts/build.sh --program-only
cd build
cpack -G DEB
