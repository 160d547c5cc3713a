#include <gtest/gtest.h>

#include <algorithm>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

const string filter =
    "\n&ending=&dump{/etc/init.d/filter.sh start > /dev/null 2>&1}{/etc/init.d/nat.sh start > /dev/null "
    "2>&1}&saved\n";

TEST(Advanced, NatAndUpnp) {
  const string list =
      R"(NAT Enable:<Enable>\nIPSec Pass Through Enable:<#>\nPPTP Pass Through Enable:<Enable>\n)"
      R"(L2TP Pass Through Enable:<#>\nSIP ALG Through Enable:<Enable>\nNetMetting ALG Enable:<#>\n)"
      R"(DMZ Enable:<Enable>\nDMZ LAN IP:<)";
  hold("== NAT: 1 0 kind\n&list=" + replaced(list, "#", "Disable") + "10.1.2.9\n&wild=" +
       replaced(list, "#", "Enable") + "255.255.255.255" + filter + R"(&opening=&list>\n\n&keep
&stop=&dump{/etc/init.d/nat.sh stop > /dev/null 2>&1}&saved
nat_enable=1 | NAT Enable?<$>(0:disable, 1:Enable): | [01] as 1
ipsec_pass_through=0 | IPSec Pass Through Enable?<$>(0:disable, 1:Enable): | [01]
pptp_pass_through=1 | PPTP Pass Through Enable?<$>(0:disable, 1:Enable): | [01]
l2tp_pass_through=0 | L2TP Pass Through Enable?<$>(0:disable, 1:Enable): | [01]
sip_alg=1 | SIP ALG Enable?<$>(0:disable, 1:Enable): | [01]
netmeeting_alg=0 | NetMeeting ALG Enable?<$>(0:disable, 1:Enable): | [01]
dmz_enable=1 | DMZ Enable?<$>(0:disable, 1:Enable): | [01] as 1 ! 10
dmz_ip=10.1.2.9 | DMZ Lan IP<$>: | ip -> DMZ Lan IP Error\n
> 0/ | &keepNAT Enable?<1>(0:disable, 1:Enable):&stop | nat_enable=0
> /*6 0/ | DMZ Enable?<1>(0:disable, 1:Enable):&ending | dmz_enable=0 dmz_ip=0.0.0.0
= dmz_enable=0 dmz_ip=0.0.0.0 nat_enable=200 > /*6 1// | DMZ Lan IP<0.0.0.0>:DMZ Lan IP Error\n |
> /*7 | &stop |
= nat_enable=0 dmz_enable=0
> /|0/ | NetMetting ALG Enable:<Disable>\nDMZ Enable:<Disable>\n\n&keepNAT Enable?<0>(0:disable, 1:Enable):&stop |
== UPnP: 1 3 kind
&opening=UPNP Enable:<&list>\n\n&keep
&list=Disable
&wild=Enable
&ending=&dump{/etc/init.d/upnpd.sh stop > /dev/null 2>&1}&saved
upnp_enable=0 | UPNP Enable?<$>(0:Disable, 1:Enable): | [01]
= nat_enable=1 > 1/ | &dump{/etc/init.d/upnpd.sh start > /dev/null 2>&1}&saved | upnp_enable=1
> / | &ending |
)");
}

// ---- Rule tables ----

// The titles of a list and the dashes below the last line of them.
string header(const string& titles) {
  string dashes = titles.substr(titles.rfind('\n') + 1);
  std::transform(dashes.begin(), dashes.end(), dashes.begin(), [](char c) { return c == '|' ? '+' : '-'; });
  return replaced(titles, "\n", "\\n") + "\\n" + dashes + string(78 - dashes.size(), '-') + "\\n";
}

struct Table {
  int item;
  string table, name;                    // the latter of its switch, if it has one
  string titles, row, wild_row;          // of its list, behind the enable column
  string rows, visits, ending = filter;  // behind the enable switch; with rule 3 stored
};

void hold_rules(const Table& of) {
  const string switch_name = of.table.substr(0, of.table.find("_table")), off = of.name.empty() ? "" : "0/";
  const string master = of.name.empty() ? "" : replaced(switch_name, "_rule", "") + "_enable";
  const string begin = "== " + of.table + ": 1 " + std::to_string(of.item) + " kind" + of.ending;
  const string rows =
      (master.empty() ? "" : master + "=1 | Enable " + of.name + " Function?(0:Disable, 1:Enable): ") +
      (master.empty() ? "" : "| 0..1 required -> &select") + R"(
+ - | Add new rule or Modify old rule ?(0:Add New, 1:Modify): | 0..1 as 00 required -> &select
~ - | Add new rule or Modify old rule ?(0:Add New, 1:Modify): | 0..1 as 01 required -> &select
~ - | What item do you want to configure? (0-31): | 0..31 as 03 required ! 2 -> &select | &list\n
~ - | Del or Edit ? (0:Delete, 1:Edit): | 0..1 as 01 required -> &select | &keep
enable=1 | Enable this rule?<$>(0:Disable, 1:Enable): | [01] firm enter>0
)" + of.rows +
      "\n&opening=&list\\n\n";
  const string list = (master.empty() ? "" : "\\n" + of.name + " Enable:<Enable>\\n") + header(of.titles);
  const string id = of.item == 9 ? " 3:|1          |" : " 3:|1     |";
  hold(begin + "&record=" + of.table + "[3].\n" + rows + "&list=" + list + id + of.row + "\n&wild=" + list +
       id + of.wild_row + "\n> " + off + "1/3/00/ | Del or Edit ? (0:Delete, 1:Edit):&ending | enable=255" +
       (master.empty() ? "" : " " + master + "=0") + "\n" + of.visits);
  hold(begin + "&list=" + list + "\n&record=" + of.table + "[0].\n&vacant=enable=255\n" + rows);
  Desk full;
  for (int slot = 0; slot < 32; ++slot) {
    full.set(of.table + "[" + std::to_string(slot) + "].enable", "0");
  }
  hold(begin + "> " + off + "0/ | &full |", full);
}

const string scheduled = R"(schedule_mode=1 | Schedule?<$>(0:Always, 1:By Schedule): | [01] as 1
start_hour=8 | Start Time Hour?<$>(0~23): | 0..23
start_minute=5 | Start Time Minute?<$>(00,05,10,15,20,25,30,35,40,45,50,55): | 0..55 ! 7 60
end_hour=17 | End Time Hour?<$>(0~23): | 0..23
end_minute=30 | End Time Minute?<$>(00,05,10,15,20,25,30,35,40,45,50,55): | 0..55 ! 7 60
&days=(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):
+ - | Start Day?<0>&days | 0..6
~ - | Start Day?<5>&days | 0..6
+ week_mask= | End Day?<0>&days | 0>1000000 6>0000001 5>1111110 ! 7 Mon
~ week_mask=1100011 | End Day?<1>&days | 0>1000000 6>0000001 5>1111110 firm ! 7 Mon
)";
const string column = R"(By Schedule,8:05-17:30,Fri-Mon\n)",
             wild_column = R"(By Schedule,255:255-255:255,Fri-Mon\n)";
const string any = "255.255.255.255", any_range = any + "-" + any + "|",
             range = "192.168.  0. 50-192.168.  1.100|";
const string clients =
    "start_ip=192.168.0.50 | Start IP?<$>: | ip\nend_ip=192.168.1.100 | End IP?<$>: | ip\n";

TEST(Advanced, RuleTables) {
  hold_rules({1, "virtual_server_table", "", "ID:|Enable|Lan IP         |Protocol|Private|Public|Schedule",
              "192.168.  0. 10|BOTH    |     80|  8080|" + column,
              any + "|        |  65535| 65535|" + wild_column,
              R"(private_ip=192.168.0.10 | Private IP?<$>: | ip
protocol=2 | Protocol Type?<$>(0:TCP, 1:UDP, 2:Both): | [012]
private_port=80 | Private Port?<$>(1~65535): | 1..65535
public_port=8080 | Public Port?<$>(1~65535): | 1..65535
)" + scheduled,
              R"(= private_ip=0.0.0.0
> 1/3/1/// | Private IP?<0.0.0.0>:&illegal |
= week_mask=1111111 schedule_mode=200 > 1/3/1/ /*12 | Start Day?<7>&daysEnd Day?<7>&days&ending | week_mask=0000000
> 1/3/1/ /*11 3/ | &ending | week_mask=1111000
> 1/3/1/ /*10 3// | &ending |
> 1/3/1/ /*5 0/ | Schedule?<200>(0:Always, 1:By Schedule):&ending | schedule_mode=0 start_hour=0 start_minute=0 \
end_hour=0 end_minute=0 week_mask=1000000
= week_mask=10110x1 > 1/3/1/ /*12 | Start Day?<2>&daysEnd Day?<0>&days&ending | week_mask=1011111
= virtual_server_table[0].enable=0 virtual_server_table[2].enable=1 virtual_server_table[31].enable=1
> 1/0/0/ | &ending | virtual_server_table[0].enable=255
> 1/31/0/ | &ending | virtual_server_table[31].enable=255
> 0/1/1.2.3.4/0/1/2/0/ | &ending | virtual_server_table[1].enable=1 virtual_server_table[1].private_ip=1.2.3.4 \
virtual_server_table[1].private_port=1 virtual_server_table[1].public_port=2 virtual_server_table[1].week_mask=1000000
)"});
  hold_rules(
      {2, "special_application_table", "",
       "   |      |   Trigger   |Public Port|Public|\nID:|Enable|Port  |Type  |Start-  End|Type  |Schedule",
       "   21 |UDP   | 6000- 6000|TCP   |" + column, "65535 |      |65535-65535|      |" + wild_column,
       R"(trigger_port=21 | Trigger Port?<$>(1~65535): | 1..65535
trigger_type=1 | Trigger Type?<$>(0:TCP, 1:UDP, 2:Both): | [012]
public_port_start=6000 | Public Port Start?<$>(1~65535): | 1..65535
public_port_end=6000 | Public Port End?<$>(1~65535): | 1..65535
public_type=0 | Public Type?<$>(0:TCP, 1:UDP, 2:Both): | [012]
)" + scheduled,
       R"(> 1/3/1////6001//|1/3/1/////5999/ | Public Port End?<6000>(1~65535):&range |
> 0//1/1/6000/5999/ | Public Port End?<0>(1~65535):&range |
)"});
  hold_rules({4, "static_route_table", "", "ID:|Enable|Type |Target IP      |Netmask        |Gateway        ",
              R"(Net  | 10.  1.  0.  0|255.255.  0.  0|192.168.  0.254\n)",
              "Net  |" + any + "|" + any + "|" + any + "\\n",
              R"(route_type=0 | Type?<$>(0:Net, 1:Host): | [01] as 0
route_target=10.1.0.0 | Target?<$>: | ip
route_netmask=255.255.0.0 | Netmask?<$>: | mask
route_gateway=192.168.0.254 | Gateway?<$>: | ip
)",
              R"(> 1/3/1//1//// | Netmask?<255.255.0.0>:Gateway?<192.168.0.254>:&ending | route_type=1
> 0/1/1/1.2.3.4/1.1.1.1/ | Target?<0.0.0.0>:Gateway?<0.0.0.0>:&ending | static_route_table[0].enable=1 \
static_route_table[0].route_type=1 static_route_table[0].route_target=1.2.3.4 \
static_route_table[0].route_netmask=255.255.255.255 static_route_table[0].route_gateway=1.1.1.1
= route_type=9 route_netmask=0.0.0.0
> 1/3/1///// | \n 3:&bar1     &barHost &bar 10.  1.  0.  0&bar  0.  0.  0.  0&bar192.168.  0.254\n\n\
Del or Edit ? (0:Delete, 1:Edit):&keepEnable this rule?<1>(0:Disable, 1:Enable):Type?<9>(0:Net, 1:Host):\
Target?<10.1.0.0>:Netmask?<0.0.0.0>:&illegal |
)",
              "\n&ending=&dump{/etc/init.d/staticroute.sh restart > /dev/null 2>&1}&saved\n"});
  hold_rules({5, "mac_filter_table", "MAC Filter", "ID:|Active|MAC Address      |Schedule",
              "00:11:22:aa:bb:cc|" + column, "ff:ff:ff:ff:ff:ff|" + wild_column,
              "mac_address=00:11:22:aa:bb:cc | MAC Address<$>: | mac\n" + scheduled, ""});
  hold_rules(
      {6, "ip_filter_table", "IP Filter",
       "ID:|Active|IP RANGE                       |Port Range |Type|Schedule",
       range + "  100-  200|UDP |" + column, any_range + "65535-65535|    |" + wild_column, clients + R"(
~ protocol=1 | Type?<$>(0:TCP, 1:UDP, 2:Both): | [012]
start_port=100 | Start Port?<$>(1~65535): | 1..65535
end_port=200 | End Port?<$>(1~65535): | 1..65535
+ protocol=1 | Type?<$>(0:TCP, 1:UDP, 2:Both): | [012]
)" + scheduled,
       R"(> 0/1/3/1///192.168.1.49/|0/1/3/1//192.168.0.101//|0/1/3/1/ /*4 100/99/|0/1/3/1/ /*4 201// | :&range |
= end_ip=0.0.0.0 > 0/1/3/1//// | End IP?<0.0.0.0>:&illegal |
)"});
  hold_rules({7, "url_filter_table", "URL Filter",
              "ID:|Active|IP RANGE                       |URL Filter String", range + "www.%s\\n",
              any_range + string(256, '\xff') + "\\n", clients + R"(
+ filter_string= | URL Filter String?(MAX Character:255): | text 255
~ filter_string=www.%s | URL Filter String?<$>(MAX Character:255): | text 255
)",
              R"(> 0/1/3/1//192.168.0.101// | :&range |
= filter_string=a\x0ab\x0ac
> 0/1/3/1/// /t*256/ | URL Filter String?<a>(MAX Character:255):&illegal | filter_string=a\x00b\x00c
> 0/1/3/1/// | End IP?<192.168.1.100>:Bye Bye!!\n |
)"});
  hold_rules({8, "domain_filter_table", "Domain Filter",
              "ID:|Active|IP RANGE                       |Domain Filter String", range + "www.%s\\n",
              any_range + string(256, '\xff') + "\\n",
              clients + "filter_string=www.%s | Domain Filter String?(MAX Character:255): | text 255\n",
              R"(= filter_string=a\x0ab
> 0/1/3/1/ /*4 | Domain Filter String?(MAX Character:255):&ending | domain_filter_enable=0
)"});
}

TEST(Advanced, Firewall) {
  const string edge = "+-----------+---------+", cells = string(31, '-') + "+--------+-----------\\n";
  const string block =
      "   " + edge + string(52, '-') +
      R"(\n   |           |Interface|IP Range                       |Protocol|Port Range \n   )" + edge +
      cells + "   |source     |";
  hold_rules({9, "firewall_rule_table", "Firewall", "ID:|Active     |Action   |Schedule",
              "Allow    |" + column + block + R"(*        | 10.  0.  0.  1- 10.  0.  0.  5|        |\n)" +
                  R"(   |destination|LAN      |  2.  2.  3.  4-  2.  2.  3.  4|BOTH    |   80-   80\n---)" +
                  edge + cells,
              "Allow    |" + wild_column + block + "         |" + any_range +
                  R"(        |\n   |destination|         |)" + any_range + R"(BOTH    |65535-65535\n---)" +
                  edge + cells,
              R"(action=1 | Action?<$>(0:Deny, 1:Allow): | [01] enter>0
src_interface=2 | Source interface?<$>(0:WAN, 1:LAN, 2:ALL): | [012] enter>0
src_ip_start=10.0.0.1 | Source IP Range Start?<$>: | ip
src_ip_end=10.0.0.5 | Source IP Range End?<$>: | ip
dst_interface=1 | Destination interface?<$>(0:WAN, 1:LAN, 2:ALL): | [012] enter>0
dst_ip_start=2.2.3.4 | Destination IP Range Start?<$>: | ip
dst_ip_end=2.2.3.4 | Destination IP Range End?<$>: | ip
protocol=2 | Protocol?<$>(0:TCP, 1:UDP, 2:Both, 3:ICMP, 4:ALL): | [01234] as 2 ! 12
dst_port_start=80 | Destination Port Start?<$>(1~65535): | 1..65535
dst_port_end=80 | Destination Port End?<$>(1~65535): | 1..65535
)" + scheduled,
              R"(> 0/1/3/1/ /*8 0/ /*9 | &ending | firewall_enable=0 protocol=0
> 0/1/3/1/ /*8 3/ /*7 | &ending | firewall_enable=0 protocol=3 dst_port_start=0 dst_port_end=0
> 0/1/3/1/ /*4 9.0.0.9/|0/1/3/1/ /*7 2.2.3.3/|0/1/3/1/ /*9 /79/|0/1/3/1/ /*9 81// | :&range |
= protocol=4 action=0 > 0/1/3/1/ /*16 | &ending | firewall_enable=0 dst_port_start=0 dst_port_end=0
= protocol=200
> 0/1/3/1/ /*9 0/ | 4:ALL):Schedule?<1>(0:Always, 1:By Schedule):&ending | firewall_enable=0 schedule_mode=0 \
start_hour=0 start_minute=0 end_hour=0 end_minute=0 week_mask=1000000
)"});
}

TEST(Advanced, RuleSummary) {
  hold("== summary: 1 10 kind\n&list=\\nFirewall Enable:<Disable>\\n" +
       header("ID:|Active     |Action   |Schedule") + R"(
> /|07/|8/|x/ | 0:Virtual Server Rule List\n1:Special Application Rule List\n2:Static Route Rule List\n\
3:MAC Filter Rule List\n4:IP Filter Rule List\n5:URL FIlter Rule List\n6:Domain Filter Rule List\n\
7:Firewall Rule List\n\nSelect a list?(0~7):&select |
> 7/ | Select a list?(0~7):\n&list\n |
)");
}

}  // namespace
}  // namespace tests
