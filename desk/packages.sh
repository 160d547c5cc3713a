# shellcheck shell=bash
# What our commands share: talking to the person, having the packages they need, building. They run in the tree.

# shellcheck source=desk/owner.sh
. desk/owner.sh

# What builds here, and its package, for `missing`. Ninja (1.11) takes an apostrophe for the end of a file's name, and
# would build everything anew each time.
# shellcheck disable=SC2034 # used by those who source this
generator=Ninja builder=ninja=ninja-build
if [[ $PWD = *\'* ]]; then
  generator="Unix Makefiles" builder=make=make
  export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
fi

say() {
  echo "$1" >&2
}

give_up() {
  say "$1"
  exit 1
}

# missing COMMAND=PACKAGE...: the package of each command that is not there; of each FILE, or library as COMPILER:FILE.
missing() {
  local pair what
  for pair in "$@"; do
    what=${pair%=*}
    case $what in
      /*) [ -e "$what" ] ;;
      *:*) [ -e "$("${what%:*}" -print-file-name="${what#*:}" 2>/dev/null)" ] ;;
      *) command -v "$what" >/dev/null ;;
    esac || echo "${pair#*=}"
  done
}

# Shows its progress on a terminal, and only what goes wrong elsewhere.
apt_get() {
  local command=(env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120)
  [ "$(id -u)" = 0 ] || command=(sudo "${command[@]}")
  if [ -t 2 ]; then
    "${command[@]}" "$@" </dev/null >&2
  else
    "${command[@]}" -qq "$@" </dev/null >/dev/null
  fi
}

# Installs the packages that apt knows: whether these are all.
install_known() {
  local package known=()
  for package in "$@"; do
    apt-cache show "$package" >/dev/null 2>&1 && known+=("$package")
  done
  [ ${#known[@]} = 0 ] || apt_get install -y --no-install-recommends "${known[@]}" && [ ${#known[@]} = $# ]
}

# install PACKAGE...: whether all could be had. One that cannot be had keeps no other away.
install() {
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    say "Packages are missing; as root: apt-get install $*"
    return 1
  fi
  say "Installing $*."
  install_known "$@" || { apt_get update && install_known "$@"; } ||
    { say "Packages could not be installed; as root: apt-get install $*"; return 1; }
}

# install_missing COMMAND=PACKAGE...: the end where one cannot be had.
install_missing() {
  local packages
  packages=$(missing "$@")
  # shellcheck disable=SC2086 # names without blanks
  [ -z "$packages" ] || install $packages || exit 1
}

# watched LOG COMMAND...: what the command says is in LOG; on a terminal its latest line is to be seen meanwhile.
watched() {
  local log=$1
  shift
  if [ -t 2 ] && [ "${TERM:-dumb}" != dumb ]; then
    ("$@") </dev/null 2>&1 | tee "$log" | latest_line
    return "${PIPESTATUS[0]}"
  fi
  ("$@") </dev/null >"$log" 2>&1
}

latest_line() {
  local line width
  read -r _ width < <(stty size <&2)
  ((width > 1)) || width=80
  while IFS= read -r line; do
    line=${line//[[:cntrl:]]/ }
    printf '\r\e[K%s' "${line:0:width-1}" >&2
  done
  printf '\r\e[K' >&2
}

# The processes that hold a lock file.
holders() {
  find -L /proc/[0-9]*/fd -maxdepth 1 -samefile "$1" | while IFS=/ read -r _ _ process _ descriptor; do
    grep -q ^lock: "/proc/$process/fdinfo/$descriptor" && echo "$process"
  done | xargs
} 2>/dev/null

# One build at a time in this tree, from here until descriptor 5 is closed.
lock_builds() {
  { as_owner . mkdir -p build && as_owner . touch build/run.lock && exec 5<build/run.lock; } 2>/dev/null ||
    give_up "$PWD/build cannot be written: copy the tree to where you may write."
  flock -w 5 5 && return
  say "Another build in this tree has to end first; waiting for it, 15 minutes at most."
  flock -w 900 5 ||
    give_up "It does not end: kill $(holders build/run.lock), which hold $PWD/build/run.lock, and try again."
}

# Prepares a preset's build folder where that is necessary: afresh when it belongs to another path, because the tree was
# copied or moved.
prepare() {
  local folder=build/$1 cache=build/$1/CMakeCache.txt source='' afresh=()
  source=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache" 2>/dev/null)
  if ! [ "$source" -ef . ] || ! grep -qx "CMAKE_GENERATOR:INTERNAL=$generator" "$cache"; then
    afresh=(--fresh)
  elif [ "$folder/CMakeFiles/TargetDirectories.txt" -nt CMakePresets.json ]; then
    return
  fi
  as_owner . cmake --preset "$1" -G "$generator" "${afresh[@]}"
}

build_preset() {
  (lock_builds && prepare "$1" && as_owner . cmake --build --preset "$1")
}
