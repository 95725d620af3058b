#!/usr/bin/env bash
# What chroot_test.sh runs in the bare Debian: /srv has the packages, the consumer and the guide's programs.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
. /etc/os-release

die() {
  echo "chroot_test: $*" >&2
  exit 1
}

# silently COMMAND...: shows the command's output only when it fails.
silently() { "$@" >/tmp/log 2>&1 || { cat /tmp/log >&2 && die "failed: $*"; }; }

# What is there of ours by its name, but for what was brought along and what the package system itself writes.
ours_by_name() {
  find / -xdev \( -path /srv -o -path /proc -o -path /sys -o -path /var/log -o -path /var/cache/apt \) -prune -o -iname '*qxtool*' -print
}

# --- Installing ---
packages=()
for file in /srv/packages/*.deb; do packages+=("$(dpkg-deb -f "$file" Package)"); done
[ -z "$(ours_by_name)" ] || die "not bare: $(ours_by_name)"
silently apt-get update
silently apt-get install -y --no-install-recommends /srv/packages/*.deb g++ pkg-config bash-completion
echo "installed on Debian $VERSION_ID: ${packages[*]}"

# --- Using ---
[[ "$(qxtool --version)" == "qxtool "* ]] || die "qxtool does not run"
gzip -t /usr/share/man/man1/qxtool.1.gz || die "no manual page"
loaded='. /usr/share/bash-completion/bash_completion; _completion_loader qxtool; complete -p qxtool'
[[ "$(bash -c "$loaded")" == *"qxtool" ]] || die "bash does not complete qxtool"

# prints FOLDER/NAME WANTED: the program built with the packages writes these lines.
prints() {
  # shellcheck disable=SC2046
  silently g++ -std=c++20 "/srv/$1.cpp" $(pkg-config --cflags --libs qxtools) -o /srv/app
  diff --strip-trailing-cr "$2" <(cd /srv && ./app) >&2 || die "other lines from $1"
}
prints package/consumer/consumer <(printf '%s\n' "'O''Neil'" "TreeNode Not Opend." same)
for program in sql strings stores; do prints "guide/$program" "/srv/guide/$program.txt"; done
echo "used: qxtool, its manual page and completion; four programs built with pkg-config"

# --- Removing ---
dpkg -L "${packages[@]}" | grep '^/.' | sort -u >/tmp/paths
[ "$(grep -c qxTools /tmp/paths)" -gt 50 ] || die "the packages hold hardly anything"
silently apt-get purge -y "${packages[@]}"
left=$(dpkg-query -W -f='${Package} ${db:Status-Abbrev}\n' | grep -i qxtool || true)
[ -z "$left" ] || die "still known to dpkg: $left"
# A folder may stay that another package has too.
while read -r path; do
  [ ! -e "$path" ] && [ ! -L "$path" ] || dpkg -S "$path" >/dev/null 2>&1 || die "left: $path"
done </tmp/paths
[ -z "$(ours_by_name)" ] || die "left: $(ours_by_name)"
! ldconfig -p | grep -i qxtool || die "the loader still knows the library"
echo "removed: none of $(wc -l </tmp/paths) paths is left, dpkg lists none"
