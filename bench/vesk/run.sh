#!/usr/bin/env bash
# Runs each workload of this folder in Vesk (build/vesk) and in Lua 5.4 (lua5.4), checks that both
# print the same result, and prints the best CPU time of five runs for each and the ratio vesk/Lua.
#   bench/vesk/run.sh [path/to/vesk]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
vesk=${1:-$here/../../build/vesk}
runs=5

# Best user+system CPU seconds of $runs runs of the command.
best_time() {
  local best=""
  for _ in $(seq "$runs"); do
    local t
    t=$( { TIMEFORMAT='%U %S'; time "$@" >/dev/null; } 2>&1 | awk '{print $1 + $2}')
    if [ -z "$best" ] || awk -v a="$t" -v b="$best" 'BEGIN { exit !(a < b) }'; then
      best=$t
    fi
  done
  echo "$best"
}

cd "$here"
printf '%-10s %10s %10s %12s\n' workload "vesk (s)" "lua (s)" "vesk/lua"
status=0
for script in *.fb; do
  name=${script%.fb}
  if [ "$("$vesk" "$script")" != "$(lua5.4 "$name.lua")" ]; then
    echo "$name: vesk and lua5.4 disagree" >&2
    status=1
    continue
  fi
  v=$(best_time "$vesk" "$script")
  l=$(best_time lua5.4 "$name.lua")
  printf '%-10s %10.2f %10.2f %12.2f\n' "$name" "$v" "$l" "$(awk -v a="$v" -v b="$l" 'BEGIN { print a / b }')"
done
exit $status
