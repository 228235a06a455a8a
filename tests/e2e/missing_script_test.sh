#!/usr/bin/env bash
# Without script/main.fb the game says so, runs on without any scripted content, and still quits
# on Escape.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_remove_file script/main.fb
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "Runtime error: "
sleep 1
kill -0 "$E2E_PID" 2>/dev/null || e2e_fail "the game ended without its script"
e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
expected='Starting Grevan ...
Script error: Failed to open file. : ./script/main.fb
Script thread running 
Runtime error: At line 0 : MAIN: Function not found : MAIN
Script thread ended'
[ "$(e2e_stdout)" = "$expected" ] || e2e_fail "unexpected standard output"
e2e_pass
