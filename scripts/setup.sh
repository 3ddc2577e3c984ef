#!/usr/bin/env bash
# Installs what a fresh Debian machine lacks, then configures and builds into build/.
set -euo pipefail
cd "$(dirname "$0")/.."

# qt6-base-dev carries the CMake files of Qt Widgets, PrintSupport and Test;
# libqt6test6 is Qt Test itself and libqt6gui6 the offscreen platform the
# widget tests run on; libqt6svg6 is the SVG image plugin of the sheet art.
PACKAGES=(g++ cmake ninja-build pkg-config
  qt6-base-dev libqt6test6 libqt6gui6 qt6-svg-dev libqt6svg6 qt6-image-formats-plugins libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev
  fonts-liberation2 xvfb xauth poppler-utils librsvg2-bin)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

if [ ! -f build/build.ninja ]; then
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
cmake --build build -j "$(nproc)"
