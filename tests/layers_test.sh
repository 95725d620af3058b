#!/usr/bin/env bash
# The folders include each other downwards only; an arrow that points up, or into another's private header, is seen.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$root/scripts/layers"

# planted FILE HEADER REASON: the check must fail with this line alone.
planted() {
  rm -rf "$work/tree"
  mkdir "$work/tree"
  cp -r "$root/qxTools" "$root/desktop" "$work/tree"
  echo "#include <qxTools/$2>" >>"$work/tree/qxTools/$1"
  diff <(echo "qxTools/$1: #include <qxTools/$2> $3") <("$root/scripts/layers" "$work/tree" && echo "status 0")
}
planted base/Ascii.h runtime/Numbers.h "points up"
planted platform/Clock.h painting/Geometry.h "points up"
planted strings/QXStrTools.h sql/QXSqlTools.h "points up"
planted runtime/Numbers.h platform/linux/SystemFile.h "is private there"
planted stores/qxTreeList.cpp sql/NameScanner.h "is private there"
