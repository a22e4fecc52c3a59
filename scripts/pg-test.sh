#!/usr/bin/env bash
# Throwaway PostgreSQL for the tests: start DIR PORT | stop DIR
set -euo pipefail
cmd=$1; dir=$2
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
as_pg() {
  if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}
case "$cmd" in
start)
  port=$3
  rm -rf "$dir"; mkdir -p "$dir"
  [ "$(id -u)" -eq 0 ] && chown postgres "$dir"
  as_pg "$bin/initdb" -D "$dir/data" -U singbox --auth=trust -E UTF8 --locale=C.UTF-8 >"$dir/initdb.log" 2>&1
  as_pg "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w \
    -o "-c listen_addresses=127.0.0.1 -p $port -k $dir -c fsync=off -c synchronous_commit=off -c full_page_writes=off" start >/dev/null
  as_pg "$bin/createdb" -h 127.0.0.1 -p "$port" -U singbox singbox_test
  ;;
stop)
  [ -d "$dir/data" ] && as_pg "$bin/pg_ctl" -D "$dir/data" -m fast stop >/dev/null 2>&1 || true
  rm -rf "$dir"
  ;;
esac
