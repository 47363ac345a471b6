#!/usr/bin/env bash
# Installs the Debian packages the instrument needs: by default what building
# and running it need; with --for-tests also what the tests, the screen tests,
# the fuzzers and the benchmarks need.
# Only what is missing is installed; nothing happens when all are present.
set -euo pipefail

# Building and running.
PACKAGES=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-svg-dev qt6-translations-l10n
  libfluidsynth-dev timgm6mb-soundfont fluid-soundfont-gm
  libsdl2-dev libsndfile1-dev libsamplerate0-dev librtmidi-dev libsmf-dev
  fonts-noto-cjk
)
# Testing: test libraries, the fuzzers' compiler, a virtual display and its
# tools, the desktop files' validators, and the package tools.
TEST_PACKAGES=(
  fluidsynth
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  xvfb xauth xdotool libxtst-dev
  openbox imagemagick x11-utils
  desktop-file-utils appstream shared-mime-info libglib2.0-bin
  dpkg-dev poppler-utils
)

case "${1:-}" in
  --for-tests) PACKAGES+=("${TEST_PACKAGES[@]}") ;;
  "") ;;
  *) echo "usage: $0 [--for-tests]" >&2; exit 2 ;;
esac

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
