#!/bin/sh
# Packet filters and firewall: which rules are in force lies in /var/run/filter.rules.
. /etc/init.d/functions
asked "${1:-nothing}" start stop

rules() {
  # shellcheck disable=SC2016
  from_settings '
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
    }' firewall_enable firewall_rule_table ip_filter_enable ip_filter_table mac_filter_enable mac_filter_table \
    url_filter_enable url_filter_table domain_filter_enable domain_filter_table
}

if [ "$1" = start ]; then
  rules
fi | put_in_force /var/run/filter.rules
