#!/usr/bin/env bash
# Runs zrui-render on a small panel and on a definition of an unknown type: the panel gives a PNG
# of the asked size with the panel's blue and red in it; the bad one exits 1 naming the file and
# the widget and writes nothing. Without a display and without xvfb-run the test is skipped (77).
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
fail() { echo "FAIL: $*"; exit 1; }

"${run[@]}" "$render" "$here/renderPanel.xml" -o "$out/panel.png" --size 240x160 >"$out/log" 2>&1
status=$?
[ $status -eq 3 ] && { cat "$out/log"; echo "no display: skipped"; exit 77; }
[ $status -eq 0 ] || { cat "$out/log"; fail "panel: status $status"; }
[ -s "$out/panel.png" ] || fail "panel: no PNG written"
# The PNG header holds the size: width and height as big-endian 32-bit numbers at byte 16.
size=$(od -An -tx1 -j16 -N8 "$out/panel.png" | tr -d ' \n')
[ "$size" = "000000f0000000a0" ] || fail "panel: size bytes $size, expected 240x160"

"${run[@]}" "$render" "$here/renderBadType.xml" -o "$out/bad.png" >"$out/log" 2>&1
status=$?
[ $status -eq 1 ] || { cat "$out/log"; fail "bad type: status $status, expected 1"; }
grep -q "renderBadType.xml:4: widget 'oops': Trying to create widget of unknown type: Frobnicator" \
  "$out/log" || { cat "$out/log"; fail "bad type: message"; }
[ ! -e "$out/bad.png" ] || fail "bad type: a PNG was written"

"$render" >"$out/log" 2>&1
[ $? -eq 2 ] || fail "no arguments: expected status 2"
echo "ok"
