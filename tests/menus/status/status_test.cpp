#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "menus/status/voice_daemon.h"
#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

// ---- Device information ----

const string tools[] = {"/bin/date", "/bin/uptime", "route -n | awk '{print $2\" \"$4}' ", "/sbin/ifconfig eth0"};
const string usual[] = {"Thu Jan  1 08:00:00 CST 2009\nsecond line\n", " 20:56:11 up 3 days,  4:05,  0 users\n",
                        "IP Flags\nGateway Flags\n10.0.0.9 UGH\n10.0.0.1 UG\n10.0.0.2 UG\n",
                        "eth0 HWaddr 00:11:22:33:44:55  \n inet addr:10.0.0.7  Bcast:10.0.0.255  Mask:255.0.0.0\n",
                        "search lan\nnameserver 10.0.0.53\nnameserver 10.0.1.53\n"};

// Visits to a device whose tools print that; /etc/resolv.conf holds the last. "-" is for one that fails.
void hold_page(const string& visits, const string (&printed)[5], const string& ppp = "ppp0   Link\n") {
  Desk desk;
  for (std::size_t i = 0; i < 4; ++i) {
    desk.command_output[tools[i]] = printed[i];
    desk.failing.insert(printed[i] == "-" ? "start " + tools[i] : "");
  }
  desk.files = {{"/etc/resolv.conf", printed[4]}, {"/tmp/ppp_test", ppp}};
  desk.failing.insert(printed[4] == "-" ? "open /etc/resolv.conf" : "");
  desk.failing.insert(ppp == "-" ? "open /tmp/ppp_test" : "");
  desk.command_output["/sbin/ifconfig ppp0"] = "ppp0\n inet addr:10.64.0.3 P-t-P:9 Mask:255.255.255.255\n";
  desk.command_output["/sbin/ifconfig eth1"] = "eth1 HWaddr 1:2\n inet addr:192.168.1.1  Mask:255.255.0.0\n";
  hold(R"(== device: 5 0 kind
dhcp_server_enable=1 host_name=gateway
&top=Device Information\n-*54\nModel Name : NTX4830 \nFirmware Version : 1.10 \nHost Name : gateway\n&date
&date=System Date : {/bin/date}
&up=Up Time : {/bin/uptime}
&mode=Device Mode : Router Mode \n-*54\n
&today=Thu Jan  1 08:00:00 CST 2009\n&up3 days\n&mode
&usual=&top&todayWAN Type
&asks={/sbin/ifconfig eth0}
&mac=&asksWAN MAC Address
&gateway=WAN Gateway Address : {route -n &bar awk '{print $2" "$4}' }
&eth=&asks&mac : 00:11:22:33:44:55  \nWAN IP Address : 10.0.0.7\nWAN Subnet Mask : 255.0.0.0\n&gateway10.0.0.1\n&dns
&test={/sbin/ifconfig &bar grep ppp0 > /tmp/ppp_test}
&ppp=&testppp0   Link\n\n{/sbin/ifconfig ppp0}&mac : 00:11:22:33:44:55  \nWAN IP Address : 10.64.0.3\n\
WAN Subnet Mask : 255.255.255.255\n&gateway10.0.0.1\n&dns&offer
&dns=DNS 1 (Primary):10.0.0.53\nDNS 2 (Secondary):10.0.1.53\nOther DNS: \n&lan
&nodns=DNS 1 (Primary):\nDNS 2 (Secondary):\nOther DNS: \n&lan
&lan=-*54\n{/sbin/ifconfig eth1}{/sbin/ifconfig eth1}LAN MAC Address : 1:2\nLAN IP Address : 192.168.1.1\n\
LAN Subnet Mask : 255.255.0.0\nDHCP Server Function : Enabled \nDNS Proxy Function : Disabled \n-*54\n
&offer=0:Disconnect, 1:Reconnect\n[4830NT]#
&stop= stop > /dev/null 2>&1}
&restart= restart > /dev/null 2>&1}&ok
&ok=Configuration successed.\n
)" + visits,
       desk);
}

TEST(DeviceInformation, ShowsEveryKindOfConnectionAndRunsItsScripts) {
  hold_page(R"(> | &usual : Static IP \n&eth |
= wan_type=1
&lease=0:Release WAN IP, 1:Renew WAN IP\n[4830NT]#
> 0/ | &usual : DHCP \n&eth&lease{/etc/init.d/udhcpc.sh&stop&ok |
> 1/ | &lease{/etc/init.d/udhcpc.sh&restart |
> 2/|/ | &lease |
= wan_type=2 host_name=gateway\x0a
> 0/ | &usual : PPPOE \n&ppp{/etc/init.d/pppoe.sh&stop{/etc/init.d/pppoe.sh&restart |
> 01/ | &ppp{/etc/init.d/pppoe.sh&restart |
> /|2/|0x/|-1/|4294967296/ | &ppp |
= wan_type=3 > 0/ | &usual : PPTP \n&ppp{/etc/init.d/pptp.sh&stop{/etc/init.d/pptp.sh&restart |
= wan_type=4 > 0/ | &usual : L2TP \n&ppp{/etc/init.d/l2tp.sh&stop{/etc/init.d/l2tp.sh&restart |
= wan_type=5 > 0/ | &usual : BigPond \n&dns&offer{/etc/init.d/bigpond.sh&stop{/etc/init.d/bigpond.sh&restart |
= wan_type=200 host_name=h*128 > 0/ | Host Name : h*128\n&date&today&dns&offer&ok |
)",
            usual);
  const string down = "= wan_type=3\n> / | PPTP \\n&test#&gateway10.0.0.1\\n&dns&offer |";
  hold_page(replaced(down, "#", "\\nWAN is disconnection!\\n"), usual, "");
  hold_page(replaced(down, "#", ""), usual, "-");
}

TEST(DeviceInformation, ToolsThatFailOrSaySomethingElse) {
  const string many(300, 'x'), one = "nameserver 1.1.1.1\n";
  hold_page(R"(> | &top\n&up\n&modeWAN Type : Static IP \n&asks\n&gateway\n&nodns |)", {"-", "-", "-", "-", "-"});
  hold_page(
      R"(> | &top\n&up\n&modeWAN Type : Static IP \n&asks&mac : \nWAN IP Address : \nWAN Subnet Mask : \n\
&gateway\n&nodns |)",
      {"", "", "", "HWaddr\ninet addr:", ""});
  hold_page(
      R"(> | &topx*255&up&modeWAN Type : Static IP \n&asks&mac : 1\nWAN IP Address : 8\nWAN Subnet Mask : \n\
&gateway7\nDNS 1 (Primary):x*88\nDNS 2 (Secondary):\nOther DNS: \n&lan |)",
      {many, "up 3 min\n", "9 UGH\n7 UGD", "HWaddr 1\nMask:9 inet addr:8", "nameserver " + many});
  hold_page(R"(> | &topcut&up\n&modeWAN Type : Static IP \n&asks&gateway\n\
DNS 1 (Primary):1.1.1.1\nDNS 2 (Secondary):\nOther DNS: 1.1.1.1,1.1.1.1,1.1.1.1,\n&lan |)",
            {"cut", "up,", "UG\n", "eth0: error\n", one + "#nameserver\n" + one + one + one + one});
}

// ---- The log ----

// "from\n" down or up to "to\n".
string lines(int from, int to, const string& end = "\n") {
  return std::to_string(from) + end + (from == to ? "" : lines(from < to ? from + 1 : from - 1, to, end));
}

// Visits to a device with these files, whose command makes a snapshot with that name.
void hold_log(const string& visits, const std::map<string, string>& files, const string& made_as = "") {
  Desk desk;
  desk.files = files;
  desk.on_command = [&](const string& /*command*/) { device().files[made_as] = "here\n"; };
  hold(R"(== log: 5 1 kind
&r=-*65\n
&end=&rhaven't other log message\n\n\n
&asked=&rq:Exit , other:Continue:&r
&made={cat /var/tmp/messages &bar awk {'print $1,$2,$3,$5,$7,$8,$9,$10,$11,$12,$13,$14'} > /tmp/messages.tmp}
)" + visits,
       desk);
}

TEST(LogViewer, ShowsTheNewestFirstInPages) {
  using namespace std::string_literals;
  const string newest = "&r" + lines(41, 22, "\\n") + "&asked" + lines(21, 2, "\\n") + "&asked";
  hold_log("> | &r&end |", {{"/tmp/messages.tmp", "debug\na debug b\nnodebugging\n"}});
  hold_log("> | &r" + lines(20, 1, "\\n") + "&end |", {{"/tmp/messages.tmp", lines(1, 20) + "debug\n"}});
  hold_log("> qq/Q/ | " + newest + "1\\n&end |\n> /q/ | " + newest + "q:Exit\\n |",
           {{"/tmp/messages.tmp", lines(1, 41)}});
  const string long_line = string(507, 'x') + "debug\n";  // read in pieces of 510
  hold_log("> | &r\xff no endug\\nx*507debdebu g\\na\0b %s%n\\n&end |"s,
           {{"/tmp/messages.tmp", "a\0b %s%n\ndebu g\n"s + long_line + "\xff no end"}});
}

TEST(LogViewer, FindsItsSnapshotUnderEitherNameOrMakesIt) {
  for (const string name : {"/var/tmp/messages.tmp", "/tmp/messages.tmp"}) {
    hold_log("> | &rthere\\n&end |", {{name, "there\n"}});
    hold_log("> | &made&rhere\\n&end |", {{"/var/tmp/messages", ""}}, name);
  }
  hold_log("> | can't read log file\\n |", {});
  hold_log("> | &madecan't read log file\\n |", {{"/var/tmp/messages", ""}});
}

// ---- The voice daemon: the client by itself, and the two pages that ask through it ----

using namespace menus::status;

struct DaemonDesk : Desk {
  explicit DaemonDesk(const Strings& replies = {}) {
    use_device(*this);
    on_datagram = [replies](const string& /*request*/) { return replies; };
  }
  string page(int item) {
    const string seen = visit(*this, 5, item, ""), asked = "{udp 127...1:8118}";
    EXPECT_TRUE(seen.starts_with(asked) && differences(Desk().settings, settings).empty());
    return replaced(seen, asked, "");
  }
};

// What a query of these commands returns, and the fields, "-" for a null one.
string query(const std::vector<const char*>& commands) {
  std::array<const char*, 3> fields = {"left", "over", ""};
  string seen = std::to_string(voice_daemon_query(commands, fields));
  for (const char* const field : fields) {
    seen += string(" ") + (field != nullptr ? field : "-");
  }
  EXPECT_EQ(device().open_descriptors, 0);
  return seen;
}

TEST(VoiceDaemon, CutsRepliesIntoLinesAndRefusesALongRequest) {
  const string endless = string(8190, 'a') + "bc", fits(8189, 'x');
  const std::map<string, string> replies = {{"a\n\nb\n", "2 a b -"},
                                            {"\n\n\na", "1 a - -"},
                                            {"", "1 - - -"},
                                            {"\n\n", "1 - - -"},
                                            {"1\n2\n3\n4\n", "3 1 2 3"},
                                            {{"a\n\0b\nc", 6}, "1 a - -"},
                                            {"\xff\r\n b", "2 \xff\r  b -"},
                                            {endless, "1 " + endless.substr(0, 8191) + " - -"}};
  for (const auto& [reply, result] : replies) {
    DaemonDesk desk({reply, "a datagram too many"});
    EXPECT_EQ(query({"get one", "get two 0 1"}), result);
    EXPECT_EQ(desk.requests, Strings{"get one\nget two 0 1\n\n"});
  }
  DaemonDesk desk({"a"});
  EXPECT_EQ(query({(fits + "y").c_str()}) + query({fits.c_str(), ""}), "-2 - - --2 - - -");
  EXPECT_EQ(query({fits.c_str()}), "1 a - -");
  EXPECT_EQ(desk.requests, Strings{fits + "\n\n"});
}

// Milliseconds.
std::uint64_t waited(const Device& device) {
  const Desk start;
  return 1000 * std::uint64_t{device.clock - start.clock} + device.milliseconds - start.milliseconds;
}

TEST(VoiceDaemon, FailuresHaveTheirCodesAndEndInTime) {
  std::istringstream cases(
      "udp socket|-2 -1\nudp bind|-3 -1\nudp connect|-4 -1\nudp send|100 -3\nudp wait|100 -4\n"
      "|100 -4\n");
  for (string failing, codes; std::getline(cases, failing, '|') && std::getline(cases, codes);) {
    DaemonDesk desk;
    desk.failing = {failing};
    const string queried = query({"get one"});
    EXPECT_LE(waited(desk), 5000U);
    EXPECT_EQ(std::to_string(voice_daemon_open("127.0.0.1", 8118)) + " " + queried, codes + " - - -");
  }
  EXPECT_TRUE(voice_daemon_open("127.0.0.256", 8118) == -1 && voice_daemon_send(-1, "get") == -1);
  const std::map<Strings, string> late = {{{"refused", "refused", "a"}, "1 a - -"},
                                          {Strings(4, "refused"), "-4 - - -{silence 1400}"},
                                          {Strings(9, "refused"), "-4 - - -"}};
  for (const auto& [replies, result] : late) {  // 900 milliseconds for each that is refused
    DaemonDesk desk(replies);
    const string queried = query({"get one"});
    EXPECT_EQ(queried + replaced(desk.transcript, "{udp 127...1:8118}", ""), result);
    EXPECT_LE(waited(desk), replies.size() == 9 ? 5400U : 5000U);  // the last one came back late
  }
}

TEST(VoiceDaemon, LineStateAsksOnceAndStaysInItsColumns) {
  string request, reply;
  for (std::size_t i = 0; i < 24; ++i) {
    request += string("get rtpstat") + (i < 12 ? "total" : "current") + Strings{"send", "recv", "lost"}[i % 3];
    request += Strings{" 0 0\n", " 0 1\n", " 1 0\n", " 1 1\n"}[i / 3 % 4];
    reply += i == 19 ? "-7\n" : i == 20 ? "x\n" : i == 21 ? "4294967296\n" : std::to_string(i) + " packets\n";
  }
  DaemonDesk desk({reply + "w\n%s\xff nineteen bytes!\nz\n%s\xff of twenty bytes.\n"});
  EXPECT_EQ(desk.page(2),
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
  EXPECT_EQ(desk.requests, Strings{request + "get epstate 0\nget epstate 1\nget epregstate 0\nget epregstate 1\n\n"});
  const string cut_short = DaemonDesk({"1\n\n2\n"}).page(2);
  EXPECT_NE(cut_short.find("|                   |                   |"), string::npos);
  EXPECT_NE(cut_short.find("  1  |   0   |        1|        0|        2|        0|"), string::npos);
  EXPECT_EQ(DaemonDesk().page(2), "{silence 5000}");
}

string call(const string& first_row, const string& second_row) {
  const string line = string(78, '-') + "\n";
  return line + "Phone Num       |Durace time|phone|Reason\n----------------+-----------+-----+" + string(43, '-') +
         "\n" + first_row + line + "Call type|Call time           |Answer time         |Disconnect time     \n" +
         "---------+--------------------+--------------------+--------------------------\n" + second_row + line + "\n";
}

TEST(VoiceDaemon, CallRecordsThatCameBeforeTheFetchEnded) {
  const string record = "0|555|20070608123456|0|2007060812345x|100f|65|0", bars(9000, '|');
  const string shown = call("555             |         65|    1|User busy\n",
                            "dial out |2007/06/08 12:34:56 |0                   |2007/06/08 12:34:5x \n");
  DaemonDesk odd({"2", "|1|%s||\xff|-|x|2007|0|1||",
                  "2|12345678901234567|123456789012345678901|" + string(40, 't') + "|-|10|1234567890123|99999",
                  record});
  EXPECT_EQ(odd.page(3),
            "\n" +
                call("%s              |          0|    2|Callee pattern not matched with listed digitmap\n",
                     "call in  |\xff                   |-                   |x                   \n") +
                call("1234567890123456|  123456789| 1000|unknow reason\n",
                     "         |12345678901234567890|tttttttttttttttttttt|-                   \n"));
  EXPECT_EQ(odd.requests, Strings{"get calllog\n\n"});
  for (const string none : {"0", "-1", "", "many"}) {
    EXPECT_EQ(DaemonDesk({none, record}).page(3), "\n");
  }
  for (const string& bad : {string("0|1|2|3|4|1008|6"), string("0|1||3|4|1008|6|0"), record + "|9",
                            string("0|1|2|3|4\0|1008|6|0", 19), bars}) {
    EXPECT_EQ(DaemonDesk({"3", record, bad, record}).page(3), "\n" + shown) << bad;
  }
  EXPECT_EQ(DaemonDesk({"99999999999999999999", record, record}).page(3), "{silence 5000}\n" + shown + shown);
  Strings many(500, record);
  many[0] = "100000";
  EXPECT_EQ(DaemonDesk(many).page(3).size(), 1 + 100 * shown.size());
  EXPECT_EQ(DaemonDesk().page(3), "{silence 5000}\n");  // nothing of an earlier visit is left
  std::istringstream reasons(
      "1000 Unknown error|1001 Can't handle a new call|1002 Normal release by remote end|"
      "1003 User cancelled the call|1004 Response accepted|1005 Forbidden|1006 User not found/Gone|"
      "1007 Request timeout|1008 Conflict|1009 Request Entity Too Large|100a Media type unsupported|"
      "100b Unsupported extension|100c User temporarily unavailable|100d Call leg does not exist|"
      "100e Address is abmbiguous/too long/incomplete|100f User busy|1010 Bad event|"
      "1011 Request pending|1012 Internal Server Error|1013 Service not Implemented|1014 Bad Gateway|"
      "1015 Service Unavailable|1016 Gateway Timeout|1017 Busy Everywhere|1018 User declined the call|"
      "1019 Does Not Exist Anywhere|101a Not Acceptable|"
      "2000 No more new calls are acceptable on that endpoint|2001 Poor media quality|"
      "2002 Parsing the remote SDP msg failed|2003 No codecs matching with remote end|"
      "2004 No more processing power available|2005 Remote SDP is not received|"
      "2006 Disconnection after blind transfer|2007 Callee pattern not matched with listed digitmap|"
      "3000 unknow reason");
  Strings replies = {"36"};
  string expected = "\n";
  for (string reason; std::getline(reasons, reason, '|');) {
    replies.push_back(replaced(record, "100f", reason.substr(0, 4)));
    expected += replaced(shown, "User busy", reason.substr(5));
  }
  EXPECT_EQ(DaemonDesk(replies).page(3), expected);
}

}  // namespace
}  // namespace tests
