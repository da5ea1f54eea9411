#!/usr/bin/env bash
# Sets up, builds and opens Marlux 3 in the development host.
#   ./run.sh              on the sample schedule
#   ./run.sh --data DIR   on the eibi.txt of a folder of yours, which is only read
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

data=${data:-$BUILD_DIR/samples}
[ -e "$data/eibi.txt" ] || say "note: no eibi.txt in $data"
(
  use_own_wine
  documents=$(documents_folder)/Corvane/Marlux3
  mkdir -p "$documents"
  rm -f "$documents"/eibi.txt "$documents"/*.zip
  for file in "$data"/eibi.txt "$data"/*.zip; do
    [ ! -e "$file" ] || cp "$file" "$documents/"
  done
)
if [ -n "${DISPLAY:-}" ]; then
  exec scripts/wine-run.sh "$BUILD_DIR/bin/marlux-host.exe" --dll "$BUILD_DIR/bin/marlux3.dll"
fi
scripts/with-display.sh scripts/tour.sh
