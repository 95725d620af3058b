#!/usr/bin/env bash
# Installs the Debian packages in a bare Debian 12, uses them there as an application would, and removes them: nothing
# of theirs may stay. Wants what scripts/package has built. Ends with status 77 where it cannot be tried: without root,
# or where the mirror does not answer.
#
#   MIRROR=http://ftp.tw.debian.org/debian tests/package/chroot_test.sh
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
. "$root/scripts/packages.sh"
mirror=${MIRROR:-http://deb.debian.org/debian}

not_tried() {
  echo "chroot_test: not tried: $*" >&2
  exit 77
}

[ "$(id -u)" = 0 ] || not_tried "it needs root"
release=$(mktemp)
trap 'rm -f "$release"' EXIT
timeout 60 /usr/lib/apt/apt-helper download-file "$mirror/dists/bookworm/Release" "$release" >/dev/null 2>&1 </dev/null ||
  not_tried "no answer from $mirror"
need mmdebstrap

# The folders go to /srv of the new system, which mmdebstrap removes at the end, whatever happened.
# shellcheck disable=SC2016  # $1 is for the hook
timeout --kill-after=60 1500 mmdebstrap --quiet --variant=minbase --format=null \
  --customize-hook="copy-in $root/build/packages $root/tests/package $root/examples/guide /srv" \
  --customize-hook='chroot "$1" bash /srv/package/chroot_inside.sh' \
  bookworm /dev/null "$mirror" </dev/null
