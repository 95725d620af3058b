#!/usr/bin/env bash
# Unpacks the ZIPs for Windows into other folders, runs qxtool from there under wine, and builds and runs applications
# with the libraries in them. Installs by the installer and removes again. Wants what scripts/package windows has built.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
. "$root/scripts/packages.sh"
consumer=$root/tests/package/consumer
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LANG=C.UTF-8

die() {
  echo "windows_test: $*" >&2
  exit 1
}

# runs COMMAND...: the consumer must print what it should.
runs() {
  diff <(printf '%s\n' "'O''Neil'" "TreeNode Not Opend." same) <("$@" | tr -d '\r') >&2 || die "other lines from $*"
}

# with_cmake KIND: an application that finds the library by find_package.
with_cmake() {
  quietly cmake -S "$consumer" -B "$build/$1" -G Ninja -DKIND="$1" -DDESKTOP=OFF -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchains/windows-$architecture.cmake" -DCMAKE_FIND_ROOT_PATH="$tree"
  quietly cmake --build "$build/$1"
  [ "$1" = static ] || cp "$tree/bin/libqxTools.dll" "$build/$1/bin"
  runs "$wine" "$build/$1/bin/consumer.exe"
}

# with_pkg_config KIND: one that finds it by pkg-config.
with_pkg_config() {
  local how=(--static) flags=()
  [ "$1" = static ] || how=()
  PKG_CONFIG_LIBDIR=$tree/lib/pkgconfig pkg-config "${how[@]}" --cflags --libs qxtools >"$work/flags"
  read -ra flags <"$work/flags"
  # The compiler's own libraries are inside the program, whichever of the library's forms it takes.
  if [ "$1" = static ]; then flags=(-static "${flags[@]}"); else flags+=(-static-libgcc -Wl,-Bstatic); fi
  quietly "$architecture-w64-mingw32-g++-posix" -std=c++20 "$consumer/consumer.cpp" "${flags[@]}" -o "$build/plain-$1.exe"
  [ "$1" = static ] || cp "$tree/bin/libqxTools.dll" "$build"
  runs "$wine" "$build/plain-$1.exe"
}

# test_zip ARCHITECTURE WINE KIND...
test_zip() {
  architecture=$1 wine=$2
  local zip
  zip=$(ls "$root"/build/packages-windows/qxTools-*-windows-"$architecture".zip)
  build=$work/$architecture
  mkdir "$build"
  (cd "$build" && cmake -E tar xf "$zip")
  tree=$build/$(basename "$zip" .zip)
  [[ "$("$wine" "$tree/bin/qxtool.exe" --version)" == "qxtool "* ]] || die "qxtool of $zip does not run"
  "$wine" "$tree/bin/qxtool.exe" call "$tree/examples/order_search/order_search.sql" 2>&1 | grep -q sp_executesql ||
    die "qxtool of $zip writes no call"
  for kind in "${@:3}"; do with_cmake "$kind" && with_pkg_config "$kind"; done
  for file in LICENSE THIRD-PARTY-NOTICES.md LICENSES/Apache-2.0.txt LICENSES/mingw-w64-common.txt \
    LICENSES/gcc-mingw-w64-base.txt check.md; do
    [ -s "$tree/doc/$file" ] || die "no $file in $zip"
  done
}

# The installers are 32-bit programs. What they write is what the ZIP holds, and the uninstaller leaves nothing.
test_installer() {
  local folder='C:\qxTools' installed=$root/build/wine32/prefix/drive_c/qxTools
  local installer
  installer=$(ls "$root"/build/packages-windows/qxTools-*-windows-i686.exe)
  "$root/scripts/wine32" "$installer" /S "/D=$folder"
  diff <(cd "$tree" && find . -type f | sort) <(cd "$installed" && find . -type f ! -iname uninstall.exe | sort) >&2 ||
    die "the installer writes other files"
  [[ "$("$root/scripts/wine32" "$folder\\bin\\qxtool.exe" --version)" == "qxtool "* ]] || die "the installed qxtool does not run"
  "$root/scripts/wine32" "$folder\\Uninstall.exe" /S "_?=$folder"
  rm -f "$installed/Uninstall.exe" # with this option it runs where it is, and stays
  [ -z "$(find "$installed" -type f 2>/dev/null)" ] || die "left behind: $(find "$installed" -type f | head)"
}

test_zip x86_64 "$root/scripts/wine" shared static
test_zip i686 "$root/scripts/wine32" static
test_installer
