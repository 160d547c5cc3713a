# The filter and firewall rules in force.
function address_range() {
  return column("start_ip") "-" column("end_ip")
}

function interface(value) {
  return named("WAN|LAN|any", value, "interface")
}

END {
  while (on("firewall_enable") && next_rule("firewall_rule_table")) {
    print "firewall " number ": " named("deny|allow", column("action"), "action") " " \
      protocol(column("protocol")) " from " interface(column("src_interface")) " " range("src_ip") " to " \
      interface(column("dst_interface")) " " range("dst_ip") \
      (column("protocol") + 0 < 3 ? " ports " range("dst_port") : "") ", " schedule()
  }
  while (on("ip_filter_enable") && next_rule("ip_filter_table")) {
    print "IP filter " number ": " address_range() " " protocol(column("protocol")) " ports " \
      column("start_port") "-" column("end_port") ", " schedule()
  }
  while (on("mac_filter_enable") && next_rule("mac_filter_table")) {
    print "MAC filter " number ": " column("mac_address") ", " schedule()
  }
  while (on("url_filter_enable") && next_rule("url_filter_table")) {
    print "URL filter " number ": " address_range() ": " column("filter_string")
  }
  while (on("domain_filter_enable") && next_rule("domain_filter_table")) {
    print "domain filter " number ": " address_range() ": " column("filter_string")
  }
}
