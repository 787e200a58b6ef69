#!/usr/bin/env bash
# Takes pictures of every window into build/screenshots/100 and build/screenshots/200, at these scales
# in percent; then those of Windows (cmake/screenshots_win32.sh). Needs no display.
set -eu
cd "$(dirname "$0")/.."
cmake/setup.sh native
[ -f build/linux/build.ninja ] || cmake --preset linux
cmake --build build/linux --target screenshots
for scale in 1 2; do
  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale timeout 60 \
    build/linux/screenshots "build/screenshots/${scale}00"
done
cmake/screenshots_win32.sh
