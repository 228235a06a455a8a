#!/usr/bin/env bash
# Escape ends the game with status 0 within two seconds whatever the script is doing: waiting in
# any of the waiting host functions, looping without end in Main or in an event function. The
# script's own endgame does the same while the script loops on.
source "$(dirname "$0")/lib.sh"

# Each case: a name and the statements of Main after the scene is set up, which print "waiting"
# just before they wait. The scene: a main player (Hero) on the field, faded in, the robot shown.
# In the event function's case, the event function prints "waiting" and loops.
cases=(
    "fadeIn|fadeOut()\n  print(\"waiting\\\\n\")\n  fadeIn()"
    "fadeOut|print(\"waiting\\\\n\")\n  fadeOut()"
    "say|print(\"waiting\\\\n\")\n  say(Hero, \"A long speech that nobody closes\")"
    "robotSay|print(\"waiting\\\\n\")\n  robotSay(\"A long speech that nobody closes\")"
    "waitForPlayerAction|print(\"waiting\\\\n\")\n  waitForPlayerAction(123456)"
    "delay|print(\"waiting\\\\n\")\n  delay(600000)"
    "endless loop|print(\"waiting\\\\n\")\n  DO WHILE 1\n    N = N + 1\n  LOOP"
    "endless event function|addPresent(\"ammo\", 200, 300)"
    "endgame|print(\"waiting\\\\n\")\n  endgame()\n  DO WHILE 1\n    N = N + 1\n  LOOP"
)

play_case() {
    local name=$1 statements=$2
    e2e_begin
    e2e_add_field
    printf 'FUNCTION Main()\n  loadMap("maps/field.map")\n  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)\n  showObject(Hero)\n  showRobot(1)\n  fadeIn()\n  %b\nEND FUNCTION\nFUNCTION OnPresent(Id, X, Y)\n  print("waiting\\n")\n  DO WHILE 1\n    N = N + 1\n  LOOP\nEND FUNCTION\n' \
        "$statements" | e2e_add_script
    e2e_start
    e2e_wait_for_window "Collision Test"
    e2e_wait_for_line "waiting"
    sleep 0.2
    if [ "$name" != "endgame" ]; then
        kill -0 "$E2E_PID" 2>/dev/null || e2e_fail "$name: the game ended before Escape"
        e2e_key Escape
    fi
    e2e_wait_for_exit 2
    [ "$E2E_STATUS" -eq 0 ] || e2e_fail "$name: exit status $E2E_STATUS"
    grep -q '^Script thread ended' "$E2E_WORK/stdout.log" || e2e_fail "$name: the script thread did not end"
    echo "ok [$E2E_NAME]: $name"
    e2e_cleanup
    E2E_WORK=""
    E2E_PID=""
    E2E_XVFB_PID=""
}

for entry in "${cases[@]}"; do
    play_case "${entry%%|*}" "${entry#*|}"
done
e2e_pass
