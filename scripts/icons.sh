#!/usr/bin/env bash
# Renders the icon files of packaging/icons from orbisgrid.svg. They are kept in the repository, so
# that a build needs no renderer; run this after a change of the picture.
#   scripts/icons.sh [folder]    into another folder instead
set -euo pipefail
root=$(cd "$(dirname "$(readlink -f "$0")")/.." && pwd)
folder=${1:-$root/packaging/icons}

for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert -w $size -h $size "$root/packaging/icons/orbisgrid.svg" -o "$folder/orbisgrid-$size.png"
done
