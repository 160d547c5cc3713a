// Other programs read the record while a dialogue writes it: in which order.
#include <gtest/gtest.h>

#include "config/field_table.h"
#include "support/session.h"

namespace tests {
namespace {

// The names of the fields that a visit writes, of a table's first record, a blank behind each.
std::string written_by(const std::string& item, const Answers& answers) {
  FactoryDevice device;
  device.set("lan_ip", "192.168.0.1").set("lan_netmask", "255.255.255.0").set("wan_mac_type", "1");
  device.set("dhcp_start_ip", "192.168.0.100").set("dhcp_end_ip", "192.168.0.200").set("dhcp_lease_time", "3600");
  visit(device, {"Basic Network Setting", item}, answers);
  std::string names;
  for (const void* const address : device.written) {
    for (const config::Field& field : config::field_table()) {
      const bool is_it = config::field_bytes(field, 0, device.settings).data() == address;
      names += is_it ? config::field_name(field, 0) + " " : "";
    }
  }
  return names;
}

TEST(WriteOrder, WanFieldsOfTheTypeComeBeforeTheTypeAndDnsComesFirst) {
  EXPECT_EQ(written_by("Wan Setting", {}),
            "dns_mode secondary_dns primary_dns static_gateway static_ip static_mtu static_netmask static_broadcast "
            "wan_type host_name domain_name wan_mac_type wan_mac wan_ping_enable ");
}

TEST(WriteOrder, LanMaskAndAClientsMacComeBeforeTheAddressAndDhcpPoolComesLast) {
  EXPECT_EQ(written_by("Lan Setting", {}), "lan_netmask lan_ip lan_broadcast dns_proxy_enable ");
  const Answers client = {{"What item", "1"}, {"Add", "0"}, {"IP?", "192.168.0.150"}, {"MAC?", "00:11:22:33:44:55"}};
  EXPECT_EQ(replaced(written_by("DHCP setting", client), "static_dhcp_table[0].", ""), "enable mac ip description ");
  EXPECT_EQ(written_by("DHCP setting", {{"What item", "0"}}),
            "dhcp_server_enable dhcp_lease_time dhcp_start_ip dhcp_end_ip ");
}

}  // namespace
}  // namespace tests
