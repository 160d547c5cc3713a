#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/session.h"

namespace tests {
namespace {

const std::string rule = "------------------------------------------------------\n";
const std::string ppp_test = "{/sbin/ifconfig | grep ppp0 > /tmp/ppp_test}";

// What the tools print and the file holds; "-" for one that fails.
using Tools = std::array<std::string, 5>;
const Tools tool_names = {"/bin/date", "/bin/uptime", "route -n | awk '{print $2\" \"$4}' ",
                          "/sbin/ifconfig eth0", "/etc/resolv.conf"};
const Tools usual = {
    "Thu Jan  1 08:00:00 CST 2009\nsecond line\n", " 20:56:11 up 3 days,  4:05,  0 users\n",
    "IP Flags\nGateway Flags\n10.0.0.9 UGH\n10.0.0.1 UG\n10.0.0.2 UG\n",
    "eth0 HWaddr 00:11:22:33:44:55  \n inet addr:10.0.0.7  Bcast:10.0.0.255  Mask:255.0.0.0\n",
    "search lan\nnameserver 10.0.0.53\nnameserver 10.0.1.53\n"};

// The page of a device with that WAN type, up to its end or to the submenu.
std::string shown(const std::string& wan_type, const std::string& answers, const Tools& tools = usual,
                  const std::string& link = "ppp0   Link\n") {
  Desk desk;
  desk.set("wan_type", wan_type).set("dhcp_server_enable", "1");
  desk.set("host_name", wan_type == "0" ? "gateway" : "gateway\\x0a");
  for (std::size_t i = 0; i < tools.size(); ++i) {
    desk.files[tool_names[i]] = desk.command_output[tool_names[i]] = tools[i];
    desk.failing.insert((tools[i] == "-" ? (i < 4 ? "start " : "open ") : "") + tool_names[i]);
  }
  desk.command_output["/sbin/ifconfig ppp0"] = "ppp0\n inet addr:10.64.0.3 P-t-P:9 Mask:255.255.255.255\n";
  desk.command_output["/sbin/ifconfig eth1"] = "eth1 HWaddr 1:2\n inet addr:192.168.1.1  Mask:255.255.0.0\n";
  desk.files["/tmp/ppp_test"] = link;
  desk.on_command = [&](const std::string& command) {  // what stands before it is on the screen by then
    EXPECT_TRUE(command != "/bin/date" || desk.transcript.ends_with("System Date : "));
  };
  desk.failing.insert(link == "-" ? "open /tmp/ppp_test" : "");
  const Visit seen = visit(desk, 5, 0, answers);
  EXPECT_TRUE(seen.returned && seen.changed.empty() && !desk.saved) << seen.shown;
  return seen.shown;
}

std::string page(const std::string& wan, const std::string& date = "Thu Jan  1 08:00:00 CST 2009\n",
                 const std::string& up_time = "3 days\n",
                 const std::string& dns = "10.0.0.53\nDNS 2 (Secondary):10.0.1.53\nOther DNS: \n") {
  return "Device Information\n" + rule +
         "Model Name : NTX4830 \nFirmware Version : 1.10 \nHost Name : gateway\nSystem Date : " + date +
         "Up Time : " + up_time + "Device Mode : Router Mode \n" + rule + wan + "DNS 1 (Primary):" + dns +
         rule +
         "LAN MAC Address : 1:2\nLAN IP Address : 192.168.1.1\nLAN Subnet Mask : 255.255.0.0\n"
         "DHCP Server Function : Enabled \nDNS Proxy Function : Disabled \n" +
         rule;
}

std::string addresses(const std::string& mac, const std::string& ip, const std::string& mask) {
  return "WAN MAC Address : " + mac + "\nWAN IP Address : " + ip + "\nWAN Subnet Mask : " + mask + "\n";
}
const std::string gateway = "WAN Gateway Address : 10.0.0.1\n";
const std::string eth = addresses("00:11:22:33:44:55  ", "10.0.0.7", "255.0.0.0") + gateway;
const std::string ppp =
    ppp_test + "ppp0   Link\n\n" + addresses("00:11:22:33:44:55  ", "10.64.0.3", "255.255.255.255") + gateway;

TEST(DeviceInformation, ShowsEveryKindOfConnectionAndRunsItsScripts) {
  const std::string done = "Configuration successed.\n";
  const std::string asked = "0:Disconnect, 1:Reconnect\n[4830NT]#";
  const std::string names[] = {"DHCP", "PPPOE", "PPTP", "L2TP", "BigPond"};
  const std::string scripts[] = {"udhcpc", "pppoe", "pptp", "l2tp", "bigpond"};
  const std::string lines[] = {eth, ppp, ppp, ppp, ""};
  for (std::size_t i = 0; i < std::size(names); ++i) {
    const std::string wan_type = std::to_string(i + 1);
    const std::string stop = "{/etc/init.d/" + scripts[i] + ".sh stop > /dev/null 2>&1}";
    const std::string restart = "{/etc/init.d/" + scripts[i] + ".sh restart > /dev/null 2>&1}";
    const std::string before = page("WAN Type : " + names[i] + " \n" + lines[i]) +
                               (i == 0 ? "0:Release WAN IP, 1:Renew WAN IP\n[4830NT]#" : asked);
    EXPECT_EQ(shown(wan_type, "0\n"), before + stop + (i == 0 ? "" : restart) + done);
    EXPECT_EQ(shown(wan_type, "01\n"), before + restart + done);
    for (const std::string refused : {"", "2", "0x", "-1", "4294967296"}) {
      EXPECT_EQ(shown(wan_type, refused + "\n"), before) << refused;
    }
  }
  EXPECT_EQ(shown("0", ""), page("WAN Type : Static IP \n" + eth));
  EXPECT_EQ(shown("200", "0\n"), page("") + asked + done);
  const std::string pptp = "WAN Type : PPTP \n" + ppp_test;
  EXPECT_EQ(shown("3", "\n", usual, ""), page(pptp + "\nWAN is disconnection!\n" + gateway) + asked);
  EXPECT_EQ(shown("3", "\n", usual, "-"), page(pptp + gateway) + asked);
  Desk endless;  // another program left out the NUL
  const std::string name(128, 'h');
  EXPECT_NE(visit(endless.set("host_name", name), 5, 0, "").shown.find(name + "\nSystem"), std::string::npos);
}

TEST(DeviceInformation, ToolsThatFailOrSaySomethingElse) {
  const std::string type = "WAN Type : Static IP \n";
  const std::string no_gateway = "WAN Gateway Address : \n";
  const std::string no_dns = "\nDNS 2 (Secondary):\nOther DNS: \n";
  const std::string one = "nameserver 1.1.1.1\n";
  const std::string many(300, 'x');
  EXPECT_EQ(shown("0", "", {"-", "-", "-", "-", "-"}), page(type + "\n" + no_gateway, "\n", "\n", no_dns));
  EXPECT_EQ(shown("0", "", {"", "", "", "HWaddr\ninet addr:", ""}),
            page(type + addresses("", "", "") + no_gateway, "\n", "\n", no_dns));
  EXPECT_EQ(shown("0", "",
                  {many, "up 3 min\n", "9 UGH\n7 UGD", "HWaddr 1\nMask:9 inet addr:8", "nameserver " + many}),
            page(type + addresses("1", "8", "") + "WAN Gateway Address : 7\n", many.substr(0, 255), "",
                 many.substr(0, 88) + no_dns));
  EXPECT_EQ(
      shown("0", "", {"cut", "up,", "UG\n", "eth0: error\n", one + "#nameserver\n" + one + one + one + one}),
      page(type + no_gateway, "cut", "\n",
           "1.1.1.1\nDNS 2 (Secondary):\nOther DNS: 1.1.1.1,1.1.1.1,1.1.1.1,\n"));
}

}  // namespace
}  // namespace tests
