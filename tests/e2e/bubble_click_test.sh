#!/usr/bin/env bash
# A click closes the speech bubble, and say returns; the click is not fired, although the loaded
# gun aims at an opponent that one bullet would kill.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  addPlayerWeapon(Hero, 2, 300)
  switchWeapon(Hero, 2)
  playerDoFire(Hero, 500, 480)
  Enemy = addPlayer(1, 16711680, "raider", "Raider", 500, 460)
  showObject(Enemy)
  setPlayerAIMode(Enemy, 1)
  setPlayerHealth(Enemy, 1)
  fadeIn()
  lockControl(0)
  print("aim at ", playerX(Enemy), " ", playerY(Enemy), "\n")
  delay(2000)
  print("speaking\n")
  say(Hero, "Click to close this bubble")
  print("said\n")
  delay(1500)
  print("quiet\n")
END FUNCTION

FUNCTION OnKill(Id, X, Y)
  print("killed ", Id, "\n")
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "aim at "
read -r _ _ x y <<<"$(e2e_last_line "aim at ")"
e2e_mouse_move "$x" $((y - 14))
e2e_wait_for_line "speaking" 5
sleep 1
e2e_screenshot bubble >/dev/null
grep -q '^said' "$E2E_WORK/stdout.log" && e2e_fail "say returned before the bubble was closed"
e2e_click 1
e2e_wait_for_line "said" 1
e2e_wait_for_line "quiet" 3
grep -q '^killed' "$E2E_WORK/stdout.log" && e2e_fail "the click that closed the bubble was fired"

e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_pass
