#!/usr/bin/env bash
# Runs a Windows program in the build's own Wine prefix; ctest calls it for each test program.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
use_own_wine
exec wine "$@"
