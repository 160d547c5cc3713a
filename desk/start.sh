# shellcheck shell=bash
# How our commands begin: the same whatever whoever starts them has closed, ignored or set. Sourced first.

# A file opened next would take a closed stream's place.
for stream in 0 1 2; do
  [ -e "/dev/fd/$stream" ] || eval "exec $stream<>/dev/null"
done
export LC_ALL=C.UTF-8
# What is ignored at its start a shell cannot take back, nor can its programs. A hang-up stays ignored, for nohup.
if [ "$(trap -p INT QUIT PIPE TERM CHLD TSTP)" ]; then
  exec env --default-signal=INT,QUIT,PIPE,TERM,CHLD,TSTP bash "$0" "$@"
fi
umask 022
PATH=$PATH:/usr/sbin:/sbin
