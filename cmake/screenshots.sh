#!/usr/bin/env bash
# Takes pictures of every window into build/screenshots/100 and build/screenshots/200, at these scales
# in percent; then those of Windows (cmake/screenshots_win32.sh). Needs no display. The exit status is
# not 0 when one could not be taken, shows nothing, or is there on one system only.
set -eu
cd "$(dirname "$0")/.."
cmake/setup.sh native
[ -f build/linux/build.ninja ] || cmake --preset linux
cmake --build build/linux --target screenshots
rm -rf build/screenshots
for scale in 1 2; do
  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale timeout 120 \
    build/linux/screenshots "build/screenshots/${scale}00"
done
cmake/screenshots_win32.sh

cd build/screenshots
for folder in 200 win32-96 win32-192; do
  diff <(ls 100) <(ls "$folder") || { echo "other pictures in $folder than in 100" >&2; exit 1; }
done

# The pictures of the manual are among them.
cd ../..
cmake/manual_pictures.py
