#!/usr/bin/env bash
# A gift box dropped by the script lands in front of the main player; walking into it collects it
# and the script's OnPresent gets the box's id.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  Box = addPresent("ammo", 330, 380)
  fadeIn()
  lockControl(0)
  print("box ", Box, "\n")
END FUNCTION

FUNCTION OnPresent(Id, X, Y)
  print("present ", Id, "\n")
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "box "
box=$(e2e_last_line "box " | cut -d' ' -f2)
sleep 0.5
e2e_key_down d
for _ in $(seq 1 40); do
    grep -q '^present' "$E2E_WORK/stdout.log" && break
    sleep 0.05
done
e2e_key_up d
e2e_wait_for_line "present $box" 2
[ "$(grep -c '^present' "$E2E_WORK/stdout.log")" -eq 1 ] || e2e_fail "the box was collected more than once"

e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_pass
