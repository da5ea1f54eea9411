#!/usr/bin/env bash
# Builds tests and fuzz targets as 32-bit Linux code with sanitizers into build/native and runs a command with the
# sanitizers' options, in a folder for temporary files that is gone afterwards: native.sh PROGRAM ARGUMENTS
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
native=$BUILD_DIR/native
if [ ! -e "$native/build.ninja" ]; then
  cmake -S fuzz -B "$native" -G Ninja -D CMAKE_C_COMPILER=clang -D CMAKE_CXX_COMPILER=clang++ >/dev/null
fi
cmake --build "$native" >"$native/build.log" 2>&1 || { cat "$native/build.log" >&2; fail "the native build failed"; }
# In memory where there is such a file system: fuzz targets write thousands of files a second.
TMPDIR=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")" marlux3-native-XXXXXX)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
# A block that is too large is one that cannot be had, as on a 32-bit system.
export ASAN_OPTIONS=allocator_may_return_null=1:max_allocation_size_mb=1024 UBSAN_OPTIONS=print_stacktrace=1
"$@"
