# The steps of ./test, which reads this file. Each prints one line, or all it has to say when it fails.

logs=build/logs
rm -rf "$logs"
mkdir -p "$logs"
passed=0
failed=0
skipped=0
notes=()
failures=()
xvfb=

note() { notes+=("$1"); }

# pass TITLE SECONDS [COUNT TEXT], fail TITLE SECONDS LOG [COUNT TEXT]
pass() { printf 'ok      %-40s %4d s%s\n' "$1" "$2" "${3:+  $3}"; }
fail() {
  tail -n 150 "$3"
  printf 'FAILED  %-40s %4d s%s\n' "$1" "$2" "${4:+  $4}"
  failures+=("$1 (${3})")
}

# skip TITLE REASON: what this machine cannot run, counted as one.
skip() {
  printf 'skipped %-40s %s\n' "$1" "$2"
  skipped=$((skipped + 1))
  note "skipped: $1: $2"
}

# step TITLE COMMAND... : one step, counted as one.
step() {
  local title=$1 log start=$SECONDS
  shift
  log="$logs/${title//[^a-zA-Z0-9-]/_}.log"
  if "$@" >"$log" 2>&1; then
    passed=$((passed + 1))
    pass "$title" $((SECONDS - start))
  else
    failed=$((failed + 1))
    fail "$title" $((SECONDS - start)) "$log"
    return 1
  fi
}

check_format() {
  find text platform model mps simplify inspect viewer component include api automation hosts python tests fuzz bench \
    examples/native \
    \( -name '*.cpp' -o -name '*.h' \) -print0 2>/dev/null |
    xargs -0 clang-format --dry-run -Werror
}

configure_and_build() { # PRESET [OPTION OF CMAKE...]
  cmake --preset "$@" && cmake --build --preset "$1"
}

build() { step "build $1" configure_and_build "$@"; }

# count_cases <LOG: "PASSED FAILED SKIPPED" of a ctest log, each GoogleTest case as one, and a test that ctest
# calls skipped. A program that failed without a list of failed cases (a crash, a time-out) counts as one failure.
count_cases() {
  awk '
    /^[0-9]+: \[  PASSED  \] [0-9]+ tests?\./ { passed += $5 }
    /^[0-9]+: \[  SKIPPED \] [0-9]+ tests?, listed below/ { skipped += $5 }
    /^[0-9]+: \[  FAILED  \] [0-9]+ tests?, listed below/ { failed += $5; listed[$1 + 0] = 1 }
    /^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / {
      match($0, /#[0-9]+/)
      if (/\*\*\*Skipped/) skipped++
      else if (!/ Passed / && !((substr($0, RSTART + 1, RLENGTH - 1) + 0) in listed)) failed++
    }
    END { print passed + 0, failed + 0, skipped + 0 }'
}

# run_tests PRESET: its tests, counted case by case.
run_tests() {
  local start=$SECONDS log="$logs/tests_$1.log" status=0 good bad left told
  QUARVEL_WINE_LATE=1 ctest --preset "$1" --no-tests=error --verbose >"$log" 2>&1 || status=1
  read -r good bad left < <(count_cases <"$log")
  [ $status -eq 0 ] || [ "$bad" -gt 0 ] || bad=1
  [ "$((good + bad + left))" -gt 0 ] || bad=1
  passed=$((passed + good))
  failed=$((failed + bad))
  skipped=$((skipped + left))
  told="$good passed"
  [ "$bad" -eq 0 ] || told+=", $bad failed"
  [ "$left" -eq 0 ] || told+=", $left skipped"
  if [ "$bad" -eq 0 ]; then
    pass "tests $1" $((SECONDS - start)) "$told"
  else
    fail "tests $1" $((SECONDS - start)) "$log" "$told"
  fi
  [ "$left" -eq 0 ] || note "$left skipped of $1: see SKIPPED in $log"
}

# Both builds for Windows, packed, and used under Wine.
check_windows_packages() { packaging/build windows && tests/windows_packages.sh; }

# Debian's packages, read and made once more.
check_debian_files() { packaging/build debian && tests/debian_files.sh; }

build_and_test() { build "$1" && run_tests "$1"; } # PRESET

# fuzz_target NAME SECONDS: the kept inputs once, then new ones from a fixed start.
fuzz_target() {
  local program="build/linux-asan/$1" kept="fuzz/corpus/$1" new="build/linux-asan/new/$1"
  local limits=(-timeout=10 -rss_limit_mb=2048 "-artifact_prefix=$PWD/build/linux-asan/$1-")
  mkdir -p "$new"
  [ -n "$(ls -A "$kept")" ] || { echo "no kept inputs in $kept"; return 1; }
  "$program" "${limits[@]}" -runs=0 "$kept" &&
    "$program" "${limits[@]}" -seed=1 "-max_total_time=$2" "$new" "$kept"
}

# ended PROCESS LOG: waits for one that was started before; what it said.
ended() {
  local status=0
  wait "$1" || status=$?
  cat "$2"
  return $status
}

# Two targets at a time.
fuzz_all() { # SECONDS
  local name names processes i
  names=($(basename -s .cpp fuzz/*.cpp))
  for ((i = 0; i < ${#names[@]}; i += 2)); do
    processes=()
    for name in "${names[@]:i:2}"; do
      fuzz_target "$name" "$1" >"$logs/of_$name.log" 2>&1 &
      processes+=($!)
    done
    for name in "${names[@]:i:2}"; do
      step "fuzz $name" ended "${processes[0]}" "$logs/of_$name.log"
      processes=("${processes[@]:1}")
    done
  done
}

# Half of the ways of saving at a time.
every_fault() {
  local half processes=() status=0
  for half in 0 1; do
    GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$half QUARVEL_FAULTS_ALL=1 build/linux/faults_tests \
      >"$logs/faults_$half.log" 2>&1 &
    processes+=($!)
  done
  for half in 0 1; do ended "${processes[half]}" "$logs/faults_$half.log" || status=1; done
  return $status
}

# step_in_system TITLE COMMAND... : one step in a small Debian of its own, which not every machine can have.
step_in_system() {
  local title=$1 log="$logs/${1//[^a-zA-Z0-9-]/_}.log" start=$SECONDS status=0
  shift
  "$@" >"$log" 2>&1 || status=$?
  if [ $status -eq 0 ]; then
    passed=$((passed + 1))
    pass "$title" $((SECONDS - start)) "$(tail -n 1 "$log")"
  elif [ $status -eq 3 ]; then
    skip "$title" "$(tail -n 1 "$log") ($log)"
  else
    failed=$((failed + 1))
    fail "$title" $((SECONDS - start)) "$log"
  fi
}

# A display that nobody sees, and Wine's prefix made before the first test is timed.
start_windows() {
  local number=build/display
  trap 'stop_windows >/dev/null 2>&1' EXIT
  trap 'exit 130' INT TERM
  rm -f "$number"
  Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 -nolisten tcp 3>"$number" &
  xvfb=$!
  for _ in $(seq 100); do
    [ -s "$number" ] && break
    kill -0 "$xvfb" 2>/dev/null || return 1
    sleep 0.1
  done
  [ -s "$number" ] || return 1
  export DISPLAY=":$(cat "$number")"
  cmake/wine.sh cmd /c exit 0
}

stop_windows() {
  cmake/wine.sh --stop
  stop_wine32
  [ -n "$xvfb" ] || return 0
  kill "$xvfb"
  wait "$xvfb" 2>/dev/null
  xvfb=
}

# Whether this machine's own Wine runs a 32-bit program: tried with one.
runs_x86() {
  local program=build/tiny-x86.exe
  echo 'int main() { return 42; }' |
    i686-w64-mingw32-g++-win32 -static -x c++ -o "$program" - || return 1
  cmake/wine.sh "$program" >"$logs/tiny-x86.log" 2>&1
  [ $? -eq 42 ]
}

# What runs where programs of 32 bits do.
use_x86() {
  run_tests windows-x86
  step "the zip for 32 bits" tests/windows_packages.sh x86
}

# The set-up program on a Windows of 32 bits.
use_setup_x86() { step "set-up program, 32 bits" tests/windows_setup.sh x86; }

# The same on one of 64 bits, which the 32-bit system becomes with this machine's own Wine.
use_setup_x64() {
  local title="set-up program, 64 bits" log="$logs/wine_both.log"
  if ! cmake/wine32.sh --with64 >"$log" 2>&1; then
    skip "$title" "$(tail -n 1 "$log") ($log)"
    return
  fi
  cmake/wine.sh --stop
  QUARVEL_WINE32=both step "$title" tests/windows_setup.sh x64
  QUARVEL_WINE32=both cmake/wine.sh --stop
}

# The 32-bit tests and the set-up program under this machine's Wine, or in a 32-bit system of their own.
test_x86() {
  local log="$logs/wine32.log" start=$SECONDS
  if runs_x86; then
    use_x86
    step "set-up program, 64 bits" tests/windows_setup.sh x64
    skip "set-up program, 32 bits" "this machine's Wine is a Windows of 64 bits"
    return
  fi
  if ! cmake/wine32.sh --start >"$log" 2>&1; then
    skip "tests windows-x86" "no 32-bit Wine: $(tail -n 1 "$log") ($log)"
    skip "set-up program" "it is of 32 bits: $(tail -n 1 "$log") ($log)"
    return
  fi
  pass "a 32-bit system for Wine" $((SECONDS - start))
  passed=$((passed + 1))
  export QUARVEL_WINE32=1
  cmake/wine.sh cmd /c exit 0 # makes its prefix before the first test is timed
  local data="${QUARVEL_DATA:-../shared/data}"
  if [ -d "$data" ]; then
    QUARVEL_DATA=$(realpath "$data") use_x86
  else
    use_x86
  fi
  use_setup_x86
  use_setup_x64
  stop_wine32
}

stop_wine32() {
  if [ -n "${QUARVEL_WINE32:-}" ]; then
    cmake/wine.sh --stop
    unset QUARVEL_WINE32
  fi
  cmake/wine32.sh --stop
}

summary() {
  local line
  echo
  for line in "${failures[@]+"${failures[@]}"}"; do echo "FAILED: $line"; done
  for line in "${notes[@]+"${notes[@]}"}"; do echo "NOTE: $line"; done
  echo "$passed passed, $failed failed, $skipped skipped"
  [ "$failed" -eq 0 ]
}
