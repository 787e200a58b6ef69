#!/usr/bin/env bash
# tests/windows_packages.sh [x86]: what packaging/build has made for Windows is as it should be, and its zip for
# x64 can be used under Wine on the display that DISPLAY names; with x86 that zip alone is used, under a Wine
# of 32 bits. Reads build/packages and the tests of build/windows-BITS.
set -u
cd "$(dirname "$0")/.." || exit 2
version=$(sed -n 's/^project(Quarvel VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
failed=0
check() { # TITLE COMMAND...
  local title=$1
  shift
  if "$@"; then echo "ok $title"; else echo "FAILED $title"; failed=1; fi
}

sums_are_right() { (cd build/packages && sha256sum --quiet --check SHA256SUMS); }

delivered_files() { # BITS
  local folder="build/windows-packages/quarvel-$version-windows-$1"
  python3 tests/windows_files.py --delivered "$folder"/*.exe "$folder"/*.dll
}

# Everything that the readme names, and nothing of the build.
zip_is_whole() { # BITS
  local folder="quarvel-$version-windows-$1" list name
  list=$(unzip -Z1 "build/packages/$folder.zip") || return 1
  for name in Quarvel.dll Quarvel.Component.manifest quarvel.exe quarvel-view.exe quarvel.tlb \
    quarvel.readme.txt readme.txt licence.txt docs/component.md examples/diet.mps \
    examples/automation/tour.vbs; do
    grep -qxF "$folder/$name" <<<"$list" || { echo "no $name"; return 1; }
  done
  [ "$(cut -d/ -f1 <<<"$list" | sort -u)" = "$folder" ]
}

# Linked and packed anew, at another time: the same bytes.
packs_the_same() {
  local before after
  before=$(cat build/packages/SHA256SUMS)
  rm -f build/windows-x64/{Quarvel.dll,quarvel.exe,quarvel-view.exe,automation/quarvel.tlb} \
    build/packages/*-windows-*
  packaging/build windows >/dev/null || return 1
  after=$(cat build/packages/SHA256SUMS)
  [ "$before" = "$after" ]
}

component_is_unknown() { ! cmake/wine.sh reg query 'HKCR\Quarvel.LPModel' >/dev/null 2>&1; }

prints() { # EXPECTED PROGRAM ARGUMENT...: with the line ends of this system
  local expected=$1 printed
  shift
  printed=$(cmake/wine.sh "$@" 2>&1 | tr -d '\r')
  [ "$printed" = "$expected" ] || { echo "it printed: $printed"; return 1; }
}

takes_tour() { # FOLDER
  local printed
  printed=$(QUARVEL_DELIVERED=1 QUARVEL_WINE_LATE=1 timeout 120 cmake/wine.sh "$1/automation_tests.exe" \
    --gtest_filter=Tour.IsTakenByAProgramWithoutRegistration)
  grep -q '\[  PASSED  \] 1 test' <<<"$printed" || { echo "$printed"; return 1; }
}

# The viewer shows a model, and ends well when it is told to close.
viewer_opens_and_closes() { # FOLDER
  local viewer
  cmake/wine.sh "$1/quarvel-view.exe" "$1/examples/diet.mps" &
  viewer=$!
  for _ in $(seq 50); do
    cmake/wine.sh taskkill /im quarvel-view.exe 2>/dev/null | grep -q 'close' && break
    sleep 0.2
  done
  wait $viewer
}

# From a folder of any name, beside which a host of its own stands, with the tests' user.
use_zip() { # BITS
  local folder program
  folder="build/windows-$1/unpacked/a folder $(printf '\303\244\317\211\320\226')"
  rm -rf "build/windows-$1/unpacked"
  mkdir -p "$folder"
  check "unpacking" unzip -q "build/packages/quarvel-$version-windows-$1.zip" -d "$folder"
  mv "$folder/quarvel-$version-windows-$1"/* "$folder"
  check "the component is not registered" component_is_unknown
  check "the command" prints "quarvel $version" "$folder/quarvel.exe" --version
  check "a model of the examples" prints 36 \
    "$folder/quarvel.exe" evaluate "$folder/examples/diet.mps" COST BREAD=2
  check "the viewer" viewer_opens_and_closes "$folder"
  for program in automation_tests quarvel_tour; do cp "build/windows-$1/$program.exe" "$folder"; done
  check "a tour without registration" takes_tour "$folder"
  check "the component is still not registered" component_is_unknown
  [ $failed -ne 0 ] || rm -rf "build/windows-$1/unpacked"
}

if [ $# -eq 0 ]; then
  check "SHA256SUMS" sums_are_right
  for bits in x64 x86; do
    check "the files for $bits" delivered_files $bits
    check "the zip for $bits" zip_is_whole $bits
  done
  check "the set-up program" python3 tests/windows_files.py --delivered \
    "build/packages/quarvel-$version-windows-setup.exe"
  check "linked and packed again, the same bytes" packs_the_same
fi
use_zip "${1:-x64}"
exit $failed
