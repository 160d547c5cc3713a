// Other programs read the record while a dialogue writes it: in which order.
#include <gtest/gtest.h>

#include "config/field_table.h"
#include "support/session.h"

namespace tests {
namespace {

// The names of the fields that were written, a blank behind each.
std::string written(Device& device) {
  std::string names;
  for (const void* const address : device.written) {
    for (const config::Field& field : config::field_table()) {
      for (std::size_t i = 0; i < field.count; ++i) {
        if (config::field_bytes(field, i, device.settings).data() == address) {
          names += config::field_name(field, i) + " ";
        }
      }
    }
  }
  return names;
}

// Of the item's dialogue with these answers, which has to come to its end.
std::string written_by(int submenu, int item, const std::string& answers) {
  Desk desk;
  desk.set("lan_ip", "192.168.0.1").set("lan_netmask", "255.255.255.0");
  desk.set("dhcp_start_ip", "192.168.0.100").set("dhcp_end_ip", "192.168.0.200");
  desk.set("dhcp_lease_time", "3600").set("wan_mac_type", "1");
  visit(desk, submenu, item, answers);
  EXPECT_TRUE(desk.saved);
  return written(desk);
}

const std::string wan_common = "wan_type host_name domain_name wan_mac_type wan_mac wan_ping_enable ";

TEST(WriteOrder, WanFieldsOfTheTypeComeBeforeTheTypeAndDnsComesFirst) {
  const std::string common = "\n\n\n\n\n";
  EXPECT_EQ(written_by(0, 0, "0\n" + common + "1500\n1.2.3.4\n255.0.0.0\n1.2.3.1\n\n\n"),
            "dns_mode secondary_dns primary_dns static_gateway static_ip static_mtu static_netmask "
            "static_broadcast " +
                wan_common);
  EXPECT_EQ(written_by(0, 0, "1\n" + common + "1500\n1\n"), "dns_mode dhcp_mtu " + wan_common);
  EXPECT_EQ(written_by(0, 0, "5\n" + common + "\n\n\n\n"),
            "bigpond_account bigpond_password bigpond_auth_server bigpond_server " + wan_common);
}

TEST(WriteOrder, LanMaskComesBeforeTheAddress) {
  EXPECT_EQ(written_by(0, 1, "\n\n\n"), "lan_netmask lan_ip lan_broadcast dns_proxy_enable ");
}

TEST(WriteOrder, DhcpPoolComesLastAndAClientsAddressBehindItsMac) {
  EXPECT_EQ(written_by(0, 2, "0\n\n\n\n\n"), "dhcp_server_enable dhcp_lease_time dhcp_start_ip dhcp_end_ip ");
  EXPECT_EQ(written_by(0, 2, "1\n0\n1\n192.168.0.150\n00:11:22:33:44:55\nnas\n"),
            "static_dhcp_table[0].enable static_dhcp_table[0].mac static_dhcp_table[0].ip "
            "static_dhcp_table[0].description ");
}

}  // namespace
}  // namespace tests
