#!/usr/bin/env bash
# Installs what is missing, builds, and starts the instrument.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh --program-only
exec build/src/app/tessaly "$@"
