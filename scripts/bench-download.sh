#!/usr/bin/env bash
# Within with-web-server.sh: measures curl on a body of 16 MiB (median of nine, milliseconds), then runs the command with
# the port and that figure behind its arguments.
set -euo pipefail
head -c 16777216 /dev/urandom >"$WEB_FOLDER/body"
curl=$(for _ in $(seq 9); do
  curl -s -o /dev/null -w '%{time_total}\n' "http://127.0.0.1:$WEB_PORT/body"
done | sort -n | awk 'NR == 5 { printf "%.3f", $1 * 1000 }')
"$@" --server "$WEB_PORT" --curl "$curl"
