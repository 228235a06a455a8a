#!/usr/bin/env bash
# Installs the Debian packages that building, playing and testing Grevan need, once.
# Idempotent: packages already present are left alone, and apt-get update runs only
# when something is missing.
set -euo pipefail

packages=(
  build-essential cmake pkg-config clang clang-format libclang-rt-14-dev
  liballegro4-dev allegro4-doc libopenal-dev libalut-dev
  googletest libgtest-dev libbenchmark-dev
  libpng-dev
  xvfb xauth xdotool x11-apps x11-utils imagemagick lua5.4
  python3 libx11-6 libxtst6
  dpkg-dev lintian desktop-file-utils appstream groff-base man-db
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

if [ "$(id -u)" -ne 0 ]; then
  echo "Missing packages: ${missing[*]}" >&2
  echo "Run this script as root (or install them with apt-get) and try again." >&2
  exit 1
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}"
