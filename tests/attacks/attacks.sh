#!/usr/bin/env bash
# Attacks on files, processes and memory: prints what was tried and whether it held. Ends with status 1 if
# something did not.
#
#   attacks.sh BUILD_FOLDER          the short form, about a minute
#   attacks.sh BUILD_FOLDER --long   more saves, more kills, more adds
#
# An attack is a function that ends with status 0 if all held, and 77 if it cannot be tried here; its last
# line of output is shown. It has a row in the table at the end. Most attacks from inside a process are tests
# of the build, and have their rows there too.
set -uo pipefail
build=$(realpath "$1")
qxtool=$build/tools/qxtool/qxtool
long=${2:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C
failed=0

# times SHORT LONG: how often something is tried.
times() { if [ "$long" = --long ]; then echo "$2"; else echo "$1"; fi; }

# fresh: an empty folder, which becomes the current one.
fresh() {
  rm -rf "$work/now"
  mkdir "$work/now"
  cd "$work/now" || exit 1
}

# attack POINT WHAT COMMAND...
attack() {
  local point=$1 what=$2 output status
  shift 2
  output=$("$@" 2>&1)
  status=$?
  case $status in
    0) result=held ;;
    77) result="not tried" ;;
    *) result=FAILED failed=1 ;;
  esac
  printf '%2s  %-9s  %s (%s)\n' "$point" "$result" "$what" "$(tail -n 1 <<<"$output")"
  if [ "$result" = FAILED ]; then tail -n 15 <<<"$output" | sed 's/^/      /'; fi
}

# tests PROGRAM FILTER: tests of the build, of which there must be some.
tests() {
  local output
  output=$("$build/tests/$1" --gtest_filter="$2") || { echo "$output"; return 1; }
  if grep -q '^\[  SKIPPED \]' <<<"$output"; then echo "skipped by the test"; return 77; fi
  grep -E '^\[  PASSED  \] [1-9]' <<<"$output"
}

# A settings file with one text; settings FILE TEXT.
settings() { printf 'S:[%%RootKey%%]\r\n[%%\r\n  Name:%s\r\n%%]\r\n' "$2" >"$1"; }

# --- 1: the temporary file -----------------------------------------------------------------------------

# Another user reads whatever he can in the folder while a private file is saved.
private_saves() {
  [ "$(id -u)" = 0 ] || { echo "needs root, to be two users"; return 77; }
  local count i
  count=$(times 200 4000)
  fresh
  chmod 755 "$work" .
  settings private secret
  chmod 600 private
  setpriv --reuid=65534 --regid=65534 --clear-groups \
    sh -c 'while [ -e private ]; do cat ./.[!.]* ./* 2>/dev/null; done' >"$work/seen" &
  for ((i = 0; i < count; ++i)); do "$qxtool" ini private set S 1 Name "secret $i" || return 1; done
  rm private
  wait
  [ "$(find . -type f | wc -l)" = 0 ] || { ls -la; return 1; }
  local leaks
  leaks=$(grep -c secret "$work/seen")
  echo "$leaks of $count saves were read"
  [ "$leaks" = 0 ]
}

# --- 2: kills, full disks ------------------------------------------------------------------------------

# calls COMMAND...: name and number of the calls of the system by which the command works with files.
calls() {
  strace -f -qq -c -o "$work/calls" -e trace=%file,%desc,fsync,ftruncate,fallocate,getrandom,flock "$@" || return 1
  awk '$1 ~ /^[0-9.]+$/ && $NF != "total" { print $NF, $4 }' "$work/calls"
}

# Kills a save at every call of the system: the file is whole, and the next save leaves nothing else.
killed_saves() {
  command -v strace >/dev/null || { echo "needs strace"; return 77; }
  fresh
  local kills=0 rests=0 call count n
  settings file old
  settings want new
  local save=("$qxtool" ini file set S 1 Name new)
  while read -r call count; do
    [ "$call" = execve ] && continue
    for ((n = 1; n <= count; ++n)); do
      settings file old
      strace -f -qq -o /dev/null -e trace="$call" -e inject="$call:signal=KILL:when=$n" "${save[@]}" && break
      kills=$((kills + 1))
      grep -qE 'Name:(old|new)' file && [ "$(wc -c <file)" = "$(wc -c <want)" ] || { echo "$call $n: no whole file"; return 1; }
      [ "$(find . -name '.file.*' | wc -l)" = 0 ] || rests=$((rests + 1))
      "${save[@]}" || return 1
      cmp -s file want && [ "$(find . -type f | wc -l)" = 2 ] || { echo "$call $n"; ls -la; return 1; }
    done
  done < <(calls "${save[@]}")
  echo "$kills kills, $rests with one complete file left, 0 after the next save"
  [ "$kills" -gt 20 ] && [ "$rests" -le 1 ]
}

# A disk of 64 KB that is full: a file with a second name, which is written in place, stays whole.
full_disk() {
  unshare -rm true 2>/dev/null || { echo "needs a private mount"; return 77; }
  fresh
  export qxtool
  mkdir disk
  head -c 30000 /dev/zero | tr '\0' n >new
  unshare -rm sh -euc '
    mount -t tmpfs -o size=64k none disk
    for size in 100 4000 8000 12000 16000 20000 24000; do
      head -c "$size" /dev/zero | tr "\0" o >data
      "$qxtool" store pack data disk/file
      ln disk/file disk/other
      cp disk/file old
      head -c 60000 /dev/zero >disk/rest 2>/dev/null || true
      if "$qxtool" store pack new disk/file; then echo "$size: saved on a full disk"; exit 1; fi
      cmp disk/file old
      rm disk/*
    done' && echo "7 of 7 old files whole"
}

# --- 3: mount points -----------------------------------------------------------------------------------

mount_point() {
  unshare -rm true 2>/dev/null || { echo "needs a private mount"; return 77; }
  fresh
  settings file old
  settings want new
  export qxtool
  unshare -rm sh -euc 'mount --bind file file; "$qxtool" ini file set S 1 Name new; cmp file want'
  cmp file want && [ "$(find . -type f | wc -l)" = 2 ] && echo "saved in place"
}

# --- 4: two processes ----------------------------------------------------------------------------------

adds() {
  fresh
  local each i
  each=$(times 50 250)
  for ((i = 0; i < 4; ++i)); do
    (for ((n = 0; n < each; ++n)); do "$qxtool" ini file add S "Name=$i.$n" || exit 1; done) &
  done
  local status=0
  for ((i = 0; i < 4; ++i)); do wait -n || status=1; done
  echo "$(grep -c Name: file) of $((4 * each)) records"
  [ $status = 0 ] && [ "$(grep -c Name: file)" = $((4 * each)) ]
}

# --- 5: file types -------------------------------------------------------------------------------------

# register FAULT...: registers a type while calls on the user's list of defaults fail.
register() {
  command -v strace >/dev/null || { echo "needs strace"; return 77; }
  fresh
  mkdir config
  printf '[Default Applications]\ntext/plain=mine.desktop\n' >config/mimeapps.list
  cp config/mimeapps.list "$work/list"
  local call status
  for call in stat newfstatat openat read statx; do
    XDG_CONFIG_HOME=$PWD/config XDG_DATA_HOME=$PWD/data PATH=/usr/bin strace -f -qq -o /dev/null \
      -P "$PWD/config/mimeapps.list" -e inject="$call:error=EIO" "$qxtool" filetype register .qxo T /opt/t 2>/dev/null
    status=$?
    cmp config/mimeapps.list "$work/list" || [ $status = 0 ] || { echo "$call: half done"; return 1; }
    if [ $status != 0 ]; then
      [ $status = 2 ] && [ ! -e data/applications/qxtools-t.desktop ] || { echo "$call: $status"; return 1; }
    fi
    grep -q mine.desktop config/mimeapps.list || { echo "$call: the other default is lost"; return 1; }
    rm -rf data
    cp "$work/list" config/mimeapps.list
  done
  echo "5 failing calls, no default lost"
}

long_type_name() {
  fresh
  XDG_CONFIG_HOME=$PWD/config XDG_DATA_HOME=$PWD/data "$qxtool" filetype register .qxo "$(printf 'n%.0s' {1..300})" /opt/t
  [ $? = 2 ] && [ ! -e config ] && [ ! -e data/applications ] && echo "refused with status 2, nothing published"
}

# --- The table -----------------------------------------------------------------------------------------

cd "$work" || exit 1
attack 1 "another user reads a private file while it is saved" private_saves
attack 2 "a save is killed at each call of the system" killed_saves
attack 2 "each saver is killed, with and without files that have no name" tests Faults_test '*AreWholeAfterAKill*'
attack 2 "a full disk, files with a second name" full_disk
attack 2 "a full disk from each call on, every saver in place" tests Faults_test '*AlsoInPlaceOnAFullDisk*'
attack 3 "attributes and access lists" tests Files_test '*Attributes*'
attack 3 "a file that is a mount point" mount_point
attack 4 "four processes add to one file by the tool" adds
attack 4 "four processes add to one file by the library" tests FileHold_test '*'
attack 5 "the list of default applications cannot be read" register
attack 5 "a type name that no key can have" long_type_name
attack 5 "every failing call while a type is published" tests Faults_test 'Publishing.*'
attack 8 "a shared array is copied before it is written, without memory" tests RuntimeFaults_test '*.Values'
attack 9 "commands, stored procedures and packets without memory" tests SqlFaults_test '*'
attack 10 "settings, tables and trees without memory" tests StoresFaults_test '*'
attack 10 "lists, values and pictures without memory" tests RuntimeFaults_test '-*.Values'
attack 10 "objects from their making to their end without memory" tests Faults_test 'Living.*'
attack 11 "reserved address space, threads and the caller's own" tests VirtualMemory_test '*'
attack 12 "arrays nested 200,000 deep" tests Variant_test '*Deep*'
exit $failed
