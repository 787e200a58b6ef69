#!/usr/bin/env bash
# tests/python/clean_install.sh: makes a wheel of the checkout, without a network, installs it in an environment
# of its own and runs the package's tests there. Everything stands in build/wheel.
set -eu
cd "$(dirname "$0")/../.."
folder=$PWD/build/wheel
python=/usr/bin/python3
[ -x "$python" ] || python=python3
rm -rf "$folder/dist" "$folder/venv" "$folder/empty"
mkdir -p "$folder/dist" "$folder/empty"
"$python" -m pip --disable-pip-version-check wheel --no-build-isolation --no-index --no-deps -w "$folder/dist" .
"$python" -m venv --system-site-packages "$folder/venv"
"$folder/venv/bin/pip" --disable-pip-version-check install --no-index "$folder"/dist/quarvel-*.whl
installed=$("$folder/venv/bin/python" -I -c 'import quarvel; print(quarvel.__file__)')
case "$installed" in "$folder"/venv/*) ;; *) echo "not the installed package: $installed"; exit 1 ;; esac
"$folder/venv/bin/python" tests/python/run.py "$folder/empty"
