# shellcheck shell=bash
# Sourced: builds and says where it is. A terminal gets ninja's line of progress, anything else one
# line for each stage.

# build <preset> [arguments of cmake --build]
build() {
  local quiet=()
  [ -t 1 ] || quiet=(-- --quiet)
  echo "orbisgrid: configuring the preset $1"
  cmake --preset "$1" >/dev/null || return
  echo "orbisgrid: building with the preset $1"
  cmake --build --preset "$1" "${@:2}" "${quiet[@]}"
}
