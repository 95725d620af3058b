#!/usr/bin/env bash
# Runs qxtool as a user does: outputs, exit statuses, and files that change only when a command succeeds.
#   qxtool_test.sh QXTOOL SOURCE_FOLDER [GOODS_DATABASE]
# Without the program that makes the goods database, as in a build without ODBC, no statement is run.
set -u
qxtool=$1
source=$2
goods_database=${3:-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
export LC_ALL=C
. "$source/tests/tools/common.sh"

# expect STATUS TEXT COMMAND...: the exit status, and a text that standard output or error holds.
expect() {
  local status=$1 text=$2 output
  shift 2
  output=$("$qxtool" "$@" 2>&1)
  local got=$?
  [ $got = "$status" ] && [[ "$output" == *"$text"* ]] ||
    fail "qxtool $*"$'\n'"  exit status $got, not $status; wanted: $text"$'\n'"$output"
}

statement=$source/examples/order_search/order_search.sql
expect 0 "N'@MM_From Datetime , @MM_To Sql_variant" call "$statement" --set '@MM_From:date=2003/01/01' --set '@MM_To:null'
expect 0 "''作廢''" --utf8-terminal call "$statement"
expect 0 '"Type":"Varchar","Length":5,' call "$statement" --list --json --set '$Orders=Goods'
expect 0 "macro      [\$Orders]     Varchar  5" call "$statement" --list --set '$Orders=Goods'
printf '@a Int,\n@b\nVarchar(20)' >declared
expect 0 "@a Int , @b Varchar(20)" call "$statement" --declare declared
expect 2 'Cannot open file "none"' call none
expect 2 "--set @MM_Qty:int=x" call "$statement" --set @MM_Qty:int=x
expect 0 "922337203685477.5807" call "$statement" --set @MM_Qty:money=922337203685477.5807
expect 2 "up to four decimals" call "$statement" --set @MM_Qty:money=0.00001
printf 'select @NID /* c */, @SName' >command.sql
expect 0 "select 15 , 'O''Neil'" command command.sql --set '@NID=@N:15' --set "@SName=O'Neil"
expect 2 "line 3 of the statement holds a byte that is no character" --utf8-terminal call - < <(printf 'select\n\x80')
expect 0 "N'@NID Unknown , @SName Unknown'" call command.sql --all
expect 0 "command.sql: @SName has no value: NULL is written in its place" command command.sql --set @NID=1
expect 1 "nothing is written (--strict)" command command.sql --strict
expect 0 "@MM_To has no value: it is declared Unknown and passed as NULL" call "$statement"
expect 0 "[\$Orders] has no value: nothing is written in its place" call "$statement"
expect 0 "the length 8001; a server has up to 8000" call "$statement" --set "@MM_From=$(printf %8001s x)"
same "$(printf '%s\n' '@a is declared Unknown, which is no type of a server' 'nothing is written (--strict)')" \
  "$("$qxtool" call command.sql --declare '@a Unknown' --set @a=1 --strict 2>&1 | sed 's/^command.sql: //')"

# --- The safe call ---
printf 'select @MM_A, @MM_B' >safe.sql
safe=(call safe.sql --safe --set '@MM_A=中' --set "@MM_B=O'Neil")
expect 0 "N'@MM_A NVarchar(4000) , @MM_B NVarchar(4000)', "$'\r\n'"N'中' , N'O''Neil'" --utf8-terminal "${safe[@]}"
expect 0 "N'@MM_A NVarchar(4) , @MM_B Varchar(9)'" --utf8-terminal "${safe[@]}" --text content --lengths 9,4
expect 0 "N'@MM_A Int OUTPUT , @MM_B Date'" call safe.sql --safe --declare '@MM_A Int output' --set @MM_B:date=2003/01/31 --date date
expect 0 "N'@MM_A Bit , @MM_B Bit , @x Bit'" call safe.sql --safe --declare '@x Bit' --set @x:bit=1 --set @MM_A:bit=0 --set @MM_B:bit=0
expect 2 "safe.sql: @MM_B: no value was set" call safe.sql --safe --set @MM_A=1
expect 2 '--declare @x Char(max): "@x Char(max)": Char(max) is no type' call safe.sql --safe --declare '@x Char(max)'
expect 2 "a length is at least 1" call safe.sql --safe --lengths 0
expect 2 "--text requires --safe" call safe.sql --text varchar
expect 2 "takes no bigint" command command.sql --set @NID:bigint=1
expect 2 "no parameter @X" command command.sql --set @X=1

expect 0 "" ini a.ini add Main Mode=fast 'Path=C:\x'
expect 0 "" --utf8-terminal ini a.ini add 主檔 名=值
expect 0 "主檔     1       名    值" --utf8-terminal ini a.ini list
expect 0 '"Record":1,"Name":"名","Text":"值"}' ini a.ini list --json
expect 0 'C:\x' ini a.ini get main 1 path
expect 0 "" ini a.ini check
cp a.ini before
expect 2 "no record 2" ini a.ini set main 2 mode slow
for name in a:b //a ' a' $'a\nb' ''; do expect 2 "a name cannot be empty" ini a.ini set main 1 "$name" slow; done
for text in '[%rootkey%]' 'a ' $'a\rb' ''; do expect 2 "a text cannot be empty" ini a.ini add main "a=$text"; done
expect 2 "a section cannot hold a colon" ini a.ini add a:b
cmp -s a.ini before || fail "a failed command changed a.ini"
# Four loops of adds lose nothing; a file that is held too long is named.
touch held.ini
flock held.ini sleep 12 &
{ sleep 0.3; "$qxtool" ini held.ini add A b=c; } 2>held-message &
for loop in 1 2 3 4; do
  (for i in {1..10}; do "$qxtool" ini shared.ini add Main "$loop=$i"; done) &
  loops[loop]=$!
done
wait "${loops[@]}"
same 40 "$("$qxtool" ini shared.ini list | grep -c '[0-9] *[1-4] ')"

printf 'S:[%%RootKey%%]\n[%%\n:\na:b\n[%%\n[%%\nEmpty:[%%RootKey%%]\n' >rows.ini
flock rows.ini sleep 1 &
sleep 0.3  # a file that is held for a moment is read after it
expect 0 "S        1
                 a     b
S        2
S        3
Empty" ini rows.ini list
printf '\n[%%\n' >broken.ini
expect 2 "broken.ini: line 2: RootKey not Open." ini broken.ini list
printf 'Main:[%%RootKey%%]\n[%%\n//c\n%%]\n' >b.ini
expect 1 "a comment, or a line without a colon, is lost" ini b.ini check

expect 2 "b.ini: line 3: a comment, or a line without a colon, is lost; nothing was changed" ini b.ini add Main a=b
expect 0 "" ini b.ini add Main a=b --force
expect 0 "" ini b.ini check

# What a Windows INI file and a settings file have in common goes from one to the other and back.
printf '; c\r\nz=1\r\n[Main]\r\nMode=fast\r\nMODE=slow\r\n Path = "C:\\x"\r\nE=\r\nq="\x27a\x27"\r\nbare\r
[Empty]\r\n[main]\r\na=b\r\n[a:b]\r\nc=1\r\n[Last\r\n' >windows.ini
"$qxtool" ini settings.ini import windows.ini 2>message
same "1: 1 2 5 7 9 11 13 15" "$?: $(cut -d: -f2 message | paste -sd' ')"
expect 0 $'[Main]\r\nMode=fast\r\nPath=C:\\x\r\nq="\x27a\x27"\r\n\r\n[Empty]\r' ini settings.ini export
"$qxtool" ini settings.ini export back.ini
"$qxtool" ini again.ini import back.ini
cmp settings.ini again.ini || bad=1
printf 'S:[%%RootKey%%]\n[%%\na=b:c\na:b\nA:c\n%%]\n[%%\nd:e\n%%]\n]:[%%RootKey%%]\n' >more.ini
"$qxtool" ini more.ini export more-windows.ini 2>message
same "1: S, record 1, a=b S, record 1, A S, record 2 ]" "$?: $(cut -d: -f2 message | cut -c2- | paste -sd' ')"
same $'[S]\r\na=b\r' "$(<more-windows.ini)"

printf 'Name,Phone\n"Lee, ""A""",5"5"\r\n' >a.csv
expect 0 "" table a.tbl from-csv a.csv
expect 0 "" table a.tbl append Wang
expect 0 '"Lee, ""A""","5""5"""' table a.tbl to-csv
expect 0 "2    Wang" table a.tbl show
printf 'Name,Born\nLee,2001/02/03\nWang,\nHu,1911-12-31\n' >born.csv
expect 0 "" table born.tbl from-csv --minguo Born born.csv
expect 0 "1    Lee   090/02/03" table born.tbl show
expect 0 'Wang,""' table born.tbl to-csv --gregorian Born
expect 0 'Hu,1911/12/31' table born.tbl to-csv --gregorian Born
expect 2 "born.tbl: record 1, Born: '090/02/03' is not a date with a year of four digits" table born.tbl to-csv --minguo Born
expect 2 "no field Age" table born.tbl to-csv --minguo Age
expect 0 "" table born.tbl set 2 Born 99/1/2
expect 0 "qxtool: Born: 1 years of one or two digits were read as ROC years, the first in 99/1/2" table born.tbl to-csv --gregorian Born
printf '[#\x80#]\r\n' >stray.tbl
expect 2 "bytes that are not characters" --utf8-terminal table stray.tbl to-csv
expect 0 $'No.  \xEF\xBF\xBD' --utf8-terminal table stray.tbl show
expect 1 "no field Fax" table a.tbl get 1 Fax
for text in 'a[' ']a' 'a#]' $'a\nb'; do expect 2 "a text cannot hold" table a.tbl set 1 Name "$text"; done
expect 2 "a text cannot hold" table a.tbl append 'a[ '
printf '[#A#][#A#]\n[#1#][#2#][#"#]\n' >longer.tbl
expect 0 '1    1  2  "' table longer.tbl show
expect 0 '{"No.":1,"A":"1","#3":"2","#4":"\""}' table longer.tbl show --json
expect 2 "this is not a string table" table message show

printf '\xbb\xfa\xc6\xf7' >text.gb
expect 0 "" convert --from gb2312 --to big5 text.gb -o text.big5
expect 0 機器 convert --from big5 --to utf8 text.big5
printf '\xEF\xBB\xBF—·' >text.utf8
"$qxtool" convert --from utf8 --to gb2312 text.utf8 -o text.gb
expect 0 "" convert --from gb2312 --to utf8 text.gb -o back.utf8
[ "$(<back.utf8)" = —· ] || fail "a dash, a point or the mark in front of them changed"

# losses WANTED TEXT OPTION...: LINE:COLUMN and what follows of each loss in a text, and their number.
losses() {
  local wanted=$1 got
  printf "$2" >loss.txt
  got=$(LC_ALL=C.UTF-8 "$qxtool" convert "${@:3}" --report loss.txt 2>&1 >loss.out | sed 's/^loss.txt://; s/.*: \([0-9]*\) char.*/\1/')
  same "$wanted" "$got"
}
losses $'2:2: E9 46, not a character of gb2312 (if gbk has it, use --from gbk)\n2:3: A8 A1, ā, big5 lacks it\n2' \
  'a\n\xb0\xa1\xe9\x46\xa8\xa1\n' --from EUC-CN --to cp950
same "$(printf 'a\n\xb0\xda\xb7\xec  ')" "$(<loss.out)"
losses $'1:2: E9 46, 镕, big5 lacks it\n1' '\x87\x4b\xe9\x46' --from cp936 --to big5
same "$(printf '\xb9\xc9  ')" "$(<loss.out)"  # 嘖
losses $'1:3: C3, not a character of big5\n1' '\xa4\xa4(\xc3' --from big5 --to utf8
losses $'1:1: E2 82 AC, €, gb2312 lacks it\n3:2: F0 9F 98 80, 😀, gb2312 lacks it\n3:3: E0 80, not a character of utf8\n3' \
  '\xEF\xBB\xBF€\n\n中😀\xe0\x80' --from UTF-8 --to gb2312
expect 1 "was lost; --report lists them" convert --strict --from utf8 --to big5 -o loss.out < <(printf '😀')
[ -s loss.out ] || fail "--strict replaced a file"
expect 2 "gbk is for reading only" convert --from utf8 --to gbk
expect 2 "unknown encoding latin1; known are big5" convert --from latin1 --to big5
# A character cut by the end of a piece, at each of its bytes.
for length in {65531..65536}; do
  { head -c $length /dev/zero | tr '\0' a; printf '中文'; } >cut.utf8
  "$qxtool" convert --from utf8 --to big5 cut.utf8 | "$qxtool" convert --from big5 --to utf8 | cmp - cut.utf8 || bad=1
done
expect 0 '"Code":9003,"Value":"unchanged"' date 2024/2/29 --json
expect 0 "ChinaDate            2024年2月28日" --utf8-terminal date 2024-02-28
expect 0 '"Text":"1999-01-02","With zeros":"","Refused by":"a year of one or two digits is a ROC year"}' date --minguo 99/1/2 --json
expect 0 "mfNumerals       民國一百一十三年五月一日" --utf8-terminal date --minguo 2024-05-01
expect 0 "mfDash           113-2-29" date --minguo 2024/2/29
expect 0 "ROC                                the month has only 28 days" date --minguo 112/2/29
[ "$("$qxtool" key -n 3 | sort -u | wc -l)" = 3 ] || fail "keys are not three"

printf 'any\0bytes' >data
expect 0 "" store pack data a.qxf --comment Backup
expect 0 '{"Flag":"QXF","Comment":"Backup","Data":9,"Behind it":0}' store info a.qxf --json
expect 0 "" store unpack a.qxf unpacked
cmp -s data unpacked || fail "a store changed its data"
head -c 40 a.qxf >cut.qxf
expect 2 "cut.qxf" store unpack cut.qxf unpacked
cmp -s data unpacked || fail "a failed command changed unpacked"

# A bitmap of one blue pixel.
mkdir pieces
printf 'BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\4\0\0\0' >pieces/left.bmp
printf '\0%.0s' {1..16} >>pieces/left.bmp
printf '\xff\0\0\0' >>pieces/left.bmp
expect 0 "" frame pack a.dwf pieces
expect 0 "left          1      1" frame info a.dwf
expect 0 "" frame unpack a.dwf unpacked-pieces
cmp -s pieces/left.bmp unpacked-pieces/left.bmp || fail "a frame changed its piece"
expect 0 "" frame render a.dwf picture.bmp --width 4 --height 4 --fill 0000FF
[ "$(od -An -tx1 -j54 -N12 picture.bmp | tr -d ' ')" = ff0000ff0000ff0000ff0000 ] || fail "another picture"
expect 2 "none.dwf File not found!" frame info none.dwf
expect 2 "is RRGGBB" frame render a.dwf picture.bmp --fill red

export HOME=$folder XDG_DATA_HOME=$folder/data-home XDG_CONFIG_HOME=$folder/config
mkdir "$folder/data-home" "$folder/config"
expect 0 ".qxo" filetype dry-run .qxo Order.File /usr/bin/true Orders
[ -z "$(find data-home config -type f)" ] || fail "dry-run wrote something"
expect 0 "" filetype register .qxo Order.File /usr/bin/true Orders
expect 0 "Order.File" filetype show .qxo
expect 0 "" filetype remove .qxo
expect 2 "not registered" filetype show .qxo
for action in dry-run register; do expect 2 "another name" filetype $action .qxo .QXO /usr/bin/true; done

# A name's control bytes are shown, and an interrupted command leaves its target as it was.
expect 2 'x\x1B[2J' call $'x\e[2J'
expect 2 'not expected: \x1B[2J' call x $'\e[2J'
expect 2 ": '\x1B[2J' is not a valid date" call "$statement" --set $'@MM_To:date=\e[2J'
expect 2 "no parameter or macro @甲" --utf8-terminal call "$statement" --set @甲=1
expect 2 ": '乙' is not a valid integer value" --utf8-terminal call "$statement" --declare "@甲 Char(乙)"
cp data target
(timeout -s INT 0.5 "$qxtool" convert --from big5 --to utf8 -o target < <(sleep 2)) 2>/dev/null
cmp -s data target || fail "an interrupted command changed its target"

# sql TEXT: the statement file run.sql, in code page 950.
sql() { iconv -f utf-8 -t cp950 <<<"$1" >run.sql; }

database="Driver=SQLite3;Database=$folder/goods.db"
if [ -z "$goods_database" ]; then
  expect 2 "this build of qxtool has no ODBC" command command.sql --run "$database" --no-strict
else
  "$goods_database" "$source/examples/order_search" "$database" || bad=1
  search=(--utf8-terminal command "$source/examples/order_search/order_search_command.sql" --run "$database"
    --set '@MM_From:date=2003/01/01' --set '@MM_To:date=2003/12/31' --set '@MM_Customer=%有限公司%'
    --set '@MM_Qty:int=10' --set '@MM_Rush:bit=1')
  expect 0 "2003-031  2003/06/25  新竹O'Neil精密有限公司  十字起子組     15    3540
2003-014  2003/03/18  許功蓋機械有限公司      不銹鋼螺絲 M6  500   750.0" "${search[@]}"
  expect 0 $'2003-014,2003/03/18,許功蓋機械有限公司,"不銹鋼螺絲 M6",500,750.0\r\n' "${search[@]}" --csv
  expect 2 '[SQLite]near "sp_executesql": syntax error' call "$statement" --run "$database" --no-strict
  expect 1 'nothing is sent; --no-strict' call "$statement" --run "$database"
  expect 2 "--list excludes --run" command run.sql --list --run "$database"
  expect 2 "--csv requires --run" command run.sql --csv
  sql "update OrderDetail set Qty = 1 where Qty > 100"
  expect 0 "2 rows affected" command run.sql --run "$database"
  sql "select null as 甲, 'NULL' as b, '' as c, char(27) || '中' as d, char(128512) as e, 1 as f"
  expect 0 "甲    b       c  d       e   f
----  ------  -  ------  --  -
NULL  'NULL'     \x1B中  😀  1" --utf8-terminal command run.sql --run "$database"
  expect 0 '\xF0\x9F\x98\x80' command run.sql --run "$database"
  expect 0 $',NULL,"",\x1b中,😀,1' --utf8-terminal command run.sql --run "$database" --csv
  expect 2 "row 1, column 5: a character has no form in code page 950" command run.sql --run "$database" --csv
  sql "select 'a' || char(10) || '\"b\"c' as x"
  expect 0 $'"a\n""b""c"' command run.sql --run "$database" --csv
  printf 'select "\x80\xa4\xa4" as a' >run.sql
  expect 2 "line 1 of the statement holds a byte that is no character" command run.sql --run "$database"
  expect 2 "line 1 of the statement holds a byte that is no character" command run.sql --run "$database" --client-charset cp950

  numbers="with recursive N(x) as (select 1 union all select x + 1 from N where x < 1000000000)"
  sql "$numbers select count(*) from N"
  ends_by_interrupt "$database"
  export qxtool database
  SHELL=/bin/sh start script -qec 'echo $$ >terminal; exec "$qxtool" command run.sql --run "$database"' /dev/null </dev/null >out
  soon grep -q ' 0 rows' out
  kill -INT "$(cat terminal)"
  wait $!
  grep -q $' 0 rows.*\r\e\[K.*qxtool:.* cancelled' out || fail "no progress, or left there: $(cat -v out)"
  sql "$numbers select x from N"
  ends_by_interrupt "$database;StepAPI=1" --csv
  sql "insert into Goods (Code, GoodsName) $numbers select x, x from N"
  ends_by_interrupt "$database"
  sql "select count(*) as Goods from Goods"
  expect 0 $'Goods\n-----\n6' command run.sql --run "$database"
fi

# --- Misuse, help and completion ---
expect 2 "unknown command cal; did you mean call?" cal
expect 2 "Usage: qxtool ini [OPTIONS] FILE COMMAND" ini a.ini lst
expect 2 "list was read as FILE, which comes first" ini list a.ini
expect 2 "unknown option --lst; did you mean --list?" call x --lst
expect 2 "unknown command cal; did you mean call?" help cal
expect 1 "no value none" ini a.ini get main 1 none
expect 2 "an extension begins with a dot" filetype dry-run qxo Order.File /usr/bin/true
expect 0 "Datetime" call "$statement" --list --set @MM_From:date=2003-01-31
expect 2 "a date is written 2003/01/31 or 2003-01-31" call "$statement" --set @MM_From:date=31.1.2003

# with_example COMMAND...: its help and that of the commands below it end with an example.
with_example() {
  local help names name
  help=$("$qxtool" help "$@")
  [[ "$help" == *$'Example:\n  qxtool '* ]] || fail "no example in: qxtool help $*"
  names=$(sed -n '/^Subcommands:/,/^$/p' <<<"$help" | awk 'NR > 1 && NF { print $1 }')
  for name in $names; do with_example "$@" "$name"; done
}
for name in $("$qxtool" --complete ''); do with_example "$name"; done

# completes WANTED WORD...: the candidates that each shell offers for the last word.
completes() {
  local wanted=$1 COMP_WORDS COMPREPLY
  shift
  COMP_WORDS=("$qxtool" "$@") COMP_CWORD=$# COMPREPLY=()
  _qxtool
  same "$wanted" "${COMPREPLY[*]}"
  same "$wanted" "$(zsh -fc 'compadd() { print -r -- ${(P)2} }; _files() { print -n }; words=("$@") CURRENT=$#
    source "$0"' "$source/tools/qxtool/completion/_qxtool" "$qxtool" "$@")"
}
. "$source/tools/qxtool/completion/qxtool.bash"
completes "filetype frame" f
completes "big5" convert --from b
completes "" ini ''
completes "set" ini a.ini s
completes "--set" call --set @a=b x --se
completes "--utf8 --utf8-terminal" ini a.ini set --u

# --- Standard streams and the terminal ---
# on_terminal COMMAND...: what a terminal gets, as bytes.
on_terminal() { TERM=xterm SHELL=/bin/sh script -qec "$(printf '%q ' "$qxtool" "$@")" /dev/null </dev/null; }
export -n NO_COLOR
printf '\xa5\x44:[%%RootKey%%]\n' >main.ini  # 主
same $'\xa5\x44' "$(LC_ALL=C.UTF-8 "$qxtool" ini main.ini list | tail -1)"
[[ "$(LC_ALL=C.UTF-8 on_terminal ini main.ini list)" == *主* ]] || fail "no UTF-8 on a terminal of UTF-8"
[[ "$(LC_ALL=C.UTF-8 on_terminal --cp950-terminal ini main.ini list)" == *$'\xa5\x44'* ]] || fail "--cp950-terminal"
[[ "$(on_terminal cal)" == $'\e[1;31mqxtool:\e[0m unknown'* ]] || fail "no colour on a terminal"
[[ "$(NO_COLOR=1 on_terminal cal)" == "qxtool: unknown"* ]] || fail "colour although NO_COLOR is set"
(LC_ALL=C.UTF-8 expect 2 'x\xC2\x9B2J' call $'x\xc2\x9b2J'; exit $bad) || bad=1
(LC_ALL=C.UTF-8 expect 2 "code page 950 lacks" call "$statement" --set $'@MM_To=\xa5\x44'; exit $bad) || bad=1
printf '\xa1\x40' >lone.big5
"$qxtool" convert --from big5 --to gb2312 --report lone.big5 -o lone.gb 2>&-
same 2 $?
[ -e lone.gb ] && fail "a report that nobody gets passed unseen"
"$qxtool" key >&- 2>message
same 2 $?
"$qxtool" key -n 100000 2>message | head -1 >key
same "141 0" "${PIPESTATUS[*]}"
same "" "$(<message)"

wait
same 'qxtool: Cannot open file "held.ini". Resource temporarily unavailable. Another program has held it for 10 seconds' \
  "$(<held-message)"

"$qxtool" call "$statement" >/dev/full 2>message
[ $? = 2 ] && grep -q "No space left" message || fail "a full disk passed unseen"
exit $bad
