#!/usr/bin/env bash
# cmake/print_manual.sh BROWSER FOLDER: prints FOLDER/print.html, all pages in one, to FOLDER/quarvel-manual.pdf.
set -eu
browser=$1
folder=$(cd "$2" && pwd)
profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT
HOME=$profile timeout 240 "$browser" --headless --no-sandbox --disable-gpu --user-data-dir="$profile/profile" \
  --no-pdf-header-footer --print-to-pdf-no-header --print-to-pdf="$folder/quarvel-manual.pdf" \
  "file://$folder/print.html" >"$profile/log" 2>&1 || { cat "$profile/log" >&2; exit 1; }
[ -s "$folder/quarvel-manual.pdf" ] || { echo "print_manual.sh: nothing was printed" >&2; exit 1; }
