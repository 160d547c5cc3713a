#!/bin/sh
# The DHCP server of the LAN, where it is switched on.
. /etc/init.d/functions
asked "${1:-nothing}" start stop restart
pid_file=/var/run/udhcpd.pid leases=/var/run/udhcpd.leases

configuration() {
  from_settings lan_ip lan_netmask dns_proxy_enable dhcp_start_ip dhcp_end_ip dhcp_lease_time \
    static_dhcp_table
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

# Returns once the server is on its own: until then it would end with the terminal of whoever asked for it.
start() {
  local tries=0
  configuration >/var/run/udhcpd.conf
  : >>$leases
  udhcpd -S -a 100 /var/run/udhcpd.conf </dev/null >/dev/null 2>&1
  until serves; do
    usleep 10000
    if [ $((tries += 1)) = 100 ]; then
      tell "the DHCP server does not start"
      return
    fi
  done
}

stop
if [ "$1" = stop ]; then
  exit
elif [ "$(setting dhcp_server_enable)" != 1 ]; then
  tell "the DHCP server is switched off"
elif has_interface eth1; then
  start
else
  tell "no DHCP server without a LAN port of our own"
fi
