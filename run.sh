#!/usr/bin/env bash
# Sets up, builds and opens Marlux 3 in the development host.
#   ./run.sh              on the sample schedule
#   ./run.sh --data DIR   on the eibi.txt and the archives of a folder of yours, which is only read
# With a display the program opens there and stays. Without one a short scripted tour runs on a screen of its own; its
# pictures and the host's log are left under build/screenshots/.
set -euo pipefail
data=
while [ $# -gt 0 ]; do
  case $1 in
    --data) data=$(cd "${2:?--data needs a folder}" && pwd); shift 2 ;;
    *) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2 ;;
  esac
done
cd "$(dirname "$0")"
. scripts/common.sh
./build.sh

# Where the plug-in looks for its help file.
export ZQN_PLUGIN_PATH=Z:${BUILD_DIR//\//\\}\\bin

# A display that is named but does not answer is none.
has_display() { [ -n "${DISPLAY:-}" ] && xprop -root _NET_SUPPORTED >/dev/null 2>&1; }

# The user's schedule replaces the plug-in's copy; the sample only stands in where there is none yet.
put_data() (
  use_own_wine
  to=$(documents_folder)/Corvane/Marlux3
  mkdir -p "$to"
  [ -z "$data" ] || [ -e "$data/eibi.txt" ] || say "note: no eibi.txt in $data"
  if [ -z "$data" ]; then
    [ -e "$to/eibi.txt" ] || cp "$BUILD_DIR/samples/eibi.txt" "$to/"
    compgen -G "$to/*.zip" >/dev/null || cp "$BUILD_DIR"/samples/*.zip "$to/"
  elif [ ! "$data" -ef "$to" ]; then
    for file in "$data"/eibi.txt "$data"/*.zip; do
      [ ! -e "$file" ] || cp "$file" "$to/"
    done
  fi
)

if has_display; then
  put_data
  exec scripts/wine-run.sh "$BUILD_DIR/bin/marlux-host.exe" --dll "$BUILD_DIR/bin/marlux3.dll"
fi
use_headless_wine
(use_own_wine && rm -rf "$(documents_folder)/Corvane")
put_data
MARLUX_SCREEN=812x636x24 scripts/with-display.sh scripts/tour.sh
scripts/tour-download.sh
