#!/usr/bin/env bash
# tests/debian_packages.sh
# The packages of build/packages as a user of Debian has them: installed by apt into a copy of the smallest Debian
# (build/debian-root, made once, with the packages that ours depend on in build/debian-debs), used there, and
# purged. The command runs where there is no Qt, the viewer shows a model in a window on a display of this
# machine, programs of examples/native are built with the library; each purge leaves the files as they were.
# Status 3: this machine cannot have such a system; why is the last line of the output.
set -u
project="$(cd "$(dirname "$0")/.." && pwd -P)" # as the list of mounts has it
made="$project/build/debian-root"
tried="$project/build/debian-tried"
debs="$project/build/debian-debs"
root=$made
export root
. "$project/cmake/debian_root.sh"
architecture=$(dpkg --print-architecture)
version=$(sed -n 's/^project(Quarvel VERSION \([0-9.]*\) .*/\1/p' "$project/CMakeLists.txt")
ours=(quarvel quarvel-view libquarvel1.1 libquarvel-dev python3-quarvel)
# What the test itself needs in there.
tools=(man-db desktop-file-utils g++ cmake make pkg-config python3-pytest)
failures=0

fail() {
  echo "FAILED: $1"
  failures=$((failures + 1))
}

# expect WHAT FOUND WANTED
expect() {
  [ "$2" = "$3" ] || { fail "$1"; diff <(echo "$3") <(echo "$2"); }
}

file_of() { echo "/ours/${1}_${version}_$architecture.deb"; } # PACKAGE, as the system sees it
files_of_all() { local name; for name in "${ours[@]}"; do file_of "$name"; done; }

mount_packages() {
  mkdir -p "$root/ours" "$root/debs" "$debs/partial"
  mounted "$root/ours" || mount --bind "$project/build/packages" "$root/ours" || return 1
  mounted "$root/debs" || mount --bind "$debs" "$root/debs"
}

apt() { in_root apt-get -q -y -o Dir::Cache::archives=/debs -o APT::Keep-Downloaded-Packages=true "$@"; }
apt_install() { apt install --no-install-recommends "$@"; }

# The packages that ours need are fetched once, and again when ours need others.
fetch_packages() {
  local needs name
  needs=$(for name in "${ours[@]}"; do dpkg-deb -f "$project/build/packages/$(basename "$(file_of "$name")")" Depends; done
    echo "${tools[*]}")
  [ "$needs" = "$(cat "$debs/.needs" 2>/dev/null)" ] && return
  install_in_root -o Dir::Cache::archives=/debs --download-only $(files_of_all) "${tools[@]}" &&
    echo "$needs" >"$debs/.needs"
}

make_system() {
  need_debian_root
  [ "$(. /etc/os-release && echo "${VERSION_CODENAME:-}")" = bookworm ] ||
    cannot "the packages are not built for bookworm"
  make_root "$architecture" || cannot "a small system could not be made"
  mount_packages || cannot "folders cannot be mounted here"
  fetch_packages || cannot "the packages that ours need could not be fetched"
  unmount_all || return 1
  root=$tried
  unmount_all && rm -rf "$root" && cp -a --reflink=auto "$made" "$root" && mount_system && mount_packages ||
    return 1
  # The copy is thrown away: it may be lost with the power.
  echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/without-sync"
}

# All files with their contents, folders and links, but the records of the package tools, caches and logs.
tree() {
  cd "$root" || return
  find . -xdev \( -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/cache -o -path ./var/log -o -path ./tmp \
    -o -path ./ours -o -path ./debs \) -prune -o \( -type f -printf '%p %m %s ' -exec sha1sum {} + \) -o -printf '%p %m %l\n' |
    sort
}

purge() {
  echo "purge ${*}"
  in_root dpkg --purge "$@" >/dev/null || fail "purge of $*"
}

# What apt would install for those packages.
needed_by() { apt_install -s "$@" | sed -n 's/^Inst \([^ ]*\) .*/\1/p' | grep -vxE "$(IFS='|'; echo "${ours[*]}")"; }

use_command() {
  local before needed
  before=$(tree)
  needed=$(needed_by "$(file_of quarvel)")
  echo "quarvel needs beyond the smallest Debian: ${needed:-nothing}"
  grep -E 'qt|x11|libgl' <<<"$needed" && fail "the command needs a toolkit"
  apt_install "$(file_of quarvel)" || { fail "quarvel cannot be installed"; return; }
  expect "its version" "$(in_root quarvel --version | head -n 1)" "$("$project/build/linux/quarvel" --version | head -n 1)"
  expect "info" "$(in_root env -C /usr/share/doc/quarvel quarvel info examples/diet.mps)" \
    "$(cd "$project" && build/linux/quarvel info examples/diet.mps)"
  expect "row" "$(in_root quarvel row /usr/share/doc/quarvel/examples/diet.mps COST --equations 2>&1 | head -n 1)" \
    "$("$project/build/linux/quarvel" row "$project/examples/diet.mps" COST --equations 2>&1 | head -n 1)"
  in_root quarvel view /usr/share/doc/quarvel/examples/diet.mps 2>&1 | grep -q 'quarvel-view is not installed\|is not installed: there is no /usr/bin/quarvel-view' ||
    fail "view does not say that the viewer is missing"
  purge quarvel
  [ -n "$needed" ] || expect "files after the purge of quarvel" "$(tree)" "$before"
}

install_needed() {
  # shellcheck disable=SC2046
  apt_install $(needed_by $(files_of_all)) "${tools[@]}"
}

window() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1; } # TITLE

# Answers the question about bounds, and declines the offer to simplify, where one of them is asked.
answer() {
  local found
  found=$(window "Set Default Bounds")
  [ -z "$found" ] || xdotool windowfocus --sync "$found" key Return 2>/dev/null
  found=$(window Quarvel)
  [ -z "$found" ] || xdotool windowfocus --sync "$found" key alt+n 2>/dev/null
}

# The viewer's window on $DISPLAY: it has to come. PICTURE in the environment names a file
# for a picture of it.
see_window() { # COMMAND...
  local process found= tries
  # Its own process, which can be ended: no function of this shell.
  chroot "$root" /usr/bin/env -i PATH=/usr/bin:/bin HOME=/root LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=/run/viewer \
    "DISPLAY=$DISPLAY" timeout 60 "$@" &
  process=$!
  for ((tries = 0; tries < 100; tries++)); do
    found=$(window "Model Viewer")
    [ -z "$found" ] && kill -0 "$process" 2>/dev/null || break
    answer
    sleep 0.2
  done
  if [ -n "${PICTURE:-}" ]; then sleep 2 && import -window root "$PICTURE"; fi
  kill "$process" 2>/dev/null
  wait "$process" 2>/dev/null
  [ -n "$found" ]
}

use_viewer() {
  local program
  mkdir -p "$root/tmp/.X11-unix"
  in_root mkdir -pm 700 /run/viewer
  for program in "quarvel view" quarvel-view; do
    export -f window answer see_window
    # shellcheck disable=SC2016
    "$project/cmake/with_display.sh" bash -c '
      mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix" && see_window "$@"' . $program \
      /usr/share/doc/quarvel/examples/diet.mps || fail "$program shows no window"
    umount "$root/tmp/.X11-unix"
  done
  rmdir "$root/run/viewer"
  expect "what opens a model" "$(grep -h x-mps= "$root/usr/share/applications/mimeinfo.cache")" \
    "application/x-mps=quarvel-view.desktop;"
}

use_manual() {
  local page
  for page in quarvel quarvel-info quarvel-view; do
    expect "page $page" "$(in_root man -w "$page")" "/usr/share/man/man1/$page.1.gz"
  done
}

use_library() {
  local linking
  cp -r "$project/examples/native" "$project/examples/diet.mps" "$root/tmp"
  in_root sh -ec 'cmake -S /tmp/native -B /tmp/built && cmake --build /tmp/built && cd /tmp &&
    built/tour diet.mps out.mps && readelf -d built/tour && printf "1\nn\n" | built/asking diet.mps asked.mps' >"$root/tmp/told" 2>&1 &&
    grep -qx '5 of 5 rows read back equal' "$root/tmp/told" && grep -qF '[libquarvel.so.1.1]' "$root/tmp/told" &&
    in_root quarvel check /tmp/asked.mps >/dev/null || { cat "$root/tmp/told"; fail "a project that says find_package"; }
  for linking in "" -static; do
    in_root sh -ec "cd /tmp && g++ -std=c++20 $linking native/tour.cpp \$(pkg-config --cflags --libs quarvel) -o tour &&
      ./tour diet.mps out.mps" | grep -qx '5 of 5 rows read back equal' || fail "a program of the library $linking"
    [ -n "$linking" ] || in_root ldd /tmp/tour | grep -q libquarvel.so.1.1 || fail "the shared library is not used"
  done
}

use_python() {
  expect "what Python does with a model" "$(in_root env -C /usr/share/doc/quarvel/examples python3 -c '
import importlib.metadata, quarvel
print(quarvel.__file__, importlib.metadata.version("quarvel"))
model = quarvel.read("diet.mps")
print(repr(model), model.c, model.evaluate([1, 1, 1, 1, 1]))
with model.edit() as edit:
    edit.set_row_bounds("CALORIES", 15400, 20000)
print(model.write("/tmp/changed.mps").losses, quarvel.diff("diet.mps", "/tmp/changed.mps"))
component = quarvel.LPModel(quarvel.ScriptedDesktop())
component.MakeNewModel()
print(component.AddRow("COST"), component)' 2>&1)" "/usr/lib/python3/dist-packages/quarvel/__init__.py $version
<Model DIET: 5 rows, 5 columns, 25 elements> [18. 11. 95. 32.  9.] [165.  839.   47.1 995.    5. ]
() <2 differences>
-1 <LPModel '': 1 rows, 0 columns, 0 elements>"
  mkdir -p "$root/tmp/project/tests"
  cp -r "$project/tests/python" "$root/tmp/project/tests" && cp -r "$project/examples" "$root/tmp/project"
  in_root env -C /tmp/project PYTHONDONTWRITEBYTECODE=1 python3 -m pytest -q -rs -p no:cacheprovider \
    tests/python/test_{model,read,write}.py || fail "tests of the package for Python"
}

use_all() {
  local before
  install_needed || { fail "what ours need cannot be installed"; return; }
  before=$(tree)
  # shellcheck disable=SC2046
  expect "what ours need still" "$(needed_by $(files_of_all))" ""
  apt_install $(files_of_all) || { fail "ours cannot be installed"; return; }
  use_viewer
  use_manual
  use_library
  use_python
  purge "${ours[@]}"
  expect "files after the purge of all" "$(tree)" "$before"
}

[ -f "$project/build/packages/quarvel_${version}_$architecture.deb" ] || { fail "no packages: packaging/build debian"; exit 1; }
trap 'unmount_all; root=$made; unmount_all' EXIT
make_system
use_command
use_all
unmount_all
[ "$failures" -gt 0 ] || rm -rf "$tried"
echo "$failures failures"
[ "$failures" -eq 0 ]
