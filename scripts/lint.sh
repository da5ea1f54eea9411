#!/usr/bin/env bash
# Looks through the product's sources with clang-tidy; .clang-tidy says what for. A developer's command: it takes
# minutes. Arguments: sources to look at (none: all). JOBS=n for other than two at a time, MARLUX_BUILD=folder for a
# configured build folder other than build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
build=${MARLUX_BUILD:-$BUILD_DIR/release}
command -v clang-tidy >/dev/null || fail "clang-tidy is not there: run scripts/setup.sh"
[ -e "$build/compile_commands.json" ] || fail "$build is not configured: run build.sh"

# clang parses with the cross compiler's C++ library and Windows headers, in the order in which that one looks at them,
# and with built-in headers of its own in place of gcc's.
arguments=(-p "$build" --quiet --extra-arg=--target=i686-w64-mingw32 --extra-arg=-nostdinc++
           # It does not know the Microsoft flavour of printf's attribute. And what the build's -Werror makes an error,
           # NOLINT does not silence: .clang-tidy makes errors of the findings instead.
           --extra-arg=-Wno-ignored-attributes --extra-arg=-Wno-error)
while read -r folder; do
  arguments+=("--extra-arg=-isystem$folder")
done < <(i686-w64-mingw32-g++-posix -E -Wp,-v -xc++ /dev/null 2>&1 | sed -n 's/^ //p' | xargs -n 1 realpath |
         grep -E '/include/c\+\+|/i686-w64-mingw32/include$' | awk '!seen[$0]++')

if [ $# -gt 0 ]; then sources=("$@"); else sources=({foundation,toolkit,schedule,plugin,app,host}/*.cpp); fi
# The count of suppressed warnings of system headers that clang prints for each source is of no use to anybody.
printf '%s\0' "${sources[@]}" |
  xargs -0 -n 1 -P "${JOBS:-2}" clang-tidy "${arguments[@]}" 2> >(grep -vE '^[0-9]+ warnings?.* generated\.$' >&2) ||
  fail "clang-tidy found something"
