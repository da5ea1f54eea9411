#!/usr/bin/env bash
# Two minutes in real time: the built plug-in in the development host, timers and audio as they come, and a task that is
# due now. Checks the recording that it leaves. On a screen and in a Wine prefix of its own; takes about 160 seconds.
#   scripts/real-time-run.sh [FOLDER OF MODULE AND HOST]
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
programs=$(realpath "${1:-$BUILD_DIR/bin}")
if [ -z "${MARLUX_REAL_TIME_SCREEN:-}" ]; then
  # Not the one of tests around this: it is ended with its screen.
  export MARLUX_WINE=${MARLUX_REAL_TIME_WINE:-$BUILD_DIR/wine-real-time} MARLUX_REAL_TIME_SCREEN=1
  exec scripts/with-display.sh "$0" "$programs"
fi
use_own_wine
documents=$(documents_folder)
data=$documents/Corvane/Marlux3
work=$(mktemp -d)
# What the prefix holds already comes back afterwards.
[ ! -e "$data" ] || mv "$data" "$work/before"
end() {
  rm -rf "$data"
  [ ! -e "$work/before" ] || mv "$work/before" "$data"
  rm -rf "$work"
}
trap end EXIT
mkdir -p "$data"

# The host takes some seconds to start: the task begins after them and ends 120 seconds later.
python3 tests/tools/real_time_check.py make "$data/tasks.mxt"
cat >"$work/script" <<'SCRIPT'
audio tone 48000 1 16
start 7
waitfor "MediaState(0x1101) a=0" 90000
waitfor "MediaState(0x1101) a=0" 130000
wait 1000
close 7
waitfor InstanceGone
quit
SCRIPT
timeout -s KILL 220 wine "$programs/marlux-host.exe" --dll "$programs/marlux3.dll" --minimized \
  --script "$(winepath -w "$work/script")" --log "$(winepath -w "$work/host.log")" </dev/null >"$work/output" 2>&1 ||
  fail "the host ended with an error: $(tail -n 3 "$work/host.log")"
python3 tests/tools/real_time_check.py check "$data/Recordings"
