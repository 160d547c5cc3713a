// Every rule table through the one dialogue. Slot 0 holds what a broken program may leave, 0xFF throughout
// but for the enable byte; slot 1 is free with 0xEE in it; the others are free.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "config/field_table.h"
#include "menus/advanced/schedule.h"
#include "support/session.h"

namespace tests {
namespace {

using std::string;

const string wrong_choice = "Your select is wrong!!\n\n", range_error = "IP Range Error!!\n\n";
const string illegal_value = "Your input value is illegal!!\n\n";
const string keep_with_enter =
    "Please answer the question and use [enter] to keep original setting value\n\n";
const string add_or_modify = "Add new rule or Modify old rule ?(0:Add New, 1:Modify):";
const string done = "Setting Save!!\n\n", which_item = "What item do you want to configure? (0-31):";
const string del_or_edit = "Del or Edit ? (0:Delete, 1:Edit):";
const string long_text(255, 'u');

enum Kind { choice, optional, port, hour, minute, day, address, netmask, mac, text };
struct {
  string zero, other;  // what Add shows; what Edit is answered
  std::vector<string> refused;
} const kinds[] = {
    {"0", "0", {"02", "x"}},
    {"0", "0", {"01", "x"}},
    {"0", "65535", {"0", "65536", "8o", "4294967297"}},
    {"0", "", {"24", "-1"}},
    {"0", "", {"7", "60"}},
    {"0", "", {"7", "Mon"}},
    {"0.0.0.0", "10.0.0.5", {"0.0.0.0", "1.2.3", "1.2.3.256"}},
    {"0.0.0.0", "255.255.255.0", {"255.0.255.0", "0.0.0.0"}},
    {"00:00:00:00:00:00",
     "00:00:00:00:00:00",
     {"00-11-22-33-44-55", "0:11:22:33:44:55", "00:11:22:33:44:5g"}},
    {"", long_text, {long_text + "u", string(511, 'u')}},
};

struct Step {
  Kind kind;
  string prompt, field, answer;  // * is the value shown
  string beyond = {};            // the first digit behind the choices; an answer below the start of the range
};

struct Table {
  string name;
  int item;
  string master, master_field;  // of the switch that is asked and listed
  string header, hostile_row, row;
  std::vector<Step> steps;
};

const string any = "255.255.255.255", column = "By Schedule,8:05-17:30,Fri-Mon\n";
const string hostile_column = "By Schedule,255:255-255:255,Sun-Sun\n";
const string wide_rows[] = {" 0:|1     |" + any + "-" + any + "|",
                            " 1:|1     |192.168.  0. 50-192.168.  1.100|"};
const string fw_end = "---+-----------+---------+-------------------------------+--------+-----------\n";
const string fw_lines =
    "   +-----------+---------+----------------------------------------------------\n"
    "   |           |Interface|IP Range                       |Protocol|Port Range \n"
    "   " +
    fw_end.substr(3) + "   |source     |";

std::vector<Step> rule(std::vector<Step> steps) {
  steps.insert(steps.begin(), {optional, "Enable this rule?<*>(0:Disable, 1:Enable):", "enable", "1", "2"});
  return steps;
}
std::vector<Step> ranged(std::vector<Step> steps) {
  steps.insert(steps.begin(), {{address, "Start IP?<*>:", "start_ip", "192.168.0.50"},
                               {address, "End IP?<*>:", "end_ip", "192.168.1.100", "192.168.1.49"}});
  return rule(steps);
}
std::vector<Step> scheduled(std::vector<Step> steps) {
  const string minutes = "(00,05,10,15,20,25,30,35,40,45,50,55):";
  const string days = "(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):";
  steps.insert(steps.end(),
               {{choice, "Schedule?<*>(0:Always, 1:By Schedule):", "schedule_mode", "1", "2"},
                {hour, "Start Time Hour?<*>(0~23):", "start_hour", "8"},
                {minute, "Start Time Minute?<*>" + minutes, "start_minute", "05"},
                {hour, "End Time Hour?<*>(0~23):", "end_hour", "17"},
                {minute, "End Time Minute?<*>" + minutes, "end_minute", "30"},
                {day, "Start Day?<*>" + days, "", "5"},
                {day, "End Day?<*>" + days, "", "1"}});
  return steps;
}

// In the order of the rule summary.
const Table tables[] = {
    {"virtual_server_table", 1, "", "",
     "ID:|Enable|Lan IP         |Protocol|Private|Public|Schedule\n"
     "---+------+---------------+--------+-------+------+---------------------------\n",
     " 0:|1     |" + any + "|        |  65535| 65535|" + hostile_column,
     " 1:|1     |192.168.  0. 10|BOTH    |     80|  8080|" + column,
     scheduled(rule({{address, "Private IP?<*>:", "private_ip", "192.168.0.10"},
                     {choice, "Protocol Type?<*>(0:TCP, 1:UDP, 2:Both):", "protocol", "2", "3"},
                     {port, "Private Port?<*>(1~65535):", "private_port", "80"},
                     {port, "Public Port?<*>(1~65535):", "public_port", "8080"}}))},
    {"special_application_table", 2, "", "",
     "   |      |   Trigger   |Public Port|Public|\nID:|Enable|Port  |Type  |Start-  End|Type  |Schedule\n"
     "---+------+------+------+-----------+------+----------------------------------\n",
     " 0:|1     |65535 |      |65535-65535|      |" + hostile_column,
     " 1:|1     |   21 |UDP   | 6000- 6001|BOTH  |" + column,
     scheduled(rule({{port, "Trigger Port?<*>(1~65535):", "trigger_port", "21"},
                     {choice, "Trigger Type?<*>(0:TCP, 1:UDP, 2:Both):", "trigger_type", "1", "3"},
                     {port, "Public Port Start?<*>(1~65535):", "public_port_start", "6000"},
                     {port, "Public Port End?<*>(1~65535):", "public_port_end", "6001", "5999"},
                     {choice, "Public Type?<*>(0:TCP, 1:UDP, 2:Both):", "public_type", "2", "3"}}))},
    {"static_route_table", 4, "", "",
     "ID:|Enable|Type |Target IP      |Netmask        |Gateway        \n"
     "---+------+-----+---------------+---------------+-----------------------------\n",
     " 0:|1     |Host |" + any + "|" + any + "|" + any + "\n",
     " 1:|1     |Net  | 10.  1.  0.  0|255.255.  0.  0|192.168.  0.254\n",
     rule({{choice, "Type?<*>(0:Net, 1:Host):", "route_type", "0", "2"},
           {address, "Target?<*>:", "route_target", "10.1.0.0"},
           {netmask, "Netmask?<*>:", "route_netmask", "255.255.0.0"},
           {address, "Gateway?<*>:", "route_gateway", "192.168.0.254"}})},
    {"mac_filter_table", 5, "MAC Filter", "mac_filter_enable",
     "ID:|Active|MAC Address      |Schedule\n"
     "---+------+-----------------+-------------------------------------------------\n",
     " 0:|1     |ff:ff:ff:ff:ff:ff|" + hostile_column, " 1:|1     |00:11:22:aa:bb:cc|" + column,
     scheduled(rule({{mac, "MAC Address<*>:", "mac_address", "00:11:22:AA:bb:cc"}}))},
    {"ip_filter_table", 6, "IP Filter", "ip_filter_enable",
     "ID:|Active|IP RANGE                       |Port Range |Type|Schedule\n"
     "---+------+-------------------------------+-----------+----+------------------\n",
     wide_rows[0] + "65535-65535|    |" + hostile_column, wide_rows[1] + "  100-  200|UDP |" + column,
     scheduled(ranged({{port, "Start Port?<*>(1~65535):", "start_port", "100"},
                       {port, "End Port?<*>(1~65535):", "end_port", "200", "99"},
                       {choice, "Type?<*>(0:TCP, 1:UDP, 2:Both):", "protocol", "1", "3"}}))},
    {"url_filter_table", 7, "URL Filter", "url_filter_enable",
     "ID:|Active|IP RANGE                       |URL Filter String\n"
     "---+------+-------------------------------+-----------------------------------\n",
     wide_rows[0] + std::string(256, '\xff') + "\n", wide_rows[1] + " www.example %s\n",
     ranged({{text, "URL Filter String?<*>(MAX Character:255):", "filter_string", " www.example %s"}})},
    {"domain_filter_table", 8, "Domain Filter", "domain_filter_enable",
     "ID:|Active|IP RANGE                       |Domain Filter String\n"
     "---+------+-------------------------------+-----------------------------------\n",
     wide_rows[0] + std::string(256, '\xff') + "\n", wide_rows[1] + "example.net\n",
     ranged({{text, "Domain Filter String?(MAX Character:255):", "filter_string", "example.net"}})},
    {"firewall_rule_table", 9, "Firewall", "firewall_enable",
     "ID:|Active     |Action   |Schedule\n"
     "---+-----------+---------+----------------------------------------------------\n",
     " 0:|1          |Allow    |" + hostile_column + fw_lines + "         |" + any + "-" + any +
         "|        |\n   |destination|         |" + any + "-" + any + "|        |65535-65535\n" + fw_end,
     " 1:|1          |Allow    |" + column + fw_lines +
         "*        | 10.  0.  0.  1- 10.  0.  0.  5|        |\n"
         "   |destination|LAN      |  1.  2.  3.  4-  1.  2.  3.  4|BOTH    |   80-   80\n" +
         fw_end,
     scheduled(rule({{optional, "Action?<*>(0:Deny, 1:Allow):", "action", "1", "2"},
                     {optional, "Source interface?<*>(0:WAN, 1:LAN, 2:ALL):", "src_interface", "2", "3"},
                     {address, "Source IP Range Start?<*>:", "src_ip_start", "10.0.0.1"},
                     {address, "Source IP Range End?<*>:", "src_ip_end", "10.0.0.5", "10.0.0.0"},
                     {optional, "Destination interface?<*>(0:WAN, 1:LAN, 2:ALL):", "dst_interface", "1", "3"},
                     {address, "Destination IP Range Start?<*>:", "dst_ip_start", "1.2.3.4"},
                     {address, "Destination IP Range End?<*>:", "dst_ip_end", "1.2.3.4", "2.1.3.4"},
                     {choice, "Protocol?<*>(0:TCP, 1:UDP, 2:Both, 3:ICMP, 4:ALL):", "protocol", "2", "5"},
                     {port, "Destination Port Start?<*>(1~65535):", "dst_port_start", "80"},
                     {port, "Destination Port End?<*>(1~65535):", "dst_port_end", "80", "79"}}))},
};

enum Mode { add, keep, change };

struct RuleDesk : Desk {
  explicit RuleDesk(const Table& of) : table(of) {
    const auto enable = *config::find_field(name(0, "enable"));
    std::memset(config::field_bytes(*enable.field, 0, settings).data(), 0xFF, enable.field->stride);
    std::memset(config::field_bytes(*enable.field, 1, settings).data(), 0xEE, enable.field->stride);
    set(name(0, "enable"), "1").set(name(1, "enable"), "255");
  }
  string name(int slot, const string& member) const {
    return table.name + "[" + std::to_string(slot) + "]." + member;
  }
  string value(const string& of) const {
    const auto element = config::find_field(of);
    return config::field_value(*element->field, element->index, settings);
  }
  Visit go(const string& answers, int item = 0) {
    transcript.clear();
    waits.clear();
    input.clear();
    saved.reset();
    return visit(*this, 1, item == 0 ? table.item : item, answers);
  }
  void expect(const string& answers, const string& shown, const string& changed = "") {
    const Visit seen = go(answers);
    EXPECT_EQ(seen.shown, shown) << answers;
    EXPECT_EQ(seen.changed, changed) << answers;
    EXPECT_TRUE(seen.returned && saved.has_value() == shown.ends_with(done)) << answers;
  }
  // The answer to the master switch, the list, and the list with the first prompt behind it.
  string head(const string& answer) const { return table.master.empty() ? "" : answer + "\n"; }
  string list(const string& rows) const {
    const string all = table.header + rows + "\n";
    return table.master.empty()               ? all
           : value(table.master_field) == "0" ? "\n" + table.master + " Enable:<Disable>\n" + all
                                              : "\n" + table.master + " Enable:<Enable>\n" + all;
  }
  string opening(const string& rows) const {
    return list(rows) +
           (table.master.empty() ? "" : "Enable " + table.master + " Function?(0:Disable, 1:Enable):");
  }
  string applied() const {
    const string run = "{/etc/init.d/", quiet = " > /dev/null 2>&1}";
    const string filter = run + "filter.sh start" + quiet + run + "nat.sh start" + quiet;
    return "{/opt/httpd/sbin/web_server dumpshare}" +
           (table.item == 4 ? run + "staticroute.sh restart" + quiet : filter) + done;
  }
  // Through all prompts of slot 1: every refusal at each of them, then its answer.
  void walk(Mode mode, string answers, string shown) {
    Desk expected = *this;
    std::vector<Step> steps = table.steps;
    if (mode != add && table.item == 6) {  // the type before the ports
      std::rotate(steps.begin() + 3, steps.begin() + 5, steps.begin() + 6);
    }
    for (const Step& step : steps) {
      const auto& kind = kinds[step.kind];
      const string member = step.field.empty() ? "" : name(1, step.field);
      const string answer = mode == add ? step.answer : mode == keep ? "" : kind.other;
      if (mode == change && answer.empty()) {  // no schedule, no times
        expected.set(member.empty() ? name(1, "week_mask") : member,
                     member.empty() ? "1000000" : "0");
        continue;
      }
      const string current = mode == add ? kind.zero : member.empty() ? step.answer : value(member);
      const std::size_t at = step.prompt.find("<*>");
      shown += at == string::npos
                   ? step.prompt
                   : string(step.prompt).replace(at, 3, current.empty() ? "" : "<" + current + ">");
      const string message = step.kind <= optional ? wrong_choice : illegal_value;
      for (const string& refused : mode == change ? std::vector<string>{} : kind.refused) {
        expect(answers + refused + "\n", shown + message);
      }
      if (mode != change && !step.beyond.empty()) {
        expect(answers + step.beyond + "\n", shown + (step.kind <= optional ? wrong_choice : range_error));
      }
      if (mode == add && step.kind != optional) {
        expect(answers + "\n", shown + message);
      }
      answers += answer + "\n";
      if (mode != keep) {
        expected.set(member.empty() ? name(1, "week_mask") : member,
                     member.empty() ? "1100011" : answer);
      }
    }
    if (!table.master.empty()) {
      expected.set(table.master_field, answers.substr(0, 1));
    }
    expect(answers, shown + applied(), differences(settings, expected.settings));
  }
  const Table& table;
};

TEST(RuleTables, AddShowKeepChangeAndDelete) {
  for (const Table& table : tables) {
    SCOPED_TRACE(table.name);
    RuleDesk desk(table);
    const string rows = table.hostile_row + table.row;
    desk.walk(add, desk.head("1") + "0\n", desk.opening(table.hostile_row) + add_or_modify);
    const string chosen =
        desk.opening(rows) + add_or_modify + which_item + desk.list(table.row) + del_or_edit;
    desk.walk(keep, desk.head("1") + "1\n1\n1\n", chosen + keep_with_enter);
    const Visit summary = desk.go(std::to_string(&table - tables) + "\n", 10);
    EXPECT_TRUE(summary.shown.ends_with("\nSelect a list?(0~7):\n" + desk.list(rows))) << summary.shown;
    desk.walk(change, desk.head("0") + "1\n1\n1\n", chosen + keep_with_enter);
    EXPECT_EQ(desk.go(desk.head("00") + "01\n01\n00\n").changed, desk.name(1, "enable") + "=255");

    // Kept, the broken rule stays as it is, but for a mask without bounds.
    const bool has_mask = table.steps.back().kind == day;
    const auto prompts = static_cast<int>(table.steps.size()) - (table.item == 9 ? 2 : 0);
    const Visit kept = desk.go(desk.head("0") + "1\n0\n1\n" + enters(prompts));
    EXPECT_EQ(kept.changed, has_mask ? desk.name(0, "week_mask") + "=0000000" : "");
    EXPECT_TRUE(kept.shown.ends_with(desk.applied())) << kept.shown;
    EXPECT_EQ(kept.shown.find("Start Day?<7>(") != string::npos, has_mask);
  }
}

TEST(RuleTables, PicksAreNumbersRefusedAsChoices) {
  for (const Table& table : tables) {
    SCOPED_TRACE(table.name);
    RuleDesk desk(table);
    const string opening = desk.opening(table.hostile_row);
    for (const char* bad : {"\n", "2\n", "x\n", "-1\n"}) {
      if (!table.master.empty()) {
        desk.expect(bad, opening + wrong_choice);
      }
      desk.expect(desk.head("1") + bad, opening + add_or_modify + wrong_choice);
      const string chosen = opening + add_or_modify + which_item;
      desk.expect(desk.head("1") + "1\n" + bad, chosen + wrong_choice);
      desk.expect(desk.head("1") + "1\n00\n" + bad,
                  chosen + desk.list(table.hostile_row) + del_or_edit + wrong_choice);
    }
    desk.expect(desk.head("1") + "1\n32\n", opening + add_or_modify + which_item + wrong_choice);
    for (int slot = 0; slot < 32; ++slot) {
      desk.set(desk.name(slot, "enable"), "0");
    }
    const Visit full = desk.go(desk.head("1") + "0\n");
    EXPECT_TRUE(full.shown.ends_with(add_or_modify + "No more space to creat new rule!!\n\n") &&
                full.changed.empty());
    // A closed connection in mid-dialogue; then the slot that was given back is the next to be taken.
    EXPECT_EQ(desk.go(desk.head("1") + "1\n31\n1\n0\n").changed, "");
    EXPECT_EQ(desk.go(desk.head("0") + "1\n31\n0\n").changed, desk.name(31, "enable") + "=255");
    EXPECT_TRUE(desk.go(desk.head("1") + "0\n1\n").shown.find(add_or_modify + "Enable") != string::npos);
  }
}

}  // namespace
}  // namespace tests
