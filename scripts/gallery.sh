#!/usr/bin/env bash
# Builds the library, the gallery (the toolkit's main program) and the tools, and runs the
# gallery on the shipped resources. With no display it runs under a virtual one and writes a
# screenshot (gallery.png unless arguments say otherwise), then prints where it is.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
build=${ZR_BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZR_SANITIZE=OFF -DZR_BUILD_TESTS=OFF \
  -DZR_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
export ZR_RESOURCES_DIR=${ZR_RESOURCES_DIR:-$PWD/resources}
gallery="$build/apps/gallery/zrui-gallery"
if [ -n "${DISPLAY:-}" ]; then
  exec "$gallery" "$@"
fi
if ! command -v xvfb-run >/dev/null; then
  echo "gallery.sh: no DISPLAY and no xvfb-run; install xvfb or run on a desktop" >&2
  exit 1
fi
[ $# -gt 0 ] || set -- --screenshot gallery.png
export LIBGL_ALWAYS_SOFTWARE=1
echo "No DISPLAY: running the gallery under a virtual display (Xvfb)"
xvfb-run -a -s "-screen 0 1920x1080x24 -nolisten tcp" "$gallery" "$@"
