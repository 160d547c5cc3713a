#!/bin/sh
# Packet filters and firewall: which rules are in force lies in /var/run/filter.rules.
. /etc/init.d/functions
asked "${1:-nothing}" start stop

if [ "$1" = start ]; then
  from_settings firewall_enable firewall_rule_table ip_filter_enable ip_filter_table mac_filter_enable \
    mac_filter_table url_filter_enable url_filter_table domain_filter_enable domain_filter_table
fi | put_in_force /var/run/filter.rules
