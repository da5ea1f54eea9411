#!/usr/bin/env bash
# Runs a command on a screen of its own, Xvfb with a window manager, and with a sound card that is none: a pulseaudio
# server that plays into nothing, in real time. All are ended afterwards.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
. scripts/common.sh
use_headless_wine
screen=${MARLUX_SCREEN:-1280x900x24}
work=$(mktemp -d)
Xvfb -displayfd 3 -screen 0 "$screen" -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
server=$!
# The options keep it off everything of the user's: no configuration files, no pid file, its socket in our folder.
mkdir -p "$work/sound"
HOME=$work XDG_CONFIG_HOME=$work XDG_RUNTIME_DIR=$work PULSE_RUNTIME_PATH=$work/sound PULSE_STATE_PATH=$work/sound \
  pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 --disable-shm=yes --realtime=no \
  --high-priority=no --log-target=stderr \
  -L "module-native-protocol-unix socket=$work/sound/native auth-anonymous=1" \
  -L "module-null-sink sink_name=nowhere" </dev/null >"$work/sound.log" 2>&1 &
sound=$!
export PULSE_SERVER=unix:$work/sound/native PULSE_COOKIE=$work/sound/cookie
manager=
keeper=
# The desktop of Wine's prefix hangs on this screen: it must not outlive it.
end_wine() (
  use_own_wine
  { wineserver -k && wineserver -w; } >/dev/null 2>&1 || true
)
end() {
  end_wine
  [ -z "$keeper" ] || pkill -P "$keeper" 2>/dev/null || true
  [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
  kill "$server" "$sound" 2>/dev/null || true
  rm -rf "$work"
}
trap end EXIT
end_wine
for _ in $(seq 100); do
  [ -s "$work/display" ] && break
  sleep 0.1
done
[ -s "$work/display" ] || { echo "error: Xvfb did not start" >&2; exit 1; }
DISPLAY=:$(cat "$work/display")
export DISPLAY
for _ in $(seq 100); do
  [ -S "$work/sound/native" ] || ! kill -0 "$sound" 2>/dev/null && break
  sleep 0.1
done
[ -S "$work/sound/native" ] && kill -0 "$sound" 2>/dev/null ||
  { echo "error: pulseaudio did not start:" >&2; cat "$work/sound.log" >&2; exit 1; }
# A configuration of its own kind is not needed, but its cache must not land in the user's home.
XDG_CACHE_HOME=$work XDG_CONFIG_HOME=$work openbox --sm-disable >/dev/null 2>&1 &
manager=$!
for _ in $(seq 50); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done
# The background services and the desktop come up before the command: otherwise they would be children of its first
# program and keep that one's output open long after its end. An idle program keeps them from ending in between; the
# second one makes a window, which is what calls for the desktop.
(
  use_own_wine
  sleep infinity | exec wine cmd >/dev/null 2>&1
) </dev/null >/dev/null 2>&1 &
keeper=$!
(
  use_own_wine
  timeout 60 wine rundll32 user32.dll,MessageBeep
) </dev/null >/dev/null 2>&1 || { echo "error: Wine's desktop did not come up" >&2; exit 1; }
"$@"
