#!/usr/bin/env bash
# Builds and runs applications against an installed tree that was moved to another prefix, and runs qxtool from the
# Debian packages put into a folder. Wants what scripts/package has built.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
. "$root/scripts/packages.sh"
here=$root/tests/package
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

die() {
  echo "package_test: $*" >&2
  exit 1
}

# runs COMMAND...: the consumer must print what it should.
runs() {
  diff <(printf '%s\n' "'O''Neil'" "TreeNode Not Opend." same) <("$@") >&2 || die "other lines from $*"
}

# --- An installed tree, moved ---
for build in package-static package; do
  quietly cmake --install "$root/build/$build" --prefix "$work/installed"
done
prefix=$work/moved
mv "$work/installed" "$prefix"
libraries=$(dirname "$(find "$prefix" -name libqxTools.so)")

# --- The interface ---
"$here/interface.sh" "$root/build/package/qxTools/libqxTools.so" "$prefix/include" >&2

# --- Programs that use it ---
# consumer KIND DESKTOP: built with CMake against the moved tree.
consumer() {
  quietly cmake -S "$here/consumer" -B "$work/$1" -DCMAKE_PREFIX_PATH="$prefix" -DKIND="$1" -DDESKTOP="$2"
  quietly cmake --build "$work/$1"
  runs "$work/$1/consumer"
}
desktop=OFF
[ -z "$(find "$prefix" -name libqxTools-desktop.so)" ] || desktop=ON
consumer shared "$desktop"
[ $desktop = OFF ] || QT_QPA_PLATFORM=offscreen quietly "$work/shared/window"
consumer static OFF
! ldd "$work/static/consumer" | grep -q libqxTools || die "the static consumer wants the shared library"

export PKG_CONFIG_PATH=$libraries/pkgconfig
# shellcheck disable=SC2046
quietly g++ -std=c++20 "$here/consumer/consumer.cpp" $(pkg-config --cflags --libs qxtools) -o "$work/plain"
runs env LD_LIBRARY_PATH="$libraries" "$work/plain"

# Every installed header, with no other folder in sight.
(cd "$prefix/include" && find qxTools -name '*.h' ! -path '*/desktop/*' -printf '#include <%p>\n') >"$work/all.cpp"
quietly g++ -std=c++20 -fsyntax-only -I "$prefix/include" "$work/all.cpp"

# --- A project that takes the sources in ---
quietly cmake -S "$here/parent" -B "$work/parent" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQXTOOLS="$root"
quietly cmake --build "$work/parent"
runs "$work/parent/consumer"
quietly cmake --install "$work/parent" --prefix "$work/nothing"
[ ! -e "$work/nothing" ] || die "a parent project installs: $(find "$work/nothing" -type f)"
[[ "$(ctest --test-dir "$work/parent" -N)" == *"Total Tests: 0" ]] || die "a parent project has tests of qxTools"

# --- The Debian packages ---
quietly lintian --fail-on error,warning "$root"/build/packages/*.deb

# --- The Debian packages, in a folder ---
for package in "$root"/build/packages/*.deb; do dpkg-deb -x "$package" "$work/debian"; done
qxtool=$work/debian/usr/bin/qxtool
[[ "$("$qxtool" --version)" == "qxtool "* ]] || die "qxtool of the package does not run"
ldd "$qxtool" | grep -q "$work/debian/.*libqxTools" || die "qxtool of the package takes another library"
depends() { dpkg-deb -f "$root"/build/packages/"$1"_*.deb Depends; }
[[ "$(depends qxtool)" == *libqxtools1*libc6* ]] || die "qxtool depends on: $(depends qxtool)"
[[ "$(depends libqxtools-dev)" == *libqxtools1* ]] || die "libqxtools-dev depends on: $(depends libqxtools-dev)"
