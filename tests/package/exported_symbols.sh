#!/usr/bin/env bash
# Compares what a shared library exports with a stored list, so that a change of its interface is seen.
#
#   exported_symbols.sh LIBRARY LIST            shows the difference
#   exported_symbols.sh LIBRARY LIST --update   stores what the library exports now
set -euo pipefail
export LC_ALL=C

exported() { nm -D --defined-only "$1" | cut -d' ' -f2- | c++filt | sed -E 's/^. //' | sort -u; }

if [ "${3:-}" = --update ]; then
  exported "$1" >"$2"
elif ! diff -u "$2" <(exported "$1"); then
  echo "The interface differs. If that is meant: $0 $1 $2 --update" >&2
  exit 1
fi
