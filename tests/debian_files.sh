#!/usr/bin/env bash
# tests/debian_files.sh: lintian finds nothing in the packages of build/packages; each has what belongs to it; their
# tools make the same bytes of the commit once more.
set -eu
cd "$(dirname "$0")/.."
version=$(sed -n 's/^project(Quarvel VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
cd build/packages

fail() { echo "FAILED: $1"; exit 1; }

shopt -s nullglob
packages=(*.deb)
names=$(for package in "${packages[@]}"; do dpkg-deb -f "$package" Package; done | sort | tr '\n' ' ')
[ "$names" = "libquarvel-dev libquarvel1.1 python3-quarvel quarvel quarvel-view " ] || fail "the packages are $names"

# Errors and warnings, and an override, which would hide one.
told=$(lintian --allow-root --fail-on none --show-overrides "${packages[@]}")
[ -z "$told" ] || fail "lintian finds
$told"

file_of() { echo "$1"_"$version"_*.deb; } # PACKAGE
! dpkg-deb -f $(file_of quarvel) Depends | grep -i qt || fail "the command needs Qt"
dpkg-deb -f $(file_of quarvel-view) Depends | grep -q "quarvel (= $version).*libqt6widgets6" ||
  fail "the viewer does not ask for the command and Qt"
dpkg-deb -f $(file_of python3-quarvel) Depends | grep 'python3 (<< 3\.' | grep -q python3-numpy ||
  fail "the package for Python does not ask for numpy and the Python that it is built for"
unpacked=$(mktemp -d)
trap 'rm -rf "$unpacked"' EXIT
dpkg-deb -x $(file_of libquarvel1.1) "$unpacked"
soname=$(objdump -p "$unpacked"/usr/lib/*/libquarvel.so.1.1 | sed -n 's/ *SONAME *//p')
[ "$soname" = libquarvel.so.1.1 ] || fail "the package libquarvel1.1 has $soname"
# Of the manual and the examples what the commit has, and nothing that a use of them has left.
dpkg-deb -x $(file_of quarvel) "$unpacked"
documents=$(git -C ../.. ls-files docs examples | sort)
packed=$(cd "$unpacked/usr/share/doc/quarvel" && find docs examples -type f | sort)
[ "$packed" = "$documents" ] || fail "other documents are packed: $(diff <(echo "$documents") <(echo "$packed"))"
# All of the sources, with their types; the modules of one Python; by what name it is known.
dpkg-deb -x $(file_of python3-quarvel) "$unpacked"
found=$(cd "$unpacked/usr/lib/python3/dist-packages" && find . -type f | sort)
wanted=$({ (cd ../../python && find ./quarvel -name '*.py' -o -name '*.pyi' -o -name py.typed)
  for name in _core _component; do echo "./quarvel/$name.$(python3 -c 'import sysconfig; print(sysconfig.get_config_var("SOABI"))').so"; done
  for name in METADATA top_level.txt; do echo "./quarvel-$version.dist-info/$name"; done; } | sort)
[ "$found" = "$wanted" ] || fail "the package for Python has other files: $(diff <(echo "$wanted") <(echo "$found"))"
for package in "${packages[@]}"; do
  ! dpkg-deb --fsys-tarfile "$package" | grep -aF "$(cd ../.. && pwd -P)" >/dev/null || fail "$package has a path of its build"
done

sums=$(sha256sum "${packages[@]}")
../../packaging/build debian >/dev/null 2>&1 || fail "they cannot be built again"
sha256sum --check --quiet <<<"$sums" || fail "other bytes the second time"
echo "${#packages[@]} packages"
