#include "support/dialogue.h"

namespace tests::network_test {

const Item wan_setting = {"Basic Network Setting", "Wan Setting"};
const Item dhcp_setting = {"Basic Network Setting", "DHCP setting"};

const string reboots =
    save + "Device will be reboot, please wait 60 seconds and re-connect!!\n\n{/sbin/bbreboot &}{sleep 1}";

// The questions that every type of connection has, then those of its own.
Dialogue wan(int type, const std::vector<Question>& of_its_own) {
  auto& all = fields.wan;
  const std::vector<Question> common = {
      Question(all.wan_type, type, "WAN Type?<%d>(0:static IP 1:DHCP 2:PPPOE 3:PPTP 4:L2TP 5:BigPond):",
               one_of("012345"), {.only = {std::to_string(type)}, .refusal = wrong_choice}),
      Question(all.host_name, "hub", "Host Name?<%s>(MAX Character:127):", text(127), {.too_long = TooLong::keeps}),
      Question(all.domain_name, "lab", "domain Name?<%s>(MAX Character:127):", text(127), {.too_long = TooLong::keeps}),
      Question(all.wan_mac_type, 1, "WAN MAC Type?<%d>(0:Use Default,1:Menual MAC):", one_of("01"), {.only = {"1"}}),
      Question(all.wan_mac, "00:11:22:aa:bb:cc", "Set MAC<%02x:%02x:%02x:%02x:%02x:%02x>:", mac()),
      Question(all.wan_ping_enable, 1, "Ping form WAN?<%d>(0:Disable,1:Enable):", one_of("01")),
  };
  return {.item = wan_setting, .refusals = Refusals::as_illegal, .questions = common + of_its_own, .ending = reboots};
}

Question address(config::Ipv4& field, const char* stored, const string& name, Place row = Place::current()) {
  return Question(field, stored, name + "<%u.%u.%u.%u>:", ipv4(), {}, row);
}

Question name(config::Text<128>& field, const char* stored, const string& name, Place row = Place::current()) {
  return Question(field, stored, name + "?<%s>(MAX Character:127):", text(127), {}, row);
}

Question mtu(std::int32_t& field, int stored, unsigned most, Place row = Place::current()) {
  return Question(field, stored, "MTU?<%d>(range 512~" + std::to_string(most) + "):", number(512, most), {}, row);
}

std::vector<Question> static_address(config::Ipv4& ip, config::Ipv4& mask, config::Ipv4& gateway,
                                     const string& ip_name) {
  return {Question(ip, "10.0.0.7", ip_name + "<%u.%u.%u.%u>:", ipv4(), {.only = {"10.0.0.7"}}),
          Question(mask, "255.128.0.0", "Subnet Mask?<%u.%u.%u.%u>:", netmask(), {.only = {"255.128.0.0"}}),
          address(gateway, "0.0.0.0", "Gateway?")};
}

std::vector<Question> dns_servers() {
  return {address(fields.wan.primary_dns, "0.0.0.0", "Primary DNS IP"),
          address(fields.wan.secondary_dns, "8.8.4.2", "Secondary DNS IP")};
}

std::vector<Question> dns() {
  const Question mode(fields.wan.dns_mode, 0, "Set DNS?<%d>(0:manually, 1:Auto):", one_of("01"),
                      {.only = {"0"}, .refusal = wrong_choice});
  return std::vector{mode} + dns_servers();
}

TEST(Wan, StaticAddress) {
  auto& all = fields.wan;
  Dialogue dialogue =
      wan(0, std::vector{mtu(all.static_mtu, 1400, 1500)} +
                 static_address(all.static_ip, all.static_netmask, all.static_gateway, "IP?") + dns_servers());
  dialogue.device.set("static_broadcast", "10.127.255.255");
  const Answers common = {
      {"WAN Type?", "0"}, {"Host Name?", "h"}, {"domain Name?", "d"}, {"MAC Type?", "0"}, {"Ping", "0"}};
  const Answers address = {
      {"MTU?", "1500"}, {"IP?", "10.0.3.1"}, {"Subnet Mask?", "255.255.0.0"}, {"Gateway?", "10.0.0.1"}};
  const Answers dns = {{"Primary", "1.1.1.1"}, {"Secondary", "2.2.2.2"}};
  // What belongs to the type is written before the type, and DNS first.
  hold(wan_setting, hold(dialogue).set("wan_type", "1").set("dns_mode", "1"),
       {Visit(common + address + dns, reboots,
              "dns_mode=0 secondary_dns=2.2.2.2 primary_dns=1.1.1.1 static_gateway=10.0.0.1 static_ip=10.0.3.1 "
              "static_mtu=1500 static_netmask=255.255.0.0 static_broadcast=10.0.255.255 wan_type=0 host_name=h "
              "domain_name=d wan_mac_type=0 wan_mac=00:00:00:00:00:00 wan_ping_enable=0")});
}

TEST(Wan, Dhcp) {
  const Dialogue dialogue = wan(1, std::vector{mtu(fields.wan.dhcp_mtu, 0, 1500)} + dns());
  FactoryDevice device = hold(dialogue);
  hold(wan_setting, device, {Visit({{"Set DNS?", "1"}}, "1:Auto):" + reboots, "dns_mode=1")});
  hold(wan_setting, device.set("dns_mode", "2"), {Visit({}, "Set DNS?<2>(0:manually, 1:Auto):" + reboots)});
  // The MAC address of another type than 1 is cleared, and an unknown type of connection has no more questions.
  hold(wan_setting, device.set("wan_mac_type", "2").set("wan_type", "6"),
       {Visit({{"MAC Type?<2>", ""}, {"Ping form WAN?", ""}}, "1:Enable):" + reboots, "wan_mac=00:00:00:00:00:00")});
}

std::vector<Question> dialling(std::uint8_t& connect_type, std::int32_t& max_idle_time) {
  return std::vector{Question(connect_type, 2, "Connect Type?<%d>(0:Keep Alive,2:Manual On):", one_of("02")),
                     Question(max_idle_time, 60, "Max Idle Time?<%d>(0-9999):", number(0, 9999))} +
         dns();
}

TEST(Wan, Pppoe) {
  auto& all = fields.wan;
  const Question type(all.pppoe_type, 1, "PPPoE Type?<%d>(0:Dynamic,1:Static):", one_of("0123456789"), {.only = {"1"}});
  const Dialogue dialogue =
      wan(2, std::vector{mtu(all.pppoe_mtu, 1400, 1492), name(all.pppoe_user_name, "u", "PPPoE User Name"),
                         name(all.pppoe_password, "p", "PPPoE Password"),
                         name(all.pppoe_service_name, "s", "PPPoE Service Name"), type,
                         address(all.pppoe_static_ip, "1.2.3.4", "Static PPPoE IP?")} +
                 dialling(all.pppoe_connect_type, all.pppoe_max_idle_time));
  hold(wan_setting, hold(dialogue),
       {Visit({{"PPPoE Type?", "2"}, {"Connect Type?", ""}}, reboots, "pppoe_type=2 pppoe_static_ip=0.0.0.0")});
}

void hold_tunnel(int wan_type, const string& kind, const string& prefix, std::int32_t& mtu_field,
                 config::TunnelSettings& own) {
  const Question type(own.type, 1, kind + " Type?<%d>(0:Dynamic IP,1:Static IP):", number(0, 1), {.only = {"01", "1"}});
  const Dialogue dialogue = wan(wan_type, std::vector{mtu(mtu_field, 1300, 1400), type} +
                                              static_address(own.static_ip, own.netmask, own.gateway, "Static IP?") +
                                              std::vector{name(own.server, "vpn", kind + " Server IP or domain Name"),
                                                          name(own.account, "a", kind + " Account"),
                                                          name(own.password, "p", kind + " Password")} +
                                              dialling(own.connect_type, own.max_idle_time));
  hold(wan_setting, hold(dialogue).set(prefix + "_gateway", "1.2.3.1").set(prefix + "_type", "2"),
       {Visit({}, reboots, replaced("X_static_ip=0.0.0.0 X_netmask=0.0.0.0 X_gateway=0.0.0.0", "X", prefix))});
}

TEST(Wan, PptpAndL2tp) {
  hold_tunnel(3, "PPTP", "pptp", fields.wan.pptp_mtu, fields.wan.pptp);
  hold_tunnel(4, "L2TP", "l2tp", fields.wan.l2tp_mtu, fields.wan.l2tp);
}

TEST(Wan, BigPond) {
  auto& all = fields.wan;
  hold(wan(5, {Question(all.bigpond_account, "a", "BigPond Account?<%s>(MAX Character:63):", text(63)),
               Question(all.bigpond_password, "p", "BigPond Password?<%s>(MAX Character:63):", text(63)),
               Question(all.bigpond_auth_server, 1, "Auth Server?<%d>(0:sm-server,1:dec-server):", one_of("01")),
               name(all.bigpond_server, "b", "BigPond Server IP or domain Name")}));
}

const string restarts_lan =
    save + "Device will be restart, please re-connect!!\n\n" + silently("/etc/init.d/reset_lan.sh") + "Bye Bye!!\n";

TEST(Lan, EndsTheLoginAndMovesAStrayPool) {
  auto& lan = fields.lan;
  Dialogue dialogue = {
      .item = {"Basic Network Setting", "Lan Setting"}, .ending = restarts_lan, .list = "1", .wild_list = "255"};
  dialogue.opening = "Lan IP:<192.168.1.2>\nLan MASK:<255.254.0.0>\nDNS PROXY Enable:<" + listed +
                     ">(0:disable,1:enable)\n\n" + keep_with_enter;
  dialogue.device.set("lan_broadcast", "192.169.255.255");
  dialogue.device.set("dhcp_start_ip", "192.168.1.100").set("dhcp_end_ip", "192.168.1.200");
  dialogue.questions = {
      Question(lan.lan_ip, "192.168.1.2", "Lan IP<%u.%u.%u.%u>:", ipv4(),
               {.only = {"192.168.1.2"}, .refusal = "Lan IP Error\n", .refused_when_kept = {"0.0.0.0"}}),
      Question(lan.lan_netmask, "255.254.0.0", "Lan MASK<%u.%u.%u.%u>:", netmask(),
               {.only = {"255.254.0.0"}, .refusal = "Lan MASK Error\n", .refused_when_kept = {"1.2.3.4"}}),
      Question(lan.dns_proxy_enable, 1, "DNS PROXY Enable?<%d>(0:disable,1:enable):", one_of("0123456789"),
               {.refusal = "Lan DNS PROXY Setting Error\n"}),
  };
  hold(dialogue.item, hold(dialogue).set("dhcp_start_ip", "10.0.9.100"),
       {Visit({{"Lan IP", "10.0.3.1"}, {"Lan MASK<", "255.128.0.0"}, {"DNS PROXY", "0"}},
              "{/etc/init.d/udhcpd.sh stop}" + restarts_lan,
              "lan_netmask=255.128.0.0 lan_ip=10.0.3.1 lan_broadcast=10.127.255.255 dns_proxy_enable=0 "
              "dhcp_start_ip=10.0.3.100 dhcp_end_ip=10.0.3.200")});
}

const string restarts_dhcp = save + "{/etc/init.d/udhcpd.sh restart > /dev/null}" + setting_saved;
const string stops_dhcp = save + "{/etc/init.d/udhcpd.sh stop > /dev/null}" + setting_saved;
const string what_item = "What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client):";

TEST(Dhcp, Server) {
  auto& dhcp = fields.dhcp;
  const string in_lan = "(The IP must have same Netword ID with Lan IP):";
  const Kind address_in_lan = {{{"192.168.0.1"}, {"192.168.0.254"}}, {"192.168.1.200", "0.0.0.0", "x"}};
  Kind lease = one_of("0123456");
  lease.accepted = {{"0", "3600"}, {"1", "7200"}, {"2", "10800"}, {"4", "172800"}, {"5", "259200"}, {"6", "604800"}};
  Dialogue dialogue = {.item = dhcp_setting, .opening = "", .ending = restarts_dhcp};
  dialogue.list =
      "DHCP Server Enable:<1>(0:Disable, 1:Enable)\nDHCP Server Start IP:<192.168.0.100>\n"
      "DHCP Server End IP:<192.168.0.200>\nDHCP IP Lease Time:<1 Day>\n\n";
  dialogue.device.set("lan_ip", "192.168.0.1").set("lan_netmask", "255.255.255.0");
  dialogue.questions = {
      Question(what_item, one_of("01"), {.only = {"0"}, .required = true, .shown_behind = keep_with_enter + listed}),
      Question(dhcp.dhcp_server_enable, 1, "DHCP Server Enable?<%d>(0:Disable, 1:Enable):", one_of("01"),
               {.only = {"1"}}),
      Question(dhcp.dhcp_start_ip, "192.168.0.100", "DHCP Server Start IP?<%u.%u.%u.%u>" + in_lan, address_in_lan,
               {.refused_when_kept = {"192.168.1.0"}, .tame = true}),
      Question(
          dhcp.dhcp_end_ip, "192.168.0.200", "DHCP Server End IP?<%u.%u.%u.%u>" + in_lan, address_in_lan,
          {.tame = true, .shown_behind = "0:1 Hour\n1:2 Hours\n2:3 Hours\n3:1 Day\n4:2 Days\n5:3 Days\n6:1 Week\n"}),
      Question(dhcp.dhcp_lease_time, 86400, "DHCP IP Lease Time?<1 Day>:", lease, {.tame = true}),
  };
  FactoryDevice device = hold(dialogue);
  const Answer server = {"What item", "0"};
  hold(dhcp_setting, device, {Visit({server, {"Start IP?", "192.168.0.201"}}, in_lan + ip_range_error)});
  hold(dhcp_setting, device.set("dhcp_server_enable", "2").set("dhcp_lease_time", "604801"),
       {Visit({server}, "DHCP IP Lease Time?<>:" + wrong_choice),
        Visit({server, {"Start IP?", "192.168.0.9"}, {"End IP?", "192.168.0.99"}, {"Lease Time?", "0"}}, stops_dhcp,
              "dhcp_lease_time=3600 dhcp_start_ip=192.168.0.9 dhcp_end_ip=192.168.0.99")});
}

TEST(Dhcp, StaticClientIsEditedAndDeleted) {
  auto& client = fields.dhcp.static_dhcp_table[0];
  Dialogue dialogue = {.item = dhcp_setting, .opening = "", .ending = restarts_dhcp};
  dialogue.device.set("dhcp_server_enable", "1");
  dialogue.list = "0:Enable:1\tMAC:00:11:22:aa:bb:cc\tIP:192.168.0.150\tDiscription:nas\n";
  dialogue.wild_list =
      "0:Enable:1\tMAC:ff:ff:ff:ff:ff:ff\tIP:255.255.255.255\tDiscription:" + string(32, '\xff') + "\n";
  dialogue.questions = {
      Question(what_item, one_of("01"),
               {.only = {"1"}, .required = true, .shown_behind = keep_with_enter + listed + "\n"}),
      Question("Add new rule or Modify old rule ?(0:Add New, 1:Modify):", number(0, 1),
               {.only = {"01"}, .refusal = wrong_choice, .required = true}),
      Question(
          "What item do you want to configure? (0-31):", number(0, 31),
          {.only = {"00"}, .refusal = wrong_choice, .also_refused = {"1"}, .required = true, .shown_behind = listed}),
      Question("Del or Edit ? (0:Delete, 1:Edit):", Kind{{{"1"}, {"1x"}}, {"2", "10", "x", "-1"}},
               {.refusal = wrong_choice, .required = true, .shown_behind = keep_with_enter}),
      Question(client.enable, 1, "Enable this rule?<%d>(0:Disable, 1:Enable):", one_of("01"), {.tame = true}),
      Question(client.ip, "192.168.0.150", "IP?<%u.%u.%u.%u>:", ipv4(), {.refused_when_kept = {"0.0.0.0"}}),
      Question(client.mac, "00:11:22:aa:bb:cc", "MAC?<%02x:%02x:%02x:%02x:%02x:%02x>:", mac()),
      Question(client.description, "nas", "Description?<%s>:", text(31)),
  };
  hold(dhcp_setting, hold(dialogue).set("dhcp_server_enable", "0"),
       {Visit({{"What item", "1"}, {"Add new", "1"}, {"What item", "0"}, {"Del or Edit", "0x"}},
              "1:Edit):" + stops_dhcp, "static_dhcp_table[0].enable=255")});
}

TEST(Dhcp, StaticClientIsAddedInTheLowestFreeSlot) {
  FactoryDevice device;
  for (auto& client : device.settings.dhcp.static_dhcp_table) {
    client.enable = 200;
  }
  const Answer clients = {"What item", "1"}, add = {"Add new", "0"};
  const Answer last_client = {"\n31:Enable:200\tMAC:00:00:00:00:00:00\tIP:0.0.0.0\tDiscription:\n\nAdd new", "0"};
  hold(dhcp_setting, device, {Visit({clients, last_client}, "1:Modify):" + table_full)});
  device.set("static_dhcp_table[30].enable", "255").set("static_dhcp_table[31].enable", "255");
  device.set("dhcp_start_ip", "1.0.0.1").set("dhcp_end_ip", "1.0.0.9");
  hold(dhcp_setting, device,
       {Visit({clients, add, {"IP?", "1.0.0.1"}}, "IP?<0.0.0.0>:" + illegal_value),
        Visit({clients, add, {"IP?", "1.0.0.10"}}, "IP?<0.0.0.0>:" + illegal_value),
        Visit({clients, add, {"IP?", "1.0.0.9"}, {"MAC?", "00:00:00:00:00:01"}, {"Description?:", ""}}, stops_dhcp,
              "static_dhcp_table[30].enable=0 static_dhcp_table[30].mac=00:00:00:00:00:01 "
              "static_dhcp_table[30].ip=1.0.0.9")});
}

}  // namespace tests::network_test
