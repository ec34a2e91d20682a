#!/usr/bin/env bash
# Makes a package in build-package/.
#   scripts/package.sh tgz     an archive to unpack anywhere
#   scripts/package.sh deb     a package for Debian
#   scripts/package.sh check   as root: makes the .deb, installs it with apt-get, starts it, purges
#                              it, and looks for what is left
set -euo pipefail
root=$(cd "$(dirname "$(readlink -f "$0")")/.." && pwd)
cd "$root"
. scripts/packages.sh
. scripts/build.sh

# pack <cpack generator> <ending>: prints the package's path.
pack() {
  local log
  install_missing "${BUILD_PACKAGES[@]}" "${PACKING_PACKAGES[@]}"
  rm -f build-package/orbisgrid[-_]*."$2"
  build package >&2 || return
  if ! log=$(cpack -G "$1" -B build-package --config build-package/CPackConfig.cmake 2>&1); then
    echo "$log" >&2
    return 1
  fi
  ls "$root"/build-package/orbisgrid[-_]*."$2"
}

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' orbisgrid 2>/dev/null)" = installed ]
}

# expect <what is wanted> <command>: ends the check where the command fails.
expect() {
  if "${@:2}"; then
    echo "orbisgrid: $1"
  else
    echo "orbisgrid: NOT $1" >&2
    exit 1
  fi
}

prints_distance() {
  env -u DISPLAY -u WAYLAND_DISPLAY HOME="$1" XDG_DATA_HOME= XDG_CONFIG_HOME= \
    orbisgrid JO20AW FN42AA | grep -qx 'Distance:5637 Km'
}

# Asked to end after a while, a window ends with 0.
opens_window() {
  env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen DBUS_SESSION_BUS_ADDRESS=disabled: \
    HOME="$1" XDG_DATA_HOME= XDG_CONFIG_HOME= \
    timeout --preserve-status --signal TERM 5 orbisgrid
}

nothing_is_left() {
  local file
  while read -r file; do
    # Folders that other packages share stay.
    if [ -e "$file" ] && ! [ -d "$file" ]; then
      echo "$file" >&2
      return 1
    fi
  done <"$1"
  [ ! -e /usr/libexec/orbisgrid ] && [ ! -e /usr/share/doc/orbisgrid ] && ! is_installed
}

scratch=

end_check() {
  rm -rf "$scratch"
  if is_installed; then apt-get purge -y -qq orbisgrid; fi
}

check() {
  local package
  [ "$(id -u)" -eq 0 ] || { echo "orbisgrid: please check the package as root" >&2; return 1; }
  if is_installed; then
    echo "orbisgrid: the package is installed already; the check would remove it" >&2
    return 1
  fi
  install_missing "${PACKAGE_CHECK_PACKAGES[@]}"
  package=$(pack DEB deb)
  scratch=$(mktemp -d)
  trap end_check EXIT
  expect "passed by lintian" lintian --allow-root --fail-on error,warning "$package"
  cp "$package" "$scratch/orbisgrid.deb" # apt reads it as a user who may not look into this folder
  chmod 755 "$scratch"
  expect "installed" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq -o Dpkg::Use-Pty=0 --no-install-recommends "$scratch/orbisgrid.deb"
  dpkg -L orbisgrid >"$scratch/files"
  mkdir "$scratch/home"
  expect "started" prints_distance "$scratch/home"
  expect "open with its window" opens_window "$scratch/home"
  expect "given a program folder" test -f "$scratch/home/.local/share/orbisgrid/Orbisgrid.ini"
  expect "purged" apt-get purge -y -qq -o Dpkg::Use-Pty=0 orbisgrid
  expect "gone without leaving anything in the system" nothing_is_left "$scratch/files"
  expect "leaving the user's lists" test -f "$scratch/home/.local/share/orbisgrid/Orbisgrid.ini"
}

case "${1:-}" in
  tgz) pack TGZ tar.gz ;;
  deb) pack DEB deb ;;
  check) check ;;
  *) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac
