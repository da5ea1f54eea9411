#!/usr/bin/env bash
# Sets the machine up, builds, and runs every test through ctest without a screen of the user's.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
./build.sh
scripts/with-display.sh ctest --test-dir "$BUILD_DIR/release" --output-on-failure "$@"
