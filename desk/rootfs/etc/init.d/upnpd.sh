#!/bin/sh
# The UPnP service needs address translation: whether it serves lies in /var/run/upnpd.rules.
. /etc/init.d/functions
asked "${1:-nothing}" start stop

if [ "$1" = start ] && [ "$(setting nat_enable)" = 1 ] && [ "$(setting upnp_enable)" = 1 ]; then
  echo "UPnP: programs of the LAN open ports at $(setting lan_ip)"
fi | put_in_force /var/run/upnpd.rules
