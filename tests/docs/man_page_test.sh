#!/usr/bin/env bash
# The man page has a heading for each command, and names each option of each command.
#   man_page_test.sh QXTOOL PAGE
set -u
qxtool=$1
page=$(sed 's/\\-/-/g' "$2")
bad=0

commands=$("$qxtool" --help | sed -n '/^Subcommands:/,$p' | awk 'NR > 1 && NF { print $1 }')
[ -n "$commands" ] || { echo "no commands in qxtool --help"; exit 1; }
for command in $commands; do
  grep -qx "\.SS $command" <<<"$page" || { echo "no heading for $command"; bad=1; }
  for option in $("$qxtool" "$command" --help | grep -oE '^  (-.,)?--?[a-z0-9-]+' | grep -oE -- '-+[a-z0-9-]+$'); do
    grep -qE -- "(^|[^a-z0-9-])$option([^a-z0-9-]|$)" <<<"$page" || { echo "$command: $option is not told of"; bad=1; }
  done
done
exit $bad
