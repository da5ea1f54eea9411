#!/usr/bin/env bash
# A first start without databases: the question, the download from a slow web server on this machine, the summary, the
# schedule. Leaves pictures under build/screenshots/. Brings its server and its screen along: inside, it runs again.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
out=$BUILD_DIR/screenshots
if [ -z "${WEB_PORT:-}" ]; then
  web=$BUILD_DIR/web-tour
  rm -rf "$web" && mkdir -p "$web/dx" "$web/data" "$out"
  cp "$BUILD_DIR/samples/eibi.txt" "$web/dx/"
  cp "$BUILD_DIR"/samples/*.zip "$web/data/"
  (cd "$web/data" && { echo '<UL>' && printf '<LI><A HREF="%s">\n' *.zip; } >index.html)
  export WEB_CHUNKS=off WEB_RATE=$(($(stat -c %s "$web/dx/eibi.txt") / 6)) MARLUX_SCREEN=812x636x24
  exec scripts/with-web-server.sh "$web" scripts/with-display.sh "$0"
fi
use_own_wine
rm -rf "$(documents_folder)/Corvane"
export MARLUX_LOOPBACK_PORT=$WEB_PORT
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkfifo "$work/commands"
wine "$BUILD_DIR/bin/marlux-host.exe" --dll "${MARLUX_TESTS:-$BUILD_DIR/release/tests}/marlux3-loopback.dll" \
  --minimized --script - <"$work/commands" >"$out/download.log" 2>&1 &
host=$!
exec 3>"$work/commands"
echo start 7 >&3
wait_for() {
  for _ in $(seq 100); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 && return 0
    sleep 0.1
  done
  fail "the tour waited in vain for the window $1"
}
shoot() { import -window root "$out/$1.png"; }
wait_for '^Database files'
sleep 0.6
shoot 21-first-start
xdotool key Return
wait_for '^Download$'
sleep 3
shoot 22-download
sleep 5
shoot 23-summary
xdotool key Return
sleep 1
wait_for '^Marlux 3$'
shoot 24-downloaded
printf '%s\n' 'close 7' 'waitfor InstanceGone' quit >&3
exec 3>&-
wait "$host" || fail "the host ended with an error"
