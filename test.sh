#!/usr/bin/env bash
# Sets the machine up, builds, and runs every test through ctest without a screen of the user's.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
./build.sh
MARLUX_SCREEN=1920x1300x24 scripts/with-display.sh ctest --test-dir "$BUILD_DIR/release" --output-on-failure "$@"
