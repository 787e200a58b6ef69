#!/usr/bin/env bash
# A small 32-bit Debian with Wine in build/wine32, for the tests of the 32-bit component on machines
# whose own Wine runs 64-bit programs alone. Needs root, debootstrap and a package mirror.
#   cmake/wine32.sh --start               makes it where it is missing, and mounts what it needs
#   cmake/wine32.sh --with64              after --start: lends it this machine's 64-bit Wine, so that there is
#                                         one that runs programs of both kinds (QUARVEL_WINE32=both)
#   cmake/wine32.sh PROGRAM [ARGUMENT...]  runs a command in it, in the folder it is called from
#   cmake/wine32.sh --stop                unmounts everything
# Status 3 of --start: this machine cannot have one; why is the last line of its output.
set -u
project="$(cd "$(dirname "$0")/.." && pwd -P)" # as the list of mounts has it
root="$project/build/wine32"
. "$project/cmake/debian_root.sh"

# The folders of this machine that are seen in there under their own names, and cannot be changed from
# there: the project stands in itself then, and who deletes build/ must not delete the sources.
shared_folders() {
  echo "$project"
  echo /tmp/.X11-unix
  local data="${QUARVEL_DATA:-$project/../shared/data}"
  [ ! -d "$data" ] || realpath "$data"
}

mount_all() {
  local folder
  for folder in $(shared_folders); do
    mkdir -p "$root$folder" || return 1
    mounted "$root$folder" || mount --bind "$folder" "$root$folder" || return 1
    mount -o remount,bind,ro "$root$folder" || return 1
  done
  # The component keeps files of its own beside itself.
  folder="$project/build/windows-x86"
  mkdir -p "$folder"
  mounted "$root$folder" || mount --bind "$folder" "$root$folder"
}

start() {
  need_debian_root
  make_root i386 wine wine32 || { unmount_all; cannot "a 32-bit system could not be made"; }
  mount_all || { unmount_all; cannot "folders cannot be mounted here"; }
}

# What a package says of its version, here or in the system that "$@" enters.
wine_version() { "$@" dpkg-query -W -f '${Version}' libwine 2>/dev/null; }

# The programs are copied, as they tell the system's scripts that 64 bits are there; all else is only seen.
with64() {
  local libraries=/usr/lib/x86_64-linux-gnu
  [ "$(wine_version)" = "$(wine_version in_root)" ] || cannot "the two Wines are of different versions"
  [ -x /usr/lib/wine/wineserver64 ] || cannot "this machine has no 64-bit Wine"
  mkdir -p "$root$libraries" "$root/lib64" || return 1
  ln -sf "$libraries/ld-linux-x86-64.so.2" "$root/lib64/ld-linux-x86-64.so.2"
  mounted "$root$libraries" || mount --bind "$libraries" "$root$libraries" || return 1
  mount -o remount,bind,ro "$root$libraries" &&
    cp --remove-destination /usr/lib/wine/wine64 /usr/lib/wine/wineserver64 "$root/usr/lib/wine/"
}

stop() {
  rm -f "$root"/usr/lib/wine/{wine64,wineserver64}
  unmount_all
}

case "${1:-}" in
  --start) start ;;
  --with64) with64 ;;
  --stop) stop ;;
  "" | --*) sed -n 's/^# \{0,1\}//; 2,9p' "$0" >&2; exit 2 ;;
  *)
    exec chroot "$root" /usr/bin/env -C "$PWD" "$@"
    ;;
esac
