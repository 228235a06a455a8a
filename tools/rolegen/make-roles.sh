#!/usr/bin/env bash
# Builds the role generator and draws the characters into data/image/role/.
set -euo pipefail
cd "$(dirname "$0")/../.."
mkdir -p build/tools
c++ -std=c++17 -O2 -Wall -Wextra -DALLEGRO_NO_MAGIC_MAIN -o build/tools/rolegen tools/rolegen/rolegen.cpp \
    $(pkg-config --cflags --libs allegro)
build/tools/rolegen data
