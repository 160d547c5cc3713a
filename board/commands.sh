# shellcheck shell=bash
# The ways of ./run --board, which sources this.

board=$tree/build/board

# The board's emulator, by the lines of qemu's own that a board is wired with. It runs in the state directory, because
# the paths of sockets have to be short.
emulator() {
  local forward=${1:+,hostfwd=tcp:127.0.0.1:$1-203.0.113.10:23}
  cd "$state" || exit
  exec setpriv --pdeathsig KILL qemu-system-arm -M sabrelite -m 128 -display none -monitor none \
    -kernel "$board/vmlinuz" -dtb "$board/board.dtb" -initrd "$board/initrd" \
    -append "console=ttymxc1,115200 rdinit=/init nr_cpus=1 cryptomgr.notests clock=$(date +%s)" \
    -drive if=mtd,format=raw,file=flash.bin \
    -nic "user,mac=02:00:5e:48:30:00,net=203.0.113.0/24,host=203.0.113.1,dns=203.0.113.2$forward" \
    -serial unix:shell,server=on,wait=off \
    -chardev socket,id=line,path=line,server=on,wait=on,logfile=line.log -serial chardev:line
}

build_board() {
  install_missing qemu-system-arm=qemu-system-arm dtc=device-tree-compiler cpio=cpio depmod=kmod xz=xz-utils
  build
  lock_builds
  [ -e "$board/debian" ] || say "Downloading Debian's kernel for Arm; this takes a minute."
  quietly "Building the board's image" as_owner . board/build_image "$board" "$programs"
  exec 5<&-
}

# Whether the console has asked for a name so many times.
has_asked() {
  (($(grep -ac Username: "$state/line.log") >= $1)) || ! kill -0 "$machine" 2>/dev/null
}

# What nobody types is for one console: it gets all of it once it asks for a name, and then the end of its input.
input() {
  until has_asked 1; do sleep 0.1; done
  cat
  printf '\4\4'
  until has_asked 2; do sleep 0.1; done
}

# Killed, the emulator leaves its sockets to us; told to end, socat gives the terminal back its settings.
switch_off() {
  # shellcheck disable=SC2046
  kill $(descendants $$)
  wait
  rm -f "$state"/{line,shell}
} 2>/dev/null

switch_on() {
  local port=${1:-} flash=$state/flash.bin tries
  [ ! "$port" ] || check_port "$port"
  build_board
  { as_owner "$state" mkdir -p "$state" && as_owner "$state" touch "$flash" "$state"/{line,board}.log; } 2>/dev/null ||
    give_up "$state cannot be written: name another directory in DESK_STATE."
  exec 6<"$flash"
  flock -n 6 || give_up "The board is on: leave it first, or name another directory in DESK_STATE."
  # As the chip comes from its maker.
  [ -s "$flash" ] || head -c "$flash_size" /dev/zero | tr '\0' '\377' >"$flash"
  : >"$state/line.log"
  rm -f "$state"/{line,shell}
  emulator "$port" </dev/null >"$state/board.log" 2>&1 6>&- &
  machine=$!
  trap switch_off EXIT
  for ((tries = 0; ; tries++)); do
    [ ! -S "$state/line" ] || break
    kill -0 "$machine" 2>/dev/null && ((tries < 200)) ||
      give_up "The emulator does not start${port:+; port $port may be taken}: $(tail -n 1 "$state/board.log")"
    sleep 0.05
  done
  [ ! "$port" ] || say "Once the board is up, telnet clients reach it at 127.0.0.1 port $port."
  cd "$state" || exit
  exec 3<&0
  # In the background, so that we can be told to end meanwhile.
  if [ -t 0 ]; then
    say "Ctrl-] switches the board off."
    socat -,raw,echo=0,escape=0x1d UNIX-CONNECT:line <&3 &
  else
    say "The board reads its input and is switched off then; Ctrl-C switches it off before."
    socat - UNIX-CONNECT:line < <(input <&3) &
  fi
  wait $!
  # Powered off by the board itself, or never begun: it takes the port after the line.
  kill -0 "$machine" 2>/dev/null || wait "$machine" ||
    give_up "The emulator does not go on${port:+; port $port may be taken}: $(tail -n 1 "$state/board.log")"
  echo
}

# show reads the partition as a file.
show_of_board() {
  local offset size
  [ -e "$state/flash.bin" ] || give_up "The board has no flash yet: ./run --board makes it."
  read -r _ offset size < <(flash_layout | grep ^settings)
  settings=$state/settings
  tail -c "+$((offset + 1))" "$state/flash.bin" | as_owner "$state" dd of="$settings" bs="$size" count=1 iflag=fullblock \
    2>/dev/null || give_up "$settings cannot be written: name another directory in DESK_STATE."
  show "$@"
}

# shellcheck source=board/partitions.sh
. board/partitions.sh
case "${1:-} $#" in
  ' 0') switch_on ;;
  '--telnet 2') switch_on "$2" ;;
  '--show '*) show_of_board "${@:2}" ;;
  *) usage >&2; exit 2 ;;
esac
