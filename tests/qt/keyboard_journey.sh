#!/usr/bin/env bash
# A user at the keyboard of a real display: reads a model, renames a row, saves it, leaves.
#   keyboard_journey.sh QUARVEL SOURCE_FOLDER
# Each step waits for its window; a window that does not come fails the test.
set -u
quarvel=$1
folder=$(mktemp -d)
trap 'kill "$program" 2>/dev/null; rm -rf "$folder"' EXIT
cp "$2/examples/transport.mps" "$folder/model.mps"

fail() { echo "keyboard_journey.sh: $1" >&2; exit 1; }

window() { # TITLE: waits for the window and gives it the keyboard
  local found
  for _ in $(seq 100); do
    found=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)
    if [ -n "$found" ]; then
      xdotool windowfocus --sync "$found" 2>/dev/null
      return
    fi
    kill -0 "$program" 2>/dev/null || fail "the program ended before the window $1"
    sleep 0.1
  done
  fail "no window $1"
}

gone() { # TITLE
  for _ in $(seq 100); do
    [ -z "$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null)" ] && return
    sleep 0.1
  done
  fail "the window $1 stays"
}

key() { xdotool key --clearmodifiers --delay 30 "$@"; }

QT_QPA_PLATFORM=xcb "$quarvel" view "$folder/model.mps" --edit &
program=$!

window "Set Default Bounds"
key Return
gone "Set Default Bounds"
window "Quarvel" # the offer to simplify
key alt+n
gone "Quarvel"
window "Model Viewer"
key F2
window "Quarvel" # the column's new name
xdotool type --delay 20 "FIRST"
key Return
gone "Quarvel"
window "Model Viewer"
key ctrl+s
window "Quarvel"
key alt+n
gone "Quarvel"
window "Model Viewer"
key alt+f x
window "Quarvel"
key alt+n
wait "$program" || fail "exit status $?"
grep -q '^    FIRST     FREIGHT' "$folder/model.mps" || fail "the new name is not in the file"
# As the other tests end, so that it is counted with them.
echo "[  PASSED  ] 1 test."
