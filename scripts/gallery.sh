#!/usr/bin/env bash
# Pictures of the gallery of controls at 100 % and at 150 % text size, in build/screenshots: gallery.png (small
# controls), gallery-panels.png, gallery-open.png (what opens over windows), and the same with -150. Fails when a control
# does not show a state that it has; the program finds that out. Argument: the program, by default the release build's.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
gallery=${1:-$BUILD_DIR/bin/toolkit-gallery.exe}
[ -f "$gallery" ] || fail "$gallery is not there; ./build.sh makes it"

if [ -z "${MARLUX_ON_SCREEN:-}" ]; then
  export MARLUX_ON_SCREEN=1 MARLUX_SCREEN=${MARLUX_SCREEN:-1920x1300x24}
  exec timeout -k 10 180 scripts/with-display.sh "$0" "$gallery"
fi

use_own_wine
mkdir -p "$BUILD_DIR/screenshots"

# The window has its name when everything in it is ready.
shoot() { # percent page picture
  local program window='' i
  wine "$gallery" --scale "$1" --page "$2" >/dev/null 2>"$faults" </dev/null &
  program=$!
  for i in $(seq 150); do
    window=$(xdotool search --onlyvisible --name '^Toolkit gallery$' 2>/dev/null | tail -n 1) && [ -n "$window" ] && break
    sleep 0.2
  done
  if [ -z "$window" ]; then
    kill "$program" 2>/dev/null || true
    fail "the gallery at $1 % did not come up"
  fi
  sleep 1
  import -window "$window" "$BUILD_DIR/screenshots/$3"
  xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
  wait "$program" || fail "$3: $(tr -d '\r' <"$faults")"
  # The screen shows what the program saw: a window that has painted nothing has few colours.
  [ "$(identify -format '%k' "$BUILD_DIR/screenshots/$3")" -gt 50 ] || fail "$3 is empty"
}

faults=$(mktemp)
trap 'rm -f "$faults"' EXIT
xdotool mousemove 0 0 # not over a sample
page=0
for name in gallery gallery-panels gallery-open; do
  page=$((page + 1))
  shoot 100 $page $name.png
  shoot 150 $page $name-150.png
done
say "pictures are in $BUILD_DIR/screenshots: gallery*.png"
