#!/usr/bin/env bash
# Pictures of the gallery of controls at 100 % and at 150 % text size: build/screenshots/gallery.png and
# gallery-150.png. Argument: the program, by default the release build's.
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
shoot() { # percent picture
  local program window='' i
  wine "$gallery" --scale "$1" >/dev/null 2>&1 </dev/null &
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
  import -window "$window" "$BUILD_DIR/screenshots/$2"
  xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
  wait "$program" || fail "the gallery at $1 % ended with an error"
}

shoot 100 gallery.png
shoot 150 gallery-150.png
say "pictures are in $BUILD_DIR/screenshots: gallery.png, gallery-150.png"
