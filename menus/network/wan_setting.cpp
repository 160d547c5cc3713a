// How the WAN port gets its address: six types of connection, and what is asked whatever the type.
#include <cstdint>
#include <iterator>

#include "menus/network/items.h"
#include "platform/platform.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace menus::network {
namespace {

using config::Ipv4;
using config::WanSettings;
using shell::Dialogue;
using shell::Prompt;
using shell::Shows;
namespace message = shell::message;

enum class DnsMode : std::uint8_t { manual, asked };

// Automatic DNS leaves the stored servers as they are.
void dns_setting(Dialogue& ask, DnsMode mode) {
  WanSettings& wan = shell::segment().wan;
  ask.note_ahead();
  const std::uint8_t chosen = mode == DnsMode::asked
                                  ? ask.choice("Set DNS?<%d>(0:manually, 1:Auto):", wan.dns_mode, "01",
                                               {.refusal = message::wrong_choice})
                                  : ask.note(wan.dns_mode, std::uint8_t{0});
  if (chosen == 0) {
    ask.address("Primary DNS IP<%u.%u.%u.%u>:", wan.primary_dns);
    ask.address("Secondary DNS IP<%u.%u.%u.%u>:", wan.secondary_dns);
    ask.note_in_order(wan.secondary_dns, wan.primary_dns);
  }
}

void ask_ethernet_mtu(Dialogue& ask, std::int32_t& mtu) {
  ask.number("MTU?<%d>(range 512~1500):", mtu, {512, 1500});
}

// Returns the network's broadcast address.
Ipv4 ask_static_address(Dialogue& ask, Prompt<Shows::address> ip_prompt, Ipv4& ip, Ipv4& netmask,
                        Ipv4& gateway) {
  const Ipv4 address = ask.address(ip_prompt, ip);
  const Ipv4 mask = ask.netmask("Subnet Mask?<%u.%u.%u.%u>:", netmask);
  ask.address("Gateway?<%u.%u.%u.%u>:", gateway);
  return address | ~mask;
}

// How every dialogue of a connection that is dialled ends.
void ask_dialling(Dialogue& ask, std::uint8_t& connect_type, std::int32_t& max_idle_time) {
  ask.choice("Connect Type?<%d>(0:Keep Alive,2:Manual On):", connect_type, "02");
  ask.number("Max Idle Time?<%d>(0-9999):", max_idle_time, {0, 9999});
  dns_setting(ask, DnsMode::asked);
}

void ask_static_ip(Dialogue& ask, WanSettings& wan) {
  ask_ethernet_mtu(ask, wan.static_mtu);
  ask.note(wan.static_broadcast, ask_static_address(ask, "IP?<%u.%u.%u.%u>:", wan.static_ip,
                                                    wan.static_netmask, wan.static_gateway));
  ask.note_in_order(wan.static_gateway, wan.static_ip, wan.static_mtu);
  dns_setting(ask, DnsMode::manual);
}

void ask_dhcp(Dialogue& ask, WanSettings& wan) {
  ask_ethernet_mtu(ask, wan.dhcp_mtu);
  dns_setting(ask, DnsMode::asked);
}

void ask_pppoe(Dialogue& ask, WanSettings& wan) {
  ask.number("MTU?<%d>(range 512~1492):", wan.pppoe_mtu, {512, 1492});
  ask.text("PPPoE User Name?<%s>(MAX Character:127):", wan.pppoe_user_name);
  ask.text("PPPoE Password?<%s>(MAX Character:127):", wan.pppoe_password);
  ask.text("PPPoE Service Name?<%s>(MAX Character:127):", wan.pppoe_service_name);
  if (ask.choice("PPPoE Type?<%d>(0:Dynamic,1:Static):", wan.pppoe_type, "0123456789") == 1) {
    ask.address("Static PPPoE IP?<%u.%u.%u.%u>:", wan.pppoe_static_ip);
  } else {
    ask.note_zero(wan.pppoe_static_ip);
  }
  ask_dialling(ask, wan.pppoe_connect_type, wan.pppoe_max_idle_time);
}

struct TunnelPrompts {
  Prompt<Shows::number> type;
  Prompt<Shows::text> server;
  Prompt<Shows::text> account;
  Prompt<Shows::text> password;
};

void ask_tunnel(Dialogue& ask, const TunnelPrompts& prompts, std::int32_t& mtu,
                config::TunnelSettings& tunnel) {
  ask.number("MTU?<%d>(range 512~1400):", mtu, {512, 1400});
  if (ask.number(prompts.type, tunnel.type, {0, 1}) == 1) {
    ask_static_address(ask, "Static IP?<%u.%u.%u.%u>:", tunnel.static_ip, tunnel.netmask, tunnel.gateway);
  } else {
    ask.note_zero(tunnel.static_ip, tunnel.netmask, tunnel.gateway);
  }
  ask.text(prompts.server, tunnel.server);
  ask.text(prompts.account, tunnel.account);
  ask.text(prompts.password, tunnel.password);
  ask_dialling(ask, tunnel.connect_type, tunnel.max_idle_time);
}

void ask_pptp(Dialogue& ask, WanSettings& wan) {
  static constexpr TunnelPrompts prompts = {
      "PPTP Type?<%d>(0:Dynamic IP,1:Static IP):",
      "PPTP Server IP or domain Name?<%s>(MAX Character:127):",
      "PPTP Account?<%s>(MAX Character:127):",
      "PPTP Password?<%s>(MAX Character:127):",
  };
  ask_tunnel(ask, prompts, wan.pptp_mtu, wan.pptp);
}

void ask_l2tp(Dialogue& ask, WanSettings& wan) {
  static constexpr TunnelPrompts prompts = {
      "L2TP Type?<%d>(0:Dynamic IP,1:Static IP):",
      "L2TP Server IP or domain Name?<%s>(MAX Character:127):",
      "L2TP Account?<%s>(MAX Character:127):",
      "L2TP Password?<%s>(MAX Character:127):",
  };
  ask_tunnel(ask, prompts, wan.l2tp_mtu, wan.l2tp);
}

void ask_bigpond(Dialogue& ask, WanSettings& wan) {
  ask.text("BigPond Account?<%s>(MAX Character:63):", wan.bigpond_account);
  ask.text("BigPond Password?<%s>(MAX Character:63):", wan.bigpond_password);
  ask.choice("Auth Server?<%d>(0:sm-server,1:dec-server):", wan.bigpond_auth_server, "01");
  ask.text("BigPond Server IP or domain Name?<%s>(MAX Character:127):", wan.bigpond_server);
}

// By wan_type.
constexpr void (*ask_type[])(Dialogue&, WanSettings&) = {ask_static_ip, ask_dhcp, ask_pppoe,
                                                         ask_pptp,      ask_l2tp, ask_bigpond};
static_assert(std::size(ask_type) == config::wan_types);

}  // namespace

void wan_setting() {
  WanSettings& wan = shell::segment().wan;
  shell::show_message(message::keep_with_enter);

  constexpr shell::TextRule name{.unfit = shell::TextRule::Unfit::keeps_the_old};
  Dialogue ask(Dialogue::refuse_as_illegal);
  const std::uint8_t type =
      ask.choice("WAN Type?<%d>(0:static IP 1:DHCP 2:PPPOE 3:PPTP 4:L2TP 5:BigPond):", wan.wan_type,
                 shell::OneOf::first(std::size(ask_type)), {.refusal = message::wrong_choice});
  ask.text("Host Name?<%s>(MAX Character:127):", wan.host_name, name);
  ask.text("domain Name?<%s>(MAX Character:127):", wan.domain_name, name);
  if (ask.choice("WAN MAC Type?<%d>(0:Use Default,1:Menual MAC):", wan.wan_mac_type, "01") == 1) {
    ask.mac("Set MAC<%02x:%02x:%02x:%02x:%02x:%02x>:", wan.wan_mac);
  } else {
    ask.note_zero(wan.wan_mac);
  }
  ask.choice("Ping form WAN?<%d>(0:Disable,1:Enable):", wan.wan_ping_enable, "01");
  ask.note_ahead();
  // A kept type that is none of the six has nothing more to ask.
  if (type < std::size(ask_type)) {
    ask_type[type](ask, wan);
  }

  if (ask.commit()) {
    shell::save_settings();
    shell::show_message(message::reboot);
    shell::run_command("/sbin/bbreboot &");
    platform::sleep_seconds(1);
  }
}

}  // namespace menus::network
