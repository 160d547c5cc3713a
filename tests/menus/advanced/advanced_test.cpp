#include "support/dialogue.h"

namespace tests::advanced_test {

const string restarts_filter =
    save + silently("/etc/init.d/filter.sh start") + silently("/etc/init.d/nat.sh start") + setting_saved;

Item item(const string& label) {
  return {"Advanced Network Setting", label};
}

TEST(Nat, SwitchesAndDmz) {
  auto& nat = fields.nat;
  const string choices = "(0:disable, 1:Enable):";
  const string stops_nat = save + silently("/etc/init.d/nat.sh stop") + setting_saved;
  Dialogue dialogue = {
      .item = item("NAT Setting"), .ending = restarts_filter, .list = "Disable", .wild_list = "Enable"};
  dialogue.opening = "NAT Enable:<Enable>\nIPSec Pass Through Enable:<" + listed +
                     ">\nPPTP Pass Through Enable:<Enable>\nL2TP Pass Through Enable:<" + listed +
                     ">\nSIP ALG Through Enable:<Enable>\nNetMetting ALG Enable:<" + listed +
                     ">\nDMZ Enable:<Enable>\nDMZ LAN IP:<10.1.2.9>\n\n" + keep_with_enter;
  dialogue.questions = {
      Question(nat.nat_enable, 1, "NAT Enable?<%d>" + choices, one_of("01"), {.only = {"1"}}),
      Question(nat.ipsec_pass_through, 0, "IPSec Pass Through Enable?<%d>" + choices, one_of("01")),
      Question(nat.pptp_pass_through, 1, "PPTP Pass Through Enable?<%d>" + choices, one_of("01")),
      Question(nat.l2tp_pass_through, 0, "L2TP Pass Through Enable?<%d>" + choices, one_of("01")),
      Question(nat.sip_alg, 1, "SIP ALG Enable?<%d>" + choices, one_of("01")),
      Question(nat.netmeeting_alg, 0, "NetMeeting ALG Enable?<%d>" + choices, one_of("01")),
      Question(nat.dmz_enable, 1, "DMZ Enable?<%d>" + choices, one_of("01"), {.only = {"1"}}),
      Question(nat.dmz_ip, "10.1.2.9", "DMZ Lan IP<%u.%u.%u.%u>:", ipv4(),
               {.refusal = "DMZ Lan IP Error\n", .refused_when_kept = {"0.0.0.0"}, .tame = true}),
  };
  FactoryDevice device = hold(dialogue);
  hold(dialogue.item, device,
       {Visit({{"NAT Enable?", "0"}}, "NAT Enable?<1>" + choices + stops_nat, "nat_enable=0"),
        Visit({{"DMZ Enable?", "0"}}, "DMZ Enable?<1>" + choices + restarts_filter, "dmz_enable=0 dmz_ip=0.0.0.0")});
  // Whatever is not 0 is on, where it is asked about; the scripts want to see 1.
  device.set("nat_enable", "2").set("dmz_enable", "3");
  hold(dialogue.item, device, {Visit({{"DMZ Lan IP<10.1.2.9>", ""}}, stops_nat)});
}

TEST(Upnp, RunsWhileAddressesAreTranslated) {
  const string stops = save + silently("/etc/init.d/upnpd.sh stop") + setting_saved;
  Dialogue dialogue = {.item = item("UPNP Setting"), .ending = stops, .list = "Disable", .wild_list = "Enable"};
  dialogue.opening = "UPNP Enable:<" + listed + ">\n\n" + keep_with_enter;
  dialogue.questions = {Question(fields.upnp_enable, 0, "UPNP Enable?<%d>(0:Disable, 1:Enable):", one_of("01"))};
  FactoryDevice device = hold(dialogue);
  const string starts = save + silently("/etc/init.d/upnpd.sh start") + setting_saved;
  hold(dialogue.item, device.set("nat_enable", "1"), {Visit({{"UPNP Enable?", "1"}}, starts, "upnp_enable=1")});
  hold(dialogue.item, device.set("upnp_enable", "2"), {Visit({}, stops)});
  hold(dialogue.item, device.set("upnp_enable", "1").set("nat_enable", "2"), {Visit({}, stops)});
}

// ---- What all rule tables share ----

struct Table {
  Item item;
  string row, wild_row;            // of its list, behind the enable digit
  std::uint8_t* master = nullptr;  // the field that switches the whole table, if it has one
  string ending = restarts_filter;
};

// The list of an empty table; docs/menus.md shows it.
string titles(const Table& table) {
  FactoryDevice device;
  const string shown = visit(device, table.item, {});
  return replaced(shown.substr(0, shown.find("\n\n") + 1), "<Disable>", "<Enable>");
}

// The dialogue that adds a rule, in slot 0, or edits rule 3.
Dialogue rules(const Table& table, std::uint8_t& enable, bool adding, const std::vector<Question>& of_its_own) {
  const string list = titles(table), id = " 3:|1";
  Dialogue dialogue = {.item = table.item, .opening = listed + "\n", .ending = table.ending, .adding = adding};
  dialogue.list = list + (adding ? "" : id + table.row);
  dialogue.wild_list = list + id + table.wild_row;
  const auto only = [](const string& answer, const string& shown_behind) {
    return Departures{.only = {answer}, .refusal = wrong_choice, .required = true, .shown_behind = shown_behind};
  };
  auto& rows = dialogue.questions;
  if (table.master != nullptr) {
    const string name = replaced(table.item.label, " Setting", "");
    rows = {Question(*table.master, 1, "Enable " + name + " Function?(0:Disable, 1:Enable):", number(0, 1),
                     {.refusal = wrong_choice, .required = true})};
  }
  rows.push_back(Question("Add new rule or Modify old rule ?(0:Add New, 1:Modify):", number(0, 1),
                          only(adding ? "00" : "01", "")));
  if (!adding) {
    rows.push_back(Question("What item do you want to configure? (0-31):", number(0, 31), only("03", listed + "\n")));
    rows.back().departs.also_refused = {"4"};  // a free slot
    rows.push_back(Question("Del or Edit ? (0:Delete, 1:Edit):", number(0, 1), only("01", keep_with_enter)));
  }
  rows.push_back(Question(enable, 1, "Enable this rule?<%d>(0:Disable, 1:Enable):", one_of("01"),
                          {.tame = true, .enter_stores = "0", .marks_free = true}));
  rows = rows + of_its_own;
  return dialogue;
}

const Answers to_rule = {{"Add new rule", "1"}, {"What item", "3"}, {"Del or Edit", "1"}};
const Answers to_switched_rule = Answers{{"Function?", "1"}} + to_rule;

// Holds a table to its rows. Returns the device with rule 3 stored.
template <typename Record, typename Questions>
FactoryDevice hold_rules(const Table& table, std::array<Record, 32>& records, const Questions& questions) {
  hold(rules(table, records[0].enable, true, questions(records[0], true)));
  return hold(rules(table, records[3].enable, false, questions(records[3], false)));
}

Question address(const string& name, config::Ipv4& field, const char* stored, Place row = Place::current()) {
  return Question(field, stored, name + "?<%u.%u.%u.%u>:", ipv4(), {.refused_when_kept = {"0.0.0.0"}}, row);
}

Question port(const string& name, std::uint16_t& field, int stored, Place row = Place::current()) {
  return Question(field, stored, name + "?<%d>(1~65535):", number(1, 65535), {}, row);
}

const string range = "192.168.  0. 50-192.168.  1.100", any = "255.255.255.255", any_range = any + "-" + any;
std::vector<Question> clients(config::Ipv4& start, config::Ipv4& end) {
  return {address("Start IP", start, "192.168.0.50"), address("End IP", end, "192.168.1.100")};
}

const string days = "(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):";
const string scheduled = "By Schedule,8:05-17:30,Fri-Mon\n", wild_scheduled = "By Schedule,255:255-255:255,Fri-Mon\n";

std::vector<Question> schedule(config::Schedule& stored, bool adding) {
  const string minutes = "(00,05,10,15,20,25,30,35,40,45,50,55):";
  // In a pass, each answer comes with the same one to the start day.
  const Kind end_days = {{{"0", "1000000"}, {"6", "0000001"}, {"5", "1111110"}}, {"7", "Mon", "-1", "0x", "6\0"s}};
  const Strings no_step = {"7", "54", "56", "60"};
  return {
      Question(stored.schedule_mode, 1, "Schedule?<%d>(0:Always, 1:By Schedule):", one_of("01"), {.only = {"1"}}),
      Question(stored.start_hour, 8, "Start Time Hour?<%d>(0~23):", number(0, 23)),
      Question(stored.start_minute, 5, "Start Time Minute?<%d>" + minutes, number(0, 55), {.also_refused = no_step}),
      Question(stored.end_hour, 17, "End Time Hour?<%d>(0~23):", number(0, 23)),
      Question(stored.end_minute, 30, "End Time Minute?<%d>" + minutes, number(0, 55), {.also_refused = no_step}),
      Question((adding ? "Start Day?<0>" : "Start Day?<5>") + days, number(0, 6)),
      Question(stored.week_mask, "1100011", (adding ? "End Day?<0>" : "End Day?<1>") + days, end_days, {.tame = true}),
  };
}

TEST(RuleTables, VirtualServers) {
  const Table table = {.item = item("Virtual Server Setting"),
                       .row = "     |192.168.  9. 99|BOTH    |     80|  8080|" + scheduled,
                       .wild_row = "     |" + any + "|        |  65535| 65535|" + wild_scheduled};
  const FactoryDevice device = hold_rules(table, fields.virtual_server_table, [](auto& rule, bool adding) {
    return std::vector{address("Private IP", rule.private_ip, "192.168.9.99"),
                       Question(rule.protocol, 2, "Protocol Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012")),
                       port("Private Port", rule.private_port, 80), port("Public Port", rule.public_port, 8080)} +
           schedule(rule.schedule, adding);
  });
  hold(table.item, device,
       {Visit(to_rule + Answers{{"Private IP?", "192.168.0.11"}, {"Protocol Type?", "0"}, {"Private Port?", "81"}},
              restarts_filter,
              replaced("Xprotocol=0 Xprivate_ip=192.168.0.11 Xprivate_port=81", "X", "virtual_server_table[3]."))});
}

TEST(RuleTables, SpecialApplications) {
  const Table table = {.item = item("Application Setting"),
                       .row = "     |   21 |UDP   | 6000- 6000|TCP   |" + scheduled,
                       .wild_row = "     |65535 |      |65535-65535|      |" + wild_scheduled};
  FactoryDevice device = hold_rules(table, fields.special_application_table, [](auto& rule, bool adding) {
    return std::vector{port("Trigger Port", rule.trigger_port, 21),
                       Question(rule.trigger_type, 1, "Trigger Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012")),
                       port("Public Port Start", rule.public_port_start, 6000),
                       port("Public Port End", rule.public_port_end, 6000),
                       Question(rule.public_type, 0, "Public Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012"))} +
           schedule(rule.schedule, adding);
  });
  const Answers always = {{"|Always\n\nAdd", "1"}, {"What item", "3"}, {"Edit", "1"}, {"Port End", "5999"}};
  hold(table.item, device.set("special_application_table[3].schedule_mode", "0"), {Visit(always, ip_range_error)});
}

TEST(RuleTables, StaticRoutes) {
  const Table table = {.item = item("Static Route Setting"),
                       .row = "     |Net  | 10.  1.  0.  0|255.254.  0.  0|192.168.  0.254\n",
                       .wild_row = "     |Net  |" + any + "|" + any + "|" + any + "\n",
                       .ending = save + silently("/etc/init.d/staticroute.sh restart") + setting_saved};
  FactoryDevice device = hold_rules(table, fields.static_route_table, [](auto& route, bool /*adding*/) {
    return std::vector{Question(route.route_type, 0, "Type?<%d>(0:Net, 1:Host):", one_of("01"), {.only = {"0"}}),
                       address("Target", route.route_target, "10.1.0.0"),
                       Question(route.route_netmask, "255.254.0.0", "Netmask?<%u.%u.%u.%u>:", netmask(),
                                {.refused_when_kept = {"0.0.0.0", "1.2.3.4"}}),
                       address("Gateway", route.route_gateway, "192.168.0.254")};
  });
  // A new route to a host is not asked for its mask, a stored one is. The last slot is used and listed as well.
  hold(table.item, device,
       {Visit(to_rule + Answers{{"Type?", "1"}, {"Netmask?<255.254.0.0>", ""}}, table.ending,
              "static_route_table[3].route_type=1")});
  device.settings.static_route_table = {};
  hold(table.item, device.set("static_route_table[31].enable", "255"),
       {Visit({{"Add new", "0"}, {"Type?", "1"}, {"Target?", "1.2.3.4"}, {"Gateway?", "1.1.1.1"}}, table.ending,
              replaced("Xenable=0 Xroute_type=1 Xroute_target=1.2.3.4 Xroute_netmask=255.255.255.255 "
                       "Xroute_gateway=1.1.1.1",
                       "X", "static_route_table[31]."))});
  device.set("static_route_table[31].enable", "2").set("static_route_table[31].route_type", "2");
  hold(table.item, device, {Visit({{"\n31:|2     |Host |", "0"}}, "(0:Add New, 1:Modify):" + table_full)});
}

TEST(RuleTables, MacFilters) {
  const Table table = {.item = item("MAC Filter"),
                       .row = "     |00:11:22:aa:bb:cc|" + scheduled,
                       .wild_row = "     |ff:ff:ff:ff:ff:ff|" + wild_scheduled,
                       .master = &fields.mac_filter_enable};
  FactoryDevice device = hold_rules(table, fields.mac_filter_table, [](auto& rule, bool adding) {
    const string prompt = "MAC Address<%02x:%02x:%02x:%02x:%02x:%02x>:";
    return std::vector{Question(rule.mac_address, "00:11:22:aa:bb:cc", prompt, mac())} +
           schedule(rule.schedule, adding);
  });
  // Schedules, with week masks of other programs: the days they are listed with, those shown, and what is kept.
  const string masks[][5] = {{"0000001", "Sat-Sat", "6", "6", "0000001"},
                             {"1001011", "Wed-Sun", "3", "0", "1001111"},
                             {"0011100", "Tue-Thu", "2", "4", "0011100"},
                             {"0000000", "Sun-Sun", "7", "7", "0000000"}};
  const string mask = "mac_filter_table[3].week_mask";
  device.set("mac_filter_table[3].schedule_mode", "2");
  for (const auto& [stored, listed_days, start, end, kept] : masks) {
    Answers answers = to_switched_rule;
    answers[0].question = "By Schedule,8:05-17:30," + listed_days + "\n\nEnable MAC Filter";
    const string shown = "Start Day?<" + start + ">" + days + "End Day?<" + end + ">" + days;
    hold(table.item, device.set(mask, stored), {Visit(answers, shown + restarts_filter, mask + "=" + kept)});
  }
  // The last mask has no bounds: one day typed, the other kept. The switch is stored with a deleted rule as well.
  hold(table.item, device,
       {Visit(to_switched_rule + Answers{{"End Day?", "3"}}, restarts_filter, mask + "=1111000"),
        Visit(to_switched_rule + Answers{{"Start Day?", "3"}}, restarts_filter, mask + "=1111111"),
        Visit(to_switched_rule + Answers{{"Schedule?<2>", "0"}}, restarts_filter,
              replaced("Xschedule_mode=0 Xstart_hour=0 Xstart_minute=0 Xend_hour=0 Xend_minute=0 Xweek_mask=1000000",
                       "X", "mac_filter_table[3].")),
        Visit({{"Function?", "0"}, {"Add new rule", "1"}, {"What item", "3"}, {"Del or Edit", "0"}}, restarts_filter,
              "mac_filter_enable=0 mac_filter_table[3].enable=255")});
}

TEST(RuleTables, IpFilters) {
  const Table table = {.item = item("IP Filter"),
                       .row = "     |" + range + "|  100-  200|UDP |" + scheduled,
                       .wild_row = "     |" + any_range + "|65535-65535|    |" + wild_scheduled,
                       .master = &fields.ip_filter_enable};
  const FactoryDevice device = hold_rules(table, fields.ip_filter_table, [](auto& rule, bool adding) {
    const std::vector type = {Question(rule.protocol, 1, "Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012"))};
    const std::vector ports = {port("Start Port", rule.start_port, 100), port("End Port", rule.end_port, 200)};
    return clients(rule.start_ip, rule.end_ip) + (adding ? ports + type : type + ports) +
           schedule(rule.schedule, adding);
  });
  hold(table.item, device,
       {Visit(to_switched_rule + Answers{{"Start IP?", "192.168.0.101"}}, ip_range_error),
        Visit(to_switched_rule + Answers{{"Start Port", "201"}}, ip_range_error),
        Visit(to_switched_rule + Answers{{"Start IP?", "192.168.0.51"}, {"Type?", "0"}}, restarts_filter,
              "ip_filter_table[3].protocol=0 ip_filter_table[3].start_ip=192.168.0.51")});
}

TEST(RuleTables, UrlAndDomainFilters) {
  const auto hold_filters = [](const string& kind, std::uint8_t& master, auto& filters, const string& shown) {
    const Table table = {.item = item(kind),
                         .row = "     |" + range + "|www.%s\n",
                         .wild_row = "     |" + any_range + "|" + string(256, '\xff') + "\n",
                         .master = &master};
    return hold_rules(table, filters, [&](auto& rule, bool adding) {
      const string asked = kind + " String?" + (adding ? "" : shown) + "(MAX Character:255):";
      return clients(rule.start_ip, rule.end_ip) +
             std::vector{Question(rule.filter_string, "www.%s", asked, text(255))};
    });
  };
  FactoryDevice url = hold_filters("URL Filter", fields.url_filter_enable, fields.url_filter_table, "<%s>");
  FactoryDevice domain = hold_filters("Domain Filter", fields.domain_filter_enable, fields.domain_filter_table, "");
  // All newlines of a URL are cut at once, but not before it is shown; a domain is neither shown nor cut.
  hold(item("URL Filter"), url.set("url_filter_table[3].filter_string", "a\\x0ab\\x0ac"),
       {Visit(to_switched_rule + Answers{{"String?<a>", string(256, 't')}}, illegal_value,
              "url_filter_table[3].filter_string=a\\x00b\\x00c"),
        Visit(to_switched_rule + Answers{{"End IP?", "x"}}, illegal_value)});
  hold(item("Domain Filter"), domain.set("domain_filter_table[3].filter_string", "a\\x0ab"),
       {Visit(to_switched_rule, "Character:255):" + restarts_filter)});
}

// A rule behind its action: schedule, and a table of source and destination.
string firewall_row(const string& schedule, const string& source, const string& destination, const string& protocol) {
  const string edge = "+-----------+---------+", cells = string(31, '-') + "+--------+-----------\n";
  return schedule + "   " + edge + string(52, '-') +
         "\n   |           |Interface|IP Range                       |Protocol|Port Range \n   " + edge + cells +
         "   |source     |" + source + "|        |\n   |destination|" + destination + "|" + protocol + "\n---" + edge +
         cells;
}

TEST(RuleTables, Firewall) {
  const string from = "      | 10.  0.  0.  1- 10.  0.  0.  5", to = "      |  2.  2.  3.  4-  2.  2.  3.  4";
  const string ports = "    |   80-   80", wild = "         |" + any_range;
  const Table table = {
      .item = item("Firewall Setting"),
      .row = "          |Allow    |" + firewall_row(scheduled, "*  " + from, "LAN" + to, "BOTH" + ports),
      .wild_row = "          |Allow    |" + firewall_row(wild_scheduled, wild, wild, "BOTH    |65535-65535"),
      .master = &fields.firewall_enable};
  FactoryDevice device = hold_rules(table, fields.firewall_rule_table, [&](auto& rule, bool adding) {
    const string interfaces = " interface?<%d>(0:WAN, 1:LAN, 2:ALL):";
    const Departures or_zero = {.enter_stores = "0"};
    return std::vector{Question(rule.action, 1, "Action?<%d>(0:Deny, 1:Allow):", one_of("01"), or_zero),
                       Question(rule.src_interface, 2, "Source" + interfaces, one_of("012"), or_zero),
                       address("Source IP Range Start", rule.src_ip_start, "10.0.0.1"),
                       address("Source IP Range End", rule.src_ip_end, "10.0.0.5"),
                       Question(rule.dst_interface, 1, "Destination" + interfaces, one_of("012"), or_zero),
                       address("Destination IP Range Start", rule.dst_ip_start, "2.2.3.4"),
                       address("Destination IP Range End", rule.dst_ip_end, "2.2.3.4"),
                       Question(rule.protocol, 2, "Protocol?<%d>(0:TCP, 1:UDP, 2:Both, 3:ICMP, 4:ALL):",
                                one_of("01234"), {.only = {"2"}, .also_refused = {"12"}}),
                       port("Destination Port Start", rule.dst_port_start, 80),
                       port("Destination Port End", rule.dst_port_end, 80)} +
           schedule(rule.schedule, adding);
  });
  // What a protocol of a stored rule is listed as, and whether it clears the ports.
  const string rule = "firewall_rule_table[3].", no_ports = replaced("Xdst_port_start=0 Xdst_port_end=0", "X", rule);
  hold(table.item, device,
       {Visit(to_switched_rule + Answers{{"Port End", "79"}}, ip_range_error),
        Visit(to_switched_rule + Answers{{"Protocol?", "4"}}, restarts_filter, no_ports + " " + rule + "protocol=4")});
  device.set(rule + "action", "0").set(rule + "src_interface", "0");
  for (const auto& [protocol, name] : std::map<string, string>{{"3", "ICMP"}, {"4", "ALL "}, {"5", "    "}}) {
    Answers kept = to_switched_rule + Answers{{"Schedule?", ""}};
    kept[0].question = "|Deny     |" + firewall_row(scheduled, "WAN" + from, "LAN" + to, name + ports);
    hold(table.item, device.set(rule + "protocol", protocol),
         {Visit(kept, restarts_filter, protocol == "5" ? "" : no_ports)});
  }
}

}  // namespace tests::advanced_test
