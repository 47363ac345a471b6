#!/usr/bin/env bash
# The desktop entry and the metainfo pass their validators.
set -euo pipefail
folder=$1
for tool in desktop-file-validate appstreamcli; do
  command -v "$tool" >/dev/null || { echo "FAIL: $tool is missing (./test.sh installs it)" >&2; exit 1; }
done
desktop-file-validate "$folder/io.github.tessaly.Tessaly.desktop"
appstreamcli validate --no-net "$folder/io.github.tessaly.Tessaly.metainfo.xml"
