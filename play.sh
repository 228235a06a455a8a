#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it in data/, its working directory.
set -euo pipefail
cd "$(dirname "$0")"

./tools/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target grevan -j"$(nproc)"

cd data
if [ -z "${DISPLAY:-}" ]; then
  echo "No display found: running Grevan under xvfb-run, in a virtual screen nobody can see."
  echo "Press Ctrl+C to stop it."
  exec xvfb-run -a -s "-screen 0 1024x768x24" ../build/grevan
fi
exec ../build/grevan
