#!/usr/bin/env bash
# Builds the role generator and draws the characters into data/image/role/.
set -euo pipefail
cd "$(dirname "$0")/../.."
cmake -S . -B build >/dev/null
cmake --build build --target rolegen -j2
build/rolegen data
