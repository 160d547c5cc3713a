#include <gtest/gtest.h>

#include "support/dialogue.h"

namespace tests {
namespace {

using std::string;

const Item wan_setting = {"Basic Network Setting", "Wan Setting"};
const Item lan_setting = {"Basic Network Setting", "Lan Setting"};
const Item dhcp_setting = {"Basic Network Setting", "DHCP setting"};

// ---- WAN ----

const string reboots = save +
                       "Device will be reboot, please wait 60 seconds and re-connect!!\n\n"
                       "{/sbin/bbreboot &}{sleep 1}";

// The questions that every type of connection has, then those of its own.
Dialogue wan(int type, const std::vector<Question>& of_its_own) {
  auto& all = fields.wan;
  const string digit = std::to_string(type);
  Dialogue dialogue = {.item = wan_setting, .refusals = Refusals::as_illegal, .ending = reboots};
  dialogue.questions = {
      Question(all.wan_type, type, "WAN Type?<%d>(0:static IP 1:DHCP 2:PPPOE 3:PPTP 4:L2TP 5:BigPond):",
               one_of("012345"), {.only = {digit}, .refusal = wrong_choice}),
      Question(all.host_name, "hub", "Host Name?<%s>(MAX Character:127):", text(127), {.too_long = TooLong::keeps}),
      Question(all.domain_name, "lab", "domain Name?<%s>(MAX Character:127):", text(127), {.too_long = TooLong::keeps}),
      Question(all.wan_mac_type, 1, "WAN MAC Type?<%d>(0:Use Default,1:Menual MAC):", one_of("01"), {.only = {"1"}}),
      Question(all.wan_mac, "00:11:22:aa:bb:cc", "Set MAC<%02x:%02x:%02x:%02x:%02x:%02x>:", mac()),
      Question(all.wan_ping_enable, 1, "Ping form WAN?<%d>(0:Disable,1:Enable):", one_of("01")),
  };
  dialogue.questions = dialogue.questions + of_its_own;
  return dialogue;
}

Question address(config::Ipv4& field, const char* stored, const string& name, Place row = here()) {
  return Question(field, stored, name + "<%u.%u.%u.%u>:", ipv4(), {}, row);
}

Question name(config::Text<128>& field, const char* stored, const string& name, Place row = here()) {
  return Question(field, stored, name + "?<%s>(MAX Character:127):", text(127), {}, row);
}

Question mtu(std::int32_t& field, int stored, unsigned most, Place row = here()) {
  return Question(field, stored, "MTU?<%d>(range 512~" + std::to_string(most) + "):", number(512, most), {}, row);
}

std::vector<Question> static_address(config::Ipv4& ip, config::Ipv4& mask, config::Ipv4& gateway,
                                     const string& ip_name) {
  return {address(ip, "10.0.0.7", ip_name), Question(mask, "255.128.0.0", "Subnet Mask?<%u.%u.%u.%u>:", netmask()),
          address(gateway, "0.0.0.0", "Gateway?")};
}

std::vector<Question> dns_servers() {
  return {address(fields.wan.primary_dns, "0.0.0.0", "Primary DNS IP"),
          address(fields.wan.secondary_dns, "8.8.4.2", "Secondary DNS IP")};
}

std::vector<Question> dns() {
  return std::vector{Question(fields.wan.dns_mode, 0, "Set DNS?<%d>(0:manually, 1:Auto):", one_of("01"),
                              {.only = {"0"}, .refusal = wrong_choice})} +
         dns_servers();
}

TEST(Wan, StaticAddress) {
  auto& all = fields.wan;
  Dialogue dialogue =
      wan(0, std::vector{mtu(all.static_mtu, 1400, 1500)} +
                 static_address(all.static_ip, all.static_netmask, all.static_gateway, "IP?") + dns_servers());
  dialogue.desk.set("static_broadcast", "10.127.255.255");
  dialogue.completed = [](config::ConfigurationSegment& settings) {
    for (std::size_t i = 0; i < 4; ++i) {
      const int hosts = 255 - settings.wan.static_netmask.octet[i];
      settings.wan.static_broadcast.octet[i] = static_cast<std::uint8_t>(settings.wan.static_ip.octet[i] | hosts);
    }
  };
  hold(dialogue);

  Desk desk = desk_of(dialogue);
  desk.set("static_broadcast", "1.2.3.4").set("dns_mode", "1");
  hold(wan_setting, desk,
       {Visit({}, reboots, "static_broadcast=10.127.255.255 dns_mode=0"),
        Visit({{"IP?", "192.168.1.10"}, {"Subnet Mask?", "255.255.255.0"}}, reboots,
              "static_ip=192.168.1.10 static_netmask=255.255.255.0 static_broadcast=192.168.1.255 dns_mode=0")});
}

TEST(Wan, Dhcp) {
  const Dialogue dialogue = wan(1, std::vector{mtu(fields.wan.dhcp_mtu, 0, 1500)} + dns());
  hold(dialogue);
  Desk desk = desk_of(dialogue);
  hold(wan_setting, desk, {Visit({{"Set DNS?", "1"}}, "1:Auto):" + reboots, "dns_mode=1")});
  hold(wan_setting, desk.set("dns_mode", "1"),
       {Visit({}, "Set DNS?<1>(0:manually, 1:Auto):" + reboots),
        Visit({{"Set DNS?", "0"}, {"Secondary DNS", ""}}, reboots, "dns_mode=0")});
  hold(wan_setting, desk.set("dns_mode", "2"), {Visit({}, "Set DNS?<2>(0:manually, 1:Auto):" + reboots)});
}

TEST(Wan, MacAddressAndUnknownTypes) {
  const Dialogue dialogue = wan(1, {});
  for (const char* const type : {"0", "2", "200"}) {
    Desk desk = desk_of(dialogue);
    desk.set("wan_mac_type", type).set("wan_type", "9");
    hold(wan_setting, desk,
         {Visit({{"MAC Type?<" + string(type) + ">", ""}, {"Ping form WAN?", ""}}, reboots,
                "wan_mac=00:00:00:00:00:00")});
  }
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
  hold(dialogue);
  for (const string other : {"0", "2", "9"}) {
    hold(wan_setting, desk_of(dialogue),
         {Visit({{"PPPoE Type?", other}, {"Connect Type?", ""}}, reboots,
                "pppoe_type=" + other + " pppoe_static_ip=0.0.0.0")});
  }
}

// PPTP and L2TP ask the same of other fields.
void hold_tunnel(int number, const string& kind, const string& prefix, std::int32_t& mtu_field,
                 config::TunnelSettings& own) {
  const Question type(own.type, 1,
                      kind + " Type?<%d>(0:Dynamic IP,1:Static IP):", NumberKind{{{}, {"2", "x", "-1", "10"}}},
                      {.only = {"01", "1"}});
  const Dialogue dialogue = wan(
      number, std::vector{mtu(mtu_field, 1300, 1400), type} +
                  static_address(own.static_ip, own.netmask, own.gateway, "Static IP?") +
                  std::vector{name(own.server, "vpn", kind + " Server IP or domain Name"),
                              name(own.account, "a", kind + " Account"), name(own.password, "p", kind + " Password")} +
                  dialling(own.connect_type, own.max_idle_time));
  hold(dialogue);
  Desk desk = desk_of(dialogue);
  desk.set(prefix + "_gateway", "1.2.3.1");
  const string dynamic = replaced("X_static_ip=0.0.0.0 X_netmask=0.0.0.0 X_gateway=0.0.0.0", "X", prefix);
  hold(wan_setting, desk, {Visit({{kind + " Type?<1>", "00"}}, reboots, prefix + "_type=0 " + dynamic)});
  hold(wan_setting, desk.set(prefix + "_type", "2"), {Visit({}, reboots, dynamic)});
}

TEST(Wan, Pptp) {
  hold_tunnel(3, "PPTP", "pptp", fields.wan.pptp_mtu, fields.wan.pptp);
}

TEST(Wan, L2tp) {
  hold_tunnel(4, "L2TP", "l2tp", fields.wan.l2tp_mtu, fields.wan.l2tp);
}

TEST(Wan, BigPond) {
  auto& all = fields.wan;
  hold(wan(5, {Question(all.bigpond_account, "a", "BigPond Account?<%s>(MAX Character:63):", text(63)),
               Question(all.bigpond_password, "p", "BigPond Password?<%s>(MAX Character:63):", text(63)),
               Question(all.bigpond_auth_server, 1, "Auth Server?<%d>(0:sm-server,1:dec-server):", one_of("01")),
               name(all.bigpond_server, "b", "BigPond Server IP or domain Name")}));
}

// ---- LAN ----

const string stops_dhcp_server = "{/etc/init.d/udhcpd.sh stop}";
const string restarts_lan =
    save + "Device will be restart, please re-connect!!\n\n" + silently("/etc/init.d/reset_lan.sh") + "Bye Bye!!\n";

TEST(Lan, EndsTheLoginAndMovesAStrayPool) {
  auto& lan = fields.lan;
  Dialogue dialogue = {.item = lan_setting, .ending = restarts_lan, .list = "1", .wild_list = "255"};
  dialogue.opening = "Lan IP:<192.168.1.2>\nLan MASK:<255.254.0.0>\nDNS PROXY Enable:<" + listed +
                     ">(0:disable,1:enable)\n\n" + keep_with_enter;
  dialogue.desk.set("lan_broadcast", "192.169.255.255");
  dialogue.desk.set("dhcp_start_ip", "192.168.1.100").set("dhcp_end_ip", "192.168.1.200");
  dialogue.questions = {
      Question(lan.lan_ip, "192.168.1.2", "Lan IP<%u.%u.%u.%u>:", ipv4(),
               {.only = {"192.168.1.2"}, .refusal = "Lan IP Error\n", .refused_when_kept = {"0.0.0.0"}}),
      Question(lan.lan_netmask, "255.254.0.0", "Lan MASK<%u.%u.%u.%u>:", netmask(),
               {.only = {"255.254.0.0"}, .refusal = "Lan MASK Error\n", .refused_when_kept = {"1.2.3.4"}}),
      Question(lan.dns_proxy_enable, 1, "DNS PROXY Enable?<%d>(0:disable,1:enable):", one_of("0123456789"),
               {.refusal = "Lan DNS PROXY Setting Error\n"}),
  };
  hold(dialogue);

  const Desk desk = desk_of(dialogue);
  hold(lan_setting, desk,
       {Visit({{"Lan IP", "10.0.3.1"}, {"Lan MASK<", "255.128.0.0"}, {"DNS PROXY", "0"}},
              "1:enable):" + stops_dhcp_server + restarts_lan,
              "lan_ip=10.0.3.1 lan_netmask=255.128.0.0 lan_broadcast=10.127.255.255 dns_proxy_enable=0 "
              "dhcp_start_ip=10.0.3.100 dhcp_end_ip=10.0.3.200"),
        Visit({{"Lan MASK<", "255.255.128.0"}}, "1:enable):" + restarts_lan,
              "lan_netmask=255.255.128.0 lan_broadcast=192.168.127.255")});
  for (const string end : {"dhcp_start_ip", "dhcp_end_ip"}) {
    Desk stray = desk;
    hold(lan_setting, stray.set(end, "10.1.1.9"),
         {Visit({}, "1:enable):" + stops_dhcp_server + restarts_lan, end + "=192.168.1.9")});
  }
}

// ---- DHCP ----

const string restarts_dhcp = save + "{/etc/init.d/udhcpd.sh restart > /dev/null}" + setting_saved;
const string stops_dhcp = save + "{/etc/init.d/udhcpd.sh stop > /dev/null}" + setting_saved;
const string what_item = "What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client):";
const string add_or_modify = "Add new rule or Modify old rule ?(0:Add New, 1:Modify):";

TEST(Dhcp, Server) {
  auto& dhcp = fields.dhcp;
  const string in_lan = "(The IP must have same Netword ID with Lan IP):";
  const Strings strangers = {"192.168.1.200", "0.0.0.0", "x", "10.0.0.1"};
  const auto address_in_lan = [&] { return AddressKind{{{{"192.168.0.1"}, {"192.168.0.254"}}, strangers}}; };
  NumberKind lease = one_of("0123456");
  lease.accepted = {{"0", "3600"},   {"1", "7200"},   {"2", "10800"}, {"3", "86400"},
                    {"4", "172800"}, {"5", "259200"}, {"6", "604800"}};
  Dialogue dialogue = {.item = dhcp_setting, .opening = "", .ending = restarts_dhcp};
  dialogue.desk.set("lan_ip", "192.168.0.1").set("lan_netmask", "255.255.255.0");
  dialogue.questions = {
      Question(what_item, one_of("01"),
               {.only = {"0"},
                .required = true,
                .shown_behind = keep_with_enter +
                                "DHCP Server Enable:<1>(0:Disable, 1:Enable)\nDHCP Server Start IP:<192.168.0.100>\n"
                                "DHCP Server End IP:<192.168.0.200>\nDHCP IP Lease Time:<1 Day>\n\n"}),
      Question(dhcp.dhcp_server_enable, 1, "DHCP Server Enable?<%d>(0:Disable, 1:Enable):", one_of("01"),
               {.only = {"1"}}),
      Question(dhcp.dhcp_start_ip, "192.168.0.100", "DHCP Server Start IP?<%u.%u.%u.%u>" + in_lan, address_in_lan(),
               {.tame = true}),
      Question(
          dhcp.dhcp_end_ip, "192.168.0.200", "DHCP Server End IP?<%u.%u.%u.%u>" + in_lan, address_in_lan(),
          {.tame = true, .shown_behind = "0:1 Hour\n1:2 Hours\n2:3 Hours\n3:1 Day\n4:2 Days\n5:3 Days\n6:1 Week\n"}),
      Question(dhcp.dhcp_lease_time, 86400, "DHCP IP Lease Time?<1 Day>:", lease, {.tame = true}),
  };
  hold(dialogue);

  const string range_error = in_lan + ip_range_error;
  Desk desk = desk_of(dialogue);
  hold(dhcp_setting, desk,
       {Visit({{"What item", "0"}, {"Server Enable?", "0"}}, stops_dhcp, "dhcp_server_enable=0"),
        Visit({{"What item", "0"}, {"Start IP?", "192.168.0.201"}}, range_error)});
  hold(dhcp_setting, desk.set("dhcp_server_enable", "2"), {Visit({{"What item", "0"}}, stops_dhcp)});
  desk.set("lan_netmask", "255.255.0.0");
  hold(dhcp_setting, desk,
       {Visit({{"What item", "0"}, {"Start IP?", "192.168.0.200"}, {"End IP?", "192.168.1.100"}}, range_error),
        Visit({{"What item", "0"}, {"Start IP?", "192.168.1.9"}, {"End IP?", "192.168.0.10"}}, range_error)});
  for (const string unknown : {"5", "0", "604801"}) {
    hold(dhcp_setting, desk.set("dhcp_lease_time", unknown),
         {Visit({{"What item", "0"}}, "DHCP IP Lease Time?<>:" + wrong_choice)});
  }
  desk.set("dhcp_start_ip", "0.0.0.0").set("lan_netmask", "0.0.0.0");
  hold(dhcp_setting, desk, {Visit({{"What item", "0"}}, "Start IP?<0.0.0.0>" + in_lan + illegal_value)});
}

Question add_or_modify_rule(const string& answer, const string& behind = "") {
  return Question(add_or_modify, number(0, 1),
                  {.only = {answer}, .refusal = wrong_choice, .required = true, .shown_behind = behind});
}

const string nas = "0:Enable:1\tMAC:00:11:22:aa:bb:cc\tIP:192.168.0.150\tDiscription:nas\n";

Dialogue clients(bool adding) {
  auto& client = fields.dhcp.static_dhcp_table[0];
  Dialogue dialogue = {.item = dhcp_setting, .opening = "", .ending = restarts_dhcp, .adding = adding};
  dialogue.desk.set("dhcp_server_enable", "1").set("dhcp_start_ip", "192.168.0.100");
  dialogue.desk.set("dhcp_end_ip", "192.168.0.200");
  dialogue.list = adding ? "" : nas;
  dialogue.wild_list =
      "0:Enable:1\tMAC:ff:ff:ff:ff:ff:ff\tIP:255.255.255.255\tDiscription:" + string(32, '\xff') + "\n";
  auto& rows = dialogue.questions;
  rows.push_back(Question(what_item, one_of("01"),
                          {.only = {"1"}, .required = true, .shown_behind = keep_with_enter + listed + "\n"}));
  rows.push_back(add_or_modify_rule(adding ? "0" : "01"));
  if (!adding) {
    rows.push_back(Question("What item do you want to configure? (0-31):", number(0, 31),
                            {.only = {"00"},
                             .refusal = wrong_choice,
                             .also_refused = {"1", "31"},
                             .required = true,
                             .shown_behind = listed}));
    rows.push_back(Question("Del or Edit ? (0:Delete, 1:Edit):", NumberKind{{{{"1"}, {"1x"}}, {"2", "10", "x", "-1"}}},
                            {.refusal = wrong_choice, .required = true, .shown_behind = keep_with_enter}));
  }
  rows.push_back(Question(client.enable, 1, "Enable this rule?<%d>(0:Disable, 1:Enable):", one_of("01"),
                          {.tame = true, .enter_stores = "0", .marks_free = true}));
  const AddressKind in_pool = {
      {{{"192.168.0.101"}, {"192.168.0.200"}}, {"192.168.0.100", "192.168.0.201", "192.168.0.99", "0.0.0.0", "x"}}};
  rows.push_back(Question(client.ip, "192.168.0.150", "IP?<%u.%u.%u.%u>:", adding ? in_pool : ipv4(),
                          {.refused_when_kept = {"0.0.0.0"}}));
  rows.push_back(Question(client.mac, "00:11:22:aa:bb:cc", "MAC?<%02x:%02x:%02x:%02x:%02x:%02x>:", mac()));
  rows.push_back(Question(client.description, "nas", adding ? "Description?:" : "Description?<%s>:", text(31),
                          {.enter_keeps = true}));
  return dialogue;
}

TEST(Dhcp, StaticClients) {
  hold(clients(true));
  hold(clients(false));

  const Answers edit = {{"What item", "1"}, {"Add new", "1"}, {"What item", "0"}, {"Del or Edit", "1"}};
  const Answers remove = {{"What item", "1"}, {"Add new", "1"}, {"What item", "0"}, {"Del or Edit", "0x"}};
  const string deleted = "static_dhcp_table[0].enable=255";
  Desk desk = desk_of(clients(false));
  hold(dhcp_setting, desk, {Visit(remove, "Del or Edit ? (0:Delete, 1:Edit):" + restarts_dhcp, deleted)});
  Desk off = desk;
  hold(dhcp_setting, off.set("dhcp_server_enable", "0"), {Visit(remove, "1:Edit):" + stops_dhcp, deleted)});
  Desk cut = desk;
  hold(dhcp_setting, cut.set("static_dhcp_table[0].description", "n\\x0aas"),
       {Visit(edit, "Description?<n>:" + restarts_dhcp, "static_dhcp_table[0].description=n\\x00as")});
  Desk full;
  for (auto& client : full.settings.dhcp.static_dhcp_table) {
    client.enable = 200;
  }
  hold(dhcp_setting, full, {Visit({{"What item", "1"}, {"Add new", "0"}}, add_or_modify + table_full)});
  // The lowest free slot is taken; the list shows what is in use.
  full.set("static_dhcp_table[30].enable", "255").set("static_dhcp_table[31].enable", "255");
  full.set("dhcp_start_ip", "1.0.0.1").set("dhcp_end_ip", "1.0.0.9");
  hold(dhcp_setting, full,
       {Visit({{"What item", "1"},
               {"29:Enable:200\tMAC:00:00:00:00:00:00\tIP:0.0.0.0\tDiscription:\n\nAdd new", "0"},
               {"IP?", "1.0.0.9"},
               {"MAC?", "00:00:00:00:00:01"}},
              stops_dhcp,
              "static_dhcp_table[30].enable=0 static_dhcp_table[30].mac=00:00:00:00:00:01 "
              "static_dhcp_table[30].ip=1.0.0.9")});
}

}  // namespace
}  // namespace tests
