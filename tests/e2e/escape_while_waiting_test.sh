#!/usr/bin/env bash
# Quitting ends the game with status 0 within two seconds whatever the script is doing: waiting in
# any of the waiting host functions, looping without end in Main or in an event function. Escape,
# the window's close button and the script's own endgame (while the script loops on) all do, and
# silently: three gift-box events wait in the queue each time, and no line speaks of an error or
# of a stop. A genuine runtime error in that moment is still reported.
source "$(dirname "$0")/lib.sh"

# How the game is ended | the statements of Main after the scene is set up (a main player on the
# field, three gift boxes dropped onto him and landed, faded in, the robot shown) | the one line
# expected to speak of an error. Waiting() prints "waiting" just before the wait, and a loop without
# end follows it, as script calls follow a wait in a real level. The boxes' events wait in the queue
# behind Main, or behind the first of them when Main has returned: OnPresent loops.
cases=(
    'Escape|fadeOut(), Waiting(), fadeIn(), Forever()|'
    'Escape|Waiting(), fadeOut(), Forever()|'
    'Escape|Waiting(), say(Hero, "A long speech that nobody closes"), Forever()|'
    'Escape|Waiting(), robotSay("A long speech that nobody closes"), Forever()|'
    'Escape|Waiting(), waitForPlayerAction(123456), Forever()|'
    'Escape|Waiting(), delay(600000), Forever()|'
    'Escape|Waiting(), Forever()|'
    'Escape|print("Main returns\n")|'
    'endgame|Waiting(), endgame(), Forever()|'
    'close button|Waiting(), delay(600000), Forever()|'
    'Escape|Zero = 0, Waiting(), delay(600000), X = 1 / Zero|Runtime error: At line 0 : MAIN: Division by zero : /'
)

for row in "${cases[@]}"; do
    IFS='|' read -r ending statements expected <<<"$row"
    e2e_begin
    e2e_add_field
    e2e_add_script <<EOF_SCRIPT
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  addPresent("ammo", 195, 380), addPresent("ammo", 205, 340), addPresent("ammo", 215, 300)
  showRobot(1)
  fadeIn()
  delay(1000)
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
    case $ending in
        Escape) e2e_key Escape ;;
        close*) e2e_close_window ;;
    esac
    e2e_wait_for_exit 2
    [ "$E2E_STATUS" -eq 0 ] || e2e_fail "$ending, $statements: exit status $E2E_STATUS"
    grep -q '^Script thread ended' "$E2E_WORK/stdout.log" || e2e_fail "$ending, $statements: the script thread did not end"
    found=$(grep -i -E 'error|stopped' "$E2E_WORK/stdout.log")
    [ "$found" = "$expected" ] || e2e_fail "$ending, $statements: printed \"$found\", expected \"$expected\""
    echo "ok [$E2E_NAME]: $ending, $statements"
    e2e_cleanup
done
e2e_pass
