#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix, build/wine.
#   cmake/wine.sh PROGRAM.exe [ARGUMENT...]
#   cmake/wine.sh --stop          ends everything that runs in the prefix
# With QUARVEL_WINE_LATE set what the program prints comes when it has ended: Wine's own processes have
# the output of the program that started them, and who waits for the end of that would wait for theirs.
# With QUARVEL_WINE32 set it is the Wine of the 32-bit system that cmake/wine32.sh has started; with "both"
# in it that of a 64-bit Windows, which runs programs of 32 bits as well (cmake/wine32.sh --with64).
set -u
project="$(cd "$(dirname "$0")/.." && pwd)"
wine=wine
if [ -n "${QUARVEL_WINE32:-}" ]; then
  within=("$project/cmake/wine32.sh")
  export WINEPREFIX=/prefix WINEARCH=win32
  if [ "$QUARVEL_WINE32" = both ]; then
    # The system's own programs are then those of 64 bits.
    export WINEPREFIX=/prefix-both WINEARCH=win64 WINELOADER=/usr/lib/wine/wine64
    wine=$WINELOADER
  fi
  prefix="$project/build/wine32$WINEPREFIX"
else
  within=()
  export WINEPREFIX="${QUARVEL_WINEPREFIX:-$project/build/wine}"
  prefix=$WINEPREFIX
fi
export WINEDEBUG="${WINEDEBUG:--all}"
# Wine takes the letters of file names from the locale: without one it could name few files.
[ "$(locale charmap 2>/dev/null)" = UTF-8 ] || export LC_ALL=C.UTF-8
# No offers to download anything, and no menu entries in the user's home.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

if [ "${1:-}" = --stop ]; then
  [ -d "$prefix" ] || exit 0
  "${within[@]}" wineserver -k 2>/dev/null
  exec "${within[@]}" wineserver -w
fi

# Windows stand on a desktop of Wine's own, which moves and activates them: on a bare display, without
# a window manager, each would wait two seconds for one.
make_prefix() {
  local explorer='HKCU\Software\Wine\Explorer'
  "${within[@]}" $wine wineboot -i &&
    "${within[@]}" $wine reg add "$explorer" /v Desktop /d Default /f &&
    "${within[@]}" $wine reg add "$explorer\Desktops" /v Default /d 1280x1024 /f &&
    "${within[@]}" wineserver -w && touch "$prefix/.made"
}

if [ ! -f "$prefix/.made" ]; then
  mkdir -p "$prefix"
  (flock 9; [ -f "$prefix/.made" ] || make_prefix) \
    9>"$prefix/.lock" >/dev/null || { echo "wine.sh: the prefix could not be made" >&2; exit 125; }
fi
if [ -z "${QUARVEL_WINE_LATE:-}" ]; then exec "${within[@]}" $wine "$@"; fi

output=$(mktemp) || exit 125
"${within[@]}" $wine "$@" >"$output" 2>&1
status=$?
cat "$output"
rm -f "$output"
exit $status
