# What is delivered for Debian: the program, the viewer, the library, what programs are built with, and the package
# for Python. Read by packaging/build, which has set `version`, `packages` and SOURCE_DATE_EPOCH. packaging/debian is what
# Debian's own tools take; they work in build/debian-packages.
# A further package is a paragraph of packaging/debian/control, its NAME.install, and what puts its files
# below debian/tmp in packaging/debian/rules.

# The licence in the form that Debian's tools read: blanks before each line, a point for an empty one.
make_copyright() {
  echo 'Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/'
  echo 'Upstream-Name: Quarvel'
  echo
  echo 'Files: *'
  sed -n 's/^Copyright (c) /Copyright: /p' LICENSE
  echo 'License: Expat'
  sed '1,/^Copyright/d; s/^$/./; s/^/ /' LICENSE | sed '1d'
}

make_debian_packages() {
  local folder=build/debian-packages
  rm -rf "$folder" "$packages"/*.deb
  mkdir -p "$folder"
  cp -r packaging/debian "$folder/debian"
  packaging/debian/make_changelog CHANGELOG.md packaging/debian/control "$version" >"$folder/debian/changelog"
  make_copyright >"$folder/debian/copyright"
  PROJECT=$PWD DEB_RULES_REQUIRES_ROOT=no make -C "$folder" -f debian/rules binary
}

cmake/setup.sh native debian
cmake --preset linux
cmake --build build/linux --target quarvel quarvel-view quarvel_manual quarvel_cpp \
  quarvel_python_core quarvel_python_component
cmake --preset linux-library
cmake --build build/linux-library
make_debian_packages
