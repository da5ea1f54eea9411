#!/usr/bin/env bash
# Looks through the sources with clang-tidy (.clang-tidy says what for; not the tests) and cppcheck (what it says wrongly
# is in scripts/cppcheck-suppressions.txt). A developer's command: it takes minutes. Arguments: sources to look at, with
# clang-tidy alone (none: all, with both). JOBS=n for other than two at a time, MARLUX_BUILD=folder for a configured build
# folder other than build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
build=${MARLUX_BUILD:-$BUILD_DIR/release}
for tool in clang-tidy cppcheck; do
  command -v "$tool" >/dev/null || fail "$tool is not there: run scripts/setup.sh"
done
[ -e "$build/compile_commands.json" ] || fail "$build is not configured: run build.sh"
folders=(foundation toolkit schedule plugin scheduler download app host gallery bench)

# clang parses with the cross compiler's C++ library and Windows headers, in the order in which that one looks at them,
# and with built-in headers of its own in place of gcc's.
mkdir -p "$BUILD_DIR/lint"
sed 's/ -mmemcpy-strategy=[^ ]*//' "$build/compile_commands.json" >"$BUILD_DIR/lint/compile_commands.json"  # gcc's own
cross=(-p "$BUILD_DIR/lint" --extra-arg=--target=i686-w64-mingw32 --extra-arg=-nostdinc++
       # It does not know the Microsoft flavour of printf's attribute.
       --extra-arg=-Wno-ignored-attributes)
while read -r folder; do
  cross+=("--extra-arg=-isystem$folder")
done < <(i686-w64-mingw32-g++-posix -E -Wp,-v -xc++ /dev/null 2>&1 | sed -n 's/^ //p' | xargs -n 1 realpath |
         grep -E '/include/c\+\+|/i686-w64-mingw32/include$' | awk '!seen[$0]++')

# Sources one by one: the first argument is their folders' options, up to "--". What the build's -Werror makes an error,
# NOLINT does not silence: .clang-tidy makes errors of the findings instead. The count of suppressed warnings of system
# headers that clang prints for each source is of no use to anybody.
tidy() {
  local options=()
  while [ "$1" != -- ]; do options+=("$1"); shift; done
  shift
  printf '%s\0' "$@" |
    xargs -0 -n 1 -P "${JOBS:-2}" sh -c 'clang-tidy "$@" || exit 1' sh --quiet --extra-arg=-Wno-error "${options[@]}" \
      2> >(grep -vE '^[0-9]+ warnings?.* generated\.$' >&2) || fail "clang-tidy found something"
}

# One configuration, that of the module; cppcheck's own idea of Windows stands in for the system's headers.
check() {
  cppcheck --quiet --error-exitcode=1 --inline-suppr -j "${JOBS:-2}" --std=c++20 --language=c++ --platform=win32A \
    --library=windows --library=gnu --library=zlib --library=googletest -I . -D__GNUC__=12 -D_WIN32 -D__i386__ \
    -D__cplusplus=202002L -DMARLUX_VERSION='""' --template='{file}:{line}: {id}: {message}' \
    --suppressions-list=scripts/cppcheck-suppressions.txt "$@" || fail "cppcheck found something"
}

if [ $# -gt 0 ]; then
  tidy "${cross[@]}" -- "$@"
  exit
fi
check --enable=warning,performance,portability,style "${folders[@]}" fuzz
check --enable=warning,performance,portability tests
tidy "${cross[@]}" -- $(printf '%s/*.cpp ' "${folders[@]}")
# Native code. The stand-in beside it is C by nature, with names that the linker asks for.
scripts/native.sh true
tidy -p "$BUILD_DIR/native" -- fuzz/*.cpp
