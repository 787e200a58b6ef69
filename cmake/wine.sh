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

# Windows stand on a desktop of Wine's own, which moves and activates them: on a bare display, without
# a window manager, each would wait two seconds for one.
make_prefix() {
  local explorer='HKCU\Software\Wine\Explorer'
  wine wineboot -i && wine reg add "$explorer" /v Desktop /d Default /f &&
    wine reg add "$explorer\Desktops" /v Default /d 1280x1024 /f && wineserver -w &&
    touch "$WINEPREFIX/.made"
}

if [ ! -f "$WINEPREFIX/.made" ]; then
  mkdir -p "$WINEPREFIX"
  (flock 9; [ -f "$WINEPREFIX/.made" ] || make_prefix) \
    9>"$WINEPREFIX/.lock" >/dev/null || { echo "wine.sh: the prefix could not be made" >&2; exit 125; }
fi
exec wine "$@"
