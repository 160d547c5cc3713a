#!/bin/sh
# The dynamic DNS client; tells the log what it would register, and where.
. /etc/init.d/functions
asked "${1:-nothing}" start stop

if [ "$1" = start ] && [ "$(setting ddns_enable)" = 1 ]; then
  case $(setting ddns_server_type) in
    0) service=dyndns ;;
    1) service=no-ip ;;
    2) service=easydns ;;
    3) service=quarlddns ;;
    *) service='an unknown service' ;;
  esac
  tell "registers $(setting ddns_host) with $service as $(setting ddns_user_name)"
fi
