#!/usr/bin/env bash
# The shipped game as a player meets it: the meadow fades in with the guide robot's first bubble,
# clicks take the player through the opening while the keys are locked, and then the keys and the
# mouse are the player's: a key changes the weapon and the left button fires.
source "$(dirname "$0")/lib.sh"

# Status-bar spots, in screen pixels: the weapon icon, and the last places of the cartridge row.
readonly ICON_AREA="40x28+275+15"
readonly CARTRIDGE_AREA="80x16+544+48"
# Inside the robot's first bubble, which opens to the right of the robot (drawn at 10, 150).
readonly BUBBLE_AREA="300x36+96+143"

# Prints a crop of a screenshot as a hash, to tell two pictures of one spot apart.
crop_hash() { /usr/bin/convert "$1" -crop "$2" +repage rgb:- | md5sum | cut -d' ' -f1; }

e2e_begin
e2e_start
e2e_wait_for_line "Starting Grevan ..."
e2e_wait_for_window "Collision Test"
e2e_wait_for_line "Level 1: the meadow, attempt 1" 20
# The fade-in takes 52 frames; the first bubble opens when it is done.
sleep 2.5

shot=$(e2e_screenshot opening)
brightness=$(e2e_max_brightness "$shot")
[ "$brightness" -gt 150 ] || e2e_fail "the meadow should have faded in, brightest channel $brightness"
bubble=$(/usr/bin/convert "$shot" -crop "$BUBBLE_AREA" +repage -format '%[fx:int(255*mean)] %[fx:int(255*maxima)]' info:)
read -r bubbleMean bubbleMax <<<"$bubble"
[ "$bubbleMean" -lt 80 ] && [ "$bubbleMax" -gt 200 ] \
    || e2e_fail "no robot's bubble (dark, with white text) beside the robot: mean $bubbleMean, brightest $bubbleMax"

# Keys are locked during the opening: walking keys change nothing and do not break anything.
e2e_mouse_move 600 300
e2e_key d a w
for i in $(seq 1 24); do
    e2e_click
    sleep 0.8
done
# By now the opening is over: the player holds the gun.
sleep 1
before=$(e2e_screenshot playing)
e2e_key 2
sleep 0.5
pistol=$(e2e_screenshot pistol)
[ "$(crop_hash "$before" "$ICON_AREA")" != "$(crop_hash "$pistol" "$ICON_AREA")" ] \
    || e2e_fail "key 2 did not put the pistol in hand (the status bar's icon stayed)"
e2e_key 1
sleep 0.5
gun=$(e2e_screenshot gun)
xdotool mousedown 1
sleep 1
xdotool mouseup 1
sleep 0.2
fired=$(e2e_screenshot fired)
[ "$(crop_hash "$gun" "$CARTRIDGE_AREA")" != "$(crop_hash "$fired" "$CARTRIDGE_AREA")" ] \
    || e2e_fail "holding the left button did not fire (the cartridge row stayed)"

e2e_key Escape
e2e_wait_for_exit 5
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS after Escape"
e2e_expect_no_errors
e2e_pass
