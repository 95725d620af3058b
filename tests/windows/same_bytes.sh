#!/usr/bin/env bash
# Runs each command of qxtool over the examples and the fuzz corpora on Linux and on Windows, under wine, and compares
# what comes out: standard output, messages, exit statuses and the files that are left.
#   same_bytes.sh LINUX_QXTOOL WINDOWS_QXTOOL...
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8 TZ=UTC

# --- What is compared otherwise, and why ---------------------------------------------------------------------
# Each system gives its own reasons why a file cannot be opened, and the checker's page is installed elsewhere.
# Not run: key, which is random; filetype register, show and remove, since each desktop keeps other things; --run,
# which the tests of the database do.
as_everywhere() {
  sed -E -e 's/(Cannot (open|create) file ".*"\.) .*/\1 REASON/' \
    -e 's/: (Is a directory|Permission denied|No such file or directory)$/: REASON/' \
    -e 's|"file:///[^"]*/check\.md|"file:///check.md|g' "$1"
}
# What a registration writes for the desktop's own files follows its table of keys, which all systems have.
table_of_keys() { sed '/^$/,$d' "$1"; }

# --- The files -----------------------------------------------------------------------------------------------
# Each corpus is in a folder of its name. A name in Chinese is in each kind of them.
make_files() {
  mkdir "$1"
  cp -r "$root"/fuzz/corpus/* "$root/examples/order_search" "$root/examples/desk" "$1"
  find "$1" -name CMakeLists.txt -delete
  cp "$1/SettingsFile/file" "$1/SettingsFile/設定"
  cp "$1/order_search/Customer.tbl" "$1/StringTable/年表"
  cp "$1/order_search/order_search.sql" "$1/CommandText/查詢.sql"
  cp -r "$1/desk" "$1/面板"
  python3 - "$1" <<'PY'
import sys, unicodedata
pairs = [bytes([lead, trail]) for lead in range(0x80, 0x100) for trail in range(0x40, 0x100)]
open(sys.argv[1] + "/pairs", "wb").write(b"\n".join(pairs))
# Each system knows another version of Unicode: a character of this one's, which all of them have.
units = [chr(c) for c in range(0x80, 0x10000) if unicodedata.category(chr(c)) not in ("Cn", "Cs")]
open(sys.argv[1] + "/units", "wb").write("\n".join(units).encode())
PY
  printf '[General]\r\nName=\xA6\x7E\r\nPath=C:\\data\r\n; note\r\n' >"$1/windows.ini"
  printf 'Name,Phone\r\n"\xA4\xFD, A",555\r\n' >"$1/people.csv"
}

# --- The commands --------------------------------------------------------------------------------------------
statements() {
  local file
  for file in CommandText/* SafeCall/* StatementSet/* order_search/*.sql; do
    t call "$file" --all --set '@MM_From:date=2003/01/31' --set '@a=年' --set '$Orders=OrderHead'
    t call "$file" --all
    t call "$file" --list --json --all
    t call "$file" --all --strict --safe
    t command "$file"
    t command "$file" --set '@MM_Qty:money=0.5' --set "@a=O'Neil"
    t --utf8-terminal command "$file"
  done
  for file in Declarations/*; do
    t call order_search/order_search.sql --declare "$file"
    t call order_search/order_search.sql --safe --declare "$file"
    t call order_search/order_search.sql --check --declare "$file"
  done
}

checks() {
  local format folder
  for format in text json sarif github; do
    t check . --pedantic --format "$format" --fail-on information
  done
  for folder in CheckRules CommandText SettingsFile 面板; do t --utf8-terminal check "$folder" --as command; done
  t check order_search --write-baseline known
  t check order_search --baseline known
  t check --explain SQL401
  t check none
}

conversions() {
  local from to file
  for from in big5 gb2312 gbk utf8; do
    for to in big5 gb2312 utf8; do
      for file in pairs units GbBig5/big5 GbBig5/gb; do
        t convert --from $from --to $to "$file" -o "$(basename "$file").$from.$to" --report
      done
      t convert --from $from --to $to CodePage/page --strict
      t_from pairs convert --from $from --to $to
    done
  done
}

dates() {
  local file text
  for file in Dates/* MinguoDates/* Times/*; do
    text=$(iconv -f cp950 -t utf-8 "$file" 2>/dev/null | tr -d '\0\r' | tr '\n' ' ') || continue
    t date -- "$text"
    t date --minguo --json -- "$text"
  done
  for text in 2003/01/31 113/5/1 民國113年5月1日 一百一十三年五月一日 2024-02-29; do t date --minguo "$text"; done
}

frames() {
  local file
  for file in FrameFile/* desk/frame.dw1 面板/frame.dw1 BitmapFile/*; do
    t frame info "$file"
    t frame render "$file" "$file.bmp" --width 61 --height 40 --fill C0C0C0
    t frame unpack "$file" "$file.pieces"
    t frame pack "$file.again.dw1" "$file.pieces"
  done
}

settings() {
  local file
  for file in SettingsFile/* CheckRules/settings windows.ini none.ini; do
    t ini "$file" list
    t ini "$file" list --json
    t ini "$file" check
    t ini "$file" get Main 1 Mode
    t ini "$file" export "$file.exported"
    t ini "$file" set Main 1 Mode 快
    t ini "$file" add 區段 名稱=值
    t ini "$file" set Main 1 Mode 慢 --force
    t ini "$file" delete Main --force
    t ini "$file.imported" import "$file.exported"
  done
  t ini imported.ini import windows.ini
  t ini imported.ini list
}

tables() {
  local file
  for file in StringTable/* order_search/*.tbl; do
    t table "$file" show
    t table "$file" show --json
    t table "$file" to-csv
    t table "$file" append 王小明 555
    t table "$file" set 1 1 年
    t table "$file" get 1 1
    t_from people.csv table "$file.made" from-csv
    t --utf8 table "$file.made" show
  done
}

stores() {
  local file
  for file in FileStore/* Packet/*; do
    t store info "$file"
    t store info "$file" --json
    t store unpack "$file" "$file.bytes"
    t store pack "$file.packed" "$file"
  done
}

others() {
  local command
  for command in call command check convert date filetype frame ini key store table; do t help $command; done
  t --version
  t --complete ini ''
  t nonsense
  t call
  t filetype dry-run .ord Orders.File orders 訂單
}

# --- One system ----------------------------------------------------------------------------------------------
number=0
t() { t_from /dev/null "$@"; }
t_from() {
  local input=$1 status=0
  shift
  number=$((number + 1))
  local result=$results/$(printf %04d "$number")
  "${tool[@]}" "$@" <"$input" >"$result.out" 2>"$result.err" || status=$?
  echo "$* -> $status" >"$result.status"
  as_everywhere "$result.err" >"$result.message"
  if [ "$1 ${2-}" = "filetype dry-run" ]; then
    table_of_keys "$result.out" >"$result.table" && rm "$result.out"
  elif [[ "$*" == *sarif* ]]; then
    as_everywhere "$result.out" >"$result.sarif" && rm "$result.out"
  fi
  rm "$result.err"
}

# run_all NAME TOOL...: all commands, in a folder of their own.
run_all() {
  results=$work/$1/results
  mkdir "$work/$1" "$results"
  make_files "$work/$1/files"
  tool=("${@:2}")
  (
    cd "$work/$1/files"
    statements && checks && conversions && dates && frames && settings && tables && stores && others
  )
}

# All systems at one time: they wait for files and starting programs more than they compute.
linux=$(realpath "$1")
run_all linux "$linux" &
runs=($!)
for program in "${@:2}"; do
  name=$(basename "$(dirname "$(dirname "$(realpath "$program")")")")
  wine=$root/scripts/wine
  [[ $name != *i686 ]] || wine=${wine}32
  run_all "$name" "$wine" "$(realpath "$program")" &
  runs+=($!)
done
for run in "${runs[@]}"; do wait "$run"; done

bad=0
for program in "${@:2}"; do
  name=$(basename "$(dirname "$(dirname "$(realpath "$program")")")")
  diff -rq "$work/linux" "$work/$name" >"$work/differences" || true
  diff -ra "$work/linux/results" "$work/$name/results" | head -60 || true
  grep -v "/results" "$work/differences" || true
  count=$(wc -l <"$work/differences")
  echo "$name: $(find "$work/linux/results" -name '*.status' | wc -l) commands, $(find "$work/linux/files" -type f | wc -l) files, $count differences"
  [ "$count" = 0 ] || bad=1
done
exit $bad
