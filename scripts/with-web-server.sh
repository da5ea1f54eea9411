#!/usr/bin/env bash
# Runs a command while a web server on this machine serves a folder: with-web-server.sh FOLDER COMMAND...
# WEB_PORT and WEB_FOLDER tell the command of it; it serves on 127.0.0.1 and 127.0.0.2. The paths /slow/... come at 8 MiB
# a second, /dx/... as fast as WEB_RATE says (bytes; 0 is no limit) and in chunks unless WEB_CHUNKS is "off". All that the
# server writes lies in FOLDER.server.
set -euo pipefail
folder=$(mkdir -p "$1" && cd "$1" && pwd)
shift
state=$folder.server
mkdir -p "$state"
WEB_PORT=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
export WEB_PORT WEB_FOLDER=$folder
cat >"$state/nginx.conf" <<CONF
daemon off;
master_process off;
pid "$state/pid";
error_log "$state/error.log";
events {}
http {
  access_log off;
  sendfile on;
  client_body_temp_path "$state/temp";
  proxy_temp_path "$state/temp";
  fastcgi_temp_path "$state/temp";
  uwsgi_temp_path "$state/temp";
  scgi_temp_path "$state/temp";
  server {
    listen 127.0.0.1:$WEB_PORT;
    listen 127.0.0.2:$WEB_PORT;
    location / { root "$folder"; }
    location /slow/ { alias "$folder/"; limit_rate 8m; }
    # What may be changed on its way has no length to tell beforehand.
    location /dx/ { root "$folder"; limit_rate ${WEB_RATE:-0}; ssi ${WEB_CHUNKS:-on}; ssi_types text/plain; }
  }
}
CONF
nginx=$(PATH=$PATH:/usr/sbin command -v nginx) || { echo "error: no nginx: run scripts/setup.sh" >&2; exit 1; }
"$nginx" -p "$state" -e "$state/error.log" -c "$state/nginx.conf" &
server=$!
command=
# A signal reaches the shell only while it waits, not while a command of its own runs: the command runs beside it.
end() {
  [ -z "$command" ] || kill "$command" 2>/dev/null || true
  kill "$server" 2>/dev/null || true
}
trap end EXIT
trap 'exit 143' HUP INT TERM
is_up() { curl -s -o /dev/null "http://127.0.0.1:$WEB_PORT/" && curl -s -o /dev/null "http://127.0.0.2:$WEB_PORT/"; }
for _ in $(seq 100); do
  is_up && break
  kill -0 "$server" 2>/dev/null || break
  sleep 0.05
done
is_up || { echo "error: nginx is not reachable:" >&2; cat "$state/error.log" >&2; exit 1; }
"$@" <&0 &
command=$!
result=0
wait "$command" || result=$?
command=
exit "$result"
