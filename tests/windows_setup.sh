#!/usr/bin/env bash
# tests/windows_setup.sh x64|x86: the set-up program in build/packages under a Wine that is a 64-bit or a
# 32-bit Windows, on the display that DISPLAY names: installed, brought up to date, used and removed, for one
# user and for all; registry and files are then as they were. Which Wine that is tell the variables of
# cmake/wine.sh. Reads the tests of build/windows-BITS.
set -u
cd "$(dirname "$0")/.." || exit 2
bits=$1
version=$(sed -n 's/^project(Quarvel VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
setup="build/packages/quarvel-$version-windows-setup.exe"
work="build/windows-setup-$bits"
case "${QUARVEL_WINE32:-}" in
  "") prefix="${QUARVEL_WINEPREFIX:-$PWD/build/wine}" ;;
  both) prefix="$PWD/build/wine32/prefix-both" ;;
  *) prefix="$PWD/build/wine32/prefix" ;;
esac
drive="$prefix/drive_c"
profile="users/$(id -un)"
failures=()
check() { # TITLE COMMAND...
  local title=$1
  shift
  if "$@"; then echo "ok $title"; else echo "FAILED $title"; failures+=("$title"); fi
}

# run LINE: as a line of a batch file, the way a user's own would be; its exit status.
run() {
  printf '@echo off\r\n%s\r\nexit /b %%errorlevel%%\r\n' "$1" >"$drive/run.bat"
  QUARVEL_WINE_LATE=1 timeout 120 cmake/wine.sh cmd /c 'C:\run.bat'
}

# What Wine itself writes meanwhile: times, its console, the last folder of its dialogs of files, and that a
# program is to be deleted when the system starts, which has gone by then.
wine_noise='
  /^#time=/ || /^WINE REGISTRY/ || /^"DriverDateData"/ || /^"PendingFileRenameOperations"/ { next }
  /^\[/ { sub(/ [0-9]+$/, ""); skipped = /^\[(Console|.*ComDlg32\\\\LastVisitedMRU|.*WineDbg)\]/ }
  !skipped'

# What the machine and the user have, and all files but those of this test; Wine ends for it.
snapshot() { # NAME
  cmake/wine.sh --stop
  {
    awk "$wine_noise" "$prefix"/{system,user}.reg
    (cd "$drive" && find . ! -name run.bat ! -name value.txt ! -name 'classes.txt*' ! -name '*setup*.exe' -printf '%P %y %s\n' |
      sed 's/ d [0-9]*$/ d/' | sort)
  } >"$work/$1"
}
is_as_before() { # BEFORE
  snapshot after
  local differences
  differences=$(diff "$work/$1" "$work/after") && return
  head -20 <<<"$differences"
  echo "$(wc -l <<<"$differences") lines of differences; $work has both"
  return 1
}

# status NUMBER LINE: the line ends with that exit status.
status() {
  local expected=$1 got=0
  run "$2" || got=$?
  [ "$got" -eq "$expected" ] || { echo "exit status $got"; return 1; }
}
# ends NUMBER PROGRAM WORD...: the same of a program itself: no batch file of Wine's can name each folder.
ends() {
  local expected=$1 got=0
  shift
  QUARVEL_WINE_LATE=1 timeout 120 cmake/wine.sh "$@" || got=$?
  [ "$got" -eq "$expected" ] || { echo "exit status $got"; return 1; }
}
# removal NUMBER COMMAND: a program in quotes and its words, as the registry has them.
removal() {
  local program=${2#\"} words
  IFS=' ' read -ra words <<<"${2#*\" }"
  ends "$1" "${program%%\"*}" "${words[@]}"
}
there() { [ -e "$drive/$1" ] || { echo "no $1"; return 1; }; }
not_there() { [ ! -e "$drive/$1" ] || { echo "still $1"; return 1; }; }

# value KEY NAME: the text of a value, the name "" for the key's own. From a file: a console has not all letters.
value() {
  local name="\"$2\"" file="$drive/value.txt"
  [ -n "$2" ] || name=@
  rm -f "$file"
  cmake/wine.sh reg export "$1" 'C:\value.txt' /y >/dev/null 2>&1 || return 0
  iconv -f UTF-16 -t UTF-8 "$file" | tr -d '\r' |
    sed -n "/^\[/{x;s/^/+/;/++/q;x}; s/^$name=\"\(.*\)\"\$/\1/p" | sed 's/\\\(.\)/\1/g'
}
says() { # EXPECTED KEY NAME
  local got
  got=$(value "$2" "$3")
  [ "$got" = "$1" ] || { echo "it says: $got"; return 1; }
}

# in_time COMMAND...: tried for a minute until it succeeds.
in_time() {
  local end=$((SECONDS + 60))
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.2
  done
}
gone_in_time() { # PATH: what ends the uninstaller comes a moment after it
  in_time not_there "$1" >/dev/null || { echo "still $1"; return 1; }
}

# A version before this one, with a file that this one has not; and one whose component is none.
make_others() {
  local folder of="build/windows-packages/quarvel-$version-windows"
  for folder in x64 x86; do
    rm -rf "$work/$folder"
    cp -a "$of-$folder" "$work/$folder"
    cp "$of-$folder.register.exe" "$work/$folder.register.exe"
    echo "of an older version" >"$work/$folder/docs/older.md"
  done
  make_other older && echo "no component" >"$work/$bits/Quarvel.dll" && make_other broken
}
make_other() { # NAME
  packaging/windows/make_setup 0.9.0 "$work/x64" "$work/x86" "$drive/$1-setup.exe" -V1 '-XSetCompressor /FINAL zlib'
}

# merge HOW: as a user's classes are seen by all programs, which this Wine does for those of the machine
# alone: they are copied to them, or deleted there.
merge() { # into|out
  local file="$drive/classes.txt"
  if [ "$1" = into ]; then
    cmake/wine.sh reg export 'HKCU\Software\Classes' 'C:\classes.txt' /y >/dev/null &&
      iconv -f UTF-16 -t UTF-8 "$file" | sed 's/^\[HKEY_CURRENT_USER/[HKEY_LOCAL_MACHINE/; /^@=""/d' >"$file.new" &&
      iconv -f UTF-8 -t UTF-16 "$file.new" >"$file"
  else
    { echo REGEDIT4; grep -E '^\[.*(A9D2343D|480126B4|890AB0F0|Quarvel|\.mps)' "$file.new" | sed 's/^\[/[-/'; } >"$file"
  fi && cmake/wine.sh regedit 'C:\classes.txt'
}

# The tours of the examples on what is registered; the hosts are of the bits, too.
tours() { # BITS FOLDER
  local folder="$drive/$2/$1" program printed
  for program in automation_tests quarvel_tour; do cp "build/windows-$1/$program.exe" "$folder"; done
  printed=$(QUARVEL_DELIVERED=1 QUARVEL_WINE_LATE=1 timeout 120 cmake/wine.sh "$folder/automation_tests.exe" \
    --gtest_filter='Tour.*')
  rm -f "$folder"/{automation_tests,quarvel_tour}.exe
  grep -q '\[  PASSED  \] 3 tests' <<<"$printed" || { echo "$printed"; return 1; }
}

# What a double click does; the viewer then stands there with its program in use.
opens_viewer() { # MODEL
  cmake/wine.sh start "$1" || return 1
  in_time viewer_runs || { echo "no viewer"; return 1; }
}
viewer_runs() { grep -sqa 'Ж.quarvel-vie[w]\.exe' /proc/[0-9]*/cmdline; }
no_viewer_runs() { ! viewer_runs; }
# Its program is in use until the process has gone, which is a moment after it was told to.
ends_viewer() {
  status 0 'taskkill /f /im quarvel-view.exe' && in_time no_viewer_runs
}

uninstall_key='Software\Microsoft\Windows\CurrentVersion\Uninstall\Quarvel'

# An older version for one user, with choices of his own, and this one over it; the folder has blanks and letters of
# more than one language.
for_one_user() {
  local here='Some Tools/Quarvel ä ω Ж' class='HKCU\Software\Classes' remove
  mkdir -p "$drive/Some Tools"
  cmake/wine.sh reg add "$class\\Interface" /f >/dev/null
  snapshot before
  check "no component to register" status 7 'start /wait C:\broken-setup.exe /S /CurrentUser'
  check "nowhere to write" status 6 'start /wait C:\setup.exe /S /CurrentUser /D=Z:\proc\quarvel'
  check "for all users, without the rights" status 3 'C:\without_rights.exe C:\setup.exe /S /AllUsers'
  check "an older version, for one user without rights" ends 0 \
    'C:\without_rights.exe' 'C:\older-setup.exe' /S /STARTMENU=0 /MPS=1 '/D=C:\Some' 'Tools\Quarvel' ä ω Ж
  check "its version" says 0.9.0 "HKCU\\$uninstall_key" DisplayVersion
  check "its files" there "$here/docs/older.md"
  check "this version over it" status 0 'start /wait C:\setup.exe /S'
  check "the version" says "$version" "HKCU\\$uninstall_key" DisplayVersion
  remove=$(value "HKCU\\$uninstall_key" QuietUninstallString)
  check "the folder is kept" says 'C:\Some Tools\Quarvel ä ω Ж' "HKCU\\$uninstall_key" InstallLocation
  check "a file that it has not is gone" not_there "$here/docs/older.md"
  check "no entry in the start menu" not_there \
    "$profile/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Quarvel.lnk"
  check "the command" runs_command "$here"
  check "the user's classes as all programs see them" merge into
  check "tours" tours "$bits" "$here"
  check "a model opens in the viewer" opens_viewer 'C:\Some Tools\Quarvel ä ω Ж\examples\diet.mps'
  check "no upgrade while the viewer runs" status 4 'start /wait C:\setup.exe /S'
  check "no removal while the viewer runs" removal 4 "$remove"
  check "nothing was removed" there "$here/quarvel.exe"
  check "the viewer ends" ends_viewer
  merge out
  check "removal" removal 0 "$remove"
  check "the folder goes" gone_in_time "$here"
  check "everything is as before" is_as_before before
}

runs_command() { # FOLDER
  [ "$(cmake/wine.sh "$drive/$1/quarvel.exe" --version | tr -d '\r')" = "quarvel $version" ]
}

# For all users, on a machine where .mps files are another program's; the uninstaller is started by itself.
for_all_users() {
  local here='Program Files/Quarvel' class='HKLM\Software\Classes' kind
  cmake/wine.sh reg add "$class\\.mps" /ve /d Other.Model /f >/dev/null
  snapshot before_all
  check "for all users" status 0 'start /wait C:\setup.exe /S /AllUsers /MPS=1'
  check "the entry in the start menu" there \
    'ProgramData/Microsoft/Windows/Start Menu/Programs/Quarvel.lnk'
  check "models are the viewer's" says Quarvel.Model "$class\\.mps" ''
  check "nothing is the user's" says '' "HKCU\\$uninstall_key" DisplayVersion
  check "the command for all" runs_command "$here"
  check "no removal without the rights" status 3 \
    "C:\\without_rights.exe $(value "HKLM\\$uninstall_key" QuietUninstallString)"
  for kind in x64 x86; do
    [ "$bits/$kind" = x86/x64 ] || check "tours of $kind" tours "$kind" "$here"
  done
  echo mine >"$drive/$here/mine.txt"
  check "removal for all" status 0 'start /wait "" "C:\Program Files\Quarvel\uninstall.exe" /S'
  check "all goes" gone_in_time "$here/quarvel.readme.txt"
  check "the uninstaller's copy goes" gone_in_time "$profile/Temp/~nsu1.tmp"
  check "what a user has put there stays" there "$here/mine.txt"
  rm -rf "${drive:?}/$here"
  check "models are the other program's" says Other.Model "$class\\.mps" ''
  check "everything is as before, for all" is_as_before before_all
}

# What Wine registers when a script host first runs.
warm_up() {
  local host
  echo 'WScript.Echo "warm"' >"$drive/warm.vbs"
  for host in system32 syswow64; do
    [ ! -d "$drive/windows/$host" ] || run "C:\\windows\\$host\\cscript.exe //nologo C:\\warm.vbs"
  done
  rm -f "$drive/warm.vbs"
}

rm -rf "$work"
mkdir -p "$work"
# What a run that was cut off has installed would count as what was there before.
if [ -e "$drive/Some Tools" ] || [ -e "$drive/Program Files/Quarvel" ]; then
  cmake/wine.sh --stop
  rm -rf "$prefix"
fi
cmake/wine.sh cmd /c exit || exit 1 # makes the prefix where there is none yet
cp "$setup" "$drive/setup.exe" && make_others || exit 1
i686-w64-mingw32-g++-win32 -std=c++20 -O1 -static tests/setup/without_rights.cpp -o "$drive/without_rights.exe" || exit 1
warm_up
for_one_user
for_all_users
rm -f "$drive"/{setup,older-setup,broken-setup,without_rights}.exe "$drive"/{run.bat,value.txt,classes.txt,classes.txt.new}
rmdir "$drive/Some Tools"
cmake/wine.sh reg delete 'HKCU\Software\Classes\Interface' /f >/dev/null
cmake/wine.sh reg delete 'HKLM\Software\Classes\.mps' /f >/dev/null
if [ ${#failures[@]} -eq 0 ]; then rm -rf "$work"; exit 0; fi
printf 'failed: %s\n' "${failures[@]}"
exit 1
