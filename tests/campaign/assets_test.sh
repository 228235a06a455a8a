#!/usr/bin/env bash
# Every map, role, picture and sound the shipped campaign needs is in data/: the campaign is
# rehearsed through the vesk command, whose stand-ins list each host call, and every file those
# calls name (and the pieces of every map, the strips of every role) must exist.
# Environment (set by ctest): VESK, GREVAN_DATA, GREVAN_SOURCE.
set -uo pipefail

here=$(cd "$(dirname "$0")" && pwd)
failures=0
missing() {
    echo "missing: $1 (named by $2)" >&2
    failures=$((failures + 1))
}
need() { [ -f "$GREVAN_DATA/$1" ] || missing "$1" "$2"; }

cd "$GREVAN_DATA" || exit 1
callFile=$(mktemp)
trap 'rm -f "$callFile"' EXIT
output=$("$VESK" "$here/rehearsal.fb" 2>"$callFile")
[ $? -eq 0 ] || { echo "the rehearsal failed: $output" >&2; exit 1; }
calls=$(cat "$callFile")

maps=$(echo "$calls" | sed -n 's/^loadMap("\([^"]*\)")$/\1/p' | sort -u)
roles=$(echo "$calls" | sed -n 's/^addPlayer([^"]*"\([^"]*\)".*/\1/p' | sort -u)
presents=$(echo "$calls" | sed -n 's/^addPresent("\([^"]*\)".*/\1/p' | sort -u)
[ "$(echo "$maps" | grep -c .)" -ge 3 ] || { echo "fewer than three maps loaded: $maps" >&2; exit 1; }
[ -n "$roles" ] && [ -n "$presents" ] || { echo "no roles or no gift boxes in the rehearsal" >&2; exit 1; }

for map in $maps; do
    need "$map" "loadMap"
    [ -f "$map" ] || continue
    # Fields: an ignored number, width, height, red, green, blue, the piece count, then nine
    # fields a piece, the first of which is its picture.
    for piece in $(tr -s ' \t\r\n' '\n' <"$map" | awk 'NR > 7 && (NR - 8) % 9 == 0' | sort -u); do
        need "image/object/$piece" "$map"
    done
done

for role in $roles; do
    config="image/role/$role/config.dat"
    need "$config" "addPlayer"
    for weapon in gun pistol grenade; do
        need "image/role/$role/$weapon.bmp" "role $role"
    done
    [ -f "$config" ] || continue
    for strip in $(grep -o 'image/role/[^ ]*' "$config"); do
        need "$strip" "$config"
    done
done

for present in $presents; do
    need "image/object/$present.bmp" "addPresent"
done

# The status bar and the robot that every scene shows, and the weapons' sounds.
for picture in back defend blood gun pistol grenade bullet ib; do
    need "image/gui/$picture.bmp" "the status bar and the robot"
done
for sound in $(grep -o '"sound/[^"]*"' "$GREVAN_SOURCE/src/ui/SoundFiles.h" | tr -d '"' | sort -u); do
    need "$sound" "the weapons"
done

[ "$failures" -eq 0 ] || exit 1
echo "maps: $(echo $maps); roles: $(echo $roles); gift boxes: $(echo $presents)"
