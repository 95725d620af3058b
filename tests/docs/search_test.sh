#!/usr/bin/env bash
# Types words into the search of the built pages, in a browser, and looks whether the page that answers is found.
# Run scripts/docs first. Installs the browser where it is missing.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need chromium python3

# A word, and words of a title that must be among the results.
cases='settings Settings file (INI)
ini Settings file (INI)
ini Settings file (INI): to the Windows INI format
csv String table (CSV)
odbc Statements on a database (ODBC)
odbc ODBC: connect to SQL Server
error Errors and exceptions
exceptions Errors and exceptions
thread Threads
install Install
windows Install
民國 民國 dates
minguo QXMinguoDate
null SQL: NULL
unicode SQL: Unicode
like SQL: a text from a user in LIKE
1900 Dates before 1900
static Static library
qxtool Command line: qxtool'

work=$(mktemp -d)
cleanup() {
  kill "$server" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
cp -r build/docs/html "$work/html"
(cd "$work/html" && exec python3 -u -m http.server --bind 127.0.0.1 0 >"$work/log" 2>&1) &
server=$!
for _ in $(seq 50); do
  port=$(sed -nE 's/.* port ([0-9]+) .*/\1/p' "$work/log" 2>/dev/null | head -1)
  [ -n "$port" ] && break
  sleep 0.1
done

# The page itself, with a script that types each word, waits for the results and writes them at the end.
cat >"$work/script" <<'JS'
<script>
async function look(word) {
  const wait = (time) => new Promise((done) => setTimeout(done, time));
  const field = document.getElementById("MSearchField");
  field.focus();
  field.value = word;
  searchBox.Search();
  for (let i = 0; i < 50; ++i) {
    await wait(100);
    const frame = document.getElementById("MSearchResults");
    const found = frame.contentDocument && frame.contentDocument.querySelectorAll(".SRResult");
    const shown = found && [...found].filter((each) => each.style.display == "block");
    if (shown && shown.length > 0) return shown.map((each) => each.textContent.trim());
  }
  return [];
}
async function lookForAll() {
  const out = document.createElement("pre");
  for (const word of WORDS)
    for (const title of await look(word)) out.textContent += "RESULT " + word + " | " + title.replace(/\s+/g, " ") + "\n";
  document.body.appendChild(out);
  document.title = "done";
}
window.addEventListener("load", lookForAll);
</script>
JS
words=$(cut -d' ' -f1 <<<"$cases" | sort -u | sed 's/.*/"&"/' | paste -sd, -)
sed -i "s/WORDS/[$words]/" "$work/script"
sed "/<\/head>/{
  r $work/script
}" "$work/html/index.html" >"$work/html/look.html"
chromium --headless --no-sandbox --disable-gpu --user-data-dir="$work/profile" --virtual-time-budget=200000 --dump-dom \
  "http://127.0.0.1:$port/look.html" >"$work/dom" 2>"$work/errors" || { tail -5 "$work/errors"; exit 1; }
python3 -c 'import html,sys; print(html.unescape(sys.stdin.read()))' <"$work/dom" | grep -a "RESULT " >"$work/results" || true

bad=0
while read -r word title; do
  grep -F "RESULT $word | " "$work/results" | grep -qF "$title" || {
    echo "a search for $word does not find: $title"
    bad=1
  }
done <<<"$cases"
exit $bad
