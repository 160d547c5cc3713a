# shellcheck shell=bash
# What ./run and ./test share: talking to the person, and having the packages they need.

say() {
  echo "$1" >&2
}

give_up() {
  say "$1"
  exit 1
}

# install_missing COMMAND=PACKAGE...: a Debian package for each command, or file, that is not there.
install_missing() {
  local pair missing=()
  for pair in "$@"; do
    case $pair in
      /*) [ -e "${pair%=*}" ] ;;
      *) command -v "${pair%=*}" >/dev/null ;;
    esac || missing+=("${pair#*=}")
  done
  # A busybox that needs libraries is no use in the device's root filesystem.
  if command -v busybox >/dev/null && ldd "$(command -v busybox)" >/dev/null 2>&1; then
    missing+=(busybox-static)
  fi
  [ ${#missing[@]} = 0 ] && return
  local as_root=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || give_up "Packages are missing; as root: apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}."
  local install=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive
    apt-get install -qq --no-install-recommends "${missing[@]}")
  { "${install[@]}" || { "${as_root[@]}" apt-get update -qq && "${install[@]}"; }; } </dev/null >&2 ||
    give_up "Packages could not be installed; as root: apt-get install ${missing[*]}"
}
