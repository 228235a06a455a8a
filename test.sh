#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test:
#   build/       the plain build: unit, language and end-to-end tests, benchmarks built
#   build-asan/  AddressSanitizer + UndefinedBehaviorSanitizer: unit and language tests, the game
#                playing a scripted scene under Xvfb, and a 60-second soak of the real game on the
#                shipped data (tools/soak.sh)
#   build-tsan/  ThreadSanitizer: the tests where the two threads meet, and the same scene
#   build-general/ the script engine without its fast paths: the language cases once more
#   build-fuzz/  clang with libFuzzer: the fuzz targets of the script engine and of the map and role
#                readers, run once over their corpus
# Exits non-zero on any failure.
set -euo pipefail
cd "$(dirname "$0")"

./tools/install-deps.sh
jobs=$(nproc)
# The tests in which the main loop's thread and the script thread share state.
threaded_tests='^(GameLock|ScriptSystem|ScriptThread|HostFunctions|Waits/|SpeechBubble|ReachTest\.Worker|e2e\.scene_test)'

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs"

cmake -S . -B build-general -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGREVAN_BENCH=OFF -DVESK_GENERAL_PATH_ONLY=ON \
  >/dev/null
cmake --build build-general --target vesk -j"$jobs"

cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DGREVAN_SANITIZE=ON >/dev/null
cmake --build build-asan -j"$jobs"

cmake -S . -B build-tsan -DCMAKE_BUILD_TYPE=Debug -DGREVAN_TSAN=ON >/dev/null
cmake --build build-tsan --target grevan_tests grevan -j"$jobs"

cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGREVAN_FUZZ=ON -DGREVAN_BENCH=OFF \
  -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build build-fuzz --target vesk_fuzz_parse vesk_fuzz_run grevan_fuzz_map \
  grevan_fuzz_role -j"$jobs"

status=0
echo "== Fuzz targets over the seed corpus and the saved crashes"
tests/fuzz/fuzz.sh regress build-fuzz/tests/fuzz || status=1
echo "== Language cases through the engine without its fast paths"
ctest --test-dir build-general -R '^language\.' --output-on-failure -j"$jobs" || status=1
echo "== ThreadSanitizer build"
ctest --test-dir build-tsan -R "$threaded_tests" --output-on-failure -j"$jobs" || status=1
echo "== Sanitizer build (AddressSanitizer, UndefinedBehaviorSanitizer)"
ctest --test-dir build-asan --output-on-failure -j"$jobs" || status=1
echo "== Soak: a minute of random play on the shipped data under AddressSanitizer"
GREVAN_E2E_OUT=build-asan/e2e tools/soak.sh 60 build-asan/grevan || status=1
echo "== Plain build, with end-to-end tests under Xvfb"
ctest --test-dir build --output-on-failure -j"$jobs" || status=1
exit $status
