# shellcheck shell=bash disable=SC2034,SC2154
# What the tests of qxtool in a shell share; sourced where $qxtool is known.
bad=0

# fail TEXT...: counts and shows a failure.
fail() {
  echo "$*"
  bad=1
}

# start COMMAND...: runs it in the background, its process in pid, with Ctrl-C not ignored as it is there by default.
start() {
  rm -f pid
  env --default-signal=INT sh -c 'echo $$ >pid; exec "$@"' sh "$@" &
}

# soon CONDITION...: waits until it holds, a minute at most.
soon() {
  for _ in {1..600}; do
    "$@" 2>/dev/null && return
    sleep 0.1
  done
  fail "waited in vain for: $*"
}

# The mask of blocked signals holds SIGINT (2) as soon as qxtool waits for it.
watches() { grep -q '^SigBlk:.*[2367abef]$' "/proc/$(cat pid)/status"; }

# ends_by_interrupt CONNECTION OPTION...: Ctrl-C while run.sql runs is told, and the exit status is 2.
ends_by_interrupt() {
  start "$qxtool" command run.sql --run "$@" >out 2>message
  soon watches
  sleep 0.5
  kill -INT "$(cat pid)"
  wait $!
  same "2 qxtool: cancelled" "$? $(cat message)"
}

# same WANTED GOT: two texts are equal.
same() { [ "$1" = "$2" ] || fail "wanted: $1; got: $2"; }
