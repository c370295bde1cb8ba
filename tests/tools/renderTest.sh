#!/usr/bin/env bash
# Runs zrui-render as a user would: a small panel gives a PNG of the asked size; definitions with
# an unknown widget or group type exit 1 with one line on standard error naming the file and the
# type, and write nothing; --list-types names the widget types; with no display at all the panel
# is drawn offscreen and the program says so (or, where no offscreen window opens either, exits
# 3 with one line). Without a display and without xvfb-run the test is skipped (77).
set -uo pipefail
render=$1
here=$(cd "$(dirname "$0")" && pwd)
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
run=()
if [ -z "${DISPLAY:-}" ]; then
  if ! command -v xvfb-run >/dev/null; then
    echo "no DISPLAY and no xvfb-run: skipped"
    exit 77
  fi
  run=(xvfb-run -a -s "-screen 0 1024x768x24 -nolisten tcp")
fi
export LIBGL_ALWAYS_SOFTWARE=1
fail() { echo "FAIL: $*"; echo "--- stdout"; cat "$out/out"; echo "--- stderr"; cat "$out/err"; exit 1; }
: >"$out/out"; : >"$out/err"

# The PNG header holds the size: width and height as big-endian 32-bit numbers at byte 16.
pngSize() { od -An -tx1 -j16 -N8 "$1" | tr -d ' \n'; }

"${run[@]}" "$render" "$here/renderPanel.xml" -o "$out/panel.png" --size 240x160 >"$out/out" 2>"$out/err"
status=$?
[ $status -eq 3 ] && { cat "$out/err"; echo "no display: skipped"; exit 77; }
[ $status -eq 0 ] || fail "panel: status $status"
[ "$(pngSize "$out/panel.png")" = "000000f0000000a0" ] || fail "panel: not a 240x160 PNG"

# Bad definitions: file, then the one line expected on standard error.
badCases=(
  "renderBadType.xml|renderBadType.xml:4: widget 'oops': unknown widget type \"Frobnicator\" (zrui-render --list-types lists the known ones)"
  "renderBadGroup.xml|renderBadGroup.xml:3: widget 'top': unknown group type \"Kids\""
)
for case in "${badCases[@]}"; do
  file=${case%%|*}
  expected="zrui-render: $here/${case#*|}"
  "${run[@]}" "$render" "$here/$file" -o "$out/bad.png" >"$out/out" 2>"$out/err"
  status=$?
  [ $status -eq 1 ] || fail "$file: status $status, expected 1"
  [ "$(cat "$out/err")" = "$expected" ] || fail "$file: expected exactly: $expected"
  [ ! -e "$out/bad.png" ] || fail "$file: a PNG was written"
done

"$render" --list-types >"$out/out" 2>"$out/err" || fail "--list-types: status $?"
grep -qx PushButton "$out/out" || fail "--list-types: no PushButton"
[ ! -s "$out/err" ] || fail "--list-types: wrote to standard error"

env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER \
  "$render" "$here/renderPanel.xml" -o "$out/offscreen.png" --size 240x160 >"$out/out" 2>"$out/err"
status=$?
if [ $status -eq 0 ]; then
  grep -q "drawing offscreen" "$out/out" || fail "no display: doesn't say it draws offscreen"
  [ ! -s "$out/err" ] || fail "no display: wrote to standard error"
  [ "$(pngSize "$out/offscreen.png")" = "000000f0000000a0" ] || fail "no display: not a 240x160 PNG"
else
  [ $status -eq 3 ] && [ "$(wc -l <"$out/err")" -eq 1 ] || fail "no display: status $status"
fi

"$render" >"$out/out" 2>"$out/err"
[ $? -eq 2 ] || fail "no arguments: expected status 2"

# The image never goes over an input, under its own name or another.
cp "$here/renderPanel.xml" "$out/keep.xml"
ln -sf keep.xml "$out/link.xml"
for target in "$out/keep.xml" "$out/link.xml" "$out/../$(basename "$out")/keep.xml"; do
  "$render" "$out/keep.xml" -o "$target" >"$out/out" 2>"$out/err"
  [ $? -eq 2 ] || fail "-o $target over the definition: expected status 2"
  grep -q "would overwrite the input" "$out/err" || fail "-o $target: no reason given"
  cmp -s "$here/renderPanel.xml" "$out/keep.xml" || fail "-o $target: the definition changed"
done
"$render" "$here/renderPanel.xml" --table "$out/keep.xml" -o "$out/keep.xml" >"$out/out" 2>"$out/err"
[ $? -eq 2 ] || fail "-o over the table: expected status 2"
echo "ok"
