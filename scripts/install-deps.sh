#!/usr/bin/env bash
# Installs the Debian packages that the build, the tests and the benchmarks need.
# Runs as root (CI) or through sudo; does nothing for packages already present.
# Fonts: the font registry names DejaVu Sans (regular, bold, italic) and DejaVu Sans Mono;
# fonts-dejavu-core has only the upright faces, fonts-dejavu-extra the oblique and bold-oblique
# ones, without which fontconfig quietly draws italic text upright.
set -euo pipefail

packages=(g++ cmake make pkg-config ccache
          libpugixml-dev libgtest-dev libgmock-dev libbenchmark-dev
          libsdl2-dev libgl-dev libegl-dev libopengl-dev xvfb xauth libxtst-dev
          libfreetype-dev libfontconfig-dev fonts-dejavu-core fonts-dejavu-extra
          libtiff-dev libpng-dev
          libmuparser-dev)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y --no-install-recommends "${missing[@]}"
