#!/bin/sh
# Static routes: those in force lie in /var/run/staticroute.rules, each as the route program takes it.
. /etc/init.d/functions
asked "${1:-nothing}" start stop restart
in_force=/var/run/staticroute.rules

if [ -e /var/run/own_network ] && [ -e $in_force ]; then
  while read -r one; do
    # shellcheck disable=SC2086
    route del $one 2>/dev/null  # gone already when its gateway's interface has moved
  done <$in_force
fi

if [ "$1" != stop ]; then
  from_settings static_route_table
fi | while read -r one; do
  # shellcheck disable=SC2086
  if [ ! -e /var/run/own_network ] || try route add $one; then
    echo "$one"
  fi
done | put_in_force $in_force
