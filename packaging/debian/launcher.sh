#!/bin/sh
# Starts Orbisgrid with a program folder of the user's own. The program keeps its lists beside itself,
# which is /usr/libexec/orbisgrid here: nobody but root may write there, and everybody would share them.
# So each user has a folder with an INI file and the manual in it, made at the first start.

# Beside this script where the package lies unpacked elsewhere than in the system's folders.
packaged=${0%/*}/../libexec/orbisgrid
[ -x "$packaged/orbisgrid" ] || packaged=/usr/libexec/orbisgrid

# Nothing is shared and nothing is written over: neither by a second start at the same moment (a
# link is made only where no file is), nor by one that a full disk ends.
copy_ini() {
  [ -e "$1/Orbisgrid.ini" ] && return 0
  mkdir -p "$1" 2>/dev/null || return 1
  new=$1/.Orbisgrid.ini.$$
  { cp "$packaged/Orbisgrid.ini" "$new" &&
    { ln "$new" "$1/Orbisgrid.ini" || [ -e "$1/Orbisgrid.ini" ] ||
      mv "$new" "$1/Orbisgrid.ini"; }; } 2>/dev/null
  status=$?
  rm -f "$new" 2>/dev/null
  return $status
}

# The copy has the time of the packaged one, so a newer package is seen.
# shellcheck disable=SC3013 # every sh of Debian's knows -nt
refresh_manual() {
  if [ ! -e "$1/Readme.txt" ] || [ "$packaged/Readme.txt" -nt "$1/Readme.txt" ]; then
    cp -p "$packaged/Readme.txt" "$1/Readme.txt" 2>/dev/null
  fi
}

is_writable() {
  [ -d "$1" ] || (umask 077 && mkdir -p "$1") 2>/dev/null
  [ -w "$1" ]
}

# One for all starts. Somebody else may have made it first: then it is not to be trusted.
temporary_folder() {
  own=${TMPDIR:-/tmp}/orbisgrid-$(id -u)
  mkdir -m 700 "$own" 2>/dev/null
  # shellcheck disable=SC3067 # every sh of Debian's knows -O
  if [ -O "$own" ] && [ ! -L "$own" ]; then
    echo "$own"
  else
    mktemp -d
  fi
}

# Where the user's folders cannot be written the program works all the same, until the session ends.
session_folder() {
  [ -n "$session" ] && return 0
  session=$XDG_RUNTIME_DIR
  [ -n "$session" ] && [ -w "$session" ] || session=$(temporary_folder) || exit 1
  session=$session/orbisgrid
  echo "orbisgrid: cannot write in $1; this session keeps its lists and settings in $session" >&2
}

# A folder that somebody chose is his to fill.
if [ -z "$ORBISGRID_PROGRAM_FOLDER" ]; then
  session=
  if [ -z "$HOME" ]; then
    HOME=$(getent passwd "$(id -u)" | cut -d : -f 6)
    export HOME
  fi
  # Relative paths in these variables are to be ignored.
  case $XDG_DATA_HOME in /*) data=$XDG_DATA_HOME ;; *) data=$HOME/.local/share ;; esac
  case $XDG_CONFIG_HOME in /*) config=$XDG_CONFIG_HOME ;; *) config=$HOME/.config ;; esac
  folder=$data/orbisgrid
  if ! copy_ini "$folder"; then
    session_folder "$data"
    folder=$session
    copy_ini "$folder" || exit 1
  fi
  # Without its settings file the program would refuse to start.
  if ! [ -w "$config/ZZ9QX.ini" ] && ! is_writable "$config"; then
    session_folder "$config"
    mkdir -p "$session" && export XDG_CONFIG_HOME="$session"
  fi
  refresh_manual "$folder"
  export ORBISGRID_PROGRAM_FOLDER="$folder"
fi

exec "$packaged/orbisgrid" "$@"
