#!/usr/bin/env bash
# Builds and runs the measurements. Options: --data DIR for a folder with a real eibi.txt.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
./build.sh
scripts/with-display.sh scripts/wine-run.sh "$BUILD_DIR/bin/marlux-bench.exe" "$@"
