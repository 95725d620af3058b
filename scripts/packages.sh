# Sourced by the other scripts: makes sure that Debian packages are there.

# need PACKAGE...: installs what is missing, as root or through sudo without a password; otherwise says what to
# install and ends.
need() {
  local missing=()
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} = 0 ] && return
  local as_root=()
  if [ "$(id -u)" != 0 ]; then
    if ! sudo -n true 2>/dev/null; then
      echo "Packages are missing. As root, run:" >&2
      echo "  apt-get update && apt-get install -y ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo -n)
  fi
  echo "Installing ${missing[*]}"
  local log
  log=$(mktemp)
  if ! { "${as_root[@]}" apt-get update -qq &&
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"; } \
    >"$log" 2>&1; then
    cat "$log" >&2
    echo "Installing failed: ${missing[*]}" >&2
    exit 1
  fi
  rm -f "$log"
}

# quietly COMMAND...: shows the command's output only when it fails.
quietly() {
  local log
  log=$(mktemp)
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    echo "Failed: $*" >&2
    rm -f "$log"
    exit 1
  fi
  rm -f "$log"
}

build_packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev unixodbc-dev libsqliteodbc)
test_packages=(libgtest-dev clang g++-multilib googletest shared-mime-info libglib2.0-bin desktop-file-utils python3-jsonschema
  qt6-base-dev fonts-wqy-microhei ccache locales zsh python3 tdsodbc postgresql odbc-postgresql)
package_packages=(dpkg-dev file lintian pkg-config abigail-tools)
windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix googletest wine wine64 nsis pkg-config python3)
docs_packages=(doxygen man-db groff python3-matplotlib)
tidy_packages=(clang-tidy)
fuzz_packages=(clang libclang-rt-14-dev nlohmann-json3-dev)
valgrind_packages=(libgtest-dev valgrind)
