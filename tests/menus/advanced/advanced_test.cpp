#include <gtest/gtest.h>

#include <algorithm>

#include "support/dialogue.h"

namespace tests {
namespace {

using std::string;

const string restarts_filter =
    save + silently("/etc/init.d/filter.sh start") + silently("/etc/init.d/nat.sh start") + setting_saved;

Item item(const string& label) {
  return {"Advanced Network Setting", label};
}

// ---- NAT and UPnP ----

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
  Dialogue dialogue = {.item = item("NAT Setting"), .ending = restarts_filter};
  dialogue.opening = listed + "\n" + keep_with_enter;
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
  hold(dialogue.item, desk,
       {Visit({{"NAT Enable?", "0"}}, "NAT Enable?<1>" + choices + stops_nat, "nat_enable=0"),
        Visit({{"DMZ Enable?", "0"}}, "DMZ Enable?<1>" + choices + restarts_filter, "dmz_enable=0 dmz_ip=0.0.0.0")});
  // Whatever is not 0 is on, where it is asked about; the scripts want to see 1.
  desk.set("nat_enable", "2").set("dmz_enable", "3");
  hold(dialogue.item, desk, {Visit({{"DMZ Lan IP<10.1.2.9>", ""}}, stops_nat)});
  desk.set("dmz_enable", "0").set("dmz_ip", "0.0.0.0");
  hold(dialogue.item, desk, {Visit({{"DMZ Enable?", "1"}}, "DMZ Lan IP<0.0.0.0>:DMZ Lan IP Error\n")});
  const string off = "DMZ Enable:<Disable>\n\n" + keep_with_enter + "NAT Enable?<0>" + choices + stops_nat;
  hold(dialogue.item, desk.set("nat_enable", "0"), {Visit({}, off), Visit({{"NAT Enable?", "0"}}, off)});
}

TEST(Upnp, RunsWhileAddressesAreTranslated) {
  const string stops = save + silently("/etc/init.d/upnpd.sh stop") + setting_saved;
  Dialogue dialogue = {.item = item("UPNP Setting"), .ending = stops, .list = "Disable", .wild_list = "Enable"};
  dialogue.opening = "UPNP Enable:<" + listed + ">\n\n" + keep_with_enter;
  dialogue.questions = {Question(fields.upnp_enable, 0, "UPNP Enable?<%d>(0:Disable, 1:Enable):", one_of("01"))};
  hold(dialogue);

  Desk desk = desk_of(dialogue);
  const string starts = save + silently("/etc/init.d/upnpd.sh start") + setting_saved;
  hold(dialogue.item, desk.set("nat_enable", "1"),
       {Visit({{"UPNP Enable?", "1"}}, starts, "upnp_enable=1"), Visit({}, stops)});
  hold(dialogue.item, desk.set("upnp_enable", "2"), {Visit({}, stops)});
  hold(dialogue.item, desk.set("upnp_enable", "1").set("nat_enable", "2"), {Visit({}, stops)});
}

// ---- What all rule tables share ----

struct Table {
  Item item;
  string name;                   // of the field
  string titles, row, wild_row;  // of its list; a row behind the enable column
  string number;                 // in the summary
  // What its switch is called, and its field, if it has one that switches the whole table.
  string switched = {};
  std::uint8_t* master = nullptr;
  Answers descending = {};  // each makes a range of addresses or ports of an edited rule descend
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
  const auto only = [](const string& answer, const string& shown_behind) {
    return Departures{.only = {answer}, .refusal = wrong_choice, .required = true, .shown_behind = shown_behind};
  };
  auto& rows = dialogue.questions;
  if (table.master != nullptr) {
    rows = {Question(*table.master, 1, "Enable " + table.switched + " Function?(0:Disable, 1:Enable):", number(0, 1),
                     {.refusal = wrong_choice, .required = true})};
  }
  rows.push_back(Question("Add new rule or Modify old rule ?(0:Add New, 1:Modify):", number(0, 1),
                          only(adding ? "00" : "01", "")));
  if (!adding) {
    NumberKind numbers = number(0, 31);
    numbers.refused = numbers.refused + Strings{"2", "4", "31"};  // of free slots
    rows.push_back(Question("What item do you want to configure? (0-31):", numbers, only("03", listed + "\n")));
    rows.push_back(Question("Del or Edit ? (0:Delete, 1:Edit):", number(0, 1), only("01", keep_with_enter)));
  }
  rows.push_back(Question(enable, 1, "Enable this rule?<%d>(0:Disable, 1:Enable):", one_of("01"),
                          {.tame = true, .enter_stores = "0", .marks_free = true}));
  rows = rows + of_its_own;
  return dialogue;
}

// The answers that lead to a new rule, or to rule 3, and those to its questions.
Answers change(const Table& table, const Answers& to_the_rule, const Answers& more) {
  return (table.master != nullptr ? Answers{{"Function?", "1"}} : Answers{}) + to_the_rule + more;
}
Answers add(const Table& table, const Answers& more) {
  return change(table, {{"Add new rule", "0"}}, more);
}
Answers edit(const Table& table, const Answers& more) {
  return change(table, {{"Add new rule", "1"}, {"What item", "3"}, {"Del or Edit", "1"}}, more);
}
Answers remove(const Table& table, const string& rule) {
  return change(table, {{"Add new rule", "1"}, {"What item", rule}, {"Del or Edit", "00"}}, {});
}

// Holds a table to its rows, and to what is the same for all. Returns the desk with rule 3 stored.
template <typename Record, typename Questions>
Desk hold_rules(const Table& table, std::array<Record, 32>& records, const Questions& questions) {
  hold(rules(table, records[0].enable, true, questions(records[0], true)));
  const Dialogue edited = rules(table, records[3].enable, false, questions(records[3], false));
  hold(edited);
  const Desk desk = desk_of(edited);
  hold(item("Rule Summary"), desk, {Visit({{"Select a list?", table.number}}, "):\n" + edited.list + "\n")});
  for (const Answer& answer : table.descending) {
    hold(table.item, desk, {Visit(edit(table, {answer}), ip_range_error)});
  }
  Desk full = desk;
  for (std::size_t slot = 0; slot < records.size(); ++slot) {
    full.set(table.name + "[" + std::to_string(slot) + "].enable", slot % 2 == 0 ? "0" : "2");
  }
  hold(table.item, full,
       {Visit(add(table, {}), "(0:Add New, 1:Modify):" + table_full),
        Visit(remove(table, "0"), table.ending, table.name + "[0].enable=255"),
        Visit(remove(table, "31"), table.ending, table.name + "[31].enable=255")});
  return desk;
}

Question address(const string& name, config::Ipv4& field, const char* stored, Place row = here()) {
  return Question(field, stored, name + "?<%u.%u.%u.%u>:", ipv4(), {.refused_when_kept = {"0.0.0.0"}}, row);
}

Question port(const string& name, std::uint16_t& field, int stored, Place row = here()) {
  return Question(field, stored, name + "?<%d>(1~65535):", number(1, 65535), {}, row);
}

const string range = "192.168.  0. 50-192.168.  1.100", any = "255.255.255.255", any_range = any + "-" + any;
std::vector<Question> clients(config::Ipv4& start, config::Ipv4& end) {
  return {address("Start IP", start, "192.168.0.50"), address("End IP", end, "192.168.1.100")};
}
const Answers descending_clients = {{"Start IP?", "192.168.0.101"}, {"End IP?", "192.168.1.49"}};

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
  Table table;
  table.item = item("MAC Filter");
  table.master = &fields.mac_filter_enable;
  const string mask = "mac_filter_table[3].week_mask";
  Desk desk;
  desk.set("mac_filter_enable", "1").set("mac_filter_table[3].enable", "1");
  desk.set("mac_filter_table[3].schedule_mode", "2").set("mac_filter_table[3].end_hour", "23");
  struct {
    const char *stored, *days_listed;
    int start_shown, end_shown;
    const char* kept;  // what is stored then
  } const masks[] = {
      {"1000000", "Sun-Sun", 0, 0, "1000000"}, {"0100000", "Mon-Mon", 1, 1, "0100000"},
      {"0010000", "Tue-Tue", 2, 2, "0010000"}, {"0001000", "Wed-Wed", 3, 3, "0001000"},
      {"0000100", "Thu-Thu", 4, 4, "0000100"}, {"0000010", "Fri-Fri", 5, 5, "0000010"},
      {"0000001", "Sat-Sat", 6, 6, "0000001"}, {"0111110", "Mon-Fri", 1, 5, "0111110"},
      {"1100011", "Fri-Mon", 5, 1, "1100011"}, {"1011011", "Tue-Sun", 2, 0, "1011111"},
      {"10110x1", "Tue-Sun", 2, 0, "1011111"}, {"0000000", "Sun-Sun", 7, 7, "0000000"},
      {"1111111", "Sun-Sun", 7, 7, "0000000"},
  };
  for (const auto& is : masks) {
    Answers answers = edit(table, {});
    answers[0].question = "By Schedule,0:00-23:00," + string(is.days_listed) + "\n\nEnable MAC Filter";
    const string start = "Start Day?<" + std::to_string(is.start_shown) + ">" + days;
    const string end = "End Day?<" + std::to_string(is.end_shown) + ">" + days;
    hold(table.item, desk.set(mask, is.stored), {Visit(answers, start + end + restarts_filter, mask + "=" + is.kept)});
  }
  // The last mask has no bounds: one day typed, the other kept.
  const string always = replaced("Xschedule_mode=0 Xend_hour=0 Xweek_mask=1000000", "X", "mac_filter_table[3].");
  hold(table.item, desk,
       {Visit(edit(table, {{"End Day?", "3"}}), restarts_filter, mask + "=1111000"),
        Visit(edit(table, {{"Start Day?", "3"}}), restarts_filter),
        Visit(edit(table, {{"Schedule?", "0"}}), "Schedule?<2>(0:Always, 1:By Schedule):" + restarts_filter, always)});
}

// ---- The tables ----

TEST(RuleTables, VirtualServers) {
  const Table table = {.item = item("Virtual Server Setting"),
                       .name = "virtual_server_table",
                       .titles = header("ID:|Enable|Lan IP         |Protocol|Private|Public|Schedule"),
                       .row = "192.168.  0. 10|BOTH    |     80|  8080|" + scheduled,
                       .wild_row = any + "|        |  65535| 65535|" + wild_scheduled,
                       .number = "0"};
  Desk desk = hold_rules(table, fields.virtual_server_table, [](auto& rule, bool adding) {
    return std::vector{address("Private IP", rule.private_ip, "192.168.0.10"),
                       Question(rule.protocol, 2, "Protocol Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012")),
                       port("Private Port", rule.private_port, 80), port("Public Port", rule.public_port, 8080)} +
           schedule(rule.schedule, adding);
  });
  // A free slot between others.
  desk.set("virtual_server_table[0].enable", "0").set("virtual_server_table[2].enable", "1");
  desk.set("virtual_server_table[31].enable", "1");
  Answers added = add(table, {{"Enable this rule?", "1"}, {"Private IP", "1.2.3.4"}, {"Protocol", "0"}}) +
                  Answers{{"Private Port", "1"}, {"Public Port", "2"}, {"Schedule?", "0"}};
  added[0].question = "\n31:|1     |";
  hold(table.item, desk,
       {Visit(added, restarts_filter,
              replaced("Xenable=1 Xprivate_ip=1.2.3.4 Xprivate_port=1 Xpublic_port=2 Xweek_mask=1000000", "X",
                       "virtual_server_table[1]."))});
}

TEST(RuleTables, SpecialApplications) {
  const Table table = {.item = item("Application Setting"),
                       .name = "special_application_table",
                       .titles = "   |      |   Trigger   |Public Port|Public|\n" +
                                 header("ID:|Enable|Port  |Type  |Start-  End|Type  |Schedule"),
                       .row = "   21 |UDP   | 6000- 6000|TCP   |" + scheduled,
                       .wild_row = "65535 |      |65535-65535|      |" + wild_scheduled,
                       .number = "1",
                       .descending = {{"Public Port Start", "6001"}, {"Public Port End", "5999"}}};
  const Desk desk = hold_rules(table, fields.special_application_table, [](auto& rule, bool adding) {
    return std::vector{port("Trigger Port", rule.trigger_port, 21),
                       Question(rule.trigger_type, 1, "Trigger Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012")),
                       port("Public Port Start", rule.public_port_start, 6000),
                       port("Public Port End", rule.public_port_end, 6000),
                       Question(rule.public_type, 0, "Public Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012"))} +
           schedule(rule.schedule, adding);
  });
  const Answers trigger = {{"Trigger Port", "1"}, {"Trigger Type", "1"}};
  const Answers ports = {{"Public Port Start", "6000"}, {"Public Port End?<0>", "5999"}};
  hold(table.item, desk, {Visit(add(table, trigger + ports), ip_range_error)});
}

TEST(RuleTables, StaticRoutes) {
  const Table table = {.item = item("Static Route Setting"),
                       .name = "static_route_table",
                       .titles = header("ID:|Enable|Type |Target IP      |Netmask        |Gateway        "),
                       .row = "Net  | 10.  1.  0.  0|255.254.  0.  0|192.168.  0.254\n",
                       .wild_row = "Net  |" + any + "|" + any + "|" + any + "\n",
                       .number = "2",
                       .ending = save + silently("/etc/init.d/staticroute.sh restart") + setting_saved};
  Desk desk = hold_rules(table, fields.static_route_table, [](auto& route, bool /*adding*/) {
    return std::vector{Question(route.route_type, 0, "Type?<%d>(0:Net, 1:Host):", one_of("01"), {.only = {"0"}}),
                       address("Target", route.route_target, "10.1.0.0"),
                       Question(route.route_netmask, "255.254.0.0", "Netmask?<%u.%u.%u.%u>:", netmask(),
                                {.refused_when_kept = {"0.0.0.0", "1.2.3.4"}}),
                       address("Gateway", route.route_gateway, "192.168.0.254")};
  });
  // A new route to a host is not asked for its mask, a stored one is.
  const string added =
      replaced("Xenable=0 Xroute_type=1 Xroute_target=1.2.3.4 Xroute_netmask=255.255.255.255 Xroute_gateway=1.1.1.1",
               "X", "static_route_table[0].");
  hold(table.item, desk,
       {Visit(edit(table, {{"Type?", "1"}, {"Netmask?<255.254.0.0>", ""}}), table.ending,
              "static_route_table[3].route_type=1"),
        Visit(add(table, {{"Type?", "1"}, {"Target?", "1.2.3.4"}, {"Gateway?", "1.1.1.1"}}),
              "Gateway?<0.0.0.0>:" + table.ending, added)});
  desk.set("static_route_table[3].route_type", "2");
  hold(table.item, desk,
       {Visit({{" 3:|1     |Host | 10.  1.  0.  0|", "1"}, {"What item", "3"}, {"Del", "1"}, {"Netmask?", ""}},
              table.ending)});
}

TEST(RuleTables, MacFilters) {
  const Table table = {.item = item("MAC Filter"),
                       .name = "mac_filter_table",
                       .titles = header("ID:|Active|MAC Address      |Schedule"),
                       .row = "00:11:22:aa:bb:cc|" + scheduled,
                       .wild_row = "ff:ff:ff:ff:ff:ff|" + wild_scheduled,
                       .number = "3",
                       .switched = "MAC Filter",
                       .master = &fields.mac_filter_enable};
  const Desk desk = hold_rules(table, fields.mac_filter_table, [](auto& rule, bool adding) {
    const string prompt = "MAC Address<%02x:%02x:%02x:%02x:%02x:%02x>:";
    return std::vector{Question(rule.mac_address, "00:11:22:aa:bb:cc", prompt, mac())} +
           schedule(rule.schedule, adding);
  });
  // The switch of the table is stored with a rule that is deleted as well.
  Answers deleted = remove(table, "3");
  deleted[0].typed = "0";
  hold(table.item, desk, {Visit(deleted, restarts_filter, "mac_filter_enable=0 mac_filter_table[3].enable=255")});
}

TEST(RuleTables, IpFilters) {
  const Table table = {.item = item("IP Filter"),
                       .name = "ip_filter_table",
                       .titles = header("ID:|Active|IP RANGE                       |Port Range |Type|Schedule"),
                       .row = range + "|  100-  200|UDP |" + scheduled,
                       .wild_row = any_range + "|65535-65535|    |" + wild_scheduled,
                       .number = "4",
                       .switched = "IP Filter",
                       .master = &fields.ip_filter_enable,
                       .descending = descending_clients + Answers{{"Start Port", "201"}, {"End Port", "99"}}};
  hold_rules(table, fields.ip_filter_table, [](auto& rule, bool adding) {
    const std::vector type = {Question(rule.protocol, 1, "Type?<%d>(0:TCP, 1:UDP, 2:Both):", one_of("012"))};
    const std::vector ports = {port("Start Port", rule.start_port, 100), port("End Port", rule.end_port, 200)};
    return clients(rule.start_ip, rule.end_ip) + (adding ? ports + type : type + ports) +
           schedule(rule.schedule, adding);
  });
}

Table string_filters(const string& kind, const string& name, const string& number, std::uint8_t& master) {
  return {.item = item(kind),
          .name = name,
          .titles = header("ID:|Active|IP RANGE                       |" + kind + " String"),
          .row = range + "|www.%s\n",
          .wild_row = any_range + "|" + string(256, '\xff') + "\n",
          .number = number,
          .switched = kind,
          .master = &master,
          .descending = descending_clients};
}

TEST(RuleTables, UrlFilters) {
  const Table table = string_filters("URL Filter", "url_filter_table", "5", fields.url_filter_enable);
  Desk desk = hold_rules(table, fields.url_filter_table, [](auto& rule, bool adding) {
    const string prompt = "URL Filter String?" + string(adding ? "" : "<%s>") + "(MAX Character:255):";
    return clients(rule.start_ip, rule.end_ip) + std::vector{Question(rule.filter_string, "www.%s", prompt, text(255))};
  });
  // All newlines of the text are cut at once, but not before it is shown.
  desk.set("url_filter_table[3].filter_string", "a\\x0ab\\x0ac");
  hold(table.item, desk,
       {Visit(edit(table, {{"String?<a>", string(256, 't')}}), illegal_value,
              "url_filter_table[3].filter_string=a\\x00b\\x00c"),
        Visit(edit(table, {{"End IP?", "x"}}), illegal_value)});
}

TEST(RuleTables, DomainFilters) {
  const Table table = string_filters("Domain Filter", "domain_filter_table", "6", fields.domain_filter_enable);
  const string prompt = "Domain Filter String?(MAX Character:255):";
  Desk desk = hold_rules(table, fields.domain_filter_table, [&](auto& rule, bool /*adding*/) {
    return clients(rule.start_ip, rule.end_ip) + std::vector{Question(rule.filter_string, "www.%s", prompt, text(255))};
  });
  desk.set("domain_filter_table[3].filter_string", "a\\x0ab");
  hold(table.item, desk, {Visit(edit(table, {}), prompt + restarts_filter)});
}

// ---- Firewall ----

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
  const Table table = {.item = item("Firewall Setting"),
                       .name = "firewall_rule_table",
                       .titles = header("ID:|Active     |Action   |Schedule"),
                       .row = "Allow    |" + firewall_row(scheduled, "*  " + from, "LAN" + to, "BOTH" + ports),
                       .wild_row = "Allow    |" + firewall_row(wild_scheduled, wild, wild, "BOTH    |65535-65535"),
                       .number = "7",
                       .switched = "Firewall",
                       .master = &fields.firewall_enable,
                       .descending = {{"Source IP Range End", "9.0.0.9"},
                                      {"Destination IP Range End", "2.2.3.3"},
                                      {"Port End", "79"},
                                      {"Port Start", "81"}},
                       .enable_column = "          |"};
  Desk desk = hold_rules(table, fields.firewall_rule_table, [&](auto& rule, bool adding) {
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
  // How rules of other programs are listed, and what a protocol means for the ports, typed or kept.
  struct {
    const char *protocol, *source, *destination, *protocol_listed, *source_listed, *destination_listed;
    bool ports_asked, ports_cleared;
  } const stored_rules[] = {{"0", "0", "2", "TCP ", "WAN", "*  ", true, false},
                            {"1", "1", "0", "UDP ", "LAN", "WAN", true, false},
                            {"3", "2", "1", "ICMP", "*  ", "LAN", false, true},
                            {"4", "3", "3", "ALL ", "   ", "   ", false, true},
                            {"5", "255", "4", "    ", "   ", "   ", false, false}};
  const string rule = "firewall_rule_table[3].";
  for (const auto& is : stored_rules) {
    const string ports_zero = is.ports_cleared ? replaced(" Xdst_port_start=0 Xdst_port_end=0", "X", rule) : "";
    const Answer next = {is.ports_asked ? "Destination Port End?<80>" : "Schedule?", ""};
    if (is.protocol != string("5")) {
      hold(table.item, desk,
           {Visit(edit(table, {{"Protocol?", is.protocol}, next}), restarts_filter,
                  rule + "protocol=" + is.protocol + ports_zero)});
    }
    Desk stored = desk;
    stored.set(rule + "action", "0").set(rule + "protocol", is.protocol);
    stored.set(rule + "src_interface", is.source).set(rule + "dst_interface", is.destination);
    Answers kept = edit(table, {next});
    kept[0].question =
        " 3:|1          |Deny     |" +
        firewall_row(scheduled, is.source_listed + from, is.destination_listed + to, is.protocol_listed + ports);
    hold(table.item, stored, {Visit(kept, restarts_filter, ports_zero)});
  }
}

// ---- Summary ----

TEST(RuleSummary, NamesTheTables) {
  const string question =
      "0:Virtual Server Rule List\n1:Special Application Rule List\n2:Static Route Rule List\n"
      "3:MAC Filter Rule List\n4:IP Filter Rule List\n5:URL FIlter Rule List\n6:Domain Filter Rule List\n"
      "7:Firewall Rule List\n\nSelect a list?(0~7):";
  for (const string wrong : {"", "8", "9", "07", "x", ":", "q"}) {
    Desk desk;
    EXPECT_EQ(visit(desk, item("Rule Summary"), {{"Select", wrong}}), question + wrong_choice);
  }
}

}  // namespace
}  // namespace tests
