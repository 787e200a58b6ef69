#!/usr/bin/env bash
# Runs a command on a display of its own that nobody sees: cmake/with_display.sh COMMAND [ARGUMENT...]
set -u
number=$(mktemp)
# Without -noreset it starts anew, and refuses everybody meanwhile, whenever its last window has gone.
Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 -nolisten tcp 3>"$number" 2>/dev/null &
server=$!
trap 'kill "$server" 2>/dev/null; wait "$server" 2>/dev/null; rm -f "$number"' EXIT
for _ in $(seq 100); do
  [ -s "$number" ] && break
  kill -0 "$server" 2>/dev/null || { echo "with_display.sh: no Xvfb" >&2; exit 125; }
  sleep 0.1
done
[ -s "$number" ] || { echo "with_display.sh: Xvfb does not answer" >&2; exit 125; }
DISPLAY=":$(cat "$number")" "$@"
