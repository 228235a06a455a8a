#!/usr/bin/env bash
# While the script has locked control, keys do not move the main player; once it unlocks, they do.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 300, 460)
  showObject(Hero)
  fadeIn()
  lockControl(1)
  delay(300)
  print("locked ", playerX(Hero), "\n")
  delay(2500)
  print("was at ", playerX(Hero), "\n")
  lockControl(0)
  print("unlocked\n")
  DO WHILE 1
    print("at ", playerX(Hero), "\n")
    delay(50)
  LOOP
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "locked"
e2e_key_down d
sleep 1
e2e_key_up d
e2e_wait_for_line "unlocked" 5
locked_at=$(e2e_last_line "locked " | cut -d' ' -f2)
was_at=$(e2e_last_line "was at " | cut -d' ' -f3)
[ "$was_at" -eq "$locked_at" ] || e2e_fail "the player moved from $locked_at to $was_at while control was locked"

sleep 0.3
before=$(e2e_last_line "at " | cut -d' ' -f2)
e2e_key_down d
sleep 1
e2e_key_up d
sleep 0.3
after=$(e2e_last_line "at " | cut -d' ' -f2)
[ "$after" -gt $((before + 30)) ] || e2e_fail "after unlocking, D moved the player only from $before to $after"

e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_pass
