# What udhcpd.conf has of the stored settings.
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
}
