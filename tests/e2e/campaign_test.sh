#!/usr/bin/env bash
# The shipped game as a player meets it: the meadow fades in with the guide robot's first bubble,
# clicks take the player through the opening while the keys are locked, and then the controls are
# the player's: the left button fires.
source "$(dirname "$0")/lib.sh"

# Screen spots: inside the robot's first bubble, which opens to the right of the robot (drawn at
# 10, 150); a point of the robot; where the hero stands at the start; the last places of the
# status bar's cartridge row.
readonly BUBBLE_AREA="300x36+96+143"
readonly ROBOT_X=46 ROBOT_Y=193
readonly HERO_AREA="60x52+90+470"
readonly CARTRIDGE_AREA="80x16+544+48"

# Prints a crop of a screenshot as a hash, to tell two pictures of one spot apart.
crop_hash() { /usr/bin/convert "$1" -crop "$2" +repage rgb:- | md5sum | cut -d' ' -f1; }

e2e_begin
e2e_start
e2e_wait_for_window "Collision Test" 20
e2e_wait_for_line "Level 1: the meadow, attempt 1" 20
# The fade-in takes 52 frames; the first bubble opens when it is done.
sleep 3

shot=$(e2e_screenshot opening)
brightness=$(/usr/bin/convert "$shot" -format '%[fx:int(255*maxima)]' info:)
[ "$brightness" -gt 150 ] || e2e_fail "the meadow should have faded in, brightest channel $brightness"
# The bubble is dark, with white text: few bright pixels, but some.
bright=$(/usr/bin/convert "$shot" -crop "$BUBBLE_AREA" +repage -colorspace gray -threshold 50% \
    -format '%[fx:int(100*mean)]' info:)
[ "$bright" -gt 2 ] && [ "$bright" -lt 30 ] \
    || e2e_fail "no robot's bubble (dark, with white text) beside the robot: ${bright}% bright"
robot=$(e2e_pixel "$shot" $ROBOT_X $ROBOT_Y)

# The keys are locked during the opening: walking and jumping change nothing. Clicks close the
# bubbles one by one, until the robot leaves: the controls are the player's.
e2e_mouse_move 600 300
e2e_hold d 0.5
e2e_hold w 0.15
after=$(e2e_screenshot locked)
[ "$(crop_hash "$shot" "$HERO_AREA")" = "$(crop_hash "$after" "$HERO_AREA")" ] \
    || e2e_fail "the hero moved while the opening held the controls"
for i in $(seq 1 60); do
    e2e_click
    sleep 0.6
    current=$(e2e_screenshot playing)
    [ "$(e2e_pixel "$current" $ROBOT_X $ROBOT_Y)" != "$robot" ] && break
done
[ "$i" -lt 60 ] || e2e_fail "the opening did not end after 60 clicks"

# Several clicks, since a hit on the hero stops his firing.
for i in 1 2 3 4 5; do e2e_click; sleep 0.25; done
fired=$(e2e_screenshot fired)
[ "$(crop_hash "$current" "$CARTRIDGE_AREA")" != "$(crop_hash "$fired" "$CARTRIDGE_AREA")" ] \
    || e2e_fail "clicking the left button did not fire (the cartridge row stayed)"

e2e_quit 5
e2e_expect_no_errors
e2e_pass
