#!/bin/sh
# Gives the LAN port its stored address, and what hangs on that: static routes and the DHCP server.
. /etc/init.d/functions
asked "${1:-run}" run

if has_interface eth1; then
  try ifconfig eth1 "$(setting lan_ip)" netmask "$(setting lan_netmask)" broadcast "$(setting lan_broadcast)"
fi
/etc/init.d/staticroute.sh restart
/etc/init.d/udhcpd.sh restart
