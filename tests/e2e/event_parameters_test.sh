#!/usr/bin/env bash
# An event function that takes fewer than the three values of its event fails with a line naming
# it; the game goes on.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  addPresent("ammo", 200, 300)
  fadeIn()
  print("dropped\n")
END FUNCTION

FUNCTION OnPresent(Id)
  print("present ", Id, "\n")
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "ONPRESENT(0): Too many parameters : ONPRESENT" 5
grep -q '^present' "$E2E_WORK/stdout.log" && e2e_fail "the event function ran"
sleep 0.5
kill -0 "$E2E_PID" 2>/dev/null || e2e_fail "the game ended"
e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_pass
