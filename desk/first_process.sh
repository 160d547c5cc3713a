#!/bin/sh
# The first process of the desk's new namespaces: makes ROOT their root directory and becomes a program of the
# device there. Talks to the supervisor over standard input and output.
#
#   first_process.sh ROOT PROGRAM ARGUMENTS...
set -e
root=$1
shift
echo namespaces
read -r _

mount --bind "$root" "$root"
cd "$root"
for node in null zero tty random urandom; do
  [ -e "dev/$node" ] || : >"dev/$node"
  mount --bind "/dev/$node" "dev/$node"
done
mount -t devpts -o newinstance,ptmxmode=0666 devpts dev/pts
# Where a container hides parts of /proc, a fresh one is refused; the outer one serves.
mount -t proc proc proc 2>/dev/null || mount --rbind /proc proc
hostname NTX4830
# Not pivot_root: inside a chroot either that is refused, or it leaves the way in to the machine's own root.
exec chroot . "$@"
