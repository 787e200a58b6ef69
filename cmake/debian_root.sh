# A Debian system of its own in the folder $root, for what this machine's own cannot show. Read by the
# scripts that have one, which set `root` first. Making and entering it needs root; making it debootstrap
# and a package mirror as well.

# cannot REASON: this machine cannot have one, which is no failure.
cannot() { echo "$1"; exit 3; }

need_debian_root() {
  [ "$(id -u)" -eq 0 ] || cannot "not run by root, who alone may make a system of its own"
  command -v debootstrap >/dev/null || cannot "debootstrap is missing"
}

# The mirror that this machine takes its own packages from; empty for debootstrap's own choice.
mirror() {
  apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' \
    2>/dev/null | head -n 1
}

mounted() { grep -q " $1 " /proc/self/mounts; }

mount_system() {
  mounted "$root/proc" || mount -t proc proc "$root/proc" || return 1
  mounted "$root/dev" || mount --bind /dev "$root/dev"
}

# The last one mounted first, as one may stand inside another.
unmount_all() {
  local folder
  awk -v root="$root/" 'index($2, root) == 1 { print $2 }' /proc/self/mounts | tac |
    while read -r folder; do umount "$folder" || umount -l "$folder"; done
  ! grep -q " $root/" /proc/self/mounts
}

in_root() {
  chroot "$root" /usr/bin/env -i PATH=/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
    LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

# install_in_root PACKAGE... : with this machine's own way to its packages.
install_in_root() {
  cp /etc/resolv.conf "$root/etc/resolv.conf" 2>/dev/null
  cp -r /etc/apt/apt.conf.d/. "$root/etc/apt/apt.conf.d/" 2>/dev/null
  in_root apt-get -q -y -o Acquire::Retries=3 update &&
    in_root apt-get -q -y -o Acquire::Retries=3 install --no-install-recommends "$@"
}

# make_root ARCHITECTURE [PACKAGE...]: the smallest Debian, and the packages; once. Leaves it mounted.
make_root() {
  local architecture=$1 from
  shift
  if [ ! -f "$root/.made" ]; then
    unmount_all && rm -rf "$root" && mkdir -p "$root" || return 1
    from=$(mirror)
    debootstrap --arch="$architecture" --variant=minbase bookworm "$root" ${from:+"$from"} &&
      mount_system || return 1
    [ $# -eq 0 ] || install_in_root "$@" || return 1
    touch "$root/.made"
  fi
  mount_system
}
