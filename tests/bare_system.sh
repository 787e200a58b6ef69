#!/usr/bin/env bash
# tests/bare_system.sh PROGRAM
# A server's installation: the smallest Debian, made once in build/bare, with the program `quarvel`, stripped,
# and the packages of the libraries that it loads. No toolkit may be there. Every command that the
# program knows runs there: its examples as its help has them, its page of the manual, the scripts that complete
# command lines, each way of packing. Each line must have the status and print and write what it does on this machine;
# only `quarvel view` has nothing to show there, and says what is missing.
# Status 3: this machine cannot have such a system; why is the last line of the output.
set -u
project="$(cd "$(dirname "$0")/.." && pwd -P)" # as the list of mounts has it
root="$project/build/bare"
here="$project/build/bare-compared" # the same installation in this system
folder=/tmp/examples                # of the root and of `here`
. "$project/cmake/debian_root.sh"
program=${1:?which program?}
failures=0
viewless='is not installed: there is no /usr/local/bin/quarvel-view, which a build with Qt 6 makes'

fail() {
  echo "FAILED: $1"
  failures=$((failures + 1))
}

# Before anything is installed for the program: a toolkit would stay in the system.
need_plain_program() {
  ! ldd "$program" | grep -E 'libQt|libX11|libGL' || { fail "the program loads a toolkit"; exit 1; }
}

# The packages that hold the libraries which the program loads. Files of /lib may be known by /usr/lib.
packages_of_program() {
  local library
  ldd "$program" | sed -n 's/.* => \(\/[^ ]*\) .*/\1/p' | while read -r library; do
    dpkg-query -S "$library" 2>/dev/null || dpkg-query -S "/usr$library" ||
      echo "no-package-has:$library"
  done | sed 's/[:,].*//' | sort -u
}

install_libraries() {
  local package missing=()
  for package in $(packages_of_program); do
    in_root dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  echo "libraries of: $(packages_of_program | tr '\n' ' ')(not there before: ${missing[*]:-none})"
  [ ${#missing[@]} -eq 0 ] || install_in_root "${missing[@]}"
}

# The program and nothing beside it, and a copy of the examples, in a tree.
install_program() { # TREE
  rm -rf "$1$folder" "$1/usr/local/bin/quarvel"
  mkdir -p "$1/usr/local/bin" "$1$folder"
  strip -o "$1/usr/local/bin/quarvel" "$program" &&
    find "$project/examples" -maxdepth 1 -type f -exec cp {} "$1$folder" \;
}

make_system() {
  need_debian_root
  [ "$(. /etc/os-release && echo "${VERSION_CODENAME:-}")" = bookworm ] ||
    cannot "the program is not built for bookworm"
  make_root "$(dpkg --print-architecture)" || cannot "a small system could not be made"
  install_libraries || cannot "the libraries could not be installed"
}

assert_no_toolkit() {
  local found
  found=$(find "$root" -xdev \( -name 'libQt*' -o -name 'libX11*' -o -name 'quarvel-view*' \) -print)
  [ -z "$found" ] || fail "no bare system: $found"
  found=$(in_root ldd /usr/local/bin/quarvel | grep -E 'not found|Qt')
  [ -z "$found" ] || fail "libraries: $found"
}

# What runs, a line each, for every command that `quarvel help` names.
command_lines() {
  local commands command
  commands=$("$program" help | sed -n '/^Commands:$/,/^$/s/^  \([a-z]\+\) .*/\1/p')
  for command in $commands; do
    echo "quarvel $command --help"
    echo "quarvel man $command"
    "$program" help "$command" | sed -n '/^Examples:$/,$s/^  \(quarvel .*\)/\1/p' | grep . ||
      echo "quarvel $command --has-no-examples"
  done
  printf 'quarvel completion %s\n' bash zsh fish
  printf 'quarvel __complete %s ""\n' help "row diet.mps"
  printf 'quarvel convert diet.mps packed.mps.%s\n' gz bz2 xz zst
  echo "quarvel info packed.mps.gz packed.mps.bz2 packed.mps.xz packed.mps.zst"
  echo "quarvel --version"
}

# outcome TREE LINE: its status, output and complaints.
outcome() {
  local words=(in_root env -C "$folder")
  [ "$1" = "$root" ] || words=(env -C "$here$folder" -i LC_ALL=C.UTF-8 HOME=/root
    "PATH=$here/usr/local/bin:$PATH")
  "${words[@]}" timeout 60 sh -c "$2" </dev/null 2>"$here/told"
  echo "status $?"
  cat "$here/told"
}

# What find problems and differences say so by their status.
is_expected() { # LINE STATUS
  case "$2 $1" in
    "0 "*) [[ $1 != "quarvel view "* || $1 = *--help ]] ;;
    "1 quarvel view "* | "1 quarvel check "* | "3 quarvel check "*) true ;;
    "1 quarvel diff "* | "1 quarvel why "* | "1 quarvel dialects "*) true ;;
    *) false ;;
  esac
}

run_line() { # LINE
  local there status
  there=$(outcome "$root" "$1" | tr -d '\0')
  status=$(sed -n 's/^status \([0-9]*\)$/\1/p' <<<"$there" | tail -n 1)
  is_expected "$1" "$status" || fail "$1: status $status"
  case "$1" in *--help) ;; "quarvel view "*)
    grep -qF "$viewless" <<<"$there" || fail "$1: does not say what is missing: $there" ;;
  esac
  diff <(echo "$there") <(outcome "$here" "$1" | tr -d '\0' | sed "s|$here||g") ||
    fail "$1: differs from what it does on this machine"
}

run_lines() {
  local line lines=0
  while read -r line; do
    run_line "$line"
    lines=$((lines + 1))
  done < <(command_lines)
  diff -r "$root$folder" "$here$folder" || fail "other files were written"
  echo "$lines command lines, $failures failures"
  [ "$lines" -gt 60 ] || fail "only $lines command lines were found"
}

# The viewer put there, but nothing of what it needs.
run_viewer_alone() {
  local viewer="$root/usr/local/bin/quarvel-view" told
  [ -f "$program-view" ] || { echo "no $program-view to try without Qt"; return; }
  cp "$program-view" "$viewer"
  told=$(outcome "$root" "quarvel view diet.mps")
  rm "$viewer"
  grep -qx 'status 1' <<<"$told" && grep -q 'needs what is not installed: .*libQt6Widgets' <<<"$told" ||
    fail "a viewer without Qt: $told"
}

need_plain_program
trap 'unmount_all' EXIT
make_system
for tree in "$root" "$here"; do install_program "$tree" || exit 1; done
assert_no_toolkit
run_viewer_alone
run_lines
rm -rf "$root$folder" "$here"
[ "$failures" -eq 0 ]
