#include "menus/status/voice_daemon.h"
#include "support/dialogue.h"

namespace tests::status_test {

const string routes = "route -n | awk '{print $2\" \"$4}' ", eth0 = "/sbin/ifconfig eth0";
const string ruler = string(54, '-') + "\n", done = "Configuration successed.\n";

// That the page has this part and this end; docs/menus.md shows the whole of it.
void hold_page(FactoryDevice device, const Answers& answers, const string& part, const string& end) {
  const string page = visit(device, {"Status", "Device Infomation"}, answers);
  EXPECT_NE(page.find(part), string::npos) << part << "\nis not in " << page;
  EXPECT_TRUE(page.ends_with(end)) << end << "\nis not the end of " << page;
}

// With one tool that prints this, or a file that holds it, and others that print nothing.
void hold_tool(const string& tool, const string& prints, const string& part) {
  FactoryDevice device;
  device.files[tool] = device.command_output[tool] = prints;
  device.failing = {prints == "fails" ? "start " + tool : ""};
  hold_page(device, {}, part, ruler);
}

TEST(DeviceInformation, ShowsWhatToolsPrint) {
  const string date = "Host Name : \nSystem Date : {/bin/date}", up_time = "Up Time : {/bin/uptime}";
  hold_tool("/bin/date", "Thu Jan  1 08:00:00 CST 2009\nsecond line\n", date + "Thu Jan  1 08:00:00 CST 2009\nUp");
  hold_tool("/bin/date", string(300, 'x'), date + string(255, 'x') + "Up");
  hold_tool("/bin/date", "", date + "\nUp");
  hold_tool("/bin/uptime", " 20:56:11 up 3 days,  4:05,  0 users\n", up_time + "3 days\nDevice");
  hold_tool("/bin/uptime", "up 3 min\n", up_time + "Device");
  hold_tool("/bin/uptime", "", up_time + "\nDevice");
  const string mac = "{" + eth0 + "}{" + eth0 + "}WAN MAC Address : ", ip = "\nWAN IP Address : ";
  const string mask = "\nWAN Subnet Mask : ", gateway = "\nWAN Gateway Address : {" + routes + "}";
  hold_tool(eth0, "eth0 HWaddr 00:11  \n inet addr:10.0.0.7  Bcast:10.0.0.255  Mask:255.0.0.0\n",
            mac + "00:11  " + ip + "10.0.0.7" + mask + "255.0.0.0" + gateway);
  hold_tool(eth0, "HWaddr\ninet addr:", mac + ip + mask + gateway);
  hold_tool(eth0, "fails", "WAN Type : Static IP \n{" + eth0 + "}\nWAN Gateway");
  hold_tool(eth0, "eth0: error\n", "WAN Type : Static IP \n{" + eth0 + "}WAN Gateway");
  hold_tool(routes, "Gateway Flags\n10.0.0.9 UGH\n10.0.0.1 UG\n10.0.0.2 UG\n", gateway + "10.0.0.1\nDNS");
  hold_tool(routes, "UG\n", gateway + "\nDNS");
  const string dns = "DNS 1 (Primary):", second = "\nDNS 2 (Secondary):", other = "\nOther DNS: ";
  hold_tool("/etc/resolv.conf", "nameserver " + string(100, 'x'), dns + string(88, 'x') + second + other + "\n");
  hold_tool("/etc/resolv.conf",
            "search lan\nnameserver 1\n#nameserver\nnameserver 3\nnameserver 4\nnameserver 5\nnameserver 6",
            dns + "1" + second + other + "3,4,5,\n");
}

TEST(DeviceInformation, OffersWhatItsConnectionCanDo) {
  const auto device_with = [](const string& wan_type) { return FactoryDevice().set("wan_type", wan_type); };
  const auto script = [](const string& arguments) { return silently("/etc/init.d/" + arguments); };
  hold_page(device_with("0").set("host_name", "gateway\\x0a"), {}, "Host Name : gateway\nSystem", ruler);
  hold_page(device_with("0").set("dhcp_server_enable", "2"), {}, "",
            "Enabled \nDNS Proxy Function : Disabled \n" + ruler);
  const string dhcp = "WAN Type : DHCP \n{" + eth0, renew = ruler + "0:Release WAN IP, 1:Renew WAN IP\n[4830NT]#";
  hold_page(device_with("1"), {{"Release", "2"}}, dhcp, renew);
  hold_page(device_with("1"), {{"Release", "0"}}, dhcp, renew + script("udhcpc.sh stop") + done);
  hold_page(device_with("1"), {{"Release", "1"}}, dhcp, renew + script("udhcpc.sh restart") + done);
  const string reconnect = ruler + "0:Disconnect, 1:Reconnect\n[4830NT]#";
  const string tests_ppp = "{/sbin/ifconfig | grep ppp0 > /tmp/ppp_test}";
  const string line = "ppp0" + string(250, ' ');  // no more of it is shown
  const string link =
      tests_ppp + line + "\n{/sbin/ifconfig ppp0}{" + eth0 + "}WAN MAC Address : \nWAN IP Address : 10.64.0.3\n";
  const string shown[] = {"PPPOE \n" + link, "PPTP \n" + link, "L2TP \n" + link, "BigPond \nDNS"};
  for (const std::size_t i : {0U, 1U, 2U, 3U}) {
    FactoryDevice device = device_with(std::to_string(i + 2));
    device.command_output["/sbin/ifconfig ppp0"] = "ppp0\n inet addr:10.64.0.3 P-t-P:9 Mask:255.255.255.255\n";
    device.files["/tmp/ppp_test"] = line + "Link\n";
    const string name = Strings{"pppoe", "pptp", "l2tp", "bigpond"}[i];
    const string stop = script(name + ".sh stop"), restart = script(name + ".sh restart") + done;
    hold_page(device, {{"Disconnect", "0"}}, "WAN Type : " + shown[i], reconnect + stop + restart);
    hold_page(device, {{"Disconnect", "1"}}, "WAN Type : " + shown[i], reconnect + restart);
  }
  FactoryDevice down = device_with("3");
  down.files["/tmp/ppp_test"] = "none\n";
  hold_page(down, {}, "PPTP \n" + tests_ppp + "none\n\nWAN is disconnection!\nWAN Gateway", reconnect);
  FactoryDevice no_port = device_with("2");
  no_port.files["/tmp/ppp_test"] = "ppp0\n";
  no_port.command_output[eth0] = "error\n";
  hold_page(no_port, {}, "{" + eth0 + "}WAN IP Address", reconnect);
  no_port.failing = {"start " + eth0};
  hold_page(no_port, {}, "{" + eth0 + "}\nWAN IP Address", reconnect);
  hold_page(device_with("2"), {}, "PPPOE \n" + tests_ppp + "WAN Gateway", reconnect);
  hold_page(device_with("6"), {{"Disconnect", "0"}}, "Router Mode \n" + ruler + "DNS", reconnect + done);
}

const Item log_page = {"Status", "Log"};
const string rule = string(65, '-') + "\n", no_more = rule + "haven't other log message\n\n\n";

// 41 of these are more than is read from a file at a time.
string entries(int from, int to) {
  const string entry = std::to_string(from) + string(100, '.') + "\n";
  return entry + (from == to ? "" : entries(from < to ? from + 1 : from - 1, to));
}

TEST(LogViewer, ShowsTheNewestFirstInPages) {
  FactoryDevice one_page, three_pages;
  // Longer lines are read in pieces of 510 characters.
  one_page.files["/var/tmp/messages.tmp"] =
      "a debug b\n" + entries(1, 16) + "a\0b %s%n\n"s + string(507, 'x') + "debug\n\xff no end";
  const string odd = "\xff no endug\n" + string(507, 'x') + "deba\0b %s%n\n"s;
  hold(log_page, one_page, {Visit({}, rule + odd + entries(16, 1) + no_more)});
  three_pages.files["/tmp/messages.tmp"] = entries(1, 41);
  const string asks = rule + "q:Exit , other:Continue:" + rule;
  const string two_pages = rule + entries(41, 22) + asks + entries(21, 2) + asks;
  hold(log_page, three_pages,
       {Visit({{"Continue:", "qq"}, {"Continue:", ""}}, two_pages + entries(1, 1) + no_more),
        Visit({{"Continue:", "Q"}, {"Continue:", "q"}}, two_pages + "q:Exit\n")});
}

TEST(LogViewer, MakesItsSnapshotOfALogThatIsThere) {
  FactoryDevice made, neither;
  made.files["/var/tmp/messages"] = "";
  made.on_command = [&](const string& /*command*/) { made.files["/tmp/messages.tmp"] = "here\n"; };
  const string command =
      "{cat /var/tmp/messages | awk {'print $1,$2,$3,$5,$7,$8,$9,$10,$11,$12,$13,$14'} > /tmp/messages.tmp}";
  EXPECT_EQ(visit(made, log_page, {}), command + rule + "here\n" + no_more);
  EXPECT_EQ(visit(neither, log_page, {}), "can't read log file\n");
}

const Item line_state = {"Status", "Line State"}, call_records = {"Status", "Call Detailed Record"};

struct AnsweringDevice : FactoryDevice {
  explicit AnsweringDevice(const Strings& replies) {
    on_datagram = [replies](const string& /*request*/) { return replies; };
  }
  string page(const Item& item) { return replaced(visit(*this, item, {}), "{udp 127.0.0.1:8118}", ""); }
};

// What opening, sending and receiving return, and a query, when one of their calls fails, or the replies do.
TEST(VoiceDaemon, ItsClientTellsWhatFailed) {
  using namespace menus::status;
  const std::map<string, std::vector<int>> returns = {
      {"", {0, 3, 5, 2}},           {"too long", {0, 3, 5, -2}},     {"udp socket", {-2, 3, 5, -1}},
      {"udp bind", {-3, 3, 5, -1}}, {"udp connect", {-4, 3, 5, -1}}, {"udp send", {0, -2, 5, -3}},
      {"udp wait", {0, 3, -3, -4}}, {"refused", {0, 3, -1, -4}},     {"silence", {0, 3, -4, -4}},
  };
  for (const auto& [fails, codes] : returns) {
    AnsweringDevice device(Strings(fails == "silence" ? 0 : 6, fails == "refused" ? fails : "a\n\nb\n"));
    device.failing = {fails};
    use_device(device);
    char reply[100];
    const char* lines[3];
    const string longest(fails == "too long" ? 8190 : 8189, 'g');
    EXPECT_EQ(codes,
              (std::vector{voice_daemon_open("127.0.0.1", 8118), voice_daemon_send(0, "get"),
                           voice_daemon_receive(0, reply), voice_daemon_query(std::array{longest.c_str()}, lines)}))
        << fails;
  }
  EXPECT_TRUE(voice_daemon_open("127.0.0", 8118) == -1 && voice_daemon_send(-1, "get") == -1);
  const char* fields[3];
  EXPECT_EQ(split_fields(string("|a,b||c,d").data(), "|,", fields), 3);
  EXPECT_EQ(split_fields(string().data(), "|", fields), 1);
}

void expect_lines(const string& page, const Strings& lines) {
  for (const string& line : lines) {
    EXPECT_NE(page.find("\n" + line + "\n"), string::npos) << line << "\nis not in" << page;
  }
}

TEST(VoiceDaemon, LineStateAsksOnceAndStaysInItsColumns) {
  EXPECT_EQ(AnsweringDevice(Strings(4, "refused")).page(line_state), "{silence 1400}");  // each took 900 milliseconds
  AnsweringDevice device(
      {"0\n1\n2\n3\n4\n5\n6 packets\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16\n17\n18\n-7\nx\n4294967296\n\n22\n23\n"
       "w\n%s\xff nineteen bytes!\n%s\xff of twenty bytes.\n"});
  expect_lines(device.page(line_state),
               {"w                  |%s\xff nineteen bytes!|%s\xff of twenty bytes|                   ",
                "  2  |   0   |        6|       18|        7|       -7|        8|        0",
                "     |   1   |        9|2147483647|       10|       22|       11|       23"});
  const string row = "get rtpstatPERIODsend ROW\nget rtpstatPERIODrecv ROW\nget rtpstatPERIODlost ROW\n";
  const string rows = replaced(row, "ROW", "0 0") + replaced(row, "ROW", "0 1") + replaced(row, "ROW", "1 0") +
                      replaced(row, "ROW", "1 1");
  const string states = "get epstate 0\nget epstate 1\nget epregstate 0\nget epregstate 1\n\n";
  EXPECT_EQ(device.requests, Strings{replaced(rows, "PERIOD", "total") + replaced(rows, "PERIOD", "current") + states});
  // Of a longer reply than 8191 bytes the rest is dropped: a 12 is a 1.
  expect_lines(AnsweringDevice({string(8190, '\n') + "12"}).page(line_state),
               {"  1  |   0   |        1|        0|        0|        0|        0|        0"});
}

TEST(CallRecords, ThatCameBeforeTheFetchEnded) {
  const string record = "0|555|20070608123456|0|2007060812345x|100f|65|0";
  AnsweringDevice odd({"3", "|1|%s||\xff|-|x|2007|0|1||",
                       "2|12345678901234567|123456789012345678901|-|-|10|1234567890123|99999", record});
  expect_lines(odd.page(call_records),
               {"%s              |          0|    2|Callee pattern not matched with listed digitmap",
                "call in  |\xff                   |-                   |x                   ",
                "1234567890123456|  123456789| 1000|unknow reason",
                "         |12345678901234567890|-                   |-                   ",
                "dial out |2007/06/08 12:34:56 |0                   |2007/06/08 12:34:5x "});
  const string its_call = AnsweringDevice({"1", record}).page(call_records);
  for (const string& bad : {"0|1||3|4|1008|6|0"s, record + "|9", string(9000, '|')}) {
    EXPECT_EQ(AnsweringDevice({"3", record, bad, record}).page(call_records), its_call) << bad.substr(0, 60);
  }
  EXPECT_EQ(AnsweringDevice({"99999999999999999999", record}).page(call_records), "{silence 5000}" + its_call);
  AnsweringDevice many(Strings{"100000"} + Strings(500, record));
  EXPECT_EQ(many.page(call_records).size(), 1 + 100 * (its_call.size() - 1));
  EXPECT_EQ(AnsweringDevice({}).page(call_records), "{silence 5000}\n");  // nothing of an earlier visit is left
}

}  // namespace tests::status_test
