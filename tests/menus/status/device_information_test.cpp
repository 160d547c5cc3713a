#include <gtest/gtest.h>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

const string tools[] = {"/bin/date", "/bin/uptime", "route -n | awk '{print $2\" \"$4}' ",
                        "/sbin/ifconfig eth0"};
const string usual[] = {
    "Thu Jan  1 08:00:00 CST 2009\nsecond line\n", " 20:56:11 up 3 days,  4:05,  0 users\n",
    "IP Flags\nGateway Flags\n10.0.0.9 UGH\n10.0.0.1 UG\n10.0.0.2 UG\n",
    "eth0 HWaddr 00:11:22:33:44:55  \n inet addr:10.0.0.7  Bcast:10.0.0.255  Mask:255.0.0.0\n",
    "search lan\nnameserver 10.0.0.53\nnameserver 10.0.1.53\n"};

// Whose tools print that, and whose /etc/resolv.conf holds the last; "-" for one that fails.
Desk desk_with(const string (&printed)[5]) {
  Desk desk;
  for (std::size_t i = 0; i < 4; ++i) {
    desk.command_output[tools[i]] = printed[i];
    desk.failing.insert(printed[i] == "-" ? "start " + tools[i] : "");
  }
  desk.files = {{"/etc/resolv.conf", printed[4]}, {"/tmp/ppp_test", "ppp0   Link\n"}};
  desk.failing.insert(printed[4] == "-" ? "open /etc/resolv.conf" : "");
  desk.command_output["/sbin/ifconfig ppp0"] = "ppp0\n inet addr:10.64.0.3 P-t-P:9 Mask:255.255.255.255\n";
  desk.command_output["/sbin/ifconfig eth1"] = "eth1 HWaddr 1:2\n inet addr:192.168.1.1  Mask:255.255.0.0\n";
  return desk.set("dhcp_server_enable", "1").set("host_name", "gateway");
}

const string rule = string(54, '-') + "\\n";
const string page = "== device: 5 0 kind\n&top=Device Information\\n" + rule + R"(Model Name : NTX4830 \n\
Firmware Version : 1.10 \nHost Name : gateway\nSystem Date : 
&mode=Device Mode : Router Mode \n)" +
                    rule + "\n&end=" + rule + R"(LAN MAC Address : 1:2\nLAN IP Address : 192.168.1.1\n\
LAN Subnet Mask : 255.255.0.0\nDHCP Server Function : Enabled \nDNS Proxy Function : Disabled \n)" +
                    rule + R"(
&dns=DNS 1 (Primary):10.0.0.53\nDNS 2 (Secondary):10.0.1.53\nOther DNS: \n
&nodns=DNS 1 (Primary):\nDNS 2 (Secondary):\nOther DNS: \n
&usual=&topThu Jan  1 08:00:00 CST 2009\nUp Time : 3 days\n&mode
&gateway=WAN Gateway Address : 10.0.0.1\n
&eth=WAN MAC Address : 00:11:22:33:44:55  \nWAN IP Address : 10.0.0.7\nWAN Subnet Mask : 255.0.0.0\n&gateway
&test={/sbin/ifconfig | grep ppp0 > /tmp/ppp_test}
&ppp=&testppp0   Link\n\nWAN MAC Address : 00:11:22:33:44:55  \nWAN IP Address : 10.64.0.3\n\
WAN Subnet Mask : 255.255.255.255\n&gateway
&ask=0:Disconnect, 1:Reconnect\n[4830NT]#
&ok=Configuration successed.\n
)";

TEST(DeviceInformation, ShowsEveryKindOfConnectionAndRunsItsScripts) {
  const string dialled = R"(= host_name=gateway\x0a wan_type=#
&stop={/etc/init.d/SCRIPT.sh stop > /dev/null 2>&1}
&restart={/etc/init.d/SCRIPT.sh restart > /dev/null 2>&1}
&page=&usualWAN Type : NAME \nLINES&dns&end&ask
> 0/ | &page&stop&restart&ok |
> 01/ | &page&restart&ok |
> /|2/|0x/|-1/|4294967296/ | &page |
)";
  const char* const types[][4] = {{"2", "PPPOE", "pppoe", "&ppp"},
                                  {"3", "PPTP", "pptp", "&ppp"},
                                  {"4", "L2TP", "l2tp", "&ppp"},
                                  {"5", "BigPond", "bigpond", ""}};
  Desk desk = desk_with(usual);
  for (const auto& [number, name, script, lines] : types) {
    hold(page + replaced(replaced(replaced(replaced(dialled, "#", number), "NAME", name), "SCRIPT", script),
                         "LINES", lines),
         desk);
  }
  desk.on_command = [&](const string& command) {  // what stands before it is on the screen by then
    EXPECT_TRUE(command != "/bin/date" || device().transcript.ends_with("System Date : "));
  };
  hold(page + R"(> | &usualWAN Type : Static IP \n&eth&dns&end |
= wan_type=1
&page=&usualWAN Type : DHCP \n&eth&dns&end0:Release WAN IP, 1:Renew WAN IP\n[4830NT]#
> 0/ | &page{/etc/init.d/udhcpc.sh stop > /dev/null 2>&1}&ok |
> 1/ | &page{/etc/init.d/udhcpc.sh restart > /dev/null 2>&1}&ok |
> 2/|/ | &page |
= wan_type=200
> 0/ | &usual&dns&end&ask&ok |
= host_name=h*128
> | Host Name : h*128\nSystem Date : Thu Jan  1 08:00:00 CST 2009\nUp Time : 3 days\n&modeWAN Type : Static IP \n\
&eth&dns&end |
)",
       desk);
  desk.files["/tmp/ppp_test"] = "";
  hold(page + "= wan_type=3\n> / | WAN Type : PPTP \\n&test\\nWAN is disconnection!\\n&gateway&dns&end&ask |",
       desk);
  desk.failing = {"open /tmp/ppp_test"};
  hold(page + "= wan_type=3\n> / | WAN Type : PPTP \\n&test&gateway&dns&end&ask |", desk);
}

TEST(DeviceInformation, ToolsThatFailOrSaySomethingElse) {
  const string many(300, 'x'), one = "nameserver 1.1.1.1\n";
  hold(page + R"(> | &top\nUp Time : \n&modeWAN Type : Static IP \n\nWAN Gateway Address : \n&nodns&end |)",
       desk_with({"-", "-", "-", "-", "-"}));
  hold(page + R"(> | &top\nUp Time : \n&modeWAN Type : Static IP \nWAN MAC Address : \nWAN IP Address : \n\
WAN Subnet Mask : \nWAN Gateway Address : \n&nodns&end |)",
       desk_with({"", "", "", "HWaddr\ninet addr:", ""}));
  hold(page + R"(> | &topx*255Up Time : &modeWAN Type : Static IP \nWAN MAC Address : 1\nWAN IP Address : 8\n\
WAN Subnet Mask : \nWAN Gateway Address : 7\nDNS 1 (Primary):x*88\nDNS 2 (Secondary):\nOther DNS: \n&end |)",
       desk_with({many, "up 3 min\n", "9 UGH\n7 UGD", "HWaddr 1\nMask:9 inet addr:8", "nameserver " + many}));
  hold(page + R"(> | &topcutUp Time : \n&modeWAN Type : Static IP \nWAN Gateway Address : \n\
DNS 1 (Primary):1.1.1.1\nDNS 2 (Secondary):\nOther DNS: 1.1.1.1,1.1.1.1,1.1.1.1,\n&end |)",
       desk_with({"cut", "up,", "UG\n", "eth0: error\n", one + "#nameserver\n" + one + one + one + one}));
}

}  // namespace
}  // namespace tests
