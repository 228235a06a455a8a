#!/usr/bin/env bash
# A whole scene on the field, played with real keys and the mouse while the script keeps the other
# thread busy; the sanitizer builds play it too, and any report on standard error fails it. D walks
# the hero into a gift box, W makes him jump and land, a click closes a bubble; a guard fires while
# the user aims, reloads and changes weapons, and after Main key 1 and the left button kill him.
# "OnPresent", taking fewer than three values, fails once for each box.
source "$(dirname "$0")/lib.sh"

e2e_begin
e2e_add_field
e2e_add_script <<'EOF_SCRIPT'
DIM Hero

FUNCTION Main()
  loadMap("maps/field.map")
  Hero = addPlayer(0, 65280, "soldier", "Hero", 300, 460)
  showObject(Hero)
  setPlayerHealth(Hero, 1000000)
  addPlayerWeapon(Hero, 1, 40)
  addPlayerWeapon(Hero, 2, 300)
  addPlayerWeapon(Hero, 3, 3)
  switchWeapon(Hero, 2)
  ' The gun's first magazine loads while the stages go on.
  playerDoFire(Hero, 0, 0)
  ' One bullet kills the guard.
  Guard = addPlayer(1, 16711680, "raider", "Raider", 1000, 460)
  showObject(Guard)
  setPlayerAIMode(Guard, 1)
  setPlayerHealth(Guard, 1)
  addPlayerWeapon(Guard, 2, 100)
  switchWeapon(Guard, 2)
  addPresent("ammo", 380, 380)
  fadeIn()
  lockControl(0)
  Stage("unlocked")
  AwaitWalk()
  Stage("walked")
  AwaitJump()
  Stage("landed")
  say(Hero, "Click to close this bubble")
  print("said\n")
  switchWeapon(Hero, 0)
  showRobot(1)
  robotSay("Walk, jump and shoot")
  playerDoMove(Guard, 620, 0)
  waitForPlayerAction(Guard)
  FOR I = 1 TO 60
    playerDoAim(Guard, playerX(Hero), playerY(Hero))
    playerDoFire(Guard, playerX(Hero), playerY(Hero) - 10)
    delay(50)
  NEXT
  playerDoStop(Guard)
  fadeOut()
  fadeIn()
  showRobot(0)
  ' A hidden box that drops onto the hero.
  addHiddenPresent(playerX(Hero) - 16, playerY(Hero) - 44, 32, 20)
  print("guard ", Guard, " ", playerX(Guard), " ", playerY(Guard), "\n")
END FUNCTION

' Prints the stage's name and where the hero is, then waits until the test has played its part.
FUNCTION Stage(Name)
  print(Name, " ", playerX(Hero), " ", playerY(Hero), "\n")
  system("until [ -e " + Name + " ]; do sleep 0.05; done")
END FUNCTION

' Returns once the hero has walked more than 30 pixels to the right.
FUNCTION AwaitWalk()
  DIM Start
  Start = playerX(Hero)
  DO WHILE (playerX(Hero) - Start) <= 30
    delay(20)
  LOOP
END FUNCTION

' Returns once the hero has risen more than 10 pixels, which it reports, and come down again.
FUNCTION AwaitJump()
  DIM Standing
  Standing = playerY(Hero)
  DO WHILE playerY(Hero) >= (Standing - 10)
    delay(20)
  LOOP
  print("rose ", playerY(Hero), "\n")
  DO WHILE playerY(Hero) < Standing
    delay(20)
  LOOP
END FUNCTION

FUNCTION OnKill(Id, X, Y)
  print("killed ", Id, "\n")
  die(Id)
END FUNCTION

FUNCTION OnPresent(Id)
  print("present ", Id, "\n")
END FUNCTION
EOF_SCRIPT

# Aims at a point of the window. The camera stands at the level's top left corner, so screen and
# world points coincide. After a kick the game puts the pointer on the drifting sight, and a frame
# acts on its newest input only: the pointer moves twice, each time for a frame of its own.
aim_at() {
    e2e_mouse_move $(($1 + 1)) "$2"
    sleep 0.2
    e2e_mouse_move "$1" "$2"
    sleep 0.2
}
# Holds the key until the script has seen the hero move and prints the next stage, and then for
# the seconds given.
hold_until() {
    xdotool keydown "$1"
    e2e_wait_for_line "$2 " 20
    sleep "${3:-0}"
    xdotool keyup "$1"
}

e2e_start
e2e_wait_for_window "Collision Test" 60
e2e_wait_for_line "unlocked " 60
e2e_stage_done unlocked
# On into the gift box, which stops him.
hold_until d walked 1
sleep 0.5
e2e_stage_done walked
hold_until w rose
e2e_wait_for_line "landed " 20
e2e_stage_done landed
sleep 1
e2e_click
# Unclosed, the bubble would stay some four seconds.
e2e_wait_for_line "said" 2
# The robot's bubble, while the guard walks up and fires.
sleep 1.5
e2e_mouse_move 400 200
e2e_click
for x in 620 640 660 640; do
    sleep 0.3
    e2e_mouse_move "$x" 485
done
e2e_key r 2

e2e_wait_for_line "guard " 60
read -r _ guard x y <<<"$(e2e_last_line "guard ")"
e2e_hold 1 0.3
sleep 0.2
# Short bursts, each at the sight put back on the guard: the gun's kick moves the sight, and a
# held trigger follows it.
for _ in $(seq 1 20); do
    grep -q "^killed $guard" "$E2E_WORK/stdout.log" && break
    aim_at "$x" $((y - 14))
    e2e_click
done
e2e_wait_for_line "killed $guard" 1
sleep 0.5
[ "$(grep -c '^ONPRESENT(0): Too many parameters : ONPRESENT$' "$E2E_WORK/stdout.log")" -eq 2 ] \
    || e2e_fail "the two gift boxes were not collected once each, or their event function did not fail"
e2e_quit 20
e2e_wait_for_line "Script thread ended" 1
if grep -E "ThreadSanitizer|AddressSanitizer|LeakSanitizer|runtime error:" "$E2E_WORK/stderr.log"; then
    e2e_fail "a sanitizer reported a fault"
fi
e2e_pass
