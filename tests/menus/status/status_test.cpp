#include <gtest/gtest.h>

#include <cstdio>

#include "support/dialogue.h"

namespace tests {
namespace {

using std::string;
using namespace std::string_literals;

// ---- Device information ----

const string routes = "route -n | awk '{print $2\" \"$4}' ", eth0 = "/sbin/ifconfig eth0";
const string resolv_conf = "/etc/resolv.conf", ppp_test = "/tmp/ppp_test";

// Whose tools print what they usually do.
Desk usual(const string& wan_type) {
  Desk desk;
  desk.set("host_name", "gateway").set("dhcp_server_enable", "1").set("wan_type", wan_type);
  desk.command_output = {
      {"/bin/date", "Thu Jan  1 08:00:00 CST 2009\nsecond line\n"},
      {"/bin/uptime", " 20:56:11 up 3 days,  4:05,  0 users\n"},
      {routes, "Gateway Flags\n10.0.0.9 UGH\n10.0.0.1 UG\n10.0.0.2 UG\n"},
      {eth0, "eth0 HWaddr 00:11:22:33:44:55  \n inet addr:10.0.0.7  Bcast:10.0.0.255  Mask:255.0.0.0\n"},
      {"/sbin/ifconfig eth1", "eth1 HWaddr 1:2\n inet addr:192.168.1.1  Mask:255.255.0.0\n"},
      {"/sbin/ifconfig ppp0", "ppp0\n inet addr:10.64.0.3 P-t-P:9 Mask:255.255.255.255\n"}};
  desk.files = {{resolv_conf, "search lan\nnameserver 10.0.0.53\nnameserver 10.0.1.53\n"}, {ppp_test, "ppp0   Link\n"}};
  return desk;
}

// What it shows then.
const string ruler = string(54, '-') + "\n", type = "WAN Type : Static IP \n";
const string mac = "{/sbin/ifconfig eth0}WAN MAC Address : 00:11:22:33:44:55  \n";
const string addresses = mac + "WAN IP Address : 10.0.0.7\nWAN Subnet Mask : 255.0.0.0\n";
const string gateway = "WAN Gateway Address : {" + routes + "}10.0.0.1\n";
const string static_page =
    "Device Information\n" + ruler + "Model Name : NTX4830 \nFirmware Version : 1.10 \nHost Name : gateway\n" +
    "System Date : {/bin/date}Thu Jan  1 08:00:00 CST 2009\nUp Time : {/bin/uptime}3 days\n" +
    "Device Mode : Router Mode \n" + ruler + type + "{/sbin/ifconfig eth0}" + addresses + gateway +
    "DNS 1 (Primary):10.0.0.53\nDNS 2 (Secondary):10.0.1.53\nOther DNS: \n" + ruler +
    "{/sbin/ifconfig eth1}{/sbin/ifconfig eth1}LAN MAC Address : 1:2\nLAN IP Address : 192.168.1.1\n" +
    "LAN Subnet Mask : 255.255.0.0\nDHCP Server Function : Enabled \nDNS Proxy Function : Disabled \n" + ruler;

const string tests_ppp = "{/sbin/ifconfig | grep ppp0 > /tmp/ppp_test}";
const string link_is_up =
    "ppp0   Link\n\n{/sbin/ifconfig ppp0}" + mac + "WAN IP Address : 10.64.0.3\nWAN Subnet Mask : 255.255.255.255\n";
const string offer = "0:Disconnect, 1:Reconnect\n[4830NT]#", done = "Configuration successed.\n";

// With these lines about the connection, and an action.
string page(const string& connection) {
  return replaced(static_page, type + "{/sbin/ifconfig eth0}" + addresses + gateway, connection) + offer;
}

// Makes no other visit when one was not as expected.
void hold_page(const Desk& desk, const std::vector<Visit>& visits) {
  if (!testing::Test::HasFailure()) {
    hold({"Status", "Device Infomation"}, desk, visits);
  }
}

string script(const string& arguments) {
  return silently("/etc/init.d/" + arguments);
}

TEST(DeviceInformation, ShowsEveryKindOfConnectionAndRunsItsScripts) {
  hold_page(usual("0"), {Visit({}, static_page)});
  const string dhcp = replaced(static_page, "Static IP", "DHCP") + "0:Release WAN IP, 1:Renew WAN IP\n[4830NT]#";
  hold_page(usual("1"), {Visit({}, dhcp), Visit({{"Release", "2"}}, dhcp),
                         Visit({{"Release", "0"}}, dhcp + script("udhcpc.sh stop") + done),
                         Visit({{"Release", "1"}}, dhcp + script("udhcpc.sh restart") + done)});
  hold_page(usual("200"), {Visit({{"Disconnect", "0"}}, page("") + done)});
  const string ppp = tests_ppp + link_is_up + gateway;
  const string connections[] = {"WAN Type : PPPOE \n" + ppp, "WAN Type : PPTP \n" + ppp, "WAN Type : L2TP \n" + ppp,
                                "WAN Type : BigPond \n"};
  for (const std::size_t i : {0U, 1U, 2U, 3U}) {
    const string shown = page(connections[i]), name = Strings{"pppoe", "pptp", "l2tp", "bigpond"}[i];
    const string stop = script(name + ".sh stop"), restart = script(name + ".sh restart") + done;
    const Desk desk = usual(std::to_string(i + 2));
    hold_page(desk, {Visit({{"Disconnect", "0"}}, shown + stop + restart)});
    hold_page(desk, {Visit({{"Disconnect", "01"}}, shown + restart)});
    for (const string neither : {"", "2", "0x", "-1", "4294967296"}) {
      hold_page(desk, {Visit({{"Disconnect", neither}}, shown)});
    }
  }
}

// In place of what one tool prints usually, of the page that follows from it.
void hold_tool(const string& tool, const string& prints, const string& usually, const string& shown,
               int row = __builtin_LINE()) {
  const testing::ScopedTrace trace(__FILE__, row, "the tool");
  Desk desk = usual("0");
  desk.files[tool] = desk.command_output[tool] = prints;
  desk.failing = {prints == "fails" ? "start " + tool : "", prints == "fails" ? "open " + tool : ""};
  hold_page(desk, {Visit({}, replaced(static_page, usually, shown))});
}

TEST(DeviceInformation, ToolsThatFailOrSaySomethingElse) {
  const string many(300, 'x'), one = "nameserver 1.1.1.1\n", up = "3 days\n", ip = "10.0.0.1\n";
  const string date = "Thu Jan  1 08:00:00 CST 2009\n", dns = "10.0.0.53\nDNS 2 (Secondary):10.0.1.53\nOther DNS: \n";
  hold_tool("/bin/date", "fails", date, "\n");
  hold_tool("/bin/date", "cut", date, "cut");
  hold_tool("/bin/date", many, date, string(255, 'x'));
  hold_tool("/bin/uptime", "", up, "\n");
  hold_tool("/bin/uptime", "up,", up, "\n");
  hold_tool("/bin/uptime", "up 3 min\n", up, "");
  hold_tool(routes, "", ip, "\n");
  hold_tool(routes, "UG\n", ip, "\n");
  hold_tool(routes, "9 UGH\n7 UGD", ip, "7\n");
  hold_tool(eth0, "fails", addresses, "\n");
  hold_tool(eth0, "eth0: error\n", addresses, "");
  const string nothing = "{/sbin/ifconfig eth0}WAN MAC Address : \nWAN IP Address : \nWAN Subnet Mask : \n";
  hold_tool(eth0, "", addresses, nothing);
  hold_tool(eth0, "HWaddr\ninet addr:", addresses, nothing);
  hold_tool(eth0, "HWaddr \nMask:9 inet addr:8", addresses, replaced(nothing, "IP Address : ", "IP Address : 8"));
  hold_tool(resolv_conf, "fails", dns, "\nDNS 2 (Secondary):\nOther DNS: \n");
  hold_tool(resolv_conf, "nameserver " + many, dns, string(88, 'x') + "\nDNS 2 (Secondary):\nOther DNS: \n");
  hold_tool(resolv_conf, one + "#nameserver\n" + one + one + one + one, dns,
            "1.1.1.1\nDNS 2 (Secondary):\nOther DNS: 1.1.1.1,1.1.1.1,1.1.1.1,\n");
}

TEST(DeviceInformation, HostNamesAndPppLinksThatAreDown) {
  Desk named = usual("0"), down = usual("3");
  hold_page(named.set("host_name", "gateway\\x0a"), {Visit({}, static_page)});
  down.files[ppp_test] = "";
  const string connection = "WAN Type : PPTP \n" + tests_ppp + "\nWAN is disconnection!\n" + gateway;
  hold_page(down, {Visit({}, page(connection))});
  down.failing = {"open " + ppp_test};
  hold_page(down, {Visit({}, page("WAN Type : PPTP \n" + tests_ppp + gateway))});
}

// ---- The log ----

const Item log_page = {"Status", "Log"};
const string rule = string(65, '-') + "\n", no_more = rule + "haven't other log message\n\n\n";

// 41 of these are more than is read from a file at a time.
string entries(int from, int to) {
  const string entry = std::to_string(from) + string(100, '.') + "\n";
  return entry + (from == to ? "" : entries(from < to ? from + 1 : from - 1, to));
}

TEST(LogViewer, ShowsTheNewestFirstInPages) {
  const auto log_of = [](const string& snapshot) {
    Desk desk;
    desk.files["/tmp/messages.tmp"] = snapshot;
    return desk;
  };
  hold(log_page, log_of("debug\na debug b\nnodebugging\n"), {Visit({}, rule + no_more)});
  hold(log_page, log_of(entries(1, 20) + "debug\n"), {Visit({}, rule + entries(20, 1) + no_more)});
  const string asks = rule + "q:Exit , other:Continue:" + rule;
  const string two_pages = rule + entries(41, 22) + asks + entries(21, 2) + asks;
  hold(log_page, log_of(entries(1, 41)),
       {Visit({{"Continue:", "qq"}, {"Continue:", "Q"}}, two_pages + entries(1, 1) + no_more),
        Visit({{"Continue:", ""}, {"Continue:", "q"}}, two_pages + "q:Exit\n")});
  const string long_line = string(507, 'x') + "debug\n";  // read in pieces of 510
  hold(log_page, log_of("a\0b %s%n\ndebu g\n"s + long_line + "\xff no end"),
       {Visit({}, rule + "\xff no endug\n" + string(507, 'x') + "debdebu g\na\0b %s%n\n"s + no_more)});
}

TEST(LogViewer, FindsItsSnapshotUnderEitherNameOrMakesIt) {
  const string makes_it =
      "{cat /var/tmp/messages | awk {'print $1,$2,$3,$5,$7,$8,$9,$10,$11,$12,$13,$14'} > /tmp/messages.tmp}";
  for (const string name : {"/var/tmp/messages.tmp", "/tmp/messages.tmp"}) {
    Desk there, made;
    there.files[name] = "there\n";
    EXPECT_EQ(visit(there, log_page, {}), rule + "there\n" + no_more);
    made.files["/var/tmp/messages"] = "";
    made.on_command = [&](const string& /*command*/) { made.files[name] = "here\n"; };
    EXPECT_EQ(visit(made, log_page, {}), makes_it + rule + "here\n" + no_more);
  }
  Desk neither, not_made;
  EXPECT_EQ(visit(neither, log_page, {}), "can't read log file\n");
  not_made.files["/var/tmp/messages"] = "";
  EXPECT_EQ(visit(not_made, log_page, {}), makes_it + "can't read log file\n");
}

// ---- The voice daemon, and the two pages that ask it ----

const Item line_state = {"Status", "Line State"}, call_records = {"Status", "Call Detailed Record"};

struct DaemonDesk : Desk {
  explicit DaemonDesk(const Strings& replies) {
    on_datagram = [replies](const string& /*request*/) { return replies; };
  }
  string page(const Item& item) { return replaced(visit(*this, item, {}), "{udp 127...1:8118}", ""); }
};

TEST(VoiceDaemon, FailuresLeaveThePagesEmptyAndEndInTime) {
  for (const string call : {"udp socket", "udp bind", "udp connect", "udp send", "udp wait"}) {
    DaemonDesk state({"1"}), records({"1"});
    state.failing = records.failing = {call};
    EXPECT_EQ(state.page(line_state) + records.page(call_records), "\n") << call;
  }
  EXPECT_EQ(DaemonDesk({}).page(line_state), "{silence 5000}");
  // Each reply that is refused takes 900 milliseconds.
  EXPECT_EQ(DaemonDesk({"refused", "refused", "1"}).page(line_state), DaemonDesk({"1"}).page(line_state));
  EXPECT_EQ(DaemonDesk(Strings(4, "refused")).page(line_state), "{silence 1400}");
  EXPECT_EQ(DaemonDesk(Strings(6, "refused") + Strings{"1"}).page(line_state), "");
}

TEST(VoiceDaemon, LineStateAsksOnceAndStaysInItsColumns) {
  string request, reply;
  int packets = 0;
  for (const string count : {"total", "current"}) {
    for (const string channel : {" 0 0\n", " 0 1\n", " 1 0\n", " 1 1\n"}) {
      for (const string what : {"send", "recv", "lost"}) {
        request += "get rtpstat" + count + what + channel;
        reply += std::to_string(packets++) + " packets\n";
      }
    }
  }
  request += "get epstate 0\nget epstate 1\nget epregstate 0\nget epregstate 1\n\n";
  reply = replaced(reply, "19 packets\n20 packets\n21 packets\n", "-7\nx\n4294967296\n");
  DaemonDesk desk({reply + "w\n%s\xff nineteen bytes!\nz\n%s\xff of twenty bytes.\n"});
  EXPECT_EQ(desk.page(line_state),
            "\nPhone 1            |Phone 2            |Account 1          |Account 2\n"
            "-------------------+-------------------+-------------------+------------------\n"
            "w                  |%s\xff nineteen bytes!|z                  |%s\xff of twenty bytes\n"
            "\n     |       |RTP Send Packets   |RTP Recv Packets   |Packet loss\n"
            "Phone|Channel|    Total|  Current|    Total|  Current|    Total|  Current\n"
            "-----+-------+---------+---------+---------+---------+---------+--------------\n"
            "  1  |   0   |        0|       12|        1|       13|        2|       14\n"
            "     |   1   |        3|       15|        4|       16|        5|       17\n"
            "-----+-------+---------+---------+---------+---------+---------+--------------\n"
            "  2  |   0   |        6|       18|        7|       -7|        8|        0\n"
            "     |   1   |        9|2147483647|       10|       22|       11|       23\n\n");
  EXPECT_EQ(desk.requests, Strings{request});
  const string cut_short = DaemonDesk({"1\n\n2\n"}).page(line_state);
  EXPECT_NE(cut_short.find("|                   |                   |"), string::npos);
  EXPECT_NE(cut_short.find("  1  |   0   |        1|        0|        2|        0|"), string::npos);
  // A reply that is too long is cut, one that ends early is as good as none.
  for (const string& bad : {""s, "\n\n"s, "x\0x\n1\n"s, string(8190, 'a') + "\n1\n2\n"}) {
    EXPECT_EQ(DaemonDesk({bad, "1\n2\n"}).page(line_state), replaced(replaced(cut_short, "1|", "0|"), "2|", "0|"));
  }
}

string call(const string& first_row, const string& second_row) {
  const string wide = string(78, '-') + "\n";
  return wide + "Phone Num       |Durace time|phone|Reason\n----------------+-----------+-----+" + string(43, '-') +
         "\n" + first_row + wide + "Call type|Call time           |Answer time         |Disconnect time     \n" +
         "---------+--------------------+--------------------+--------------------------\n" + second_row + wide + "\n";
}

const string record = "0|555|20070608123456|0|2007060812345x|100f|65|0";
const string its_call = call("555             |         65|    1|User busy\n",
                             "dial out |2007/06/08 12:34:56 |0                   |2007/06/08 12:34:5x \n");

TEST(CallRecords, ThatCameBeforeTheFetchEnded) {
  DaemonDesk odd({"2", "|1|%s||\xff|-|x|2007|0|1||",
                  "2|12345678901234567|123456789012345678901|" + string(40, 't') + "|-|10|1234567890123|99999",
                  record});
  ASSERT_EQ(odd.page(call_records),
            "\n" +
                call("%s              |          0|    2|Callee pattern not matched with listed digitmap\n",
                     "call in  |\xff                   |-                   |x                   \n") +
                call("1234567890123456|  123456789| 1000|unknow reason\n",
                     "         |12345678901234567890|tttttttttttttttttttt|-                   \n"));
  ASSERT_EQ(odd.requests, Strings{"get calllog\n\n"});
  for (const string none : {"0", "-1", "", "many"}) {
    ASSERT_EQ(DaemonDesk({none, record}).page(call_records), "\n");
  }
  for (const string& bad :
       {"0|1|2|3|4|1008|6"s, "0|1||3|4|1008|6|0"s, record + "|9", "0|1|2|3|4\0|1008|6|0"s, string(9000, '|')}) {
    ASSERT_EQ(DaemonDesk({"3", record, bad, record}).page(call_records), "\n" + its_call) << bad.substr(0, 60);
  }
  ASSERT_EQ(DaemonDesk({"99999999999999999999", record}).page(call_records), "{silence 5000}\n" + its_call);
  const string most = DaemonDesk(Strings{"100000"} + Strings(500, record)).page(call_records);
  ASSERT_EQ(most.size(), 1 + 100 * its_call.size());
  ASSERT_EQ(DaemonDesk({}).page(call_records), "{silence 5000}\n");  // nothing of an earlier visit is left
}

TEST(CallRecords, NameTheReason) {
  Strings replies = {"37"};
  for (unsigned code = 0x1000; code <= 0x2008; code = code == 0x101b ? 0x2000 : code + 1) {
    char digits[8];
    std::snprintf(digits, sizeof digits, "%x", code);
    replies.push_back(replaced(record, "100f", digits));
  }
  const string shown = DaemonDesk(replies).page(call_records), busy = "User busy";
  const std::size_t reason = its_call.find(busy);
  const string before = its_call.substr(0, reason), behind = its_call.substr(reason + busy.size());
  EXPECT_EQ(replaced(replaced(shown, behind, "; "), before, ""),
            "\nUnknown error; Can't handle a new call; Normal release by remote end; User cancelled the call; "
            "Response accepted; Forbidden; User not found/Gone; Request timeout; Conflict; Request Entity Too Large; "
            "Media type unsupported; Unsupported extension; User temporarily unavailable; Call leg does not exist; "
            "Address is abmbiguous/too long/incomplete; User busy; Bad event; Request pending; Internal Server Error; "
            "Service not Implemented; Bad Gateway; Service Unavailable; Gateway Timeout; Busy Everywhere; "
            "User declined the call; Does Not Exist Anywhere; Not Acceptable; unknow reason; "
            "No more new calls are acceptable on that endpoint; Poor media quality; Parsing the remote SDP msg failed; "
            "No codecs matching with remote end; No more processing power available; Remote SDP is not received; "
            "Disconnection after blind transfer; Callee pattern not matched with listed digitmap; unknow reason; ");
}

}  // namespace
}  // namespace tests
