#!/usr/bin/env bash
# The keyboard drives the main player: D walks right, A walks left, W jumps. The script reports
# the player's centre every 50 ms.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 300, 460)
  showObject(Hero)
  fadeIn()
  lockControl(0)
  print("ready\n")
  DO WHILE 1
    print("at ", playerX(Hero), " ", playerY(Hero), "\n")
    delay(50)
  LOOP
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "ready"
sleep 0.5

x_now() { e2e_last_line "at " | cut -d' ' -f2; }
y_now() { e2e_last_line "at " | cut -d' ' -f3; }
# Holds a key for a second and prints how far the player's centre moved along x.
walk() {
    local before
    before=$(x_now)
    e2e_key_down "$1"
    sleep 1
    e2e_key_up "$1"
    sleep 0.3
    echo $(($(x_now) - before))
}

moved=$(walk d)
[ "$moved" -gt 30 ] || e2e_fail "D moved the player by $moved pixels"
moved=$(walk a)
[ "$moved" -lt -30 ] || e2e_fail "A moved the player by $moved pixels"

standing=$(y_now)
from=$(e2e_line_count)
e2e_key_down w
sleep 0.2
e2e_key_up w
sleep 1.5
highest=$(tail -n +"$from" "$E2E_WORK/stdout.log" | grep '^at ' | cut -d' ' -f3 | sort -n | head -n 1)
[ "$highest" -lt $((standing - 10)) ] || e2e_fail "W: the centre rose from $standing only to $highest"
[ "$(y_now)" -eq "$standing" ] || e2e_fail "the player did not land again: y $(y_now), stood at $standing"

e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_pass
