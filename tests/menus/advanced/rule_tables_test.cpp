#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "config/field_table.h"
#include "menus/advanced/schedule.h"
#include "support/session.h"

namespace tests {
namespace {

using std::string;

// clang-format off
const string wrong_choice = "Your select is wrong!!\n\n", illegal_value = "Your input value is illegal!!\n\n";
const string keep = "Please answer the question and use [enter] to keep original setting value\n\n";
const string add_or_modify = "Add new rule or Modify old rule ?(0:Add New, 1:Modify):";
const string which_item = "What item do you want to configure? (0-31):";
const string del_or_edit = "Del or Edit ? (0:Delete, 1:Edit):", done = " > /dev/null 2>&1}Setting Save!!\n\n";
const string save = "{/opt/httpd/sbin/web_server dumpshare}{/etc/init.d/";
const string route = save + "staticroute.sh restart" + done, filter =
    save + "filter.sh start > /dev/null 2>&1}{/etc/init.d/nat.sh start" + done;
const string any = "255.255.255.255", wide_any = any + "-" + any + "|";
const string wide = "192.168.  0. 50-192.168.  1.100|", unbounded = "By Schedule,255:255-255:255,Sun-Sun\n";
const string column = "By Schedule,8:05-17:30,Fri-Mon\n", fw_edge = "+-----------+---------+";
const string fw_cells = string(31, '-') + "+--------+-----------\n", fw_end = "---" + fw_edge + fw_cells;
const string fw_lines = "   " + fw_edge + string(52, '-') +
    "\n   |           |Interface|IP Range                       |Protocol|Port Range \n" + "   " + fw_edge +
    fw_cells + "   |source     |";

// The titles of a list and the dashes below them.
string header(const string& titles) {
  string dashes(78, '-');
  for (std::size_t at = 0; (at = titles.find('|', at)) != string::npos; ++at) dashes[at] = '+';
  return titles + "\n" + dashes + "\n";
}

// Prompts, a line each, as Edit shows them behind the enable prompt; they show what they were answered.
const string ranged = "Start IP?<192.168.0.50>:\nEnd IP?<192.168.1.100>:\n", scheduled =
    "Schedule?<1>(0:Always, 1:By Schedule):\nStart Time Hour?<8>(0~23):\n"
    "Start Time Minute?<5>(00,05,10,15,20,25,30,35,40,45,50,55):\nEnd Time Hour?<17>(0~23):\n"
    "End Time Minute?<30>(00,05,10,15,20,25,30,35,40,45,50,55):\n"
    "Start Day?<5>(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):\n"
    "End Day?<1>(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):\n";

const struct Table {
  int item;
  string name, master_field, master, list, row, broken_row, prompts;  // master: the prompt of the switch
} tables[] = {
    {1, "virtual_server_table", "", "", header("ID:|Enable|Lan IP         |Protocol|Private|Public|Schedule"),
     "192.168.  0. 10|BOTH    |     80|  8080|" + column, any + "|        |  65535| 65535|" + unbounded,
     "Private IP?<192.168.0.10>:\nProtocol Type?<2>(0:TCP, 1:UDP, 2:Both):\nPrivate Port?<80>(1~65535):\n"
     "Public Port?<8080>(1~65535):\n" + scheduled},
    {2, "special_application_table", "", "", "   |      |   Trigger   |Public Port|Public|\n" +
     header("ID:|Enable|Port  |Type  |Start-  End|Type  |Schedule"),
     "   21 |UDP   | 6000- 6000|TCP   |" + column, "65535 |      |65535-65535|      |" + unbounded,
     "Trigger Port?<21>(1~65535):\nTrigger Type?<1>(0:TCP, 1:UDP, 2:Both):\n"
     "Public Port Start?<6000>(1~65535):\nPublic Port End?<6000>(1~65535):\n"
     "Public Type?<0>(0:TCP, 1:UDP, 2:Both):\n" + scheduled},
    {4, "static_route_table", "", "",
     header("ID:|Enable|Type |Target IP      |Netmask        |Gateway        "),
     "Net  | 10.  1.  0.  0|255.255.  0.  0|192.168.  0.254\n", "Host |" + any + "|" + any + "|" + any + "\n",
     "Type?<0>(0:Net, 1:Host):\nTarget?<10.1.0.0>:\nNetmask?<255.255.0.0>:\nGateway?<192.168.0.254>:\n"},
    {5, "mac_filter_table", "mac_filter_enable", "Enable MAC Filter Function?(0:Disable, 1:Enable):",
     "\nMAC Filter Enable:<Enable>\n" + header("ID:|Active|MAC Address      |Schedule"),
     "00:11:22:aa:bb:cc|" + column, "ff:ff:ff:ff:ff:ff|" + unbounded,
     "MAC Address<00:11:22:aa:bb:cc>:\n" + scheduled},
    {6, "ip_filter_table", "ip_filter_enable", "Enable IP Filter Function?(0:Disable, 1:Enable):",
     "\nIP Filter Enable:<Enable>\n" +
     header("ID:|Active|IP RANGE                       |Port Range |Type|Schedule"),
     wide + "  100-  200|UDP |" + column, wide_any + "65535-65535|    |" + unbounded,
     ranged + "Start Port?<100>(1~65535):\nEnd Port?<200>(1~65535):\nType?<1>(0:TCP, 1:UDP, 2:Both):\n" +
     scheduled},
    {7, "url_filter_table", "url_filter_enable", "Enable URL Filter Function?(0:Disable, 1:Enable):",
     "\nURL Filter Enable:<Enable>\n" +
     header("ID:|Active|IP RANGE                       |URL Filter String"),
     wide + "www.%s\n", wide_any + string(256, '\xff') + "\n",
     ranged + "URL Filter String?<www.%s>(MAX Character:255):\n"},
    {8, "domain_filter_table", "domain_filter_enable", "Enable Domain Filter Function?(0:Disable, 1:Enable):",
     "\nDomain Filter Enable:<Enable>\n" +
     header("ID:|Active|IP RANGE                       |Domain Filter String"),
     wide + "www.%s\n", wide_any + string(256, '\xff') + "\n",
     ranged + "Domain Filter String?(MAX Character:255):\n"},
    {9, "firewall_rule_table", "firewall_enable", "Enable Firewall Function?(0:Disable, 1:Enable):",
     "\nFirewall Enable:<Enable>\n" + header("ID:|Active     |Action   |Schedule"),
     "Allow    |" + column + fw_lines + "*        | 10.  0.  0.  1- 10.  0.  0.  5|        |\n"
     "   |destination|LAN      |  2.  2.  3.  4-  2.  2.  3.  4|BOTH    |   80-   80\n" + fw_end,
     "Allow    |" + unbounded + fw_lines + "         |" + wide_any + "        |\n   |destination|         |" +
     wide_any + "        |65535-65535\n" + fw_end,
     "Action?<1>(0:Deny, 1:Allow):\nSource interface?<2>(0:WAN, 1:LAN, 2:ALL):\n"
     "Source IP Range Start?<10.0.0.1>:\nSource IP Range End?<10.0.0.5>:\n"
     "Destination interface?<1>(0:WAN, 1:LAN, 2:ALL):\nDestination IP Range Start?<2.2.3.4>:\n"
     "Destination IP Range End?<2.2.3.4>:\nProtocol?<2>(0:TCP, 1:UDP, 2:Both, 3:ICMP, 4:ALL):\n"
     "Destination Port Start?<80>(1~65535):\nDestination Port End?<80>(1~65535):\n" + scheduled},
};

// Kinds of prompts, by what only they hold; what is shown of a new rule, and what is refused.
const struct Kind {
  string mark, zero;
  std::vector<string> refused;
  string message = illegal_value, below = {};  // below: refused as the end of a range
  bool empty_is_zero = false;
} kinds[] = {
    {"(0:Sun", "<0>", {"7", "Mon"}}, {"(00,", "<0>", {"7", "60"}}, {"(0~23", "<0>", {"24", "-1"}},
    {"(1~", "<0>", {"0", "65536", "8o", "4294967297"}, illegal_value, "1"},
    {"(MAX", "", {string(256, 'u'), string(511, 'u')}}, {"Netmask", "<0.0.0.0>", {"0.0.0.0", "255.0.255.0"}},
    {"MAC", "<00:00:00:00:00:00>", {"00-11-22-33-44-55", "0:11:22:33:44:55", "00:11:22:33:44:5g"}},
    {".", "<0.0.0.0>", {"0.0.0.0", "1.2.3", "1.2.3.256"}, illegal_value, "1.0.0.0"},
    {"interface", "<0>", {"3", "02", "x"}, wrong_choice, "", true},
    {"2:Both)", "<0>", {"3", "02", "x"}, wrong_choice}, {"4:ALL", "<0>", {"5", "12", "x"}, wrong_choice},
    {"0:D", "<0>", {"2", "01", "x"}, wrong_choice, "", true}, {"", "<0>", {"2", "01", "x"}, wrong_choice},
};

struct RuleDesk : Desk {
  RuleDesk(const Table& of, int filler) : table(of) {
    const auto enable = *config::find_field(name(0) + "enable");
    std::memset(config::field_bytes(*enable.field, 0, settings).data(), filler, enable.field->stride);
    set(name(0) + "enable", filler == 0xFF ? "1" : "255");
    std::istringstream lines("Enable this rule?<1>(0:Disable, 1:Enable):\n" + table.prompts);
    for (string line; std::getline(lines, line);) {
      prompts.push_back(line);
    }
  }
  string name(int slot) const { return table.name + "[" + std::to_string(slot) + "]."; }
  // The answers begin behind the master switch, which stands at 1 and is answered with 0.
  Visit go(const string& typed) {
    if (!table.master.empty()) {
      set(table.master_field, "1");
    }
    transcript.clear(), waits.clear(), input.clear(), saved.reset();
    Visit seen = visit(*this, 1, table.item, (table.master.empty() ? "" : "0\n") + typed);
    seen.changed += seen.changed.empty() ? "" : " ";
    return seen;
  }
  void expect_refused(const string& typed, const string& shown) {
    const Visit seen = go(typed);
    EXPECT_EQ(seen.shown, shown) << typed;
    EXPECT_TRUE(seen.returned && seen.changed.empty() && !saved) << typed << seen.changed;
  }
  // Tries every refusal at each prompt before it answers it: with Enter in Edit. Returns what changed.
  string walk(bool adding, string typed, string shown) {
    if (!adding && table.item == 6) {  // the type before the ports
      std::rotate(prompts.begin() + 3, prompts.begin() + 5, prompts.begin() + 6);
    }
    for (const string& prompt : prompts) {
      const Kind& kind = *std::find_if(std::begin(kinds), std::end(kinds),
                                       [&](const Kind& of) { return prompt.find(of.mark) != string::npos; });
      const std::size_t at = prompt.find('<'), size = prompt.find('>') - at + 1;
      const bool shows = at != string::npos;
      shown += adding && shows ? string(prompt).replace(at, size, kind.zero) : prompt;
      for (const string& bad : kind.refused) {
        expect_refused(typed + bad + "\n", shown + kind.message);
      }
      if (adding && !kind.empty_is_zero) {
        expect_refused(typed + "\n", shown + kind.message);
      }
      if (!kind.below.empty() && prompt.find("End") != string::npos) {
        expect_refused(typed + kind.below + "\n", shown + "IP Range Error!!\n\n");
      }
      typed += (!adding ? "" : shows ? prompt.substr(at + 1, size - 2) : "www.%s") + "\n";
    }
    const Visit seen = go(typed);
    EXPECT_EQ(seen.shown, shown + (table.item == 4 ? route : filter));
    EXPECT_TRUE(seen.returned);
    return seen.changed;
  }
  const Table& table;
  std::vector<string> prompts;
};

TEST(RuleTables, EveryAnswerAndRefusal) {
  for (const Table& table : tables) {
    SCOPED_TRACE(table.name);
    RuleDesk desk(table, 0xEE);  // what a free slot holds is neither shown nor kept
    const string switched = table.master.empty() ? "" : table.master_field + "=0 ";
    const string id = table.item == 9 ? " 0:|1          |" : " 0:|1     |",
                 alone = table.list + id + table.row;
    const string behind = "\n" + table.master + add_or_modify, opening = alone + behind;
    const bool has_mask = table.prompts.ends_with(scheduled);
    const string added = desk.walk(true, "0\n", table.list + behind);
    EXPECT_TRUE(added.starts_with(switched + desk.name(0) + "enable=1 ") &&
                added.ends_with(has_mask ? "week_mask=1100011 " : " ") &&
                added.find("reserved") == string::npos)
        << added;
    const string picked = opening + which_item + alone + "\n" + del_or_edit;
    EXPECT_EQ(desk.walk(false, "1\n0\n1\n", picked + keep), switched);
    for (const char* bad : {"\n", "2\n", "x\n", "-1\n"}) {
      desk.expect_refused(bad, opening + wrong_choice);
      desk.expect_refused(string("1\n") + bad, opening + which_item + wrong_choice);
      desk.expect_refused(string("1\n00\n") + bad, picked + wrong_choice);
    }
    desk.expect_refused("1\n32\n", opening + which_item + wrong_choice);
    EXPECT_EQ(desk.go("01\n00\n00\n").changed, switched + desk.name(0) + "enable=255 ");
    desk.expect_refused("1\n0\n", table.list + behind + which_item + wrong_choice);  // free again

    // A rule of 0xFF throughout lists within its fields; kept, it changes only a mask without bounds.
    RuleDesk broken(table, 0xFF);
    const auto prompts = static_cast<int>(broken.prompts.size()) - (table.item == 9 ? 2 : 0);
    const Visit kept = broken.go("1\n0\n1\n" + enters(prompts));
    EXPECT_NE(kept.shown.find(id + table.broken_row), string::npos) << kept.shown;
    EXPECT_EQ(kept.shown.find("Start Day?<7>(") != string::npos, has_mask) << kept.shown;
    EXPECT_EQ(kept.changed, switched + (has_mask ? desk.name(0) + "week_mask=0000000 " : ""));
    for (int slot = 0; slot < 32; ++slot) {
      desk.set(desk.name(slot) + "enable", "0");
    }
    EXPECT_TRUE(desk.go("0\n").shown.ends_with(add_or_modify + "No more space to creat new rule!!\n\n"));
  }
}

// clang-format off
TEST(AdvancedMenu, WhatTheTablesDoNotShare) {
  const string states =
      "NAT Enable:<Enable>\nIPSec Pass Through Enable:<Disable>\nPPTP Pass Through Enable:<Enable>\n"
      "L2TP Pass Through Enable:<Disable>\nSIP ALG Through Enable:<Enable>\nNetMetting ALG Enable:<Disable>\n"
      "DMZ Enable:<Enable>\nDMZ LAN IP:<10.0.0.9>\n\n" + keep + "NAT Enable?<1>(0:disable, 1:Enable):";
  const string asked = states + "IPSec Pass Through Enable?<0>(0:disable, 1:Enable):"
      "PPTP Pass Through Enable?<1>(0:disable, 1:Enable):L2TP Pass Through Enable?<0>(0:disable, 1:Enable):"
      "SIP ALG Enable?<1>(0:disable, 1:Enable):NetMeeting ALG Enable?<0>(0:disable, 1:Enable):"
      "DMZ Enable?<1>(0:disable, 1:Enable):";
  const string nat = "nat_enable=1 pptp_pass_through=1 sip_alg=1 dmz_enable=1 dmz_ip=10.0.0.9";
  const string ips = "8.8.8.8\n8.8.8.9\n", text = string(200, 'u') + " %n" + string(52, '.');
  const string fw_ips =
      "@src_ip_start=8.8.8.8 @src_ip_end=8.8.8.9 @dst_ip_start=8.8.8.8 @dst_ip_end=8.8.8.9 ";
  const struct {
    int item;
    string table, stored, typed, ending, changed;  // @ stands for the table's first record
  } cases[] = {
      {0, "", nat, "0\n", states + save + "nat.sh stop" + done, "nat_enable=0"},
      {0, "", nat, enters(7) + "10.0.0.256\n", asked + "DMZ Lan IP<10.0.0.9>:DMZ Lan IP Error\n", ""},
      {0, "", nat, enters(6) + "10\n", asked + wrong_choice, ""},
      {0, "", nat, "\n1\n0\n1\n0\n1\n0\n", asked + filter, "ipsec_pass_through=1 pptp_pass_through=0 "
       "l2tp_pass_through=1 sip_alg=0 netmeeting_alg=1 dmz_enable=0 dmz_ip=0.0.0.0"},
      {0, "", "", "1\n" + enters(5) + "1\n\n", "DMZ Lan IP<0.0.0.0>:DMZ Lan IP Error\n", ""},
      {3, "", "upnp_enable=1 nat_enable=1", "\n", "UPNP Enable:<Enable>\n\n" + keep +
       "UPNP Enable?<1>(0:Disable, 1:Enable):" + save + "upnpd.sh start" + done, ""},
      {3, "", "nat_enable=1", "2\n", "UPNP Enable?<0>(0:Disable, 1:Enable):" + wrong_choice, ""},
      {3, "", "", "1\n", save + "upnpd.sh stop" + done, "upnp_enable=1"},
      {10, "", "", "07\n", "0:Virtual Server Rule List\n1:Special Application Rule List\n"
       "2:Static Route Rule List\n3:MAC Filter Rule List\n4:IP Filter Rule List\n5:URL FIlter Rule List\n"
       "6:Domain Filter Rule List\n7:Firewall Rule List\n\nSelect a list?(0~7):" + wrong_choice, ""},
      {10, "", "", "7\n", "?(0~7):\n\nFirewall Enable:<Disable>\n" + tables[7].list.substr(26) + "\n", ""},
      {1, "virtual_server_table", "@enable=0", "1\n0\n1\n\n\n", "Private IP?<0.0.0.0>:" + illegal_value, ""},
      {4, "static_route_table", "@enable=1", "1\n0\n1\n\n1\n1.2.3.4\n255.0.0.0\n1.1.1.1\n", route,
       "@route_type=1 @route_target=1.2.3.4 @route_netmask=255.0.0.0 @route_gateway=1.1.1.1"},
      {4, "static_route_table", "", "0\n1\n1\n1.2.3.4\n1.1.1.1\n",
       "Target?<0.0.0.0>:Gateway?<0.0.0.0>:" + route,
       "@enable=1 @route_type=1 @route_target=1.2.3.4 @route_netmask=255.255.255.255 @route_gateway=1.1.1.1"},
      {5, "mac_filter_table", "@enable=1 @schedule_mode=1 @end_hour=23 @week_mask=0111110",
       "1\n1\n0\n1\n\n\n0\n", filter, "mac_filter_enable=1 @schedule_mode=0 @end_hour=0 @week_mask=1000000"},
      {7, "url_filter_table", "@enable=1 @start_ip=1.1.1.1 @end_ip=1.1.1.1 @filter_string=a\\x0ab\\x0ac",
       "1\n1\n0\n1\n" + enters(3) + text + ".\n", "URL Filter String?<a>(MAX Character:255):" + illegal_value,
       "@filter_string=a"},
      {8, "domain_filter_table", "@enable=1 @filter_string=a\\x0ab", "0\n1\n0\n1\n0\n" + ips + "\n", filter,
       "@enable=0 @start_ip=8.8.8.8 @end_ip=8.8.8.9"},
      {8, "domain_filter_table", "", "0\n0\n\n" + ips + text + "\n", filter,
       "@enable=0 @start_ip=8.8.8.8 @end_ip=8.8.8.9 @filter_string=" + text},
      {9, "firewall_rule_table", "", "1\n0\n1\n\n\n" + ips + "\n" + ips + "3\n0\n",
       "4:ALL):Schedule?<0>(0:Always, 1:By Schedule):" + filter,
       "firewall_enable=1 @enable=1 " + fw_ips + "@protocol=3 @week_mask=1000000"},
      {9, "firewall_rule_table", "@enable=1 @dst_port_start=8 @dst_port_end=9 @week_mask=1000000 " + fw_ips,
       "0\n1\n0\n1\n" + enters(8) + "4\n\n", "4:ALL):Schedule?<0>(0:Always, 1:By Schedule):" + filter,
       "@dst_port_start=0 @dst_port_end=0 @protocol=4"},
  };
  // clang-format on
  for (const auto& one : cases) {
    const auto named = [&](string fields) {
      for (std::size_t at; (at = fields.find('@')) != string::npos;) {
        fields.replace(at, 1, one.table + "[0].");
      }
      return fields;
    };
    Desk desk;
    std::istringstream stored(named(one.stored));
    for (string field; stored >> field;) {
      desk.set(field.substr(0, field.find('=')), field.substr(field.find('=') + 1));
    }
    const Visit seen = visit(desk, 1, one.item, one.typed);
    EXPECT_TRUE(seen.shown.ends_with(one.ending) && seen.returned) << one.typed << "\n" << seen.shown;
    EXPECT_EQ(seen.changed, named(one.changed)) << one.typed;
    const auto& url = desk.settings.url_filter_table[0].filter_string.bytes;
    EXPECT_EQ(std::count(url.begin(), url.end(), '\n'), 0);
  }
}

TEST(Schedules, MasksOfSeveralRunsOrNone) {
  using namespace menus::advanced;
  EXPECT_EQ(build_week_mask(1, 5), (WeekMask{'0', '1', '1', '1', '1', '1', '0'}));
  EXPECT_EQ(build_week_mask(7, 3), (WeekMask{'1', '1', '1', '1', '0', '0', '0'}));
  EXPECT_EQ(build_week_mask(3, 7), (WeekMask{'1', '1', '1', '1', '1', '1', '1'}));
  const DayRun days = week_mask_bounds({'1', '0', '1', '1', '0', 'x', '1'});
  EXPECT_TRUE(days.start_day == 2 && days.end_day == 0);
}

}  // namespace
}  // namespace tests
