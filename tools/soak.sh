#!/usr/bin/env bash
# Soak: runs the real game on the shipped data under a private Xvfb for a given time, plays it with
# random keys and mouse (walking, jumping, firing, switching weapons, reloading, clicking through
# speech bubbles) and samples its resident memory every few seconds.
#
#   tools/soak.sh [SECONDS [GAME]]     defaults: 60 seconds, build/grevan
#
# Fails when the game dies or ends by itself, a sanitizer reports, the script reports a
# "Script error" or "Runtime error", a message box opens (it would stop the game), or memory keeps
# growing: the highest sample of the last third of the run more than SOAK_GROWTH_MB (default 64)
# above the highest of the middle third. The first third is warm-up (the level loads, blood and
# shells pile up until their lifetimes end). Memory samples go to GREVAN_E2E_OUT/soak/memory.csv
# (seconds, kB), with the game's output beside them. SOAK_SEED fixes the random play.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
export GREVAN_BIN=$(cd "$(dirname "${2:-$root/build/grevan}")" && pwd)/$(basename "${2:-$root/build/grevan}")
export GREVAN_DATA=${GREVAN_DATA:-$root/data}
export GREVAN_E2E_OUT=${GREVAN_E2E_OUT:-$root/build/e2e}
export ALSOFT_DRIVERS=null
export LSAN_OPTIONS="suppressions=$root/tests/support/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
growthLimit=${SOAK_GROWTH_MB:-64}
sampleEvery=3
RANDOM=${SOAK_SEED:-$$}

# shellcheck source=../tests/e2e/lib.sh
source "$root/tests/e2e/lib.sh"

# The game's problems so far, as one line each; empty while all is well.
problems() {
    grep -hE 'ERROR: (AddressSanitizer|LeakSanitizer)|runtime error:|ThreadSanitizer' \
        "$E2E_WORK/stderr.log" 2>/dev/null | head -n 3
    grep -hE '^(Script|Runtime) error' "$E2E_WORK/stdout.log" "$E2E_WORK/stderr.log" 2>/dev/null | head -n 3
    if xdotool search --class xmessage >/dev/null 2>&1; then
        echo "a message box opened"
    fi
}

# One random act of a player, about a tenth of a second long.
play() {
    local keys=(a d w r 1 2 3 4)
    case $((RANDOM % 6)) in
        0 | 1)
            local key=${keys[$((RANDOM % 3))]}
            xdotool keydown "$key" sleep 0.$((RANDOM % 5 + 1)) keyup "$key"
            ;;
        2) xdotool key "${keys[$((RANDOM % 5 + 3))]}" ;;
        3) e2e_mouse_move $((RANDOM % 800)) $((RANDOM % 600)) ;;
        *) xdotool mousedown 1 sleep 0.$((RANDOM % 4 + 1)) mouseup 1 ;;
    esac
}

e2e_begin
csv="$E2E_OUT/memory.csv"
echo "seconds,rss_kb" >"$csv"
e2e_start
e2e_wait_for_line "Starting Grevan ..." 30
e2e_wait_for_window "Collision Test" 30

start=$SECONDS
nextSample=0
samples=()
while [ $((SECONDS - start)) -lt "$seconds" ]; do
    kill -0 "$E2E_PID" 2>/dev/null || { wait "$E2E_PID"; e2e_fail "the game ended by itself after $((SECONDS - start)) s with status $?"; }
    found=$(problems)
    [ -z "$found" ] || e2e_fail "after $((SECONDS - start)) s: $found"
    if [ $((SECONDS - start)) -ge "$nextSample" ]; then
        rss=$(awk '/^VmRSS:/ { print $2 }' "/proc/$E2E_PID/status" 2>/dev/null)
        if [ -n "$rss" ]; then
            samples+=("$rss")
            echo "$((SECONDS - start)),$rss" >>"$csv"
        fi
        nextSample=$((nextSample + sampleEvery))
    fi
    play
done
xdotool keyup a keyup d keyup w mouseup 1 2>/dev/null
e2e_key Escape
e2e_wait_for_exit 60
found=$(problems)
[ -z "$found" ] || e2e_fail "at the end: $found"
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS after Esc"

count=${#samples[@]}
[ "$count" -ge 3 ] || e2e_fail "only $count memory samples"
third=$((count / 3))
middle=$(printf '%s\n' "${samples[@]:third:third}" | sort -n | tail -n 1)
last=$(printf '%s\n' "${samples[@]:$((count - third))}" | sort -n | tail -n 1)
growth=$(((last - middle) / 1024))
echo "memory: ${samples[0]} kB at the start, highest $middle kB in the middle third and $last kB in the last; $count samples in $csv"
[ "$growth" -le "$growthLimit" ] || e2e_fail "memory grew by $growth MB over the last third (limit $growthLimit MB)"
e2e_pass
