#!/usr/bin/env bash
# Plays the shipped campaign with the player bot, RUNS times (3 when not given), each in a private
# Xvfb server with real mouse and key events only, and writes per level the attempts, the time,
# the rounds fired, the hit rate and the health left: BUILD/campaign-bench.csv (a row per level and
# run) and BUILD/campaign-bench.md (a table). Takes 10 to 20 minutes a run; not part of test.sh.
#
# Usage: bench/campaign/run.sh [BUILD_DIR] [RUNS]     (BUILD_DIR defaults to build/)
# PARALLEL=2 plays two runs at once, on two servers (check the load first: the game must keep its
# frame rate for the figures to mean anything). FIRST=N numbers the runs from N and adds them to
# the runs already in the CSV file (by default it starts afresh from 1). A run still going after
# TIME_LIMIT seconds (1800 by default) is stopped; its rows say how far it got.
set -uo pipefail

ROOT=$(cd "$(dirname "$0")/../.." && pwd)
BUILD=$(cd "${1:-$ROOT/build}" && pwd)
RUNS=${2:-3}
PARALLEL=${PARALLEL:-1}
FIRST=${FIRST:-1}
TIME_LIMIT=${TIME_LIMIT:-1800}
CSV="$BUILD/campaign-bench.csv"
TABLE="$BUILD/campaign-bench.md"

[ -x "$BUILD/grevan" ] || { echo "no game built in $BUILD" >&2; exit 1; }
for tool in Xvfb xdotool python3; do
    command -v "$tool" >/dev/null 2>&1 || { echo "missing $tool (run tools/install-deps.sh)" >&2; exit 1; }
done

# One run: a fresh copy of data/ with the observer laid over the campaign's main script.
play_once() {
    local run=$1 work display game xvfb status window i
    work=$(mktemp -d "/tmp/grevan-campaign-bench.XXXXXX")
    cp -r "$ROOT/data"/. "$work"/
    cp "$ROOT/bench/campaign/observer.fb" "$work/script/main.fb"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$work/.display" 2>"$work/xvfb.log" &
    xvfb=$!
    for i in $(seq 1 100); do [ -s "$work/.display" ] && break; sleep 0.05; done
    display=":$(cat "$work/.display")"
    (cd "$work" && ALSOFT_DRIVERS=null DISPLAY=$display exec "$BUILD/grevan" >stdout.log 2>stderr.log) &
    game=$!
    window=""
    for i in $(seq 1 200); do
        window=$(DISPLAY=$display xdotool search --name '^Collision Test$' 2>/dev/null | head -n 1)
        [ -n "$window" ] && break
        sleep 0.1
    done
    if [ -n "$window" ]; then
        # Without a window manager the keys go to the window under the pointer, and a stroke of
        # the mouse past the window's edge took them from the game, for good (the bot walked on
        # the spot); a desktop gives the game's window the focus, and so does this.
        DISPLAY=$display xdotool windowfocus "$window"
        DISPLAY=$display timeout "$TIME_LIMIT" python3 "$ROOT/tools/playerbot/campaign.py" --log "$work/stdout.log" \
            --window "$window" --maps "$work/maps/meadow.map,$work/maps/harbour.map,$work/maps/fortress.map" \
            --table "$CSV" --run "$run" --seed "$run" >"$BUILD/campaign-bench-$run.log" 2>&1
        status=$?
    else
        echo "run $run: no game window" >"$BUILD/campaign-bench-$run.log"
        status=1
    fi
    for i in $(seq 1 100); do kill -0 "$game" 2>/dev/null || break; sleep 0.1; done
    kill "$game" 2>/dev/null
    wait "$game" 2>/dev/null
    cp "$work/stdout.log" "$BUILD/campaign-bench-$run.stdout"
    kill "$xvfb"
    wait "$xvfb" 2>/dev/null
    rm -rf "$work"
    echo "run $run: bot status $status ($(tail -n 1 "$BUILD/campaign-bench-$run.log"))"
}

[ "$FIRST" -gt 1 ] || rm -f "$CSV"
run=$FIRST
last=$((FIRST + RUNS - 1))
while [ "$run" -le "$last" ]; do
    batch=()
    for i in $(seq 1 "$PARALLEL"); do
        [ "$run" -le "$last" ] || break
        play_once "$run" &
        batch+=($!)
        run=$((run + 1))
        sleep 5
    done
    wait "${batch[@]}"
done

python3 - "$CSV" >"$TABLE" <<'EOF_PYTHON'
import csv, sys
rows = list(csv.reader(open(sys.argv[1]))) if len(sys.argv) > 1 else []
names = {1: "meadow", 2: "harbour", 3: "fortress"}
print("| run | level | attempts | time (s) | rounds | hits | hit rate | health left |")
print("|---|---|---|---|---|---|---|---|")
totals = {}
for run, level, attempts, seconds, rounds, hits, health, total, won, finished in rows:
    rate = "%d %%" % (100 * int(hits) // int(rounds)) if int(rounds) else "-"
    print("| %s | %s | %s | %s | %s | %s | %s | %s |"
          % (run, names.get(int(level), level), attempts, seconds, rounds, hits, rate,
             health if int(won) else "not won"))
    totals[run] = (float(total), int(finished))
print()
for run in sorted(totals):
    seconds, finished = totals[run]
    print("run %s: %s in %d min %02d s" % (run, "the whole campaign" if finished else "stopped, not finished,",
                                          seconds // 60, seconds % 60))
EOF_PYTHON
cat "$TABLE"
