#!/usr/bin/env bash
# Builds the sound generator and writes the weapon sounds into data/sound/weapons/.
set -euo pipefail
cd "$(dirname "$0")/../.."
mkdir -p build/tools data/sound/weapons
c++ -std=c++17 -O2 -Wall -Wextra -o build/tools/soundgen tools/soundgen/soundgen.cpp
build/tools/soundgen data/sound/weapons
