#!/usr/bin/env bash
# Compares the interface of the shared library with the stored description: its functions and variables, the size and
# members of its classes, and the order of their virtual functions.
#
#   interface.sh LIBRARY HEADERS   reports the differences from interface.abi.gz; HEADERS is a folder of installed headers
#   interface.sh --update          builds the library and stores its interface as the new description
#
# The library must be built with -g, as the preset "package" does.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
. "$root/scripts/packages.sh"
stored=$root/tests/package/interface.abi.gz
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# describe LIBRARY HEADERS: the interface as XML. What the installed headers do not define is private.
describe() {
  abidw --headers-dir "$2" --drop-private-types --drop-undefined-syms --exported-interfaces-only --type-id-style hash \
    --no-parameter-names --no-show-locs --no-corpus-path --no-comp-dir-path --no-elf-needed --no-write-default-sizes "$1"
}

# differences OLD NEW: reports each changed class, function and variable once; fails if there is one.
differences() { abidiff --leaf-changes-only --no-show-locs "$1" "$2"; }

# finds EDIT: the edited description must be reported as another interface.
finds() {
  sed "$1" "$work/old" >"$work/edited"
  ! differences "$work/edited" "$work/old" >"$work/report" && grep -q "class qxTools::.* changed" "$work/report" && return
  echo "interface.sh: a changed description passed for the same one: $1" >&2
  exit 1
}

need abigail-tools
if [ "$1" = --update ]; then
  need "${build_packages[@]}"
  quietly cmake --preset package -S "$root"
  quietly cmake --build "$root/build/package" --target qxTools
  quietly cmake --install "$root/build/package" --component core-dev --prefix "$work"
  describe "$root/build/package/qxTools/libqxTools.so" "$work/include" | gzip -9n >"$stored"
  exit
fi

zcat "$stored" >"$work/old"
describe "$1" "$2" >"$work/new"
finds "s/\(class-decl name='TQXSQL' size-in-bits='\)[0-9]*/\164/"
finds "/class-decl name='TQXCustomStore'/,/<.class-decl>/s/vtable-offset='10'/vtable-offset='99'/"
if ! differences "$work/old" "$work/new"; then
  echo "The interface differs. If that is meant: tests/package/interface.sh --update" >&2
  exit 1
fi
