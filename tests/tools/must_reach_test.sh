#!/bin/sh
# mapview --must-reach, run from data/ as authors run it: a point whose surface the hero can reach
# from the meadow's start passes; the floor of the walled-in nook at the east end (under the
# platform that closes it) fails, and the failure names the point.
# Arguments: the mapview command, a folder for the pictures.
set -u
mapview=$1
out=$2
mkdir -p "$out"
if ! "$mapview" --reach 116,517 --must-reach 315,480 maps/meadow.map "$out/must-reach-pass.png" >/dev/null; then
    echo "a reachable point failed"
    exit 1
fi
"$mapview" --reach 116,517 --must-reach 315,480 --must-reach 2320,490 maps/meadow.map \
    "$out/must-reach-fail.png" >/dev/null 2>"$out/must-reach.err"
status=$?
if [ "$status" -ne 3 ] || ! grep -q "^mapview: 2320,490 cannot be reached from 116,517$" "$out/must-reach.err" ||
    grep -q "315,480" "$out/must-reach.err"; then
    echo "an unreachable point: status $status, and on standard error:"
    cat "$out/must-reach.err"
    exit 1
fi
