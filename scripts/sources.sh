# shellcheck shell=bash
# Sourced: the files that the project's programs are written in, found without git: an unpacked
# archive has none. What is built, and what editors and tools keep, is left out.

# sources: every C++ file below the current folder, from there.
sources() {
  find . \( -path './build*' -o -path './.*' \) -prune -o \
    -type f \( -name '*.cpp' -o -name '*.h' \) -printf '%P\n' | LC_ALL=C sort
}

# scripts: every shell script.
scripts() {
  printf '%s\n' run test .ci/run scripts/*.sh packaging/debian/*.sh
}
