#!/usr/bin/env bash
# Runs statements on real drivers: FreeTDS against a server of the tests' own, and PostgreSQL started here.
#   database_test.sh QXTOOL
set -u
qxtool=$1
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
chmod 755 "$folder"
cd "$folder" || exit 1
export LC_ALL=C
bad=0
servers=()

stop_servers() {
  for stop in "${servers[@]}"; do $stop; done >/dev/null 2>&1
  rm -rf "$folder"
}
trap stop_servers EXIT

fail() {
  echo "$*"
  bad=1
}

# sql LINE...: the statement file run.sql.
sql() { printf '%s\n' "$@" >run.sql; }

# run STATUS WANTED OPTION...: runs run.sql on $connection; the exit status, and all that is printed. CR is not compared.
run() {
  local status=$1 wanted=$2 got output
  shift 2
  output=$("$qxtool" --utf8 command run.sql --run "$connection" "$@" 2>&1)
  got=$?
  output=${output//$'\r'/}
  [ $got = "$status" ] && [ "$output" = "$wanted" ] ||
    fail "$(printf '%s\n' "--- $connection $*" "$(cat run.sql)" "--- wanted $status:" "$wanted" "--- got $got:" "$output")"
}

# interrupted: Ctrl-C ends run.sql, which takes long.
interrupted() {
  env --default-signal=INT sh -c 'echo $$ >pid; exec "$@"' sh "$qxtool" command run.sql --run "$connection" >out 2>message &
  for _ in {1..300}; do
    grep -qs '^SigBlk:.*[2367abef]$' "/proc/$(cat pid 2>/dev/null)/status" && break
    sleep 0.1
  done
  sleep 0.5
  kill -INT "$(cat pid)"
  wait $!
  [ $? = 2 ] && [ "$(cat message)" = "qxtool: cancelled" ] || fail "Ctrl-C on $connection: $(cat message)"
  rm -f pid
}

# --- FreeTDS ---
python3 "$here/tds_server.py" "$folder/log" >port &
servers+=("kill $!")
for _ in {1..100}; do [ -s port ] && break || sleep 0.1; done
freetds="Driver=FreeTDS;Server=127.0.0.1;Port=$(cat port);TDS_Version=7.4;UID=user;PWD=password"

# Chinese, an emoji and a user-defined character, whatever the driver converts to.
answers=('--! {"rows": [["甲", "b"], ["\ud83d\ude00中\ue000", "許功蓋"]]}')
for charset in "" ";ClientCharset=UTF-8" ";ClientCharset=CP950" ";ClientCharset=ISO-8859-1"; do
  connection=$freetds$charset
  sql "delete from T -- 註解：許功蓋" "  where ID = 5" "${answers[@]}"
  run 0 $'甲,b\n😀中\xee\x80\x80,許功蓋' --csv
  wanted=$(python3 -c 'import json, sys; print(json.dumps(open("run.sql", encoding="utf-8").read().replace("\n", "\r\n")))')
  [[ "$(tail -n 1 log)" == "{\"statement\": $wanted,"* ]] || fail "with \"$charset\" came: $(tail -n 1 log)"
done
connection=$freetds

sql '--! {"print": "[1] 中"}' '--! {"rows": [["a"], ["x"]]}' '--! {"print": "between"}' \
  '--! {"rows": [["b"], [null], [""], ["NULL"]]}' '--! {"count": 3}'
run 0 $'[1] 中\na\nx\nbetween\n\nb\nNULL\n""\n"NULL"\n3 rows affected' --csv
run 0 $'[1] 中\na\n-\nx\nbetween\n\nb\n------\nNULL\n\n\'NULL\'\n3 rows affected'

rest=$'        results behind it were not read, and statements behind it may have run'
sql '--! {"rows": [["a"], ["x"]]}' '--! {"error": "broke 中"}' '--! {"rows": [["b"], ["y"]]}'
run 2 $'a\nx\nqxtool: 42000 (50000) [FreeTDS][SQL Server]broke 中\n'"$rest" --csv
run 2 $'a\n-\nx\nqxtool: 42000 (50000) [FreeTDS][SQL Server]broke 中\n'"$rest"
sql '--! {"error": "broke"}'
run 2 'qxtool: 42000 (50000) [FreeTDS][SQL Server]broke'

# A script in batches, on one connection; a failure names its batch and ends the script.
sql "select 'a" "GO" "b' /* x" "GO */ as [c" "GO]" '--! {"rows": [["a"], ["x"]]}' " go 2 -- twice" "" "GO" "select 2" \
  '--! {"error": "broke"}' "Go" "select 3" '--! {"rows": [["c"], ["never"]]}'
run 2 $'a\n-\nx\n\na\n-\nx\nqxtool: the batch from line 10 on: 42000 (50000) [FreeTDS][SQL Server]broke' --batches
[ "$(grep -c never log)" = 0 ] || fail "a batch behind a failure was sent"
[[ "$("$qxtool" command run.sql --batches)" == *$'GO 2\r\nselect 2'* ]] || fail "batches printed: $("$qxtool" command run.sql --batches)"

# Files with a byte-order mark say what they are.
for encoding in UTF-8 UTF-16LE UTF-16BE; do
  { env LC_ALL=C.UTF-8 printf '\ufeffselect 1 -- 中\n--! {"echo": "a"}'; } | iconv -f UTF-8 -t $encoding >run.sql
  output=$("$qxtool" --utf8-terminal command run.sql --run "$connection" --csv 2>&1)
  [[ "$output" == *"select 1 -- 中"* ]] || fail "$encoding: $output"
done

# A connection that breaks: what came is shown, and it is a failure.
sql '--! {"rows": [["a"], ["x"]]}' '--! {"drop": true}'
output=$("$qxtool" command run.sql --run "$connection" 2>&1)
[ $? = 2 ] && [[ "$output" == *"08S01"* || "$output" == *"HY000"* ]] || fail "a dropped connection: $output"
sql '--! {"sleep": 60}'
interrupted

# --- PostgreSQL ---
programs=$(ls -d /usr/lib/postgresql/*/bin | tail -n 1)
as_user=()
if [ "$(id -u)" = 0 ]; then
  as_user=(runuser -u postgres --)
  mkdir data && chown postgres data
fi
"${as_user[@]}" "$programs/initdb" -D "$folder/data" -U tests -A trust -E UTF8 --no-locale --no-sync >made 2>&1 ||
  fail "initdb: $(tail -n 3 made)"
postgres() { "${as_user[@]}" "$programs/pg_ctl" -D "$folder/data" -w "$@"; }
servers=("postgres -m immediate stop" "${servers[@]}")
for port in {54400..54499}; do
  postgres -l "$folder/data/log" -o "-p $port -c listen_addresses=127.0.0.1 -c unix_socket_directories= -F" start >made 2>&1 && break
done
connection="Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=$port;Database=postgres;UID=tests"

sql "create table 商品 (代號 int primary key, 名稱 varchar(20), 價格 numeric(8,2), 圖 bytea, 日期 date, 空 text);" \
  "insert into 商品 values (1, '許功蓋' || chr(128512), 12.50, '\\x00ff', '2003-01-31', null), (2, '', -3, null, null, '')"
run 0 $'0 rows affected\n2 rows affected'
sql "select * from 商品 order by 代號"
run 0 $'代號,名稱,價格,圖,日期,空\n1,許功蓋😀,12.50,00ff,2003-01-31,\n2,"",-3.00,,,""' --csv
sql "select repeat('中', 5000) as a, length(repeat(chr(128512), 4097)) as b"
run 0 "a,b"$'\n'"$(printf '中%.0s' {1..5000}),4097" --csv
sql "select 1 as a; select 1/0 as b; select 2 as c"
output=$("$qxtool" command run.sql --run "$connection" 2>&1)
[ $? = 2 ] && [[ "$output" == *"division by zero"* ]] || fail "an error between results: $output"
sql "select pg_sleep(60)"
interrupted

exit $bad
