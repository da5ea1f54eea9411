#!/usr/bin/env bash
# Runs every fuzz target from its corpus, two at a time, and prints a line a target: executions, edges covered, minutes.
#   ./fuzz.sh SECONDS [TARGET...]   SECONDS for all of them together; what they find is in build/native/found
#   ./fuzz.sh --replay              the kept inputs once, without new ones
# Inputs that a run learns from stay in build/native/corpus for the next one; crashes belong into fuzz/corpus/TARGET.
set -euo pipefail
cd "$(dirname "$0")"
if [ -z "${MARLUX_NATIVE:-}" ]; then
  scripts/setup.sh
  MARLUX_NATIVE=1 exec scripts/native.sh ./fuzz.sh "$@"
fi
. scripts/common.sh
seconds=${1:?seconds or --replay}
shift
[ $# -gt 0 ] || for corpus in fuzz/corpus/*/; do set -- "$@" "$(basename "$corpus")"; done
found=$BUILD_DIR/native/found
mkdir -p "$found"

replay() { "$BUILD_DIR/native/fuzz-$1" -runs=0 "fuzz/corpus/$1" >"$found/$1.log" 2>&1; }

run() {
  local kept=$BUILD_DIR/native/corpus/$1
  mkdir -p "$kept"
  "$BUILD_DIR/native/fuzz-$1" -max_total_time="$each" -max_len=4096 -timeout=20 -rss_limit_mb=2000 -print_final_stats=1 \
    -artifact_prefix="$found/$1-" "$kept" "fuzz/corpus/$1" >"$found/$1.log" 2>&1
}

report() {
  local target=$1 log=$found/$1.log
  printf '%-18s %12s %8s %8s\n' "$target" "$(sed -n 's/^stat::number_of_executed_units: //p' "$log")" \
    "$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -1)" \
    "$(sed -n 's/^Done .* in \([0-9]*\) second.*/\1/p' "$log" | awk '{ printf "%.1f", $1 / 60 }')"
}

failed=0
check() { "$@" || { tail -n 40 "$found/$2.log" >&2; say "failed: $2, see $found/$2.log"; return 1; }; }
if [ "$seconds" = --replay ]; then
  for target in "$@"; do check replay "$target" || failed=1; done
  exit $failed
fi
each=$((seconds * 2 / $#)) && [ "$each" -gt 0 ] || each=1
printf '%-18s %12s %8s %8s\n' target executions edges minutes
while [ $# -gt 0 ]; do
  check run "$1" & first=$!
  second=
  [ -z "${2:-}" ] || { check run "$2" & second=$!; }
  wait $first || failed=1
  report "$1"
  [ -z "$second" ] || { wait "$second" || failed=1; report "$2"; }
  shift $(($# > 1 ? 2 : 1))
done
exit $failed
