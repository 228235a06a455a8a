#!/usr/bin/env bash
# Runs the Vesk libFuzzer targets of a fuzz build (cmake -DGREVAN_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++).
#
#   tests/fuzz/fuzz.sh regress [BUILD]          every target once over the seed corpus and the saved
#                                               crash reproducers; exits non-zero on any fault
#   tests/fuzz/fuzz.sh run TARGET SECONDS [BUILD]  fuzz one target (parse or run) for that long
#
# BUILD defaults to build-fuzz/tests/fuzz. Inputs run with tests/script/cases as the working
# directory, so that IMPORT reaches the test scripts' libraries. The seed corpus is our test and
# benchmark scripts; a fuzzing run keeps what it learns in BUILD/corpus-TARGET and writes a
# crashing input to BUILD/artifacts/: copy it to tests/fuzz/crashes/ and add a test for it.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
mode=${1:-}

seeds=("$root"/tests/script/cases/*.fb "$root"/tests/script/cases/lib/*.fb "$root"/bench/vesk/*.fb)
crashes=()
if compgen -G "$root/tests/fuzz/crashes/*" >/dev/null; then
  crashes=("$root"/tests/fuzz/crashes/*)
fi

case "$mode" in
  regress)
    build=$(cd "${2:-$root/build-fuzz/tests/fuzz}" && pwd)
    cd "$root/tests/script/cases"
    log=$(mktemp)
    trap 'rm -f "$log"' EXIT
    for target in parse run; do
      if ! "$build/vesk_fuzz_$target" -timeout=10 "${seeds[@]}" "${crashes[@]}" >"$log" 2>&1; then
        tail -n 40 "$log"
        echo "vesk_fuzz_$target: FAILED"
        exit 1
      fi
      echo "vesk_fuzz_$target: $(grep -c '^Executed' "$log") inputs, no fault"
    done
    ;;
  run)
    target=$2
    seconds=$3
    build=$(cd "${4:-$root/build-fuzz/tests/fuzz}" && pwd)
    mkdir -p "$build/corpus-$target" "$build/artifacts"
    cp -n "${seeds[@]}" "$build/corpus-$target/" 2>/dev/null || true
    cd "$root/tests/script/cases"
    "$build/vesk_fuzz_$target" "$build/corpus-$target" -max_total_time="$seconds" -timeout=10 \
      -rss_limit_mb=2048 -max_len=8192 -print_final_stats=1 -artifact_prefix="$build/artifacts/"
    ;;
  *)
    sed -n '2,11p' "$0" >&2
    exit 2
    ;;
esac
