#!/usr/bin/env bash
# Writes NAME.out (and NAME.err when the run writes to standard error) for the named cases from
# what build/vesk does now. Review every recorded file before committing it.
set -euo pipefail
cd "$(dirname "$0")/cases"
vesk=${VESK:-../../../build/vesk}
for name in "$@"; do
  name=${name%.fb}
  args=("$name.fb")
  if [ -f "$name.args" ]; then read -r -a args < <(sed "s/FILE/$name.fb/" "$name.args"); fi
  "$vesk" "${args[@]}" >"$name.out" 2>"$name.err" || true
  [ -s "$name.err" ] || rm -f "$name.err"
done
