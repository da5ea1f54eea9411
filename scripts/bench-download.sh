#!/usr/bin/env bash
# Within with-web-server.sh: measures curl on a body of 16 MiB (median of nine, milliseconds), then runs the command with
# the port and that figure behind its arguments. A run finds the samples' schedule and one archive, the body once more.
set -euo pipefail
. scripts/common.sh
mkdir -p "$WEB_FOLDER/dx" "$WEB_FOLDER/data"
cp "$BUILD_DIR/samples/eibi.txt" "$WEB_FOLDER/dx/"
echo '<UL><LI><A HREF="body.zip">' >"$WEB_FOLDER/data/index.html"
head -c 16777216 /dev/urandom >"$WEB_FOLDER/body"
ln -sf ../body "$WEB_FOLDER/data/body.zip"
curl=$(for _ in $(seq 9); do
  curl -s -o /dev/null -w '%{time_total}\n' "http://127.0.0.1:$WEB_PORT/body"
done | sort -n | awk 'NR == 5 { printf "%.3f", $1 * 1000 }')
"$@" --server "$WEB_PORT" --curl "$curl"
