#!/usr/bin/env bash
# Builds and runs the measurements; one line a figure.
#   ./bench.sh              on the sample schedule
#   ./bench.sh --data DIR   on the eibi.txt of a folder of yours, which is only read
#   --only start|window|schedule|tasks|hfcc|recording|download   for a part of them
#   --only soak [--minutes N]   a long time of everything: 8 hours in fast motion, then N minutes (20)
set -euo pipefail
data=
only=()
while [ $# -gt 0 ]; do
  case $1 in
    --data) data=$(cd "${2:?--data needs a folder}" && pwd); shift 2 ;;
    --only) only+=(--only "${2:?--only needs a name}"); shift 2 ;;
    --minutes) only+=(--minutes "${2:?--minutes needs a number}"); shift 2 ;;
    *) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2 ;;
  esac
done
cd "$(dirname "$0")"
. scripts/common.sh
./build.sh
data=${data:-$BUILD_DIR/samples}

# Each request to Wine's server wakes a processor; one that has gone to sleep takes some 50 us for it, ten times what an
# awake one takes, which would be measured in place of the program. What keeps them awake gives way to everybody.
awake=()
trap 'kill "${awake[@]}" 2>/dev/null' EXIT
for _ in $(seq "$(nproc)"); do
  nice -n 19 sh -c 'while kill -0 "$0" 2>/dev/null; do for _ in 1 2 3 4 5 6 7 8 9; do :; done; done' $$ &
  awake+=($!)
done
scripts/with-web-server.sh "$BUILD_DIR/web-bench" scripts/bench-download.sh \
  scripts/with-display.sh scripts/wine-run.sh "$BUILD_DIR/bin/marlux-bench.exe" --data "$data" "${only[@]}"
