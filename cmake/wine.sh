#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix, build/wine.
#   cmake/wine.sh PROGRAM.exe [ARGUMENT...]
#   cmake/wine.sh --stop          ends everything that runs in the prefix
set -u
export WINEPREFIX="${QUARVEL_WINEPREFIX:-$(cd "$(dirname "$0")/.." && pwd)/build/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
# No offers to download anything, and no menu entries in the user's home.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

if [ "${1:-}" = --stop ]; then
  [ -d "$WINEPREFIX" ] || exit 0
  wineserver -k 2>/dev/null
  exec wineserver -w
fi

if [ ! -f "$WINEPREFIX/system.reg" ]; then
  mkdir -p "$WINEPREFIX"
  (flock 9; [ -f "$WINEPREFIX/system.reg" ] || { wine wineboot -i && wineserver -w; }) \
    9>"$WINEPREFIX/.lock" >/dev/null || { echo "wine.sh: the prefix could not be made" >&2; exit 125; }
fi
exec wine "$@"
