#!/usr/bin/env bash
# Runs the examples of the documents exactly as printed, through the build's vesk and mapview:
# - each ```basic block (without a FUNCTION, the unchanged body of a function Main) must load with
#   `vesk --check --strict` and dry-run Main to its end with status 0, printing the ```text block
#   that follows it at once, if any; one that loads a map is also checked from data/ (vesk --assets,
#   and the dry run loads the map). IMPORT examples find empty lib/helpers.fb and lib/weapons.fb;
# - each ../build/ command line of a ```sh block must end with status 0, run from data/ with the
#   build folder of VESK (so the shipped scripts load and run, and every file they need is there);
# - the table of shipped pictures matches data/image/object/.
# Usage: examples_test.sh VESK DATA_FOLDER DOCUMENT...
set -uo pipefail
vesk=$1
data=$2
shift 2
build=$(dirname "$vesk")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/lib" && touch "$work/lib/helpers.fb" "$work/lib/weapons.fb"

# Splits the document into numbered files: example_N.fb, example_N.expected (a ```text block right
# after it), and commands.sh (the ../build/ command lines of the ```sh blocks).
awk -v dir="$work" '
  /^```basic$/ { n++; file = dir "/example_" n ".fb"; mode = "basic"; last = n; next }
  /^```text$/  { if (lastClosed == n && n > 0 && pending) { file = dir "/example_" n ".expected"; mode = "text" } else { mode = "skip" } next }
  /^```sh$/    { mode = "sh"; next }
  /^```/       { if (mode == "basic") { lastClosed = n; pending = 1 } else { pending = 0 } mode = ""; next }
  /^[[:space:]]*$/ { if (mode == "") next }
  { if (mode == "") pending = 0 }
  mode == "basic" || mode == "text" { print > file; next }
  mode == "sh" && $0 ~ /^\.\.\/build\// { sub(/[[:space:]]+#.*$/, ""); print >> (dir "/commands.sh") }
' "$@"

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

count=0
for example in "$work"/example_*.fb; do
  count=$((count + 1))
  name=$(basename "$example" .fb)
  script=$example
  if ! grep -qi '^FUNCTION' "$example"; then
    script="$work/${name}_main.fb"
    { echo "FUNCTION Main"; cat "$example"; echo "END FUNCTION"; } >"$script"
  fi
  file=$(basename "$script")
  if ! out=$(cd "$work" && "$vesk" --check --strict "$file" 2>&1); then
    fail "$name does not load cleanly:"; sed 's/^/  /' "$script"; echo "$out"
    continue
  fi
  if grep -qi '^FUNCTION Main' "$script"; then
    actual=$(cd "$work" && "$vesk" "$file" 2>/dev/null)
    status=$?
    [ "$status" -eq 0 ] || fail "$name: dry run ended with status $status"
    if [ -f "$work/$name.expected" ] && [ "$actual" != "$(cat "$work/$name.expected")" ]; then
      fail "$name prints"; echo "$actual"; echo "-- instead of"; cat "$work/$name.expected"
    fi
  fi
  # An example that loads a map is a level to copy into data/: from there every file it names must
  # be found, and its dry run must load the map.
  if grep -q 'loadMap(' "$script"; then
    out=$(cd "$data" && "$vesk" --assets "$script" 2>&1) || { fail "$name: a file it names is missing:"; echo "$out"; }
    out=$(cd "$data" && "$vesk" "$script" 2>/dev/null)
    case $out in *"Cannot load map"*) fail "$name: $out" ;; esac
  fi
done
[ "$count" -gt 10 ] || fail "only $count examples found"

commands=0
while read -r line; do
  commands=$((commands + 1))
  command=${line/..\/build\//$build/}
  (cd "$data" && eval "$command") >/dev/null 2>&1 || fail "from data/: $line"
done < <(cat "$work/commands.sh" 2>/dev/null)

# The table of shipped pictures (rows "| `NAME.bmp` | W × H | ...") lists every file of
# data/image/object/ with the size its BMP header gives, and no other.
listed=$(sed -n 's/^| `\([^`]*\.bmp\)` | \([0-9]*\) × \([0-9]*\) |.*/\1 \2 \3/p' "$@" | sort)
shipped=$(for picture in "$data"/image/object/*.bmp; do
  width=$(od -An -t d4 -j 18 -N 4 "$picture" | tr -d ' ')
  height=$(od -An -t d4 -j 22 -N 4 "$picture" | tr -d ' -')
  echo "$(basename "$picture") $width $height"
done | sort)
pictures=$(echo "$shipped" | wc -l)
[ "$listed" = "$shipped" ] || { fail "the picture table differs from data/image/object/ (< table, > files):"
  diff <(echo "$listed") <(echo "$shipped"); }

echo "$count examples, $commands commands, $pictures pictures, $failures failures"
[ "$failures" -eq 0 ]
