#!/usr/bin/env bash
# Builds the sound generator and writes the weapon sounds into data/sound/weapons/.
set -euo pipefail
cd "$(dirname "$0")/../.."
cmake -S . -B build >/dev/null
cmake --build build --target soundgen -j2
mkdir -p data/sound/weapons
build/soundgen data/sound/weapons
