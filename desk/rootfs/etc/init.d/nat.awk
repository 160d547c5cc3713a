# What of address translation is in force.
function switched(name, what) {
  if (on(name)) {
    print what
  }
}

END {
  if (!on("nat_enable")) {
    exit
  }
  switched("ipsec_pass_through", "pass-through: IPSec")
  switched("pptp_pass_through", "pass-through: PPTP")
  switched("l2tp_pass_through", "pass-through: L2TP")
  switched("sip_alg", "application gateway: SIP")
  switched("netmeeting_alg", "application gateway: NetMeeting")
  switched("dmz_enable", "DMZ host: " stored["dmz_ip"])
  while (next_rule("virtual_server_table")) {
    print "virtual server " number ": " protocol(column("protocol")) " port " column("public_port") " to " \
      column("private_ip") " port " column("private_port") ", " schedule()
  }
  while (next_rule("special_application_table")) {
    print "special application " number ": " protocol(column("trigger_type")) " to port " \
      column("trigger_port") " opens " protocol(column("public_type")) " ports " range("public_port") ", " \
      schedule()
  }
}
