#!/usr/bin/env bash
# Installs the build tree into a temporary prefix and builds the README's hello world against
# it twice, as a client would: with find_package(ZRui) and with pkg-config. Each program runs on
# a display (a virtual one when there is none) with ZR_RESOURCES_DIR unset, presses its own
# button and must print "activated hello" and exit 0, reading its resources from the installed
# share/zrui. Skipped (77) without pkg-config or without a display and xvfb-run.
# Usage: packagingTest.sh BUILD_DIR LIBDIR CXX "CLIENT_FLAGS"
#   CLIENT_FLAGS: what a client of this build must compile and link with (the sanitizers of a
#   sanitized build), may be empty.
set -uo pipefail
build=$1
libdir=$2
cxx=$3
read -r -a flags <<<"${4:-}"
here=$(cd "$(dirname "$0")" && pwd)
source_dir=$(cd "$here/../.." && pwd)
fail() { echo "FAIL: $*"; exit 1; }

command -v pkg-config >/dev/null || { echo "no pkg-config: skipped"; exit 77; }
run=()
if [ -z "${DISPLAY:-}" ]; then
  command -v xvfb-run >/dev/null || { echo "no DISPLAY and no xvfb-run: skipped"; exit 77; }
  run=(xvfb-run -a -s "-screen 0 1024x768x24 -nolisten tcp")
fi
unset ZR_RESOURCES_DIR ZR_NO_GRAPHICS
export LIBGL_ALWAYS_SOFTWARE=1
# LeakSanitizer misreads some dynamic TLS blocks of glibc 2.25 and later as its 2.19 layout and
# crashes scanning them ("Tracer caught signal 11", google/sanitizers#1322), depending on where
# Mesa's TLS happens to lie; not following __tls_get_addr avoids that. Our own libraries are
# linked at start-up, so their TLS is static and still scanned.
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}intercept_tls_get_addr=0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

# The README shows the very file that is built here.
awk '/^## Hello, world/ { section = 1 } section && /^```$/ { exit }
     section && on { print } section && /^```cpp$/ { on = 1 }' "$source_dir/README.md" \
  >"$work/readme.cpp"
diff -u "$here/hello/hello.cpp" "$work/readme.cpp" >"$work/log" ||
  { cat "$work/log"; fail "the README's hello world differs from tests/packaging/hello/hello.cpp"; }

cmake --install "$build" --prefix "$prefix" >"$work/log" 2>&1 || { cat "$work/log"; fail "install"; }
for f in "$libdir/libZRui.so" "$libdir/libZRbase.so" include/zrui/zrUi.h share/zrui/resTables \
         "$libdir/cmake/ZRui/ZRuiConfig.cmake" "$libdir/pkgconfig/zrui.pc" bin/zrui-render; do
  [ -e "$prefix/$f" ] || fail "not installed: $f"
done

# 1. CMake: find_package(ZRui) and ZRui::ZRui.
cmake -S "$here/hello" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_CXX_FLAGS="${flags[*]}" -DCMAKE_EXE_LINKER_FLAGS="${flags[*]}" >"$work/log" 2>&1 &&
  cmake --build "$work/cmake" >>"$work/log" 2>&1 || { cat "$work/log"; fail "find_package build"; }

# 2. pkg-config; the installed libraries are found through the program's RPATH.
export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
pc_flags=$(pkg-config --cflags --libs zrui) || fail "pkg-config --cflags --libs zrui"
read -r -a pc <<<"$pc_flags"
mkdir -p "$work/pc"
"$cxx" "${flags[@]}" "$here/hello/hello.cpp" -o "$work/pc/hello" "${pc[@]}" \
  -Wl,-rpath,"$prefix/$libdir" >"$work/log" 2>&1 || { cat "$work/log"; fail "pkg-config build"; }

for hello in "$work/cmake/hello" "$work/pc/hello"; do
  "${run[@]}" timeout 120 "$hello" --click >"$work/out" 2>&1
  status=$?
  [ $status -eq 0 ] || { cat "$work/out"; fail "$hello: status $status"; }
  grep -qx "activated hello" "$work/out" || { cat "$work/out"; fail "$hello: no activation"; }
done

# Where the resources come from shows in the files a program opens, where strace can trace
# (LeakSanitizer can't run under it, so this run leaves leaks to the runs above).
if strace -f -o /dev/null true 2>/dev/null; then
  ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0 "${run[@]}" timeout 120 \
    strace -f -qq -e trace=openat -o "$work/opened" "$work/cmake/hello" --click >"$work/out" 2>&1 ||
    { cat "$work/out"; fail "traced run"; }
  grep -q "\"$prefix/share/zrui/resTables/" "$work/opened" ||
    fail "no resource table read from $prefix/share/zrui"
  ! grep -q "\"$source_dir/resources/" "$work/opened" || fail "read the source tree's resources"
fi
echo "ok"
