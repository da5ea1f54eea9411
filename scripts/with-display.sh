#!/usr/bin/env bash
# Runs a command on a screen of its own: Xvfb with a window manager, both ended afterwards.
set -euo pipefail
screen=${MARLUX_SCREEN:-1280x900x24}
work=$(mktemp -d)
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 "$screen" -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
server=$!
manager=
end() {
  [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
  kill "$server" 2>/dev/null || true
  rm -rf "$work"
}
trap end EXIT
read -r number <"$work/display"
export DISPLAY=:$number
# A configuration of its own kind is not needed, but its cache must not land in the user's home.
XDG_CACHE_HOME=$work XDG_CONFIG_HOME=$work openbox --sm-disable >/dev/null 2>&1 &
manager=$!
for _ in $(seq 50); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done
"$@"
