#!/usr/bin/env bash
# The level editor driven as an author drives it: on a copy of the meadow, a crate is chosen in
# the palette and placed, dragged, the drag undone and redone, the crate made decoration and the
# level saved. The game's own map reader then finds the meadow's pieces unchanged and the crate
# last, where the drag left it on the grid; the previous file is kept as meadow.map~. Then the
# reach overlay is turned on.
source "$(dirname "$0")/lib.sh"

MAPEDIT="$(dirname "$GREVAN_BIN")/mapedit"
[ -x "$MAPEDIT" ] || e2e_fail "no mapedit beside $GREVAN_BIN"

e2e_begin
(cd "$E2E_WORK" && exec "$MAPEDIT" maps/meadow.map >stdout.log 2>stderr.log) & E2E_PID=$!
e2e_wait_for_window "mapedit - maps/meadow.map"
original=$("$MAPEDIT" --list "$E2E_WORK/maps/meadow.map")

# Allegro takes a moment to follow a pointer that jumps: each move settles before the button.
settle() { e2e_mouse_move "$1" "$2"; sleep 0.2; }

# The palette lists the pictures by name, 52 pixels a row, right of the 860 pixels of the level
# view: crate.bmp is the eleventh. The level view starts at the level's top-left corner, at zoom 1
# with a grid of 10: the crate (40 x 40) is placed centred on the mouse.
settle 940 $((10 * 52 + 26))
e2e_click
settle 400 300
e2e_click
e2e_key Escape
# A drag by 53, 27 puts the crate's corner on the grid line nearest to 380 + 53, 280 + 27.
xdotool mousedown 1 sleep 0.2
settle 420 310
settle 453 327
xdotool mouseup 1 sleep 0.2
e2e_key ctrl+z ctrl+y k ctrl+s
e2e_until 5 '[ -e "$E2E_WORK/maps/meadow.map~" ]' || e2e_fail "the level was not saved"
sleep 0.3
e2e_screenshot saved >/dev/null

saved=$("$MAPEDIT" --list "$E2E_WORK/maps/meadow.map") || e2e_fail "the game refuses the saved map"
expected="$(echo "$original" | sed '1s/46 pieces/47 pieces/')
crate.bmp decoration 430 310"
[ "$saved" = "$expected" ] || e2e_fail "saved pieces differ: $(diff <(echo "$expected") <(echo "$saved"))"
cmp -s "$E2E_WORK/maps/meadow.map~" "$GREVAN_DATA/maps/meadow.map" || e2e_fail "meadow.map~ is not the old map"

# H: the reach overlay from the resting mouse, on a worker thread; its reachable spans are blue.
e2e_key h
reachable() {
    [ "$(/usr/bin/convert "$(e2e_screenshot reach)" -fill black +opaque "rgb(30,90,255)" -fill white \
        -opaque "rgb(30,90,255)" -format "%[fx:mean>0]" info:)" = 1 ]
}
e2e_until 10 reachable || e2e_fail "no reachable span drawn after H"

# Saved: quitting asks nothing.
e2e_key ctrl+q
e2e_wait_for_exit 5
e2e_pass
