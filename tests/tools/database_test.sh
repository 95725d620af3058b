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
. "$here/common.sh"
servers=()

stop_servers() {
  for stop in "${servers[@]}"; do $stop; done >/dev/null 2>&1
  rm -rf "$folder"
}
trap stop_servers EXIT

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

# Bound values: the driver declares them, the statement holds marks.
sql "select @t, @long, @i, @m, @f, @n, @b, @d" '--! {"params": true}'
run 0 'type,value
ntext,"select @P1, @P2, @P3, @P4, @P5, @P6, @P7, @P8
--! {""params"": true}
"
ntext,"@P1 NVARCHAR(9),@P2 NVARCHAR(MAX),@P3 INT,@P4 DECIMAL(19,4),@P5 FLOAT,@P6 NVARCHAR(1),@P7 BIT,@P8 DATE"
nvarchar,"中 O'\''Neil "
nvarchar,'"$(printf '中%.0s' {1..4001})"'
int32,-5
"decimal(19,4)",125000
float64,0.1
nvarchar,
bit8,1
date,2003-01-31' --csv --bind --set "@t=中 O'Neil " --set "@long=$(printf '中%.0s' {1..4001})" --set @i:int=-5 \
  --set @m:money=12.5 --set @f:float=0.1 --set @n:null --set @b:bit=1 --set @d:date=2003/01/31

# A connection that breaks: what came is shown, and it is a failure.
sql '--! {"rows": [["a"], ["x"]]}' '--! {"drop": true}'
output=$("$qxtool" command run.sql --run "$connection" 2>&1)
[ $? = 2 ] && [[ "$output" == *"08S01"* || "$output" == *"HY000"* ]] || fail "a dropped connection: $output"
sql '--! {"sleep": 60}'
ends_by_interrupt "$connection"

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
sql "insert into 商品 values (@i, @t, @m, null, @d, @n)"
run 0 "1 row affected" --bind --set @i:int=3 --set "@t=許 O'Neil\\' @i --" --set @m:money=12.5 --set @d:date=2003/01/31 --set @n:null
sql "select 名稱, 價格, 日期, 空 from 商品 where 名稱 = @t and 日期 = @d and 價格 = @m and 代號 = @i"
run 0 $'名稱,價格,日期,空\n"許 O\'Neil\\\' @i --",12.50,2003-01-31,' --csv --bind --set @i:int=3 --set "@t=許 O'Neil\\' @i --" \
  --set @m:money=12.5 --set @d:date=2003/01/31
sql 'select $$ @a $$'
run 2 "qxtool: the driver finds 0 marks for 1 bound values" --bind --set @a=x
sql "select pg_sleep(60)"
ends_by_interrupt "$connection"

# --- SQLite ---
connection="Driver=SQLite3;Database=$folder/goods.db"
sql "create table T (t text, i integer, m numeric, f real, d text, n text)"
run 0 "0 rows affected"
sql "insert into T values (@t, @i, @m, @f, @d, @n) -- @t?" "GO" "select *, typeof(i) as k, typeof(f) as r from T /* ? */ where T.t = @T and m = @m"
run 0 $'1 row affected\nt,i,m,f,d,n,k,r\n"\'; drop table T; -- ""許功蓋"" \\ @i ? ",-5,12.5,0.1,2003-01-31,,integer,real' --batches --csv --bind \
  --set "@t='; drop table T; -- \"許功蓋\" \\ @i ? " --set @i:int=-5 --set @m:money=12.5 --set @f:float=0.1 --set @d:date=2003/01/31 --set @n:null
sql "select @e = '' as e"
run 0 $'e\n1' --csv --bind --set @e=
line="qxtool: --bind: line 2 of the statement:"
for refused in "'%@a%'| @A is inside a literal or another name, where nothing can be bound" "@a, @b| @B has no value" \
  "@a, ?| a ? of its own would be taken for a parameter"; do
  sql "select" "${refused%%|*}" ""
  run 2 "$line${refused#*|}" --bind --set @a=x
done
sql "select 1 -- @a" ""
run 2 "qxtool: --bind: @A has a value, but no place to be bound to" --bind --set @a=x
sql "select @a" ""
run 2 "qxtool: --bind: @a: a text that names its style cannot be bound; NAME:TYPE=VALUE can" --bind --set @a=@N:5

# A call's statement goes by itself, with its macros filled in.
sql "select [##]x[##] as x, t, @MM_n as n from [\$T] where i = @MM_i"
call=("$qxtool" --utf8 call run.sql --run "$connection" --csv --bind --set @MM_i:int=-5 --set "@MM_n=O'Neil")
[[ "$("${call[@]}" --set '$T=T')" == *$'\nx,"\'; drop'*",O'Neil"* ]] || fail "a call: $("${call[@]}" --set '$T=T' 2>&1)"
[ "$("${call[@]}" 2>&1)" = 'qxtool: --bind: [$T] has no value' ] || fail "a macro without a value: $("${call[@]}" 2>&1)"
[[ "$("${call[@]}" --safe 2>&1)" == *"not together with --safe"* ]] || fail "--bind --safe: $("${call[@]}" --safe 2>&1)"

exit $bad
