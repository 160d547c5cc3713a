# The static routes as the route program takes them. A stored target may have bits outside its netmask, which no
# route has.
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
}
