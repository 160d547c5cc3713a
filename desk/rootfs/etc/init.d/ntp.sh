#!/bin/sh
# The clock's source and time zone; tells the log what an NTP client would be given.
. /etc/init.d/functions
asked "${1:-nothing}" config

zone="time zone GMT$(printf %+d $(($(setting time_zone) - 12)))"
if [ "$(setting date_time_set_by)" = 1 ]; then
  tell "$zone, time from the server $(setting ntp_server)"
else
  tell "$zone, time set by hand"
fi
