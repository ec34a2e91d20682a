# Sourced: what the project needs of Debian 12, by package name, and how it gets there.

# To build the program and to run it.
BUILD_PACKAGES=(g++ cmake ninja-build pkgconf qt6-base-dev qt6-qpa-plugins libxcb1-dev fonts-liberation)

# To test it: the libraries of the tests, a real X server with a window manager, a real Wayland
# compositor, the other programs that tests talk to, a font for their windows, and the tools that
# read the sources.
TEST_PACKAGES=(libgtest-dev clang clang-format clang-tidy xvfb openbox xdotool xclip
  x11-utils libsm-dev sway wtype wl-clipboard qt6-wayland fonts-dejavu-core librsvg2-bin
  libgeographiclib-dev direwolf)

# To make the packages and to check them: ./test and scripts/package.sh.
PACKING_PACKAGES=(dpkg-dev file)
PACKAGE_CHECK_PACKAGES=(lintian desktop-file-utils appstream man-db)

# For ./test --all.
ALL_PACKAGES=(libclang-rt-14-dev lld valgrind gcovr clang-19 llvm-19 libclang-rt-19-dev)

# For the benchmarks; the peers to compare with are optional.
BENCHMARK_PACKAGES=(libbenchmark-dev libxcb-damage0-dev)

# install_missing <packages>: installs those that are not there; says in one line that it does.
install_missing() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "orbisgrid: please install as root: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "orbisgrid: installing ${missing[*]}" >&2
  "${as_root[@]}" apt-get update -qq >&2 &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null 2>"$(install_log)" ||
    { cat "$(install_log)" >&2; return 1; }
}

install_log() {
  echo "${TMPDIR:-/tmp}/orbisgrid-install-$(id -u).log"
}
