#!/bin/sh
# Static routes: those in force lie in /var/run/staticroute.rules, each as the route program takes it.
. /etc/init.d/functions
asked "${1:-nothing}" start stop restart
in_force=/var/run/staticroute.rules

# The stored target may have bits outside its netmask, which no route has.
wanted() {
  # shellcheck disable=SC2016
  from_settings '
    function network(address, netmask,    a, m) {
      split(address, a, ".")
      split(netmask, m, ".")
      return and(a[1], m[1]) "." and(a[2], m[2]) "." and(a[3], m[3]) "." and(a[4], m[4])
    }
    END {
      while (next_rule("static_route_table")) {
        print column("route_type") != 0 ? "-host " column("route_target") " gw " column("route_gateway") \
          : "-net " network(column("route_target"), column("route_netmask")) " netmask " column("route_netmask") \
            " gw " column("route_gateway")
      }
    }' static_route_table
}

if [ -e /var/run/own_network ] && [ -e $in_force ]; then
  while read -r one; do
    # shellcheck disable=SC2086
    route del $one 2>/dev/null  # gone already when its gateway's interface has moved
  done <$in_force
fi

if [ "$1" != stop ]; then
  wanted
fi | while read -r one; do
  # shellcheck disable=SC2086
  if [ ! -e /var/run/own_network ] || try route add $one; then
    echo "$one"
  fi
done | put_in_force $in_force
