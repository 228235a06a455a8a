#!/usr/bin/env bash
# Runs the libFuzzer targets of a fuzz build (cmake -DGREVAN_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++).
#
#   tests/fuzz/fuzz.sh regress [BUILD]             every target once over its seeds and its saved
#                                                  crash reproducers; exits non-zero on any fault
#   tests/fuzz/fuzz.sh run TARGET SECONDS [BUILD]  fuzz one target (parse, run, map or role) for that long
#
# BUILD defaults to build-fuzz/tests/fuzz. The targets run in tests/script/cases, where IMPORT finds
# the test scripts' libraries; the game's targets (map: Game::loadMap, role: Player::setRole) move to
# data/ themselves. Seeds: our test and benchmark scripts for parse and run, the shipped maps or role
# descriptions and tests/fuzz/seeds/TARGET for map and role. A fuzzing run keeps what it learns in
# BUILD/corpus-TARGET and writes a crashing input to BUILD/artifacts/: copy it to
# tests/fuzz/crashes/vesk/ (parse, run) or tests/fuzz/crashes/TARGET/ (map, role).
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
mode=${1:-}

# Sets binary, seeds and crashes for a target.
describe() {
  case "$1" in
    parse | run) binary=vesk_fuzz_$1 crashes=vesk
      seeds=("$root"/tests/script/cases/*.fb "$root"/tests/script/cases/lib/*.fb "$root"/bench/vesk/*.fb) ;;
    map) binary=grevan_fuzz_map crashes=map seeds=("$root"/data/maps/*.map) ;;
    role) binary=grevan_fuzz_role crashes=role seeds=("$root"/data/image/role/*/config.dat) ;;
    *) echo "unknown fuzz target: $1" >&2 && exit 2 ;;
  esac
  [ "$crashes" = vesk ] || seeds+=("$root"/tests/fuzz/seeds/$1/*)
  crashes=("$root"/tests/fuzz/crashes/$crashes/*)
}

case "$mode" in
  regress) build=${2:-} ;;
  run) build=${4:-} ;;
  *) sed -n '2,13p' "$0" >&2 && exit 2 ;;
esac
build=$(cd "${build:-$root/build-fuzz/tests/fuzz}" && pwd)
cd "$root/tests/script/cases"
if [ "$mode" = run ]; then
  describe "$2"
  mkdir -p "$build/corpus-$2" "$build/artifacts"
  # Named by content: the role descriptions are all called config.dat.
  for seed in "${seeds[@]}"; do
    cp "$seed" "$build/corpus-$2/$(sha1sum <"$seed" | cut -c1-40)"
  done
  # A long run shares the machine; a generous timeout keeps a busy moment from passing for a hang.
  exec "$build/$binary" "$build/corpus-$2" -max_total_time="$3" -timeout=30 -close_fd_mask=1 \
    -rss_limit_mb=2048 -max_len=8192 -print_final_stats=1 -artifact_prefix="$build/artifacts/"
fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
for target in parse run map role; do
  describe "$target"
  # Standard output is closed: the game's targets print a message for every missing picture.
  if ! "$build/$binary" -timeout=10 -close_fd_mask=1 "${seeds[@]}" "${crashes[@]}" >"$log" 2>&1; then
    tail -n 40 "$log"
    echo "$binary: FAILED"
    exit 1
  fi
  echo "$binary: $(grep -c '^Executed' "$log") inputs, no fault"
done
