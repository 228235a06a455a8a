#!/usr/bin/env bash
# The player bot (tools/playerbot) plays with real mouse and keys only. First the sight must follow
# the hand's strokes at rest; then a raider stands 300 pixels to the hero's right on the meadow and
# falls to the gun, and one 300 pixels to his left falls to the pistol, each with the campaign's
# health for an opponent. The hero has fewer rounds than twice what the bot needs, so shots that
# the input loses make the test fail. The bot sees the
# world only through the "observe: " lines the level prints, and its own sight on the screen.
source "$(dirname "$0")/lib.sh"

BOT="$(cd "$(dirname "$0")/../../tools/playerbot" && pwd)/playerbot.py"
command -v python3 >/dev/null 2>&1 || e2e_fail "missing tool python3 (run tools/install-deps.sh)"

e2e_begin
e2e_add_script <<'EOF_SCRIPT'
CONST HeroColour = 3960520
CONST RaiderColour = 13122600
CONST Ground = 520
CONST StandHeight = 50
CONST HeroX = 1850
CONST Distance = 300
' As in the campaign, a raider has 36 health and a hit on his chest takes 6: the bot needs some
' 6 rounds a raider.
CONST RaiderHealth = 36
CONST GunRounds = 11
CONST PistolRounds = 11
' Long enough for a player dropped onto the ground to stand on it.
CONST Landing = 1500

DIM Hero, Raider, Fallen

FUNCTION Main
  Fallen = 0
  loadMap("maps/meadow.map")
  Hero = addPlayer(0, HeroColour, "soldier", "Hero", HeroX, Ground - StandHeight)
  showObject(Hero)
  addPlayerWeapon(Hero, 1, PistolRounds)
  addPlayerWeapon(Hero, 2, GunRounds)
  switchWeapon(Hero, 2)
  Raider = AddRaider(HeroX + Distance)
  fadeIn()
  lockControl(0)
  delay(Landing)
  Observe("hero ", Hero)
  Observe("foe " + Raider + " ", Raider)
  print("observe: go\n")
END FUNCTION

FUNCTION OnKill(Id, X, Y)
  print("observe: down ", Id, "\n")
  Fallen = Fallen + 1
  IF Fallen = 1 THEN
    Raider = AddRaider(HeroX - Distance)
    delay(Landing)
    Observe("foe " + Raider + " ", Raider)
  END IF
END FUNCTION

' A raider who stands where he is put and does nothing.
FUNCTION AddRaider(X)
  DIM Id
  Id = addPlayer(1, RaiderColour, "raider", "Raider", X, Ground - StandHeight)
  showObject(Id)
  setPlayerHealth(Id, RaiderHealth)
  setPlayerAIMode(Id, 1)
  AddRaider = Id
END FUNCTION

' The bot's eyes: a player's centre.
FUNCTION Observe(What, Id)
  IF isNull(playerX(Id)) = 0 THEN
    print("observe: ", What, playerX(Id), " ", playerY(Id), "\n")
  END IF
END FUNCTION
EOF_SCRIPT
e2e_start
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "observe: go" 60

python3 "$BOT" --log "$E2E_WORK/stdout.log" --map "$E2E_WORK/maps/meadow.map" --window "$E2E_WINDOW" \
    --timeout 150 go mouse gun fight pistol fight >"$E2E_OUT/bot.log" 2>&1
status=$?
cat "$E2E_OUT/bot.log"
[ "$status" -eq 0 ] || e2e_fail "the bot failed (status $status)"
grep -q "^bot: gun: foe .* down" "$E2E_OUT/bot.log" || e2e_fail "no raider fell to the gun"
grep -q "^bot: pistol: foe .* down" "$E2E_OUT/bot.log" || e2e_fail "no raider fell to the pistol"
e2e_expect_no_errors
e2e_quit 5
e2e_pass
