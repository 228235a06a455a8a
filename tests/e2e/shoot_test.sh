#!/usr/bin/env bash
# Key 1 takes the gun, the mouse aims it at an opponent and the held left button fires until the
# opponent dies; the script's OnKill is served after Main has returned.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  addPlayerWeapon(Hero, 2, 300)
  Enemy = addPlayer(1, 16711680, "raider", "Raider", 500, 460)
  showObject(Enemy)
  setPlayerAIMode(Enemy, 1)
  setPlayerHealth(Enemy, 4)
  fadeIn()
  lockControl(0)
  delay(300)
  print("enemy ", Enemy, " ", playerX(Enemy), " ", playerY(Enemy), "\n")
  delay(5000)
  print("main done\n")
END FUNCTION

FUNCTION OnKill(Id, X, Y)
  print("killed ", Id, "\n")
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "enemy "
read -r _ enemy x y <<<"$(e2e_last_line "enemy ")"
# The camera stands at the level's top left corner, so screen and world points coincide.
e2e_mouse_move "$x" $((y - 14))
sleep 0.2
e2e_key 1
sleep 0.2
xdotool mousedown 1
sleep 3
xdotool mouseup 1
e2e_screenshot shot >/dev/null
e2e_wait_for_line "killed $enemy" 8
main_line=$(grep -n '^main done' "$E2E_WORK/stdout.log" | cut -d: -f1)
kill_line=$(grep -n "^killed $enemy" "$E2E_WORK/stdout.log" | cut -d: -f1)
[ "$main_line" -lt "$kill_line" ] || e2e_fail "OnKill ran before Main had returned"
[ "$(grep -c '^killed' "$E2E_WORK/stdout.log")" -eq 1 ] || e2e_fail "more than one kill reported"

e2e_key Escape
e2e_wait_for_exit 2
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_pass
