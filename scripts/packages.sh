# shellcheck shell=bash disable=SC2034
# Sourced: what the project needs, by the names of the packages of Debian 12 and 13, and how it gets
# there.

# To build the program and to run it.
BUILD_PACKAGES=(g++ cmake ninja-build pkgconf qt6-base-dev qt6-qpa-plugins libxcb1-dev fonts-liberation)

# To test it: the libraries of the tests, a real X server with a window manager, a real Wayland
# compositor, the other programs that tests talk to, the bus that screen readers listen on, a font for
# their windows, and the tools that read the sources.
TEST_PACKAGES=(libgtest-dev clang clang-format clang-tidy xvfb openbox xdotool xclip
  x11-utils libsm-dev sway wtype wl-clipboard qt6-wayland fonts-dejavu-core librsvg2-bin
  poppler-utils libgeographiclib-dev direwolf dbus-daemon at-spi2-core)

# To make the packages and to check them: ./test and scripts/package.sh.
PACKING_PACKAGES=(dpkg-dev file)
PACKAGE_CHECK_PACKAGES=(lintian desktop-file-utils appstream man-db)

# For ./test tidy, beside those of the tests.
LINT_PACKAGES=(shellcheck)

# For ./test --all.
ALL_PACKAGES=(libclang-rt-dev lld valgrind gcovr clang-19 llvm-19 libclang-rt-19-dev)

# For scripts/on_debian.sh.
ROOT_PACKAGES=(debootstrap)

# For the benchmarks; the peers to compare with are optional.
BENCHMARK_PACKAGES=(libbenchmark-dev libxcb-damage0-dev wwl geographiclib-tools)

# By what a package is known where there is no dpkg: a command, or a library (pkg-config). One that is
# not in this list is taken to be there: its name says nothing elsewhere, and the build or a test
# names what it misses.
declare -A KNOWN_BY=(
  [g++]=g++ [cmake]=cmake [ninja-build]=ninja [pkgconf]=pkg-config [qt6-base-dev]=lib:Qt6Widgets
  [libxcb1-dev]=lib:xcb [libgtest-dev]=lib:gtest [clang]=clang++ [clang-format]=clang-format
  [clang-tidy]=clang-tidy [xvfb]=Xvfb [openbox]=openbox [xdotool]=xdotool [xclip]=xclip
  [x11-utils]=xprop [libsm-dev]=lib:sm [sway]=sway [wtype]=wtype [wl-clipboard]=wl-copy
  [librsvg2-bin]=rsvg-convert [poppler-utils]=pdftoppm [libgeographiclib-dev]=lib:geographiclib [direwolf]=decode_aprs
  [dbus-daemon]=dbus-daemon [dpkg-dev]=dpkg-shlibdeps [file]=file [lintian]=lintian
  [desktop-file-utils]=desktop-file-validate
  [appstream]=appstreamcli [man-db]=lexgrog [shellcheck]=shellcheck [lld]=ld.lld [valgrind]=valgrind
  [gcovr]=gcovr [clang-19]=clang++-19 [llvm-19]=llvm-cov-19 [debootstrap]=debootstrap
  [libbenchmark-dev]=lib:benchmark [libxcb-damage0-dev]=lib:xcb-damage [wwl]=wwl
  [geographiclib-tools]=GeodSolve)

is_there() { # <package>
  if command -v dpkg-query >/dev/null; then
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
    return
  fi
  local known=${KNOWN_BY[$1]-}
  case $known in
    "") true ;;
    lib:*) pkg-config --exists "${known#lib:}" 2>/dev/null ;;
    *) command -v "$known" >/dev/null ;;
  esac
}

# install_missing <packages>: installs those that are not there; says in one line that it does.
install_missing() {
  local missing=() package
  for package in "$@"; do
    is_there "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "orbisgrid: please install what Debian calls: ${missing[*]}" >&2
    return 1
  fi
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "orbisgrid: please install as root: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "orbisgrid: installing ${missing[*]}" >&2
  # The answer is kept in this process: a file with a name that others know could be their link.
  local answer
  if ! answer=$("${as_root[@]}" apt-get update -qq 2>&1 &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" 2>&1 >/dev/null); then
    echo "$answer" >&2
    return 1
  fi
}
