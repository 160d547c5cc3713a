// The router's LAN address. A change ends the login: the connection usually runs over the LAN.
#include <algorithm>

#include "menus/network/items.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/output.h"
#include "shell/session.h"

namespace menus::network {
namespace {

using config::Ipv4;

void show_lan_setting() {
  const config::LanSettings& lan = shell::segment().lan;
  shell::put("Lan IP:<", lan.lan_ip, ">\nLan MASK:<", lan.lan_netmask, ">\n");
  shell::put("DNS PROXY Enable:<", shell::Number(lan.dns_proxy_enable), ">(0:disable,1:enable)\n\n");
}

// The first three octets of the LAN address, whatever the mask.
void move_into_lan(Ipv4& address, Ipv4 lan_ip) {
  std::copy_n(lan_ip.octet.begin(), 3, address.octet.begin());
}

// The DHCP server hands out addresses of the LAN only.
void move_stray_pool(Ipv4 lan_ip, Ipv4 netmask) {
  config::DhcpSettings& dhcp = shell::segment().dhcp;
  const Ipv4 network = lan_ip & netmask;
  if ((dhcp.dhcp_start_ip & netmask) == network && (dhcp.dhcp_end_ip & netmask) == network) {
    return;
  }
  shell::run_command("/etc/init.d/udhcpd.sh stop");
  move_into_lan(dhcp.dhcp_start_ip, lan_ip);
  move_into_lan(dhcp.dhcp_end_ip, lan_ip);
}

}  // namespace

void lan_setting() {
  config::LanSettings& lan = shell::segment().lan;
  show_lan_setting();
  shell::show_message(shell::message::keep_with_enter);

  shell::Dialogue ask(shell::Dialogue::refuse_by_kind);
  const Ipv4 ip =
      ask.address("Lan IP<%u.%u.%u.%u>:", lan.lan_ip, {.refusal = "Lan IP Error\n", .judge_kept = true});
  const Ipv4 netmask = ask.netmask("Lan MASK<%u.%u.%u.%u>:", lan.lan_netmask,
                                   {.refusal = "Lan MASK Error\n", .judge_kept = true});
  ask.note(lan.lan_broadcast, (ip & netmask) | ~netmask);
  ask.choice("DNS PROXY Enable?<%d>(0:disable,1:enable):", lan.dns_proxy_enable, "0123456789",
             {.refusal = "Lan DNS PROXY Setting Error\n"});
  ask.note_in_order(lan.lan_netmask, lan.lan_ip);
  if (!ask.commit()) {
    return;
  }
  move_stray_pool(ip, netmask);
  shell::save_settings();
  shell::show_message(shell::message::restart);
  shell::run_command("/etc/init.d/reset_lan.sh > /dev/null 2>&1");
  shell::end_console();
}

}  // namespace menus::network
