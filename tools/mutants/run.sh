#!/usr/bin/env bash
# Breaks the code on purpose, one mutant at a time, and counts how many breaks the tests catch.
#
#   tools/mutants/run.sh TREE [LIST]
#
# TREE is a copy of the sources to work in (git archive HEAD | tar -x -C TREE), never a checkout
# you edit; LIST defaults to tools/mutants/mutants.txt, one mutant a line: FILE|||TEXT|||REPLACEMENT
# (the first occurrence of TEXT in FILE is replaced). For each mutant it applies the change, builds,
# runs the tests that can see it — the engine's unit and language tests for src/script, the game's
# unit tests for the rest — and restores the file. A mutant that fails to build, fails a test or
# hangs a test counts as caught. Prints one line a mutant and the total.
set -u
root=$(cd "$(dirname "$0")/../.." && pwd)
tree=$(cd "$1" && pwd)
list=$(cd "$(dirname "${2:-$root/tools/mutants/mutants.txt}")" && pwd)/$(basename "${2:-mutants.txt}")
cd "$tree"

targets() { case "$1" in src/script/*) echo vesk_tests vesk ;; *) echo grevan_tests ;; esac; }
# Everything caughtBy runs, mapview among them for the language label's docs check.
buildAll() { cmake --build build -j2 --target grevan_tests vesk_tests vesk mapview >/dev/null 2>&1; }
caughtBy() {
    case "$1" in
        src/script/*)
            (cd tests/script/cases && timeout 300 ../../../build/tests/vesk_tests >/dev/null 2>&1) || return 0
            timeout 600 ctest --test-dir build -L language -j2 --timeout 30 >/dev/null 2>&1 || return 0 ;;
        *)
            (cd data && ALSOFT_DRIVERS=null timeout 300 ../build/tests/grevan_tests >/dev/null 2>&1) || return 0 ;;
    esac
    return 1
}

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGREVAN_BENCH=OFF >/dev/null
buildAll || { echo "the unmutated build fails"; exit 1; }
if caughtBy src/script/ || caughtBy src/; then
    echo "the unmutated tests fail"
    exit 1
fi

count=0
caught=0
while IFS= read -r line; do
    file=${line%%|||*}
    rest=${line#*|||}
    text=${rest%%|||*}
    replacement=${rest#*|||}
    count=$((count + 1))
    cp "$file" "$file.unmutated"
    python3 -c 'import sys; p, a, b = sys.argv[1:]; s = open(p).read(); assert a in s, a; open(p, "w").write(s.replace(a, b, 1))' \
        "$file" "$text" "$replacement" || { mv "$file.unmutated" "$file"; echo "$count no such text in $file"; continue; }
    if ! cmake --build build -j2 --target $(targets "$file") >/dev/null 2>&1; then
        verdict="caught (build)"
    elif caughtBy "$file"; then
        verdict="caught"
    else
        verdict="MISSED"
    fi
    # Copied back, not moved: the file must look newer than the mutant's object for make.
    cp "$file.unmutated" "$file"
    rm "$file.unmutated"
    [ "$verdict" = MISSED ] || caught=$((caught + 1))
    echo "$count $verdict $file: $text"
done <"$list"
buildAll
echo "$caught of $count caught"
