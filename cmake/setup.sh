#!/usr/bin/env bash
# Installs what is missing from Debian's packages:
# cmake/setup.sh PART..., each one of native, format, display, browser, desktop, shells, manual, checks, coverage,
# windows, packages, debian, systems, peers, counts, solvers, python.
# Asks nothing. Packages that are installed already cost one look at the package database.
set -eu

# The program and its native tests.
native=(cmake ninja-build g++ libgtest-dev qt6-base-dev zlib1g-dev libbz2-dev liblzma-dev libzstd-dev
  bzip2 xz-utils zstd python3-jsonschema pkg-config)
# What unpacks gzip fastest is there for one architecture alone.
[ "$(dpkg --print-architecture)" != amd64 ] || native+=(libisal-dev)
# The formatter, and the interpreter of tools/longest.
format=(clang-format python3)
# A display that nobody sees, and a user at it.
display=(xvfb xdotool)
# What looks at the page of a report.
browser=(chromium)
# What reads and checks the files that a desktop opens models by.
desktop=(desktop-file-utils shared-mime-info)
# Whose completion is tested, and what shows and checks pages of the manual.
shells=(bash fish zsh man-db mandoc bsdextrautils)
# What makes the manual of docs/.
manual=(mkdocs)
# clang's sanitizers, fuzzer and checker.
checks=(clang libclang-rt-dev clang-tidy)
# What reads clang's source coverage.
coverage=(llvm)
# Cross-building for Windows, and running what was built.
windows=(g++-mingw-w64-x86-64-win32 g++-mingw-w64-i686-win32 mingw-w64-tools libwine-dev libwine
  googletest libz-mingw-w64-dev wine wine64 xvfb)
# What makes and reads the packages.
packages=(zip unzip python3 nsis)
# What makes Debian's packages, and checks them.
debian=(debhelper dh-python lintian pybind11-dev python3 python3-dev python3-setuptools python3-wheel)
# What makes a Debian system of its own (cmake/debian_root.sh).
systems=(debootstrap)
# The libraries that the benchmarks compare with, and what counts instructions.
peers=(coinor-libcoinutils-dev libglpk-dev)
counts=(valgrind)
# What reads and solves the files that we write.
solvers=(glpk-utils lp-solve)
# The Python package: what it is built with, what its tests use, and what checks its types.
python=(python3-dev pybind11-dev python3-numpy python3-scipy python3-pandas python3-pytest mypy
  python3-setuptools python3-wheel python3-pip python3-venv)

wanted=()
for part in "$@"; do
  case "$part" in
    native) wanted+=("${native[@]}") ;;
    format) wanted+=("${format[@]}") ;;
    display) wanted+=("${display[@]}") ;;
    browser) wanted+=("${browser[@]}") ;;
    desktop) wanted+=("${desktop[@]}") ;;
    shells) wanted+=("${shells[@]}") ;;
    manual) wanted+=("${manual[@]}") ;;
    checks) wanted+=("${checks[@]}") ;;
    coverage) wanted+=("${coverage[@]}") ;;
    windows) wanted+=("${windows[@]}") ;;
    packages) wanted+=("${packages[@]}") ;;
    debian) wanted+=("${debian[@]}") ;;
    systems) wanted+=("${systems[@]}") ;;
    peers) wanted+=("${peers[@]}") ;;
    counts) wanted+=("${counts[@]}") ;;
    solvers) wanted+=("${solvers[@]}") ;;
    python) wanted+=("${python[@]}") ;;
    *) echo "setup.sh: unknown part $part" >&2; exit 2 ;;
  esac
done

if ! command -v dpkg-query >/dev/null; then
  echo "This is no Debian system: going on with the tools that are here." >&2
  exit 0
fi

installed=" $(dpkg-query -W -f='${db:Status-Status}=${Package}\n' "${wanted[@]}" 2>/dev/null |
  sed -n 's/^installed=//p' | tr '\n' ' ')"
missing=()
for package in "${wanted[@]}"; do
  case "$installed" in *" $package "*) ;; *) missing+=("$package") ;; esac
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=(env)
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "setup.sh: you are not root, and there is no sudo. Have root run:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo env)
fi
apt=("${as_root[@]}" DEBIAN_FRONTEND=noninteractive apt-get -q -y
  -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3)
echo "Installing ${missing[*]}" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${apt[@]}" update && "${apt[@]}" install --no-install-recommends "${missing[@]}"; } \
  >"$log" 2>&1 </dev/null; then
  tail -n 40 "$log" >&2
  echo "setup.sh: the packages could not be installed" >&2
  exit 1
fi
