#!/usr/bin/env bash
# Installs the Debian packages the instrument needs to build, run and test.
# Only what is missing is installed; nothing happens when all are present.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-translations-l10n
  libfluidsynth-dev fluidsynth timgm6mb-soundfont fluid-soundfont-gm
  libsdl2-dev libsndfile1-dev libsamplerate0-dev librtmidi-dev libsmf-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  xvfb xauth xdotool libxtst-dev fonts-noto-cjk
  openbox imagemagick x11-utils
  qt6-svg-dev poppler-utils
)

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
