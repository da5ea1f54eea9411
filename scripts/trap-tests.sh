#!/usr/bin/env bash
# Builds the module and the test programs so that a fault ends them where it happens, and runs all tests of that build:
#   trap-tests.sh ubsan [CTEST ARGUMENTS]   what the language leaves undefined is an illegal instruction
#   trap-tests.sh guard [CTEST ARGUMENTS]   each heap block ends at an inaccessible page, and so do freed ones
# First it makes faults on purpose, which have to be seen. Places in a report are offsets: add the image base that
# `i686-w64-mingw32-objdump -p FILE` tells and give the sum to `i686-w64-mingw32-addr2line -f -C -e FILE`.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
kind=${1:-}
case $kind in ubsan | guard) shift ;; *) fail "usage: trap-tests.sh ubsan|guard [CTEST ARGUMENTS]" ;; esac
build=$BUILD_DIR/$kind
[ -e "$build/build.ninja" ] || cmake --preset "mingw-$kind" >/dev/null
cmake --build "$build" >"$build/build.log" 2>&1 || { tail -n 40 "$build/build.log" >&2; fail "the build failed"; }

# The self-check tells of a program; these tell that the modules are built like it.
for module in "$build/bin/marlux3.dll" "$build/tests/marlux3-loopback.dll"; do
  if [ "$kind" = guard ]; then
    ! i686-w64-mingw32-objdump -p "$module" | grep -qwE 'malloc|calloc|realloc|free|VirtualAlloc' ||
      fail "$module takes memory that is not guarded"
  else
    traps=$(i686-w64-mingw32-objdump -d "$module" | grep -cw ud2) || true
    say "$module: $traps traps"
    [ "$traps" -gt 5000 ] || fail "$module is not built with the sanitizer"
  fi
done

export MARLUX_SCREEN=1920x1300x24
run() { scripts/with-display.sh ctest --test-dir "$build" --output-on-failure --timeout 1500 "$@"; }
run -R '^trap-'
# What is the same in each build, or has a build of its own, is left to ./test.sh. The guard stands where calls of memory
# are made to fail: the module imports none.
others='trap-.*|style|style-check|native-sanitized|fuzz-replay|gallery|installer'
[ "$kind" = ubsan ] || others+='|faults'
run -E "^($others)$" "$@"
