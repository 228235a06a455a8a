#!/usr/bin/env bash
# The whole campaign, won by script: a driver laid over the shipped scripts (walkthrough/main.fb)
# sets the hero down beside each opponent in turn to fire, and the game's own kills must carry it
# from the meadow through the harbour and the fortress to the ending, which ends the game by itself.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_script <"$(dirname "$0")/walkthrough/main.fb"
e2e_start
e2e_wait_for_window "Collision Test"
for line in "Level 1: the meadow, attempt 1" "walk-through: level 1 won" "Level 2: the harbour, attempt 1" \
    "walk-through: level 2 won" "Level 3: the fortress, attempt 1" "The end"; do
    e2e_wait_for_line "$line" 300
done
e2e_wait_for_exit 10

e2e_stdout | grep -q "attempt 2" && e2e_fail "a level was restarted, though the hero cannot fall"
e2e_expect_no_errors
e2e_pass
