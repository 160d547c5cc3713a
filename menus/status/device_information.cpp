// One page about the device, and the one action that its kind of WAN connection offers.
#include <string_view>

#include "config/firmware.h"
#include "config/segment.h"
#include "menus/status/items.h"
#include "menus/status/system_state.h"
#include "menus/status/wan_connection.h"
#include "shell/output.h"
#include "shell/session.h"

namespace menus::status {
namespace {

constexpr std::string_view dashes = "------------------------------------------------------\n";

void show_function_state(const char* name, std::uint8_t enabled) {
  shell::put(name, enabled != 0 ? " : Enabled \n" : " : Disabled \n");
}

}  // namespace

void device_information() {
  const config::ConfigurationSegment& settings = shell::segment();
  // Read once: the page and its action are about the same kind of connection, whoever changes it meanwhile.
  const std::uint8_t wan_type = settings.wan.wan_type;
  const WanConnection& wan = wan_connection(wan_type);

  const std::string_view host_name = settings.wan.host_name.view();
  shell::put("Device Information\n", dashes);
  shell::put("Model Name : NTX4830 \n");
  shell::put("Firmware Version : ", config::firmware_version, " \n");
  shell::put("Host Name : ", host_name, host_name.ends_with('\n') ? "" : "\n");
  shell::put("System Date : ");
  show_system_date();
  shell::put("Up Time : ");
  show_up_time();
  shell::put("Device Mode : Router Mode \n", dashes);
  if (wan.name != nullptr) {
    shell::put("WAN Type : ", wan.name, " \n");
  }
  if (wan.interface != nullptr) {
    show_interface_addresses(wan.interface, "WAN");
    shell::put("WAN Gateway Address : ");
    show_default_gateway();
  }
  show_dns_servers();
  shell::put(dashes);
  show_interface_addresses("eth1", "LAN");
  show_function_state("DHCP Server Function", settings.dhcp.dhcp_server_enable);
  show_function_state("DNS Proxy Function", settings.lan.dns_proxy_enable);
  shell::put(dashes);
  offer_wan_action(wan_type);
}

}  // namespace menus::status
