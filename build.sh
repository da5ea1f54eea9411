#!/usr/bin/env bash
# Sets the machine up and builds everything into build/. Option: --debug.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
preset=mingw-release
[ "${1:-}" = --debug ] && preset=mingw-debug
scripts/setup.sh
[ -e "$BUILD_DIR/${preset#mingw-}/build.ninja" ] || cmake --preset "$preset"
cmake --build --preset "$preset"
