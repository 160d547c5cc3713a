#include <gtest/gtest.h>

#include <algorithm>

#include "support/dialogue.h"

namespace tests {
namespace {

using std::string;

const string restarts_filter =
    save + silently("/etc/init.d/filter.sh start") + silently("/etc/init.d/nat.sh start") + setting_saved;

// ---- NAT and UPnP ----

const Item nat_setting = {"Advanced Network Setting", "NAT Setting"};
const Item upnp_setting = {"Advanced Network Setting", "UPNP Setting"};
const string stops_nat = save + silently("/etc/init.d/nat.sh stop") + setting_saved;

// Every second switch on, or all of them.
string nat_status(const string& others, const string& host) {
  return "NAT Enable:<Enable>\nIPSec Pass Through Enable:<" + others +
         ">\nPPTP Pass Through Enable:<Enable>\nL2TP Pass Through Enable:<" + others +
         ">\nSIP ALG Through Enable:<Enable>\nNetMetting ALG Enable:<" + others +
         ">\nDMZ Enable:<Enable>\nDMZ LAN IP:<" + host + ">\n";
}

TEST(Nat, SwitchesAndDmz) {
  auto& nat = fields.nat;
  const string choices = "(0:disable, 1:Enable):";
  Dialogue dialogue = {.item = nat_setting, .opening = listed + "\n" + keep_with_enter, .ending = restarts_filter};
  dialogue.list = nat_status("Disable", "10.1.2.9");
  dialogue.wild_list = nat_status("Enable", "255.255.255.255");
  dialogue.questions = {
      Question(nat.nat_enable, 1, "NAT Enable?<%d>" + choices, one_of("01"), {.only = {"1"}}),
      Question(nat.ipsec_pass_through, 0, "IPSec Pass Through Enable?<%d>" + choices, one_of("01")),
      Question(nat.pptp_pass_through, 1, "PPTP Pass Through Enable?<%d>" + choices, one_of("01")),
      Question(nat.l2tp_pass_through, 0, "L2TP Pass Through Enable?<%d>" + choices, one_of("01")),
      Question(nat.sip_alg, 1, "SIP ALG Enable?<%d>" + choices, one_of("01")),
      Question(nat.netmeeting_alg, 0, "NetMeeting ALG Enable?<%d>" + choices, one_of("01")),
      Question(nat.dmz_enable, 1, "DMZ Enable?<%d>" + choices, one_of("01"), {.only = {"1"}}),
      Question(nat.dmz_ip, "10.1.2.9", "DMZ Lan IP<%u.%u.%u.%u>:", ipv4(), {.refusal = "DMZ Lan IP Error\n"}),
  };
  hold(dialogue);

  Desk desk = desk_of(dialogue);
  hold(nat_setting, desk,
       {Visit({{"NAT Enable?", "0"}}, "NAT Enable?<1>" + choices + stops_nat, "nat_enable=0"),
        Visit({{"DMZ Enable?", "0"}}, "DMZ Enable?<1>" + choices + restarts_filter, "dmz_enable=0 dmz_ip=0.0.0.0")});
  // Whatever is not 0 is on, where it is asked about; the scripts want to see 1.
  desk.set("nat_enable", "2").set("dmz_enable", "3");
  hold(nat_setting, desk, {Visit({{"DMZ Lan IP<10.1.2.9>", ""}}, stops_nat)});
  desk.set("dmz_enable", "0").set("dmz_ip", "0.0.0.0");
  hold(nat_setting, desk, {Visit({{"DMZ Enable?", "1"}}, "DMZ Lan IP<0.0.0.0>:DMZ Lan IP Error\n")});
  desk.set("nat_enable", "0");
  const string off = "DMZ Enable:<Disable>\n\n" + keep_with_enter + "NAT Enable?<0>" + choices + stops_nat;
  hold(nat_setting, desk, {Visit({}, off), Visit({{"NAT Enable?", "0"}}, off)});
}

TEST(Upnp, RunsWhileAddressesAreTranslated) {
  const string starts = save + silently("/etc/init.d/upnpd.sh start") + setting_saved;
  const string stops = save + silently("/etc/init.d/upnpd.sh stop") + setting_saved;
  Dialogue dialogue = {.item = upnp_setting, .opening = "UPNP Enable:<" + listed + ">\n\n" + keep_with_enter};
  dialogue.questions = {Question(fields.upnp_enable, 0, "UPNP Enable?<%d>(0:Disable, 1:Enable):", one_of("01"))};
  dialogue.ending = stops;
  dialogue.list = "Disable";
  dialogue.wild_list = "Enable";
  hold(dialogue);
  Desk desk = desk_of(dialogue);
  hold(upnp_setting, desk.set("nat_enable", "1"),
       {Visit({{"UPNP Enable?", "1"}}, starts, "upnp_enable=1"), Visit({}, stops)});
  hold(upnp_setting, desk.set("upnp_enable", "2"), {Visit({}, stops)});
  hold(upnp_setting, desk.set("upnp_enable", "1").set("nat_enable", "2"), {Visit({}, stops)});
}

// ---- Rule tables ----

const string del_or_edit = "Del or Edit ? (0:Delete, 1:Edit):";

struct Table {
  Item item;
  string name;                     // of the field
  string switched = {};            // as the switch of the whole table is called, if it has one
  std::uint8_t* master = nullptr;  // and its field
  string titles, row, wild_row;    // of its list; a row behind the enable column
  string ending = restarts_filter;
  string enable_column = "     |";
};

// The titles of a list and the line of dashes below them.
string header(const string& titles) {
  string dashes = titles.substr(titles.rfind('\n') + 1);
  std::ranges::transform(dashes, dashes.begin(), [](char c) { return c == '|' ? '+' : '-'; });
  dashes.resize(78, '-');
  return titles + "\n" + dashes + "\n";
}

// The dialogue that adds a rule, in slot 0, or edits rule 3.
Dialogue rules(const Table& table, std::uint8_t& enable, bool adding, const std::vector<Question>& of_its_own) {
  const string list = (table.master != nullptr ? "\n" + table.switched + " Enable:<Enable>\n" : "") + table.titles;
  const string id = " 3:|1" + table.enable_column;
  Dialogue dialogue = {.item = table.item, .opening = listed + "\n", .ending = table.ending, .adding = adding};
  dialogue.list = list + (adding ? "" : id + table.row);
  dialogue.wild_list = list + id + table.wild_row;
  auto& rows = dialogue.questions;
  if (table.master != nullptr) {
    rows.push_back(Question(*table.master, 1, "Enable " + table.switched + " Function?(0:Disable, 1:Enable):",
                            number(0, 1), {.refusal = wrong_choice, .required = true}));
  }
  rows.push_back(Question("Add new rule or Modify old rule ?(0:Add New, 1:Modify):", number(0, 1),
                          {.only = {adding ? "00" : "01"}, .refusal = wrong_choice, .required = true}));
  if (!adding) {
    rows.push_back(Question("What item do you want to configure? (0-31):", number(0, 31),
                            {.only = {"03"},
                             .refusal = wrong_choice,
                             .also_refused = {"2", "4", "31"},
                             .required = true,
                             .shown_behind = listed + "\n"}));
    rows.push_back(
        Question(del_or_edit, number(0, 1),
                 {.only = {"01"}, .refusal = wrong_choice, .required = true, .shown_behind = keep_with_enter}));
  }
  rows.push_back(Question(enable, 1, "Enable this rule?<%d>(0:Disable, 1:Enable):", one_of("01"),
                          {.tame = true, .enter_stores = "0", .marks_free = true}));
  rows = rows + of_its_own;
  return dialogue;
}

// Up to the questions about rule 3, with the whole table switched off where that is asked.
Answers answers(const Table& table, const string& del_or_edit_answer, const Answers& more = {}) {
  const Answers master = {{"Function?", "0"}};
  const Answers way = {{"Add new rule", "1"}, {"What item", "3"}, {"Del or Edit", del_or_edit_answer}};
  return (table.master != nullptr ? master : Answers{}) + way + more;
}

Answers edit(const Table& table, const Answers& more) {
  return answers(table, "1", more);
}

Answers add(const Table& table, const Answers& more) {
  const Answers master = {{"Function?", "1"}};
  return (table.master != nullptr ? master : Answers{}) + Answers{{"Add new rule", "0"}} + more;
}

string master_off(const Table& table) {
  return table.master != nullptr ? replaced(replaced(table.name, "_table", "_enable=0 "), "_rule", "") : "";
}

// What is the same for all tables. Returns the desk with rule 3 stored.
template <typename Record, typename Questions>
Desk hold_rules(const Table& table, std::array<Record, 32>& records, const Questions& questions) {
  hold(rules(table, records[0].enable, true, questions(records[0], true)));
  const Dialogue edited = rules(table, records[3].enable, false, questions(records[3], false));
  hold(edited);
  const Desk desk = desk_of(edited);
  hold(table.item, desk,
       {Visit(answers(table, "00"), del_or_edit + table.ending, master_off(table) + table.name + "[3].enable=255")});
  Desk full;
  for (std::size_t slot = 0; slot < records.size(); ++slot) {
    full.set(table.name + "[" + std::to_string(slot) + "].enable", slot % 2 == 0 ? "0" : "2");
  }
  hold(table.item, full, {Visit(add(table, {}), "(0:Add New, 1:Modify):" + table_full)});
  return desk;
}

// ---- Schedules ----

const string days = "(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):";
const string scheduled = "By Schedule,8:05-17:30,Fri-Mon\n", wild_scheduled = "By Schedule,255:255-255:255,Fri-Mon\n";

std::vector<Question> schedule(config::Schedule& stored, bool adding) {
  const string minutes = "(00,05,10,15,20,25,30,35,40,45,50,55):";
  // In a pass, each answer comes with the same one to the start day.
  const NumberKind end_days = {
      {{{"0", "1000000"}, {"6", "0000001"}, {"5", "1111110"}}, {"7", "Mon", "-1", "0x", "6" + string(1, '\0')}}};
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

TEST(Schedule, DaysAndAlways) {
  const Item item = {"Advanced Network Setting", "Virtual Server Setting"};
  Desk desk;
  desk.set("virtual_server_table[3].enable", "1").set("virtual_server_table[3].private_ip", "1.2.3.4");
  desk.set("virtual_server_table[3].schedule_mode", "2").set("virtual_server_table[3].end_hour", "23");
  const Answers edited = {{"Add new rule", "1"}, {"What item", "3"}, {"Del or Edit", "1"}};
  // The mask that is stored, the days that its prompts show, and what is stored when both are kept.
  const Strings masks[] = {{"1111111", "7", "7", "0000000"}, {"0000000", "7", "7", "0000000"},
                           {"1000000", "0", "0", "1000000"}, {"0000001", "6", "6", "0000001"},
                           {"0111110", "1", "5", "0111110"}, {"1100011", "5", "1", "1100011"},
                           {"1011011", "2", "0", "1011111"}, {"10110x1", "2", "0", "1011111"}};
  for (const Strings& mask : masks) {
    const string name = "virtual_server_table[3].week_mask";
    const string prompts = "Start Day?<" + mask[1] + ">" + days + "End Day?<" + mask[2] + ">" + days;
    hold(item, desk.set(name, mask[0]), {Visit(edited, prompts + restarts_filter, name + "=" + mask[3])});
  }
  // A stored mask without bounds: one day typed, the other kept.
  desk.set("virtual_server_table[3].week_mask", "1111111");
  const string always = replaced("Xschedule_mode=0 Xend_hour=0 Xweek_mask=1000000", "X", "virtual_server_table[3].");
  hold(item, desk,
       {Visit(edited + Answers{{"End Day?", "3"}}, restarts_filter, "virtual_server_table[3].week_mask=1111000"),
        Visit(edited + Answers{{"Start Day?", "3"}}, restarts_filter),
        Visit(edited + Answers{{"Schedule?", "0"}}, "Schedule?<2>(0:Always, 1:By Schedule):" + restarts_filter,
              always)});
  const Strings names = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  for (std::size_t day = 0; day < names.size(); ++day) {
    string mask = "0000000";
    mask[day] = '1';
    Desk listing = desk;
    listing.set("virtual_server_table[3].week_mask", mask);
    EXPECT_NE(visit(listing, item, {{"Add", "x"}}).find("0:00-23:00," + names[day] + "-" + names[day] + "\n"),
              string::npos);
  }
}

// ---- The tables ----

const string any = "255.255.255.255";
const string any_range = any + "-" + any + "|", range = "192.168.  0. 50-192.168.  1.100|";

std::vector<Question> ip_range(config::Ipv4& start, config::Ipv4& end) {
  return {Question(start, "192.168.0.50", "Start IP?<%u.%u.%u.%u>:", ipv4()),
          Question(end, "192.168.1.100", "End IP?<%u.%u.%u.%u>:", ipv4())};
}

Item item(const string& label) {
  return {"Advanced Network Setting", label};
}

Question port(const string& name, std::uint16_t& field, int stored) {
  return Question(field, stored, name + "?<%d>(1~65535):", number(1, 65535));
}

TEST(RuleTables, VirtualServers) {
  const Table table = {.item = item("Virtual Server Setting"),
                       .name = "virtual_server_table",
                       .titles = header("ID:|Enable|Lan IP         |Protocol|Private|Public|Schedule"),
                       .row = "192.168.  0. 10|BOTH    |     80|  8080|" + scheduled,
                       .wild_row = any + "|        |  65535| 65535|" + wild_scheduled};
  Desk desk = hold_rules(table, fields.virtual_server_table, [](auto& rule, bool adding) {
    return std::vector{Question(rule.private_ip, "192.168.0.10", "Private IP?<%u.%u.%u.%u>:", ipv4()),
                       Question(rule.protocol, 2, "Protocol Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012")),
                       port("Private Port", rule.private_port, 80), port("Public Port", rule.public_port, 8080)} +
           schedule(rule.schedule, adding);
  });
  const string added = replaced("Xenable=1 Xprivate_ip=1.2.3.4 Xprivate_port=1 Xpublic_port=2 Xweek_mask=1000000", "X",
                                "virtual_server_table[1].");
  desk.set("virtual_server_table[0].enable", "0").set("virtual_server_table[2].enable", "1");
  desk.set("virtual_server_table[31].enable", "1");
  const string prompt = "Private IP?<0.0.0.0>:";
  hold(
      table.item, desk,
      {Visit({{"Add", "1"}, {"What item", "0"}, {"Del", "0"}}, restarts_filter, "virtual_server_table[0].enable=255"),
       Visit({{"Add", "1"}, {"What item", "31"}, {"Del", "0"}}, restarts_filter, "virtual_server_table[31].enable=255"),
       Visit({{"\n31:|1     |", "0"},
              {"Enable this rule?", "1"},
              {prompt, "1.2.3.4"},
              {"Protocol", "0"},
              {"Private Port", "1"},
              {"Public Port", "2"},
              {"Schedule?", "0"}},
             restarts_filter, added)});
  desk.set("virtual_server_table[3].private_ip", "0.0.0.0");
  hold(table.item, desk, {Visit(edit(table, {{prompt, ""}}), prompt + illegal_value)});
}

TEST(RuleTables, SpecialApplications) {
  const Table table = {.item = item("Application Setting"),
                       .name = "special_application_table",
                       .titles = "   |      |   Trigger   |Public Port|Public|\n" +
                                 header("ID:|Enable|Port  |Type  |Start-  End|Type  |Schedule"),
                       .row = "   21 |UDP   | 6000- 6000|TCP   |" + scheduled,
                       .wild_row = "65535 |      |65535-65535|      |" + wild_scheduled};
  const Desk desk = hold_rules(table, fields.special_application_table, [](auto& rule, bool adding) {
    return std::vector{port("Trigger Port", rule.trigger_port, 21),
                       Question(rule.trigger_type, 1, "Trigger Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012")),
                       port("Public Port Start", rule.public_port_start, 6000),
                       port("Public Port End", rule.public_port_end, 6000),
                       Question(rule.public_type, 0, "Public Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012"))} +
           schedule(rule.schedule, adding);
  });
  const string end = "Public Port End?<6000>(1~65535):" + ip_range_error;
  hold(
      table.item, desk,
      {Visit(edit(table, {{"Public Port Start", "6001"}}), end), Visit(edit(table, {{"Public Port End", "5999"}}), end),
       Visit(add(table, {{"Trigger Port", "1"},
                         {"Trigger Type", "1"},
                         {"Public Port Start", "6000"},
                         {"Public Port End", "5999"}}),
             "Public Port End?<0>(1~65535):" + ip_range_error)});
}

TEST(RuleTables, StaticRoutes) {
  const Table table = {.item = item("Static Route Setting"),
                       .name = "static_route_table",
                       .titles = header("ID:|Enable|Type |Target IP      |Netmask        |Gateway        "),
                       .row = "Net  | 10.  1.  0.  0|255.254.  0.  0|192.168.  0.254\n",
                       .wild_row = "Net  |" + any + "|" + any + "|" + any + "\n",
                       .ending = save + silently("/etc/init.d/staticroute.sh restart") + setting_saved};
  Desk desk = hold_rules(table, fields.static_route_table, [](auto& route, bool /*adding*/) {
    return std::vector{Question(route.route_type, 0, "Type?<%d>(0:Net, 1:Host):", one_of("01"), {.only = {"0"}}),
                       Question(route.route_target, "10.1.0.0", "Target?<%u.%u.%u.%u>:", ipv4()),
                       Question(route.route_netmask, "255.254.0.0", "Netmask?<%u.%u.%u.%u>:", netmask()),
                       Question(route.route_gateway, "192.168.0.254", "Gateway?<%u.%u.%u.%u>:", ipv4())};
  });
  const string added =
      replaced("Xenable=0 Xroute_type=1 Xroute_target=1.2.3.4 Xroute_netmask=255.255.255.255 Xroute_gateway=1.1.1.1",
               "X", "static_route_table[0].");
  hold(table.item, desk,
       {Visit(edit(table, {{"Type?", "1"}, {"Netmask?<255.254.0.0>", ""}}), table.ending,
              "static_route_table[3].route_type=1"),
        Visit(add(table, {{"Type?", "1"}, {"Target?", "1.2.3.4"}, {"Gateway?", "1.1.1.1"}}),
              "Gateway?<0.0.0.0>:" + table.ending, added)});
  desk.set("static_route_table[3].route_type", "2").set("static_route_table[3].route_netmask", "1.2.3.4");
  hold(table.item, desk,
       {Visit(edit(table, {{"Type?<2>", ""}}), "Netmask?<1.2.3.4>:" + illegal_value),
        Visit({{"|Host | 10.  1.  0.  0|  1.  2.  3.  4|192.168.  0.254\n\nAdd", "x"}}, "1:Modify):" + wrong_choice)});
  // A kept mask is judged, and so are the two kept addresses.
  desk.set("static_route_table[3].route_netmask", "0.0.0.0");
  hold(table.item, desk, {Visit(edit(table, {}), "Netmask?<0.0.0.0>:" + illegal_value)});
  desk.set("static_route_table[3].route_netmask", "128.0.0.0").set("static_route_table[3].route_gateway", "0.0.0.0");
  hold(table.item, desk, {Visit(edit(table, {}), "Gateway?<0.0.0.0>:" + illegal_value)});
  desk.set("static_route_table[3].route_target", "0.0.0.0");
  hold(table.item, desk, {Visit(edit(table, {}), "Target?<0.0.0.0>:" + illegal_value)});
}

TEST(RuleTables, MacFilters) {
  const Table table = {.item = item("MAC Filter"),
                       .name = "mac_filter_table",
                       .switched = "MAC Filter",
                       .master = &fields.mac_filter_enable,
                       .titles = header("ID:|Active|MAC Address      |Schedule"),
                       .row = "00:11:22:aa:bb:cc|" + scheduled,
                       .wild_row = "ff:ff:ff:ff:ff:ff|" + wild_scheduled};
  hold_rules(table, fields.mac_filter_table, [](auto& rule, bool adding) {
    return std::vector{
               Question(rule.mac_address, "00:11:22:aa:bb:cc", "MAC Address<%02x:%02x:%02x:%02x:%02x:%02x>:", mac())} +
           schedule(rule.schedule, adding);
  });
}

TEST(RuleTables, IpFilters) {
  const Table table = {.item = item("IP Filter"),
                       .name = "ip_filter_table",
                       .switched = "IP Filter",
                       .master = &fields.ip_filter_enable,
                       .titles = header("ID:|Active|IP RANGE                       |Port Range |Type|Schedule"),
                       .row = range + "  100-  200|UDP |" + scheduled,
                       .wild_row = any_range + "65535-65535|    |" + wild_scheduled};
  Desk desk = hold_rules(table, fields.ip_filter_table, [](auto& rule, bool adding) {
    const std::vector type = {Question(rule.protocol, 1, "Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012"))};
    const std::vector ports = {port("Start Port", rule.start_port, 100), port("End Port", rule.end_port, 200)};
    return ip_range(rule.start_ip, rule.end_ip) + (adding ? ports + type : type + ports) +
           schedule(rule.schedule, adding);
  });
  hold(table.item, desk,
       {Visit(edit(table, {{"Start IP?", "192.168.0.101"}}), ip_range_error),
        Visit(edit(table, {{"End IP?", "192.168.1.49"}}), ip_range_error),
        Visit(edit(table, {{"Start Port", "201"}}), "End Port?<200>(1~65535):" + ip_range_error),
        Visit(edit(table, {{"End Port", "99"}}), "End Port?<200>(1~65535):" + ip_range_error)});
  hold(table.item, desk.set("ip_filter_table[3].end_ip", "0.0.0.0"),
       {Visit(edit(table, {}), "End IP?<0.0.0.0>:" + illegal_value)});
  hold(table.item, desk.set("ip_filter_table[3].start_ip", "0.0.0.0"),
       {Visit(edit(table, {}), "Start IP?<0.0.0.0>:" + illegal_value)});
}

Table string_filters(const string& kind, const string& name, std::uint8_t& master) {
  return {.item = item(kind),
          .name = name,
          .switched = kind,
          .master = &master,
          .titles = header("ID:|Active|IP RANGE                       |" + kind + " String"),
          .row = range + "www.%s\n",
          .wild_row = any_range + string(256, '\xff') + "\n"};
}

TEST(RuleTables, UrlFilters) {
  const Table table = string_filters("URL Filter", "url_filter_table", fields.url_filter_enable);
  Desk desk = hold_rules(table, fields.url_filter_table, [](auto& rule, bool adding) {
    const string prompt =
        adding ? "URL Filter String?(MAX Character:255):" : "URL Filter String?<%s>(MAX Character:255):";
    return ip_range(rule.start_ip, rule.end_ip) +
           std::vector{Question(rule.filter_string, "www.%s", prompt, text(255))};
  });
  hold(table.item, desk, {Visit(edit(table, {{"Start IP?", "192.168.0.101"}}), ip_range_error)});
  // All newlines of the text are cut at once, but not before it is shown.
  desk.set("url_filter_table[3].filter_string", "a\\x0ab\\x0ac");
  hold(table.item, desk,
       {Visit(edit(table, {{"String?<a>", string(256, 't')}}), illegal_value,
              "url_filter_table[3].filter_string=a\\x00b\\x00c"),
        Visit(edit(table, {{"End IP?", "x"}}), illegal_value)});
}

TEST(RuleTables, DomainFilters) {
  const Table table = string_filters("Domain Filter", "domain_filter_table", fields.domain_filter_enable);
  Desk desk = hold_rules(table, fields.domain_filter_table, [](auto& rule, bool /*adding*/) {
    return ip_range(rule.start_ip, rule.end_ip) +
           std::vector{Question(rule.filter_string, "www.%s", "Domain Filter String?(MAX Character:255):", text(255))};
  });
  hold(table.item, desk.set("domain_filter_table[3].filter_string", "a\\x0ab"),
       {Visit(edit(table, {}), "Domain Filter String?(MAX Character:255):" + restarts_filter,
              "domain_filter_enable=0")});
}

// ---- Firewall ----

TEST(RuleTables, Firewall) {
  const string edge = "+-----------+---------+", cells = string(31, '-') + "+--------+-----------\n";
  const string titles = "   " + edge + string(52, '-') +
                        "\n   |           |Interface|IP Range                       |Protocol|Port Range \n   " + edge +
                        cells + "   |source     |";
  const Table table = {
      .item = item("Firewall Setting"),
      .name = "firewall_rule_table",
      .switched = "Firewall",
      .master = &fields.firewall_enable,
      .titles = header("ID:|Active     |Action   |Schedule"),
      .row = "Allow    |" + scheduled + titles + "*        | 10.  0.  0.  1- 10.  0.  0.  5|        |\n" +
             "   |destination|LAN      |  2.  2.  3.  4-  2.  2.  3.  4|BOTH    |   80-   80\n---" + edge + cells,
      .wild_row = "Allow    |" + wild_scheduled + titles + "         |" + any_range +
                  "        |\n   |destination|         |" + any_range + "BOTH    |65535-65535\n---" + edge + cells,
      .enable_column = "          |"};
  const Departures enter_is_zero = {.enter_stores = "0"};
  Desk desk = hold_rules(table, fields.firewall_rule_table, [&](auto& rule, bool adding) {
    return std::vector{Question(rule.action, 1, "Action?<%d>(0:Deny, 1:Allow):", one_of("01"), enter_is_zero),
                       Question(rule.src_interface, 2, "Source interface?<%d>(0:WAN, 1:LAN, 2:ALL):", one_of("012"),
                                enter_is_zero),
                       Question(rule.src_ip_start, "10.0.0.1", "Source IP Range Start?<%u.%u.%u.%u>:", ipv4()),
                       Question(rule.src_ip_end, "10.0.0.5", "Source IP Range End?<%u.%u.%u.%u>:", ipv4()),
                       Question(rule.dst_interface, 1,
                                "Destination interface?<%d>(0:WAN, 1:LAN, 2:ALL):", one_of("012"), enter_is_zero),
                       Question(rule.dst_ip_start, "2.2.3.4", "Destination IP Range Start?<%u.%u.%u.%u>:", ipv4()),
                       Question(rule.dst_ip_end, "2.2.3.4", "Destination IP Range End?<%u.%u.%u.%u>:", ipv4()),
                       Question(rule.protocol, 2, "Protocol?<%d>(0:TCP, 1:UDP, 2:Both, 3:ICMP, 4:ALL):",
                                one_of("01234"), {.only = {"2"}, .also_refused = {"12"}}),
                       port("Destination Port Start", rule.dst_port_start, 80),
                       port("Destination Port End", rule.dst_port_end, 80)} +
           schedule(rule.schedule, adding);
  });
  const string stored = "firewall_rule_table[3].",
               ports_zero = replaced(" Xdst_port_start=0 Xdst_port_end=0", "X", stored);
  const auto rule = [&](const Answers& changes) { return edit(table, changes); };
  std::vector<Visit> visits = {Visit(rule({{"Source IP Range End", "9.0.0.9"}}), ip_range_error),
                               Visit(rule({{"Destination IP Range End", "2.2.3.3"}}), ip_range_error),
                               Visit(rule({{"Port End", "79"}}), ip_range_error),
                               Visit(rule({{"Port Start", "81"}}), ip_range_error)};
  for (const string with_ports : {"0", "1"}) {
    visits.emplace_back(rule({{"Protocol?", with_ports}, {"Destination Port End", ""}}), restarts_filter,
                        master_off(table) + stored + "protocol=" + with_ports);
  }
  for (const string without : {"3", "4"}) {
    visits.emplace_back(rule({{"Protocol?", without}, {"Schedule?", ""}}), restarts_filter,
                        master_off(table) + stored + "protocol=" + without + ports_zero);
  }
  hold(table.item, desk, visits);
  // How a rule of other programs is listed, and what a kept protocol means for the ports.
  struct {
    const char *protocol, *source, *destination, *names[3];
    bool asks, clears;
  } const stored_rules[] = {{"0", "0", "2", {"WAN", "*  ", "TCP "}, true, false},
                            {"1", "1", "0", {"LAN", "WAN", "UDP "}, true, false},
                            {"3", "2", "1", {"*  ", "LAN", "ICMP"}, false, true},
                            {"4", "3", "3", {"   ", "   ", "ALL "}, false, true},
                            {"5", "255", "4", {"   ", "   ", "    "}, false, false}};
  for (const auto& is : stored_rules) {
    desk.set(stored + "action", "0").set(stored + "protocol", is.protocol);
    desk.set(stored + "src_interface", is.source).set(stored + "dst_interface", is.destination);
    const string row = string("   |source     |") + is.names[0] +
                       "      | 10.  0.  0.  1- 10.  0.  0.  5|        |\n   |destination|" + is.names[1] +
                       "      |  2.  2.  3.  4-  2.  2.  3.  4|" + is.names[2] + "    |   80-   80\n";
    Answers answered = rule({{is.asks ? "Destination Port End?<80>" : "Schedule?", ""}});
    answered[0].question = " 3:|1          |Deny     |" + scheduled + titles.substr(0, titles.size() - 16) + row;
    hold(table.item, desk, {Visit(answered, restarts_filter, master_off(table) + (is.clears ? ports_zero : ""))});
  }
}

// ---- Summary ----

TEST(RuleSummary, ListsEachTable) {
  const Item summary = item("Rule Summary");
  const string question =
      "0:Virtual Server Rule List\n1:Special Application Rule List\n2:Static Route Rule List\n"
      "3:MAC Filter Rule List\n4:IP Filter Rule List\n5:URL FIlter Rule List\n6:Domain Filter Rule List\n"
      "7:Firewall Rule List\n\nSelect a list?(0~7):";
  const Strings begins = {"ID:|Enable|Lan IP",
                          "   |      |   Trigger",
                          "ID:|Enable|Type |Target",
                          "\nMAC Filter Enable:<Disable>\nID:",
                          "\nIP Filter Enable:<Disable>\nID:",
                          "\nURL Filter Enable:<Disable>\nID:",
                          "\nDomain Filter Enable:<Disable>\nID:",
                          "\nFirewall Enable:<Disable>\nID:"};
  for (std::size_t list = 0; list < begins.size(); ++list) {
    Desk desk;
    const string shown = visit(desk, summary, {{"Select", std::to_string(list)}});
    EXPECT_TRUE(shown.starts_with(question + "\n" + begins[list])) << shown;
    EXPECT_TRUE(shown.ends_with("-\n\n") && !desk.saved) << shown;
  }
  for (const string wrong : {"", "8", "9", "07", "x", ":", "q"}) {
    hold(summary, {}, {Visit({{"Select", wrong}}, question + wrong_choice)});
  }
}

}  // namespace
}  // namespace tests
