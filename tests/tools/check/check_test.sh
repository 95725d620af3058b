#!/usr/bin/env bash
# qxtool check from a shell: statuses, what options choose, and SARIF against the part of its schema that is
# written (python3-jsonschema of the system's own Python).
#   check_test.sh QXTOOL
set -u
qxtool=$(realpath "$1")
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
bad=0

# tells STATUS PATTERN COMMAND...: the status, and a line of the output or of standard error.
tells() {
  local status=$1 pattern=$2 got out
  shift 2
  out=$("$qxtool" "$@" 2>&1 </dev/null)
  got=$?
  [ $got = "$status" ] && grep -qE -- "$pattern" <<<"$out" && return
  printf '%s: status %s, not %s, or no %s in:\n%s\n' "$*" $got "$status" "$pattern" "$out"
  bad=1
}
expect() { tells "$1" "$2" check "${@:3}"; }

mkdir -p 'in/deep folder' in/.hidden
printf 'select 1\n' >in/clean.sql
printf "select '1/2/2024' -- qx:ignore SQL404 no date\nselect '1/2/2024'\n" >'in/deep folder/date.sql'
printf '/* a */ select 1/2\n' >in/half.sql
printf 'select "x' >in/.hidden/open.sql
printf "select N'\xe4\xb8\x80', '1/2/2024'\n" >in/utf8.sql

expect 0 '^1 file: nothing found$' in/clean.sql
expect 1 '^in/deep folder/date.sql:2:8: warning\[SQL404\]' in --ignore ENC
expect 0 'warning\[SQL404\]' in --ignore ENC --fail-on error
expect 1 'half.sql:1:17: error\[SQL101\]' in --as command
expect 1 'utf8.sql:1:14: warning\[SQL404\]' in/utf8.sql
expect 1 'ENC102' in/utf8.sql
expect 1 '^1 file: 0 errors, 1 warning, 0 notes' --select SQL404 in/utf8.sql
expect 1 '1 note' --pedantic --fail-on information --select SQL410 in/.hidden/open.sql
expect 2 'nowhere: no such file' in nowhere
expect 2 'PATH is missing'
expect 2 'no rule has an id that begins with SQL9' --select SQL9 in
expect 2 'as' --as both in
expect 2 'no such rule' --explain SQL999
expect 0 '^SQL101, error: ' --explain sql101

printf 'in:[%%RootKey%%]\n[%%\nAs:command\n%%]\n' >qxcheck.ini
expect 1 'half.sql:1:17: error\[SQL101\]' in
printf 'in:[%%RootKey%%]\n[%%\nIgnore:SQL,ENC\n%%]\n' >quiet.ini
expect 0 'nothing found' --config quiet.ini in
expect 2 'gone.ini' --config gone.ini in
rm qxcheck.ini

"$qxtool" check --write-baseline known.json in || { echo "no baseline"; bad=1; }
expect 0 'nothing found' --baseline known.json in
sed -i 's/^/\n/' 'in/deep folder/date.sql'
expect 0 'nothing found' --baseline known.json in
printf "select '2/1/2024'\n" >>in/clean.sql
expect 1 'clean.sql:2:8: warning' --baseline known.json in
expect 2 'this is no baseline' --baseline quiet.ini in

if [ "$(id -u)" != 0 ]; then
  printf 'select 1\n' >in/secret.sql && chmod 0 in/secret.sql
  expect 2 'half.sql' --as command in
fi

# A call's values.
printf 'select @MM_A from [$T]\n' >call.sql
values() { tells "$2" "$3" "$1" call.sql --check "${@:4}"; }
values call 0 '^$' --set @MM_A:int=1
values call 1 '^call.sql: error\[CALL501\]: @MM_A: '
values call 1 'CALL508' --set @MM_A:int=1 --set '$T=a;b'
values call 1 'CALL509' --declare '@MM_A Decimal(9,2)'
values call 2 'ParamStyle not Found' --declare '@MM_A Foo'

# A command's values: what holds the name of a later one is torn, what holds that of an earlier one is not.
printf 'select @A from T where B = @Bee\nGO\nselect @Bee, @C\n' >call.sql
values command 0 '^$' --set '@A=x' --set '@Bee=@A'
values command 1 '^call.sql: error\[CALL508\]: @A: its value holds @Bee, ' --set '@A=a@BEES'
values command 1 '@Bee: its value holds @C, ' --batches --set '@Bee=@c' --set '@A=@C'
values command 1 '^1 file: 1 error,' --batches --set '@Bee=@c' --set '@A=@C'

valid() {
  /usr/bin/python3 - "$here/sarif-schema.json" <<'PY'
import json, subprocess, sys, jsonschema
schema = json.load(open(sys.argv[1]))
report = json.load(open("report.sarif"))
jsonschema.Draft7Validator(schema).validate(report)
results = report["runs"][0]["results"]
kinds = sorted(s["kind"] for r in results for s in r.get("suppressions", []))
assert kinds and set(kinds) == {"external", "inSource"}, kinds
assert {r["ruleId"] for r in results} <= {r["id"] for r in report["runs"][0]["tool"]["driver"]["rules"]}
prints = [(r["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], r["ruleId"], str(r["partialFingerprints"])) for r in results]
assert len(prints) == len(set(prints)), "two results with one fingerprint"
for r in results:
    place = r["locations"][0]["physicalLocation"]
    region = place["region"]
    name = place["artifactLocation"]["uri"].replace("%20", " ")
    data = open(name, "rb").read()
    line = data.decode("utf-8").splitlines()[region["startLine"] - 1]
    part = data[region["byteOffset"]:region["byteOffset"] + region["byteLength"]].decode("utf-8")
    assert line[region["startColumn"] - 1:region["endColumn"] - 1] == part.splitlines()[0] if part else True, r
broken = json.load(open("report.sarif"))
broken["runs"][0]["results"][0]["line"] = 1
assert not jsonschema.Draft7Validator(schema).is_valid(broken)
PY
}
"$qxtool" check --format sarif --baseline known.json in >report.sarif
[ $? = 1 ] && valid || { echo "SARIF"; bad=1; }
"$qxtool" check --format json in | /usr/bin/python3 -c 'import json,sys; assert json.load(sys.stdin)["findings"]' || bad=1
exit $bad
