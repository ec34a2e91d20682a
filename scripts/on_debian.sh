#!/usr/bin/env bash
# Runs a command on another release of Debian: in a throw-away root, in a fresh clone of this source.
#   scripts/on_debian.sh trixie ./test
#   scripts/on_debian.sh --archive trixie ./test    without .git, as an unpacked archive is
# It needs root, and the mirror that apt has here. The command runs as root, without a display and
# with nothing of this machine's environment. Ends with the command's status, or with 77 and one line
# where no such root can be made.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
readonly cannot=77

not_run() {
  echo "orbisgrid: not run on ${suite:-another release}: $1" >&2
  exit $cannot
}

# mirror_of <release>: the address that apt has the release's main part from.
mirror_of() {
  # shellcheck disable=SC2016
  apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
    awk -v release="$1" '$1 == release && $2 == "main" { print $3; exit }'
}

# The public keys that apt knows mirrors by, in one ring.
keys() {
  local file
  for file in /usr/share/keyrings/debian-archive-keyring.gpg /etc/apt/trusted.gpg.d/*.gpg \
    $(sed -nE 's/.*[Ss]igned-[Bb]y[:=] *(\/[^], ]+\.gpg).*/\1/p' /etc/apt/sources.list \
      /etc/apt/sources.list.d/*.{list,sources} 2>/dev/null); do
    [ ! -f "$file" ] || cat "$file"
  done
}

# The values of apt's that decide how it reaches a mirror, with the certificate that they name. No
# other part of its configuration: that belongs to the packages of this machine.
copy_way_to_mirror() { # <root> <mirror>
  local way=$1/etc/apt/apt.conf.d/90way-to-mirror authority=
  apt-config dump | grep -E '^Acquire::(https?::|Check-Valid-Until|Check-Date|Retries)' |
    grep -v '::CaInfo' >"$way" || true
  echo 'Acquire::Languages "none";' >>"$way"
  if [[ $2 == https:* ]]; then
    # The new root has none of its own yet.
    eval "$(apt-config shell authority Acquire::https::CaInfo)"
    cp "${authority:-/etc/ssl/certs/ca-certificates.crt}" "$1/etc/apt/certificates.crt"
    echo 'Acquire::https::CaInfo "/etc/apt/certificates.crt";' >>"$way"
  fi
  cat /etc/resolv.conf >"$1/etc/resolv.conf"
  cat /etc/hosts >"$1/etc/hosts"
}

# use_proxy <http or https>: apt's, for debootstrap too.
use_proxy() {
  local proxy=
  eval "$(apt-config shell proxy "Acquire::$1::Proxy")"
  if [ "${proxy:-DIRECT}" != DIRECT ]; then export "$1_proxy=$proxy"; fi
}

make_root() { # <root> <release> <mirror>
  use_proxy http
  use_proxy https
  keys >"$1.keys"
  if ! debootstrap --variant=minbase --keyring="$1.keys" "$2" "$1" "$3" >"$1.log" 2>&1; then
    tail -n 5 "$1.log" >&2
    return 1
  fi
  cp "$1.keys" "$1/etc/apt/trusted.gpg.d/mirror.gpg"
  copy_way_to_mirror "$1" "$3"
  echo force-unsafe-io >"$1/etc/dpkg/dpkg.cfg.d/90throw-away"
}

copy_source() { # <folder> <yes: as an archive>
  if [ -e .git ] && [ -z "$2" ]; then
    git clone --quiet --no-hardlinks "$PWD" "$1"
    return
  fi
  mkdir -p "$1"
  if [ -e .git ]; then
    git archive HEAD | tar -x -C "$1"
  else
    tar -c --exclude='./build*' . | tar -x -C "$1"
  fi
}

inside() { # <root> <command ...>
  mount -t proc proc "$1/proc"
  mount --rbind /sys "$1/sys"
  mount --rbind /dev "$1/dev"
  mount -t tmpfs tmpfs "$1/dev/shm"
  # Not in the place of this shell: somebody has to take in the children whose parents have ended.
  # shellcheck disable=SC2016
  chroot "$1" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
    LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive TERM="${TERM:-dumb}" \
    sh -c 'cd /root/orbisgrid && exec "$@"' sh "${@:2}"
}

# Name spaces of its own: what is mounted or started there goes with their first process, however
# that ends. In the place of this shell, so that whoever kills it kills that.
separated() {
  exec unshare --mount --pid --fork --kill-child --mount-proc "$@"
}

make_and_enter() { # <root> <release> <mirror> <yes: as an archive> <command ...>
  echo "orbisgrid: making a root of $2"
  make_root "$1" "$2" "$3" || not_run "$3 does not give it"
  copy_source "$1/root/orbisgrid" "$4"
  echo "orbisgrid: on $2: ${*:5}"
  inside "$1" "${@:5}"
}

box=''
worker=''

clean_up() {
  if [ -n "$worker" ]; then
    kill -KILL "$worker" 2>/dev/null || true
    wait "$worker" 2>/dev/null || true
  fi
  # What was killed may still be going.
  # shellcheck disable=SC2016
  timeout 300 sh -c 'until rm -rf --one-file-system "$1" 2>/dev/null; do sleep 0.2; done' sh "$box" ||
    echo "orbisgrid: left behind: $box" >&2 # which says nothing about the command
}

enter_clean() { # <release> <mirror> <yes: as an archive> <command ...>
  umask 022
  trap clean_up EXIT
  trap 'exit 129' HUP
  trap 'exit 130' INT
  trap 'exit 143' TERM
  box=$(mktemp -d "${TMPDIR:-/var/tmp}/orbisgrid-root-XXXXXX")
  set -m # otherwise all that is started would be deaf to an interrupt
  separated "$BASH" scripts/on_debian.sh --made-here "$box/root" "$@" </dev/null &
  worker=$!
  set +m
  local status=0
  wait "$worker" || status=$?
  worker=''
  return $status
}

archive=''
case ${1:-} in
  --made-here)
    suite=$3
    make_and_enter "${@:2}"
    exit
    ;;
  --archive) archive=yes && shift ;;
esac
[ $# -ge 2 ] || { sed -n '2,7s/^# \{0,1\}//p' scripts/on_debian.sh; exit 2; }
suite=$1
[ "$(id -u)" -eq 0 ] || not_run "it takes root to make one"
install_missing "${ROOT_PACKAGES[@]}" || not_run "there is no debootstrap"
(separated true) 2>/dev/null || not_run "this system lets nobody mount"
# shellcheck source=/dev/null
mirror=$(mirror_of "$(. /etc/os-release && echo "${VERSION_CODENAME:-}")")
[ -n "$mirror" ] || not_run "apt has no mirror of Debian here"
enter_clean "$suite" "$mirror" "$archive" "${@:2}"
