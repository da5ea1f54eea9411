#!/usr/bin/env bash
# A walk through the main window on the screen that DISPLAY names: start, filter, sort, tune, record, play, close.
# Leaves pictures and the host's log under build/screenshots/. Fails when the host says that something went wrong.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
use_own_wine
out=$BUILD_DIR/screenshots
mkdir -p "$out"
rm -f "$out"/[0-9]*-*.png "$out"/host.log
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkfifo "$work/commands"
# As at a first start, unless the prefix is the one in which a user works.
[ -z "${MARLUX_WINE:-}" ] || wine reg delete 'HKCU\Software\Corvane Communications' /f >/dev/null 2>&1 || true

wine "$BUILD_DIR/bin/marlux-host.exe" --dll "$BUILD_DIR/bin/marlux3.dll" --minimized --script - \
  --log "$(winepath -w "$out/host.log")" <"$work/commands" >"$work/output" 2>&1 &
host=$!
exec 3>"$work/commands"
trap '' PIPE  # of a host that has ended
tell() { printf '%s\n' "$*" >&3 || fail "the host has ended: $(tail -n 3 "$out/host.log")"; }

# The picture is of the window's client area and frame, once nothing moves any more.
shoot() {
  sleep 0.6
  import -window "$(xdotool getactivewindow)" -frame "$out/$1.png" 2>/dev/null || import -window root "$out/$1.png"
}
shoot_screen() {
  sleep 0.6
  import -window root "$out/$1.png"
}
key() { xdotool key --clearmodifiers --delay 60 "$@"; }
click() { xdotool mousemove --window "$window" "$1" "$2" click "${3:-1}"; }
wait_for() {
  local i
  for i in $(seq 100); do
    if eval "$1"; then return 0; fi
    sleep 0.1
  done
  fail "the tour waited in vain for: $1"
}

tell start 7
wait_for 'window=$(xdotool search --onlyvisible --name "^Marlux 3$" 2>/dev/null | tail -n 1) && [ -n "$window" ]'
sleep 0.6
# A folder without one of the databases: no download here, tour-download.sh shows one.
if xdotool search --onlyvisible --name '^Database files' >/dev/null 2>&1; then key Escape; fi
xdotool windowactivate --sync "$window"
shoot 1-start


# Places are relative to the window, below its title bar, for the prefix's font.
click 338 37
click 600 37 && key ctrl+a && xdotool type 9420 && key Tab
shoot 2-filter

click 330 129
shoot 3-sort
click 330 129
shoot 4-sort-descending

# Marks.
click 330 201
xdotool keydown shift && click 330 255 && xdotool keyup shift
sleep 0.6
shoot 5-marks
# Only 9420 kHz itself, so that the first row is one to tune to.
click 697 37 && key ctrl+a && xdotool type 0 && key Tab
xdotool mousemove --window "$window" 330 165 click --repeat 2 --delay 60 1
tell 'waitfor "SetFrequency(0x800) a=9420000"'
tell 'waitfor "SetMode(0x900) a=1"'
tell waitfor TuneThird
tell 'waitfor "TuneFourth(0x902) a=5000"'
shoot 6-tuned
click 330 183 3
shoot_screen 7-context-menu
key d
shoot 8-eibi-details
key Escape
click 150 99
shoot_screen 9-choices
key Escape
key alt+h && key a
shoot_screen 10-about
key Escape
xdotool windowsize --sync "$window" 560 520
shoot 11-narrow
xdotool windowsize --sync "$window" 800 600

# The other database, where the archive's folder has one: without the frequency filter.
click 338 37
click 122 37
shoot 12-hfcc
click 330 183 3
key d
shoot 13-hfcc-details
key Escape
key alt+o && key s
shoot_screen 14-hfcc-columns
key Escape

# A recording of the first broadcast around 9420 kHz; the host's retuning ends it. Then it is played.
click 30 37
click 338 37
click 697 37 && key ctrl+a && xdotool type 200 && key Tab
tell audio tone 48000 1 16
click 330 183 3
key r
tell 'waitfor "MediaState(0x1101) a=0"'
sleep 3
shoot 15-recording
tell retune 9420000
tell audio off
click 330 183
key Tab space
tell 'waitfor "MediaState(0x1101) a=1"'
sleep 1
shoot 16-playing

# A task for the station of a row. A new one is for now: it runs as soon as it is in the list.
click 330 183 3
key s
wait_for 'xdotool search --onlyvisible --name "^New Task$" >/dev/null 2>&1'
shoot 17-task
key Tab F4
shoot_screen 18-calendar
key Escape Return
tell 'waitfor "TuneFourth(0x902) a=5000"'
# Wine leaves the focus to the window manager, which on a busy machine may still be giving it to the main window.
wait_for 'xdotool search --onlyvisible --name "^Scheduler$" windowactivate && sleep 0.3 &&
  [ "$(xdotool getactivewindow getwindowname)" = Scheduler ]'
shoot 19-scheduler
key Delete
shoot_screen 20-delete-task
key Escape Escape

tell close 7
tell waitfor InstanceGone
tell quit
exec 3>&-
wait "$host" || fail "the host ended with an error: $(tail -n 3 "$out/host.log")"
say "pictures and the host's log (host.log) are in $out"
