#!/bin/sh
# The clock's source and time zone: installs the zone, and tells the log what an NTP client would be given.
. /etc/init.d/functions
asked "${1:-nothing}" config

# A zone of so many hours from GMT without summer time, in the form in which the C library reads it: version and
# counts, of which one kind of time and four characters for its name are not 0, then its seconds and its name.
zone_file() {
  printf 'TZif'
  head -c 32 /dev/zero
  printf '\0\0\0\1\0\0\0\4'
  for shift in 24 16 8 0; do
    printf "\\$(printf %03o $(($1 * 3600 >> shift & 255)))"
  done
  printf '\0\0%+03d\0' "$1"
}

hours=$(($(setting time_zone) - 12))
if [ "$hours" -le 12 ]; then
  zone_file "$hours" >/etc/localtime.new && mv /etc/localtime.new /etc/localtime
fi
zone="time zone GMT$(printf %+d "$hours")"
if [ "$(setting date_time_set_by)" = 1 ]; then
  tell "$zone, time from the server $(setting ntp_server)"
else
  tell "$zone, time set by hand"
fi
