#!/usr/bin/env bash
# Takes pictures of every window as Wine draws it into build/screenshots/win32-96 and
# build/screenshots/win32-192, at these dots an inch, on a display and in a prefix of its own.
set -eu
cd "$(dirname "$0")/.."
cmake/setup.sh native windows
[ -f build/windows-x64/build.ninja ] || cmake --preset windows-x64
cmake --build build/windows-x64 --target screenshots

export QUARVEL_WINEPREFIX="$PWD/build/wine-screenshots"
number=$(mktemp)
Xvfb -displayfd 3 -noreset -screen 0 2560x1920x24 -nolisten tcp 3>"$number" 2>/dev/null &
xvfb=$!
trap 'cmake/wine.sh --stop; kill "$xvfb"; rm -f "$number"' EXIT
for _ in $(seq 100); do
  [ -s "$number" ] && break
  sleep 0.1
done
export DISPLAY=":$(cat "$number")"

for dpi in 96 192; do
  mkdir -p "build/screenshots/win32-$dpi"
  cmake/wine.sh reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 2560x1920 /f >/dev/null
  cmake/wine.sh reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null
  cmake/wine.sh --stop
  timeout 120 cmake/wine.sh build/windows-x64/screenshots.exe "build/screenshots/win32-$dpi"
done
