#!/usr/bin/env bash
# The game as a player installs it: builds the Debian package in BUILD_FOLDER, judges it with
# lintian, installs it with apt-get into this machine, plays it through the launcher from an empty
# folder, plays a level folder over it, checks the tools, the menu entry, the metainfo, the icons
# and the man pages, and purges it, after which nothing of it may be left.
# installed_test.sh BUILD_FOLDER. Needs root; exits with 77 (skipped) otherwise.
# Environment: GREVAN_E2E_OUT (the screenshot and the game's output go to installed_test/ in it).
source "$(dirname "$0")/../e2e/lib.sh"

if [ "$(id -u)" -ne 0 ]; then
    echo "skipped [$E2E_NAME]: installing a package needs root"
    exit 77
fi
[ $# -eq 1 ] && [ -d "$1" ] || e2e_fail "usage: installed_test.sh BUILD_FOLDER"
readonly BUILD=$(readlink -f "$1")
readonly FIELD_MAP="$(dirname "$0")/../e2e/files/field.map"

purge() { dpkg-query -W grevan >/dev/null 2>&1 && apt-get purge -y -qq grevan >/dev/null 2>&1; }

# Starts the installed game from an empty folder, on the level folder LEVEL if one is named. The
# game runs in a process group of its own: the launcher of a level folder waits for the game rather
# than becoming it, and a failing test must stop both.
LEVEL=""
e2e_start() {
    (cd "$E2E_WORK/empty" && exec setsid grevan ${LEVEL:+"$LEVEL"} >"$E2E_WORK/stdout.log" 2>"$E2E_WORK/stderr.log") &
    E2E_PID=$!
}
stop_game() { [ -z "$E2E_PID" ] || kill -KILL -- "-$E2E_PID" 2>/dev/null; }
trap 'stop_game; e2e_cleanup; purge' EXIT

# Plays until the window shows, then quits with Escape: status 0, nothing written where it started.
play_and_quit() {
    e2e_wait_for_window "Collision Test" 20
    "$@"
    e2e_quit 5
    e2e_expect_no_errors
    [ -z "$(ls -A "$E2E_WORK/empty")" ] || e2e_fail "the game wrote into the folder it was started in"
}

# The screen brightens as the opening fades in; the screenshot stays in the output folder.
wait_for_opening() {
    local shot brightness=0 start=$SECONDS
    while [ $((SECONDS - start)) -lt 10 ]; do
        shot=$(e2e_screenshot opening)
        brightness=$(/usr/bin/convert "$shot" -format '%[fx:int(255*maxima)]' info:)
        [ "$brightness" -gt 150 ] && return 0
        sleep 0.5
    done
    e2e_fail "the opening did not brighten within 10 s: brightest channel $brightness"
}

echo "== building the package"
rm -f "$BUILD"/grevan_*.deb
cmake --build "$BUILD" --target package -j2 >"$BUILD/package.log" 2>&1 \
    || { tail -n 30 "$BUILD/package.log"; e2e_fail "the package did not build"; }
deb=$(ls "$BUILD"/grevan_*_amd64.deb)
version=$(dpkg-deb -f "$deb" Version)
dpkg-deb -f "$deb" Package Version Section Depends

echo "== lintian"
lintian --fail-on error "$deb" || e2e_fail "lintian reports errors"

echo "== installing $deb"
purge
apt-get install -y -qq "$deb" >/dev/null 2>&1 || e2e_fail "apt-get could not install $deb"
mapfile -t files < <(dpkg -L grevan | grep -vx "/.")
installed=$(mktemp)
export PATH="$PATH:/usr/games"

echo "== the menu entry, the metainfo and the icons"
desktop-file-validate /usr/share/applications/*grevan*.desktop || e2e_fail "desktop-file-validate reports errors"
appstreamcli validate --no-net /usr/share/metainfo/*grevan*.metainfo.xml \
    || e2e_fail "appstreamcli reports errors"
for size in 16 32 48 64 128 256; do
    icon=/usr/share/icons/hicolor/${size}x$size/apps/grevan.png
    [ "$(/usr/bin/convert "$icon" -format '%wx%h' info: 2>&1)" = "${size}x$size" ] || e2e_fail "no $size-pixel icon"
done

echo "== the man pages"
for page in $(printf '%s\n' "${files[@]}" | grep '^/usr/share/man/.*\.gz$'); do
    warnings=$(zcat "$page" | groff -ww -z -man 2>&1)
    [ -z "$warnings" ] || e2e_fail "$page: $warnings"
done

echo "== the tools and the launcher's options"
[ "$(grevan --version)" = "grevan $version" ] || e2e_fail "grevan --version: $(grevan --version)"
grevan --help | grep -q '^usage: grevan' || e2e_fail "grevan --help prints no usage"
for tool in grevan-vesk grevan-mapview grevan-mapedit; do
    "$tool" --version | grep -qF " $version" || e2e_fail "$tool --version does not say $version"
    "$tool" --help | grep -q '^usage: ' || e2e_fail "$tool --help prints no usage"
done
(cd /usr/share/games/grevan && grevan-vesk --check script/main.fb) || e2e_fail "grevan-vesk --check fails on the shipped script"
(cd /usr/share/games/grevan && grevan-mapview maps/meadow.map "$installed.png") || e2e_fail "grevan-mapview fails on the shipped meadow"
rm -f "$installed.png"

E2E_WORK=$(mktemp -d /tmp/grevan-installed.XXXXXX)
mkdir -p "$E2E_OUT" "$E2E_WORK/empty" "$E2E_WORK/tmp"
rm -f "$E2E_OUT"/*.png
e2e_start_xvfb
for refused in "$E2E_WORK/nowhere" "$E2E_WORK/empty"; do
    (cd "$E2E_WORK/empty" && grevan "$refused" 2>"$E2E_WORK/refusal.log")
    status=$?
    [ "$status" -eq 1 ] && grep -q "^grevan: " "$E2E_WORK/refusal.log" \
        || e2e_fail "grevan $refused: status $status, $(cat "$E2E_WORK/refusal.log")"
done

echo "== playing the installed game from an empty folder"
e2e_start
play_and_quit wait_for_opening
[ -z "$(find /usr/share/games/grevan -newer "$installed")" ] || e2e_fail "the game wrote into its data folder"

echo "== playing a level folder over it"
LEVEL="$E2E_WORK/level"
mkdir -p "$LEVEL/script" "$LEVEL/maps"
cp "$FIELD_MAP" "$LEVEL/maps/"
cat >"$LEVEL/script/main.fb" <<'EOF'
' The folder's own map, built from the shipped pieces.
FUNCTION Main
  loadMap("maps/field.map")
  print("Hello from the level folder")
END FUNCTION
EOF
before=$(find "$LEVEL" -type f -exec md5sum {} + | sort)
export TMPDIR="$E2E_WORK/tmp"
e2e_start
play_and_quit e2e_wait_for_line "Hello from the level folder" 20
unset TMPDIR
grep -q "Cannot load map" "$E2E_WORK/stdout.log" && e2e_fail "the level folder's map did not load"
[ "$before" = "$(find "$LEVEL" -type f -exec md5sum {} + | sort)" ] || e2e_fail "the level folder was written to"
[ -z "$(ls -A "$E2E_WORK/tmp")" ] || e2e_fail "the launcher left its temporary folder"

echo "== purging"
purge || e2e_fail "apt-get purge failed"
for path in "${files[@]}"; do
    # A folder that other packages share (/usr/share/man/man6) stays; one only ours had must go.
    if [ -d "$path" ]; then
        [ ! -e "$path" ] || dpkg -S "$path" >/dev/null 2>&1 || e2e_fail "$path is left after the purge"
    elif [ -e "$path" ] || [ -L "$path" ]; then
        e2e_fail "$path is left after the purge"
    fi
done
rm -f "$installed"
e2e_pass
