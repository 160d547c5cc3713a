#!/bin/sh
# Sets the WAN port up at boot. The desk's provider gives it an address of 203.0.113.0/24 unless a static one is
# stored, and its DNS servers unless others are.
. /etc/init.d/functions
asked "${1:-nothing}" start

servers='203.0.113.1 203.0.113.2'
if [ "$(setting dns_mode)" = 0 ]; then
  servers="$(setting primary_dns) $(setting secondary_dns)"
fi
for server in $servers; do
  [ "$server" = 0.0.0.0 ] || echo "nameserver $server"
done >/etc/resolv.conf

has_interface eth0 || exit 0
if [ "$(setting wan_mac_type)" = 1 ]; then
  try ifconfig eth0 hw ether "$(setting wan_mac)"
fi
case $(setting wan_type) in
  0)
    try ifconfig eth0 "$(setting static_ip)" netmask "$(setting static_netmask)" \
      broadcast "$(setting static_broadcast)" mtu "$(setting static_mtu)"
    try route add default gw "$(setting static_gateway)"
    ;;
  *)
    [ "$(setting wan_type)" != 1 ] || try ifconfig eth0 mtu "$(setting dhcp_mtu)"
    try ifconfig eth0 203.0.113.10 netmask 255.255.255.0 broadcast 203.0.113.255
    try route add default gw 203.0.113.1
    ;;
esac
