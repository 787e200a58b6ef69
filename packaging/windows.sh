# What is delivered for Windows: one zip for each kind of processes, and one set-up program for both. Read by
# packaging/build, which has set `version`, `packages` and SOURCE_DATE_EPOCH. The folders of the zips stay in
# build/windows-packages.

# stage BITS TRIPLE: the folder of a zip, its programs stripped and all texts with the line ends of
# Windows.
stage() {
  local built="build/windows-$1" folder="build/windows-packages/quarvel-$version-windows-$1" file
  rm -rf "$folder"
  mkdir -p "$folder/docs/images" "$folder/examples"
  for file in Quarvel.dll quarvel.exe quarvel-view.exe; do
    # -p keeps the time that the linker left out.
    "$2-strip" -p -o "$folder/$file" "$built/$file"
  done
  cp "$built/Quarvel.Component.manifest" "$built/quarvel.readme.txt" "$folder"
  cp "$built/automation/quarvel.tlb" "$folder"
  cp packaging/windows/readme.txt "$folder/readme.txt"
  cp LICENSE "$folder/licence.txt"
  git ls-files docs examples | while read -r file; do
    mkdir -p "$folder/${file%/*}"
    cp "$file" "$folder/$file"
  done
  find "$folder" -type f \( -name '*.txt' -o -name '*.md' -o -name '*.vbs' -o -name '*.js' -o -name '*.bas' \) \
    -exec sed -i 's/\r*$/\r/' {} +
  find "$folder" -type f -exec chmod 644 {} +
  find "$folder" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
}

# The set-up program's helper, beside the folder: no zip has it.
stage_register() { # BITS TRIPLE
  local folder="build/windows-packages/quarvel-$version-windows-$1"
  "$2-strip" -p -o "$folder.register.exe" "build/windows-$1/register.exe"
}

# pack BITS: the files in the order of their names, with one time and no owner.
pack() {
  local name="quarvel-$version-windows-$1"
  rm -f "$packages/$name.zip"
  (cd build/windows-packages && find "$name" -type f | sort | zip -q -X -9 -@ "../packages/$name.zip")
}

builds='x64 x86_64-w64-mingw32
x86 i686-w64-mingw32'

cmake/setup.sh native windows packages
while read -r bits triple; do
  cmake --preset "windows-$bits"
  cmake --build "build/windows-$bits" --target Quarvel quarvel quarvel-view quarvel_register
  stage "$bits" "$triple"
  stage_register "$bits" "$triple"
  pack "$bits"
done <<<"$builds"

packaging/windows/make_setup "$version" build/windows-packages/quarvel-"$version"-windows-{x64,x86} \
  "$packages/quarvel-$version-windows-setup.exe"
