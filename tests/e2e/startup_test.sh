#!/usr/bin/env bash
# Starting without what the game needs. Without any display it says it failed to start and ends
# with status 0: no crash, no hang. Without script/main.fb it says so, runs on without any
# scripted content, and still quits on Escape.
source "$(dirname "$0")/lib.sh"

e2e_begin
unset DISPLAY
e2e_start
e2e_wait_for_exit 10
expected=$'Starting Grevan ...\nFailed to set video mode 800*600*32\nFailed to set video mode 640*480*32\nFailed to start game.'
[ "$(e2e_stdout)" = "$expected" ] || e2e_fail "unexpected standard output without a display"
e2e_cleanup

e2e_begin
rm "$E2E_WORK/script/main.fb"
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "Script error: Failed to open file. : ./script/main.fb"
e2e_wait_for_line "Runtime error: At line 0 : MAIN: Function not found : MAIN"
sleep 1
kill -0 "$E2E_PID" 2>/dev/null || e2e_fail "the game ended without its script"
e2e_quit
e2e_pass
