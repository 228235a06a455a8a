#!/usr/bin/env bash
# The game starts, opens its window, stays dark until a script fades in, and Escape ends it. The
# script sets a level up but does not fade in (the shipped one would).
source "$(dirname "$0")/lib.sh"
here=$(cd "$(dirname "$0")" && pwd)

e2e_begin
e2e_add_file script/main.fb "$here/files/unfaded_main.fb"
e2e_start
e2e_wait_for_line "Starting Grevan ..."
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "level set up"
sleep 1

shot=$(e2e_screenshot dark)
brightness=$(e2e_max_brightness "$shot")
[ "$brightness" -eq 0 ] || e2e_fail "the window should stay black before any fade, brightest channel $brightness"

e2e_key Escape
e2e_wait_for_exit 5
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS after Escape"
e2e_pass
