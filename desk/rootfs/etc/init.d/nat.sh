#!/bin/sh
# Address translation: what of it is in force lies in /var/run/nat.rules.
. /etc/init.d/functions
asked "${1:-nothing}" start stop

if [ "$1" = start ]; then
  from_settings nat_enable ipsec_pass_through pptp_pass_through l2tp_pass_through sip_alg netmeeting_alg \
    dmz_enable dmz_ip virtual_server_table special_application_table
fi | put_in_force /var/run/nat.rules
