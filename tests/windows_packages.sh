#!/usr/bin/env bash
# tests/windows_packages.sh: what packaging/build has made for Windows, x64, does what it should under Wine
# on the display that DISPLAY names. Reads build/packages and the tests of build/windows-x64.
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
  local name="quarvel-$version-windows-x64.zip" before after
  before=$(sha256sum <"build/packages/$name")
  rm -f build/windows-x64/{Quarvel.dll,quarvel.exe,quarvel-view.exe,automation/quarvel.tlb} \
    "build/packages/$name"
  packaging/build windows >/dev/null || return 1
  after=$(sha256sum <"build/packages/$name")
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

folder="build/unpacked/a folder $(printf '\303\244\317\211\320\226')"
rm -rf "build/unpacked"
mkdir -p "$folder"
check "SHA256SUMS" sums_are_right
for bits in x64 x86; do
  check "the files for $bits" delivered_files $bits
  check "the zip for $bits" zip_is_whole $bits
done
check "linked and packed again, the same bytes" packs_the_same
check "unpacking" unzip -q "build/packages/quarvel-$version-windows-x64.zip" -d "$folder"
mv "$folder/quarvel-$version-windows-x64"/* "$folder"
check "the component is not registered" component_is_unknown
check "the command" prints "quarvel $version" "$folder/quarvel.exe" --version
check "a model of the examples" prints 36 \
  "$folder/quarvel.exe" evaluate "$folder/examples/diet.mps" COST BREAD=2
# A host of its own beside the component, with the tests' user.
cp build/windows-x64/automation_tests.exe build/windows-x64/quarvel_tour.exe "$folder"
check "a tour without registration" takes_tour "$folder"
check "the component is still not registered" component_is_unknown
[ $failed -eq 0 ] && rm -rf build/unpacked
exit $failed
