#!/usr/bin/env bash
# End-to-end helper: runs the real game in a private Xvfb server and a temporary working
# directory made from data/ plus the test's own files, drives it with xdotool, takes
# screenshots with xwd and ImageMagick, and stops it with a timeout. A test calls e2e_begin, adds
# its files (e2e_add_field, e2e_add_script), calls e2e_start, drives and checks the game (e2e_quit
# ends it with Escape) and calls e2e_pass; e2e_fail shows the game's output.
#
# Environment (set by ctest): GREVAN_BIN, GREVAN_DATA, GREVAN_E2E_OUT (screenshots and logs).
set -uo pipefail

E2E_NAME=$(basename "${0%.sh}")
E2E_WORK="" E2E_PID="" E2E_XVFB_PID="" E2E_STATUS="" E2E_WINDOW="" E2E_RESTARTED=""
E2E_OUT="${GREVAN_E2E_OUT:-/tmp/grevan-e2e}/$E2E_NAME"

e2e_fail() {
    echo "FAIL [$E2E_NAME]: $*" >&2
    [ -z "$E2E_WORK" ] || { echo "--- game standard output:"; cat "$E2E_WORK/stdout.log"
        echo "--- game standard error:"; tail -n 40 "$E2E_WORK/stderr.log"; } >&2 2>/dev/null
    exit 1
}

e2e_pass() { echo "PASS [$E2E_NAME]"; exit 0; }

e2e_cleanup() {
    [ -z "$E2E_PID" ] || kill -KILL "$E2E_PID" 2>/dev/null
    e2e_stop_xvfb
    if [ -d "$E2E_WORK" ]; then
        mkdir -p "$E2E_OUT"
        cp "$E2E_WORK"/stdout.log "$E2E_WORK"/stderr.log "$E2E_OUT"/ 2>/dev/null
        rm -rf "$E2E_WORK"
    fi
    E2E_WORK="" E2E_PID="" E2E_XVFB_PID=""
}
trap e2e_cleanup EXIT

# Starts a private X server on a free display and prepares the working directory.
e2e_begin() {
    local tool
    for tool in Xvfb xdotool xwd /usr/bin/convert; do
        command -v "$tool" >/dev/null 2>&1 || e2e_fail "missing tool $tool (run tools/install-deps.sh)"
    done
    [ -x "${GREVAN_BIN:-}" ] || e2e_fail "GREVAN_BIN does not name the built game"
    [ -d "${GREVAN_DATA:-}" ] || e2e_fail "GREVAN_DATA does not name the data folder"
    E2E_WORK=$(mktemp -d "/tmp/grevan-e2e-$E2E_NAME.XXXXXX")
    cp -r "$GREVAN_DATA"/. "$E2E_WORK"/
    mkdir -p "$E2E_OUT"
    rm -f "$E2E_OUT"/*.png
    E2E_RESTARTED=""
    e2e_start_xvfb
}

# Runs the condition (a command line) every 0.05 s until it holds; returns 1 if the seconds given
# pass without it.
e2e_until() {
    local seconds=$1 condition=$2 i
    for i in $(seq 1 $((seconds * 20))); do
        eval "$condition" && return 0
        sleep 0.05
    done
    return 1
}

e2e_stop_xvfb() { [ -z "$E2E_XVFB_PID" ] || { kill "$E2E_XVFB_PID"; wait "$E2E_XVFB_PID"; } 2>/dev/null; }

# Starts Xvfb, in place of the one running if any, and sets DISPLAY once the server takes clients.
# Without -noreset the server resets whenever its last client leaves, and a game connecting in that
# moment may find no display.
e2e_start_xvfb() {
    local displayFile="$E2E_WORK/.display"
    e2e_stop_xvfb
    rm -f "$displayFile"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$displayFile" \
        2>>"$E2E_WORK/xvfb.log" &
    E2E_XVFB_PID=$!
    e2e_until 5 '[ -s "$displayFile" ]' || e2e_fail "Xvfb did not start"
    export DISPLAY=":$(cat "$displayFile")"
    # On a loaded machine the server may name its display before it takes clients; a game started
    # then falls back to running without a window.
    e2e_until 10 'xdotool getdisplaygeometry >/dev/null 2>&1' || e2e_fail "Xvfb on $DISPLAY takes no clients"
}

# Writes standard input as the game's main script, script/main.fb.
e2e_add_script() { mkdir -p "$E2E_WORK/script" && cat >"$E2E_WORK/script/main.fb"; }

# Adds the small level most tests play on, as maps/field.map: 1600 x 600, a floor whose top is
# at y 520, a crate at its right end.
e2e_add_field() { cp "$(dirname "${BASH_SOURCE[0]}")/files/field.map" "$E2E_WORK/maps/"; }

e2e_start() { (cd "$E2E_WORK" && exec "$GREVAN_BIN" >stdout.log 2>stderr.log) & E2E_PID=$!; }

# Waits until the game's standard output holds the exact text (as a substring of a line).
e2e_wait_for_line() {
    local text=$1 seconds=${2:-10}
    # A game that has ended prints no more.
    e2e_until "$seconds" 'grep -qF -- "$text" "$E2E_WORK/stdout.log" 2>/dev/null || ! kill -0 "$E2E_PID" 2>/dev/null'
    grep -qF -- "$text" "$E2E_WORK/stdout.log" 2>/dev/null \
        || e2e_fail "no line \"$text\" on standard output within ${seconds}s"
}

# Waits for a window with the title and puts the pointer over it, so that keys reach it. A game
# that found no window system is started once more, on a fresh server when the old one is gone:
# the test is about the game, not about the X server of a busy machine. A game that cannot open
# a window twice fails the test.
e2e_wait_for_window() {
    local title=$1 seconds=${2:-10} i
    for i in $(seq 1 $((seconds * 10))); do
        E2E_WINDOW=$(xdotool search --name "^$title\$" 2>/dev/null | head -n 1)
        if [ -n "$E2E_WINDOW" ]; then
            xdotool mousemove --window "$E2E_WINDOW" 5 5
            return 0
        fi
        if [ -z "$E2E_RESTARTED" ] && ! kill -0 "$E2E_PID" 2>/dev/null \
            && grep -q "Failed to set video mode" "$E2E_WORK/stdout.log"; then
            E2E_RESTARTED=1
            echo "note [$E2E_NAME]: no window on $DISPLAY ($(grep -v '^AL lib' "$E2E_WORK/stderr.log" \
                | head -n 1)); starting the game once more" >&2
            xdotool getdisplaygeometry >/dev/null 2>&1 || e2e_start_xvfb
            e2e_start
        fi
        sleep 0.1
    done
    e2e_fail "no window titled \"$title\" within ${seconds}s"
}

# The game reads the keys and buttons once a frame and misses a tap that begins and ends between two
# frames of a busy machine: e2e_key holds each key for 0.15 s, e2e_click the button for 0.1 s.
e2e_key() { local name; for name in "$@"; do e2e_hold "$name" 0.15; done; }
# Holds a key for some seconds.
e2e_hold() { xdotool keydown "$1" sleep "$2" keyup "$1"; }
# Moves the pointer to a point of the game window.
e2e_mouse_move() { xdotool mousemove --window "$E2E_WINDOW" "$1" "$2"; }
e2e_click() { xdotool mousedown "${1:-1}" sleep 0.1 mouseup "${1:-1}"; }

# Takes a screenshot of the game window; prints the PNG's path.
e2e_screenshot() {
    local shot="$E2E_OUT/$1.png"
    xwd -id "$E2E_WINDOW" -silent | /usr/bin/convert xwd:- "$shot" || e2e_fail "screenshot $1 failed"
    echo "$shot"
}

# Prints a pixel of a picture as srgb(r,g,b).
e2e_pixel() { /usr/bin/convert "$1" -format "%[pixel:p{$2,$3}]" info:; }

# Waits for the game to end; E2E_STATUS is its exit status. Fails when it outlives the timeout or
# ends with a status other than 0.
e2e_wait_for_exit() {
    e2e_until "${1:-10}" '! kill -0 "$E2E_PID" 2>/dev/null' || e2e_fail "the game did not end within ${1:-10}s"
    wait "$E2E_PID"
    E2E_STATUS=$?
    [ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
}

# Creates the file NAME in the game's working directory, where a script that runs
# system("until [ -e NAME ]; do sleep 0.05; done") waits for the test to play its part of a stage.
e2e_stage_done() { touch "$E2E_WORK/$1"; }

# Presses Escape and fails unless the game then ends with status 0 within the seconds given.
e2e_quit() {
    e2e_key Escape
    e2e_wait_for_exit "${1:-2}"
}

# Clicks the window's close button as a window manager passes it on: a WM_DELETE_WINDOW message
# (the test's X server has no window manager, and xdotool sends no such message).
e2e_close_window() {
    python3 - "$E2E_WINDOW" <<'EOF_PYTHON' || e2e_fail "could not send WM_DELETE_WINDOW"
import ctypes, sys
x = ctypes.CDLL("libX11.so.6")
x.XOpenDisplay.restype = ctypes.c_void_p
x.XOpenDisplay.argtypes = [ctypes.c_char_p]
x.XInternAtom.restype = ctypes.c_ulong
x.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
x.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
x.XCloseDisplay.argtypes = [ctypes.c_void_p]
class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 12)]
display = x.XOpenDisplay(None)
window = int(sys.argv[1])
message = ClientMessage(type=33, window=window, message_type=x.XInternAtom(display, b"WM_PROTOCOLS", 0), format=32)
message.data[0] = x.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
sys.exit(0 if display and x.XSendEvent(display, window, 0, 0, ctypes.byref(message)) and x.XCloseDisplay(display) == 0 else 1)
EOF_PYTHON
}

e2e_stdout() { cat "$E2E_WORK/stdout.log"; }

# Prints the last line of standard output that starts with the text.
e2e_last_line() { grep -- "^$1" "$E2E_WORK/stdout.log" | tail -n 1; }

# Fails when the game has reported a broken script (also a failed event function, reported as
# "FUNCTION(LINE): error : detail") or a missing file on standard output.
e2e_expect_no_errors() {
    local found
    found=$(grep -E "Script error|Runtime error|not found|^[A-Z0-9]+\([0-9]+\): " "$E2E_WORK/stdout.log")
    [ -z "$found" ] || e2e_fail "errors on standard output: $found"
}
