#!/usr/bin/env bash
# Builds and runs the gallery, the toolkit's main program, on the shipped resources.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
build=${ZR_BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZR_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target zrui-gallery
export ZR_RESOURCES_DIR=${ZR_RESOURCES_DIR:-$PWD/resources}
exec "$build/apps/gallery/zrui-gallery" "$@"
