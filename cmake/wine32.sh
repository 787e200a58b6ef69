#!/usr/bin/env bash
# A small 32-bit Debian with Wine in build/wine32, for the tests of the 32-bit component on machines
# whose own Wine runs 64-bit programs alone. Needs root, debootstrap and a package mirror.
#   cmake/wine32.sh --start               makes it where it is missing, and mounts what it needs
#   cmake/wine32.sh PROGRAM [ARGUMENT...]  runs a command in it, in the folder it is called from
#   cmake/wine32.sh --stop                unmounts everything
# Status 3 of --start: this machine cannot have one; why is the last line of its output.
set -u
project="$(cd "$(dirname "$0")/.." && pwd)"
root="$project/build/wine32"
packages=(wine wine32)

cannot() { echo "$1"; exit 3; }

# The mirror that this machine takes its own packages from; empty for debootstrap's own choice.
mirror() {
  apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' \
    2>/dev/null | head -n 1
}

# The folders of this machine that are seen in there under their own names, and cannot be changed from
# there: the project stands in itself then, and who deletes build/ must not delete the sources.
shared_folders() {
  echo "$project"
  echo /tmp/.X11-unix
  local data="${QUARVEL_DATA:-$project/../shared/data}"
  [ ! -d "$data" ] || realpath "$data"
}

mounted() { grep -q " $1 " /proc/self/mounts; }

mount_system() {
  mounted "$root/proc" || mount -t proc proc "$root/proc" || return 1
  mounted "$root/dev" || mount --bind /dev "$root/dev"
}

mount_all() {
  local folder
  mount_system || return 1
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

# The last one mounted first, as one may stand inside another.
unmount_all() {
  local folder
  awk -v root="$root/" 'index($2, root) == 1 { print $2 }' /proc/self/mounts | tac |
    while read -r folder; do umount "$folder" || umount -l "$folder"; done
  ! grep -q " $root/" /proc/self/mounts
}

in_root() {
  chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"
}

# With this machine's own way to its packages.
install_wine() {
  cp /etc/resolv.conf "$root/etc/resolv.conf" 2>/dev/null
  cp -r /etc/apt/apt.conf.d/. "$root/etc/apt/apt.conf.d/" 2>/dev/null
  in_root apt-get -q -y -o Acquire::Retries=3 update &&
    in_root apt-get -q -y -o Acquire::Retries=3 install --no-install-recommends "${packages[@]}"
}

make_root() {
  [ ! -f "$root/.made" ] || return 0
  unmount_all && rm -rf "$root" && mkdir -p "$root" || return 1
  local from
  from=$(mirror)
  debootstrap --arch=i386 --variant=minbase bookworm "$root" ${from:+"$from"} &&
    mount_system && install_wine && touch "$root/.made"
}

start() {
  [ "$(id -u)" -eq 0 ] || cannot "not run by root, who alone may make a system of its own"
  command -v debootstrap >/dev/null || cannot "debootstrap is missing"
  make_root || { unmount_all; cannot "a 32-bit system could not be made"; }
  mount_all || { unmount_all; cannot "folders cannot be mounted here"; }
}

case "${1:-}" in
  --start) start ;;
  --stop) unmount_all ;;
  "" | --*) sed -n 's/^# \{0,1\}//; 2,7p' "$0" >&2; exit 2 ;;
  *)
    exec chroot "$root" /usr/bin/env -C "$PWD" "$@"
    ;;
esac
