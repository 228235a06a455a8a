#!/usr/bin/env bash
# A whole scene with both threads busy: the script adds players and gift boxes, arms them, makes
# them walk and fire, speaks, fades and shows the robot, while the main loop runs, raises "OnKill"
# and "OnPresent" and the keyboard and mouse drive the main player. The sanitizer builds run
# this too: any report on standard error fails it, as does a wrong ending.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 200, 460)
  showObject(Hero)
  setPlayerHealth(Hero, 1000000)
  addPlayerWeapon(Hero, 2, 300)
  addPlayerWeapon(Hero, 1, 40)
  addPlayerWeapon(Hero, 3, 3)
  switchWeapon(Hero, 2)
  Guard = addPlayer(1, 255, "raider", "Guard", 700, 460)
  showObject(Guard)
  setPlayerAIMode(Guard, 1)
  addPlayerWeapon(Guard, 1, 40)
  switchWeapon(Guard, 1)
  Rover = addPlayer(1, 16711680, "raider", "Rover", 560, 460)
  showObject(Rover)
  addPlayerWeapon(Rover, 2, 100)
  switchWeapon(Rover, 2)
  addPresent("ammo", 330, 380)
  addHiddenPresent(120, 470, 20, 20)
  fadeIn()
  showRobot(1)
  lockControl(0)
  print("scene\n")
  robotSay("Walk, jump and shoot")
  say(Hero, "Ready")
  playerDoMove(Guard, 620, 0)
  waitForPlayerAction(Guard)
  setPlayerHealth(Guard, 1)
  FOR I = 1 TO 60
    IF playerX(Guard) > 0 THEN
      playerDoAim(Guard, playerX(Hero), playerY(Hero))
      playerDoFire(Guard, playerX(Hero), playerY(Hero) - 10)
      playerDoFire(Hero, playerX(Guard), playerY(Guard) - 10)
    END IF
    delay(50)
  NEXT
  fadeOut()
  fadeIn()
  showRobot(0)
  print("main done\n")
END FUNCTION

FUNCTION OnKill(Id, X, Y)
  print("kill ", Id, "\n")
  die(Id)
END FUNCTION

FUNCTION OnPresent(Id, X, Y)
  print("present ", Id, " ", X, " ", Y, "\n")
  lockControl(1)
  lockControl(0)
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test" 30
e2e_wait_for_line "scene" 60

# Close the two bubbles with clicks, moving the mouse in between.
for point in "300 300" "400 200"; do
    sleep 1.5
    e2e_mouse_move $point
    e2e_click 1
done
# Walk right into the gift box, back left into the hidden one, jump, and fire at the guard.
e2e_key_down d
sleep 1.5
e2e_key_up d
e2e_key_down a
sleep 2
e2e_key w
e2e_key_up a
e2e_key 1
e2e_mouse_move 640 480
xdotool mousedown 1
for x in 620 640 660 640; do
    sleep 0.3
    e2e_mouse_move "$x" 485
done
xdotool mouseup 1
e2e_key r
e2e_key 2

e2e_wait_for_line "main done" 60
e2e_wait_for_line "kill " 10
e2e_wait_for_line "present " 10
e2e_key Escape
e2e_wait_for_exit 20
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
e2e_wait_for_line "Script thread ended" 1
if grep -E "ThreadSanitizer|AddressSanitizer|LeakSanitizer|runtime error:" "$E2E_WORK/stderr.log"; then
    e2e_fail "a sanitizer reported a fault"
fi
e2e_pass
