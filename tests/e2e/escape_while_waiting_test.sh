#!/usr/bin/env bash
# Escape ends the game with status 0 within two seconds whatever the script is doing: waiting in
# any of the waiting host functions, looping without end in Main or in an event function. The
# script's own endgame does the same while the script loops on.
source "$(dirname "$0")/lib.sh"

# The statements of Main after the scene is set up (a main player on the field, faded in, the
# robot shown); Waiting() prints "waiting" just before the wait. The gift box dropped onto the
# hero starts an event function that loops.
cases=(
    'fadeOut(), Waiting(), fadeIn()'
    'Waiting(), fadeOut()'
    'Waiting(), say(Hero, "A long speech that nobody closes")'
    'Waiting(), robotSay("A long speech that nobody closes")'
    'Waiting(), waitForPlayerAction(123456)'
    'Waiting(), delay(600000)'
    'Waiting(), Forever()'
    'addPresent("ammo", 200, 300)'
    'Waiting(), endgame(), Forever()'
)

for statements in "${cases[@]}"; do
    e2e_begin
    e2e_add_field
    e2e_add_script <<EOF_SCRIPT
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  showRobot(1)
  fadeIn()
  $statements
END FUNCTION

FUNCTION OnPresent(Id, X, Y)
  Waiting(), Forever()
END FUNCTION

FUNCTION Waiting()
  print("waiting\n")
END FUNCTION

FUNCTION Forever()
  DO WHILE 1
    N = N + 1
  LOOP
END FUNCTION
EOF_SCRIPT
    e2e_start
    e2e_wait_for_window "Collision Test"
    e2e_wait_for_line "waiting"
    sleep 0.2
    if [[ $statements != *endgame* ]]; then
        kill -0 "$E2E_PID" 2>/dev/null || e2e_fail "$statements: the game ended before Escape"
        e2e_key Escape
    fi
    e2e_wait_for_exit 2
    [ "$E2E_STATUS" -eq 0 ] || e2e_fail "$statements: exit status $E2E_STATUS"
    grep -q '^Script thread ended' "$E2E_WORK/stdout.log" || e2e_fail "$statements: the script thread did not end"
    echo "ok [$E2E_NAME]: $statements"
    e2e_cleanup
done
e2e_pass
