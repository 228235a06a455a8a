#!/usr/bin/env bash
# The editor's play-test: F5 starts the game on the level being edited, in a copy of the game's
# folder; the game's window appears, Escape ends the game and the editor carries on with its
# selection as it was, and nothing was written into the author's folder.
source "$(dirname "$0")/lib.sh"

MAPEDIT="$(dirname "$GREVAN_BIN")/mapedit"
[ -x "$MAPEDIT" ] || e2e_fail "no mapedit beside $GREVAN_BIN"

e2e_begin
# The author's folder, without the test's own logs.
folder_sums() { (cd "$E2E_WORK" && find . -type f ! -name '*.log' ! -name .display | sort | xargs md5sum); }
before=$(folder_sums)
(cd "$E2E_WORK" && exec "$MAPEDIT" maps/meadow.map >stdout.log 2>stderr.log) & E2E_PID=$!
e2e_wait_for_window "mapedit - maps/meadow.map"
editor=$E2E_WINDOW

# A click on the meadow's ground (its top is at y 520) selects it; the player starts above it.
e2e_mouse_move 100 560
sleep 0.2
e2e_click
e2e_mouse_move 300 400
sleep 0.2
e2e_key F5
e2e_wait_for_window "Collision Test" 20
sleep 1
e2e_screenshot game >/dev/null
e2e_key Escape
e2e_until 10 '! xdotool search --name "^Collision Test$" >/dev/null 2>&1' || e2e_fail "Escape did not end the game"
kill -0 "$E2E_PID" 2>/dev/null || e2e_fail "the editor ended with the game"

[ "$(folder_sums)" = "$before" ] || e2e_fail "the play-test wrote into the author's folder"

# The selection survived: Delete removes the ground piece and the save holds one piece fewer.
E2E_WINDOW=$editor
e2e_mouse_move 400 300
e2e_key Delete ctrl+s
e2e_until 5 '[ -e "$E2E_WORK/maps/meadow.map~" ]' || e2e_fail "the level was not saved after the play-test"
sleep 0.3
"$MAPEDIT" --list "$E2E_WORK/maps/meadow.map" | head -n 1 | grep -qx "2400 x 600, 45 pieces" \
    || e2e_fail "the selected piece was not the one deleted: $("$MAPEDIT" --list "$E2E_WORK/maps/meadow.map" | head -n 1)"
e2e_key ctrl+q
e2e_wait_for_exit 5
e2e_pass
