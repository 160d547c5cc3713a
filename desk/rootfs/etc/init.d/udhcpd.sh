#!/bin/sh
# The DHCP server of the LAN, where it is switched on.
. /etc/init.d/functions
asked "${1:-nothing}" start stop restart
pid_file=/var/run/udhcpd.pid leases=/var/run/udhcpd.leases

configuration() {
  # shellcheck disable=SC2016
  from_settings '
    function place(address,    octet) {
      split(address, octet, ".")
      return ((octet[1] * 256 + octet[2]) * 256 + octet[3]) * 256 + octet[4]
    }
    END {
      size = place(stored["dhcp_end_ip"]) - place(stored["dhcp_start_ip"]) + 1
      if (size > 0 && size < 235) {  # of a larger pool udhcpd lends 235, and it says so when the pool is smaller
        print "max_leases " size
      }
      print "interface eth1"
      print "start " stored["dhcp_start_ip"]
      print "end " stored["dhcp_end_ip"]
      print "option subnet " stored["lan_netmask"]
      print "option router " stored["lan_ip"]
      print "option lease " stored["dhcp_lease_time"]
      if (on("dns_proxy_enable")) {
        print "option dns " stored["lan_ip"]
      }
      while (next_rule("static_dhcp_table")) {
        print "static_lease " column("mac") " " column("ip")
      }
    }' lan_ip lan_netmask dns_proxy_enable dhcp_start_ip dhcp_end_ip dhcp_lease_time static_dhcp_table
  if [ "$(setting dns_proxy_enable)" = 0 ]; then
    sed -n 's/^nameserver /option dns /p' /etc/resolv.conf
  fi
  echo "pidfile $pid_file"
  echo "lease_file $leases"
}

serves() {
  local name
  read -r pid <$pid_file && read -r name <"/proc/$pid/comm" && [ "$name" = udhcpd ]
} 2>/dev/null

stop() {
  local signal=TERM tries=0
  while serves; do
    kill -$signal "$pid" 2>/dev/null
    usleep 10000
    [ $((tries += 1)) -lt 100 ] || signal=KILL
  done
}

start() {
  if [ "$(setting dhcp_server_enable)" != 1 ]; then
    tell "the DHCP server is switched off"
  elif ! has_interface eth1; then
    tell "no DHCP server without a LAN port of our own"
  else
    configuration >/var/run/udhcpd.conf
    : >>$leases
    udhcpd -S -a 100 /var/run/udhcpd.conf </dev/null >/dev/null 2>&1 || tell "the DHCP server does not start"
  fi
}

stop
if [ "$1" != stop ]; then
  start
fi
