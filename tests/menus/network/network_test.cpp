#include <gtest/gtest.h>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

// The questions of one WAN type, behind those that all types have.
void hold_wan(const string& type, const string& rows, const string& visits = "") {
  SCOPED_TRACE("WAN type " + type);
  hold({.submenu = 0,
        .item = 0,
        .refusal = Dialogue::as_illegal,
        .ending = "&dumpDevice will be reboot, please wait 60 seconds and re-connect!!\n\n{/sbin/bbreboot "
                  "&}{sleep 1}"},
       "wan_type=" + type + R"( | WAN Type?<$>(0:static IP 1:DHCP 2:PPPOE 3:PPTP 4:L2TP 5:BigPond): \
| [012345] as )" +
           type + R"( ! 6 9 00 x -> &select
host_name=hub | Host Name?<$>(MAX Character:127): | text 127 keeps
domain_name=lab | domain Name?<$>(MAX Character:127): | text 127 keeps
wan_mac_type=1 | WAN MAC Type?<$>(0:Use Default,1:Menual MAC): | [01] as 1
wan_mac=00:11:22:aa:bb:cc | Set MAC<$>: | mac
wan_ping_enable=1 | Ping form WAN?<$>(0:Disable,1:Enable): | [01]
)" + rows + visits);
}

const string dns = R"(primary_dns=0.0.0.0 | Primary DNS IP<$>: | ip
secondary_dns=0.0.0.0 | Secondary DNS IP<$>: | ip
)";
const string asked_dns =
    "dns_mode=0 | Set DNS?<$>(0:manually, 1:Auto): | [01] as 0 ! 2 9 01 x -> &select\n" + dns;

TEST(WanSetting, StaticIp) {
  hold_wan("0", R"(static_mtu=1400 | MTU?<$>(range 512~1500): | 512..1500
static_ip=10.0.0.7 | IP?<$>: | ip
static_netmask=255.128.0.0 | Subnet Mask?<$>: | mask
static_gateway=0.0.0.0 | Gateway?<$>: | ip
static_broadcast=10.127.255.255 | | >127.255.255.255 >255.255.255.255 >1.0.127.255 >0.1.2.1
)" + dns,
           R"(
= static_broadcast=1.2.3.4 dns_mode=1
> /*12 | &done | static_broadcast=10.127.255.255 dns_mode=0
= static_ip=192.168.1.10 static_netmask=255.255.255.0 wan_mac_type=200
> /*11 | &done | static_broadcast=192.168.1.255 wan_mac=00:00:00:00:00:00
> ///0/// | Ping form WAN?<1>(0:Disable,1:Enable):MTU?<1400>(range 512~1500):IP?<192.168.1.10>:Bye Bye!!\n |
> ///2/|///01/|///x/ | &illegal |
= wan_type=9
> / /*5 | &done |
)");
}

TEST(WanSetting, DialledTypes) {
  hold_wan("1", "dhcp_mtu=0 | MTU?<$>(range 512~1500): | 512..1500\n" + asked_dns, R"(
> /*7 1/ | &done | dns_mode=1
= dns_mode=1
> /*8 | &done |
> /*7 0/// | &done | dns_mode=0
)");
  const string dialling = R"(ppp_connect_type=2 | Connect Type?<$>(0:Keep Alive,2:Manual On): | [02]
ppp_max_idle_time=60 | Max Idle Time?<$>(0-9999): | 0..9999
)" + asked_dns;
  hold_wan("2", R"(pppoe_mtu=1400 | MTU?<$>(range 512~1492): | 512..1492
pppoe_user_name=u | PPPoE User Name?<$>(MAX Character:127): | text 127
pppoe_password=p | PPPoE Password?<$>(MAX Character:127): | text 127
pppoe_service_name=s | PPPoE Service Name?<$>(MAX Character:127): | text 127
pppoe_type=1 | PPPoE Type?<$>(0:Dynamic,1:Static): | [0123456789] as 1 ! 00 x
pppoe_static_ip=0.0.0.0 | Static PPPoE IP?<$>: | ip
)" + replaced(dialling, "ppp", "pppoe"),
           R"(
> /*10 0/ /*5 | &done | pppoe_type=0 pppoe_static_ip=0.0.0.0
> /*10 9/ /*5 | &done | pppoe_type=9 pppoe_static_ip=0.0.0.0
)");
  const string tunnel = R"(pptp_mtu=1300 | MTU?<$>(range 512~1400): | 512..1400
pptp_type=1 | PPTP Type?<$>(0:Dynamic IP,1:Static IP): | 1 01>1 firm ! 2 x -1
pptp_static_ip=1.2.3.4 | Static IP?<$>: | ip
pptp_netmask=0.0.0.0 | Subnet Mask?<$>: | mask
pptp_gateway=0.0.0.0 | Gateway?<$>: | ip
pptp_server=vpn | PPTP Server IP or domain Name?<$>(MAX Character:127): | text 127
pptp_account=a | PPTP Account?<$>(MAX Character:127): | text 127
pptp_password=p | PPTP Password?<$>(MAX Character:127): | text 127
)" + replaced(dialling, "ppp", "pptp");
  const string dynamic = R"(
> /*7 00/ /*8 | &done | pptp_type=0 pptp_static_ip=0.0.0.0 pptp_netmask=0.0.0.0 pptp_gateway=0.0.0.0
= pptp_type=0 dns_mode=1
> /*14 | &done | pptp_static_ip=0.0.0.0 pptp_netmask=0.0.0.0 pptp_gateway=0.0.0.0
)";
  hold_wan("3", tunnel, dynamic);
  hold_wan("4", replaced(replaced(tunnel, "pptp", "l2tp"), "PPTP", "L2TP"),
           replaced(dynamic, "pptp", "l2tp"));
  hold_wan("5", R"(bigpond_account=a | BigPond Account?<$>(MAX Character:63): | text 63
bigpond_password=p | BigPond Password?<$>(MAX Character:63): | text 63
bigpond_auth_server=1 | Auth Server?<$>(0:sm-server,1:dec-server): | [01]
bigpond_server=b | BigPond Server IP or domain Name?<$>(MAX Character:127): | text 127
)");
}

TEST(LanSetting, EndsTheLoginAndMovesAStrayPool) {
  hold({.submenu = 0,
        .item = 1,
        .opening = "Lan IP:<192.168.1.1>\nLan MASK:<255.255.255.0>\n&list(0:disable,1:enable)\n\n&keep",
        .ending = "&dumpDevice will be restart, please re-connect!!\n\n"
                  "{/etc/init.d/reset_lan.sh > /dev/null 2>&1}Bye Bye!!\n",
        .list = "DNS PROXY Enable:<1>",
        .wild_list = "DNS PROXY Enable:<255>"},
       R"(
lan_broadcast=192.168.1.255 dhcp_start_ip=192.168.1.100 dhcp_end_ip=192.168.1.200
lan_ip=192.168.1.1 | Lan IP<$>: | 192.168.1.9 firm ! 0.0.0.0 192.168.1 1.2.3.256 x -> Lan IP Error\n
lan_netmask=255.255.255.0 | Lan MASK<$>: | 255.255.255.0 firm ! 255.255.0.255 0.0.0.0 x -> Lan MASK Error\n
dns_proxy_enable=1 | DNS PROXY Enable?<$>(0:disable,1:enable): | [0123456789] -> Lan DNS PROXY Setting Error\n
> 10.0.0.1/255.128.0.0/0/q/ | :{/etc/init.d/udhcpd.sh stop}&done | lan_ip=10.0.0.1 lan_netmask=255.128.0.0 \
lan_broadcast=10.127.255.255 dns_proxy_enable=0 dhcp_start_ip=10.0.0.100 dhcp_end_ip=10.0.0.200
= dhcp_end_ip=10.1.1.9
> /// | :{/etc/init.d/udhcpd.sh stop}&done | dhcp_end_ip=192.168.1.9
= dhcp_start_ip=10.1.1.9
> /// | :{/etc/init.d/udhcpd.sh stop}&done | dhcp_start_ip=192.168.1.9
= lan_ip=0.0.0.0
> / | Lan IP<0.0.0.0>:Lan IP Error\n |
= lan_netmask=255.0.255.0
> // | Lan MASK<255.0.255.0>:Lan MASK Error\n |
)");
}

const string dhcp_apply = "&dump{/etc/init.d/udhcpd.sh restart > /dev/null}&saved";

TEST(DhcpSetting, TheServer) {
  const string lists = "DHCP Server Enable:<1>(0:Disable, 1:Enable)\nDHCP Server Start IP:<";
  hold({.submenu = 0, .item = 2, .opening = "", .ending = dhcp_apply}, R"(
lan_ip=192.168.0.1 lan_netmask=255.255.255.0 dhcp_lease_time=86400
- | What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client): | [01] as 0 required \
| &keepDHCP Server Enable:<1>(0:Disable, 1:Enable)\nDHCP Server Start IP:<192.168.0.100>\n\
DHCP Server End IP:<192.168.0.200>\nDHCP IP Lease Time:<1 Day>\n\n
dhcp_server_enable=1 | DHCP Server Enable?<$>(0:Disable, 1:Enable): | [01] as 1 ! 2 01
dhcp_start_ip=192.168.0.100 | DHCP Server Start IP?<$>(The IP must have same Netword ID with Lan IP): \
| 192.168.0.1 192.168.0.254 firm ! 192.168.1.100 0.0.0.0 x 10.0.0.1
dhcp_end_ip=192.168.0.200 | DHCP Server End IP?<$>(The IP must have same Netword ID with Lan IP): \
| 192.168.0.1 192.168.0.254 firm rising:range ! 192.168.1.200 0.0.0.0 x \
| 0:1 Hour\n1:2 Hours\n2:3 Hours\n3:1 Day\n4:2 Days\n5:3 Days\n6:1 Week\n
dhcp_lease_time=86400 | DHCP IP Lease Time?<1 Day>: | 0>3600 1>7200 2>10800 3>86400 4>172800 5>259200 6>604800 firm \
! 7 03 x -> &select
> 0/0/ /*3 | &dump{/etc/init.d/udhcpd.sh stop > /dev/null}&saved | dhcp_server_enable=0
> /|2/|00/|x/ | 1:Static DHCP Client):&select |
> 0//192.168.0.201// | &range |
= dhcp_lease_time=5
> 0/ /*4 | DHCP IP Lease Time?<>:&select |
= lan_netmask=255.255.0.0
> 0//192.168.0.200/192.168.1.100/ | :&range |
= dhcp_start_ip=0.0.0.0 lan_netmask=0.0.0.0
> 0/// | Start IP?<0.0.0.0>(The IP must have same Netword ID with Lan IP):&illegal |
)");
}

// Of new clients, and of stored ones that are edited.
const string client = R"(
+ lan_ip=192.168.0.1 dhcp_server_enable=1 dhcp_start_ip=192.168.0.100 dhcp_end_ip=192.168.0.200
~ dhcp_server_enable=1
- | What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client): | 1 required ! 2 01 -> &select \
| &keep&list\n
+ - | Add new rule or Modify old rule ?(0:Add New, 1:Modify): | 0 00 required ! 2 x -1 -> &select
~ - | Add new rule or Modify old rule ?(0:Add New, 1:Modify): | 1 01 required ! 2 x -1 -> &select
~ - | What item do you want to configure? (0-31): | 0 00 required ! 32 x -1 1 -> &select | &list
~ - | Del or Edit ? (0:Delete, 1:Edit): | 1 1x required ! 2 x -1 -> &select | &keep
enable=1 | Enable this rule?<$>(0:Disable, 1:Enable): | [01] firm or0
+ ip= | IP?<$>: | 192.168.0.101 192.168.0.200 ! 192.168.0.100 192.168.0.201 192.168.0.99 0.0.0.0 x
~ ip=192.168.0.150 | IP?<$>: | ip
mac=00:11:22:aa:bb:cc | MAC?<$>: | mac
+ description= | Description?: | text 31 optional
~ description=nas | Description?<$>: | text 31
)";

TEST(DhcpSetting, ItsStaticClients) {
  Dialogue clients{
      .submenu = 0, .item = 2, .opening = "", .ending = dhcp_apply, .record = "static_dhcp_table[0]."};
  clients.list = "0:Enable:1\tMAC:00:11:22:aa:bb:cc\tIP:192.168.0.150\tDiscription:nas\n";
  clients.wild_list =
      "0:Enable:1\tMAC:ff:ff:ff:ff:ff:ff\tIP:255.255.255.255\tDiscription:" + string(32, '\xff') + "\n";
  hold(clients, client + R"(
> 1/1/0/0x/ | Del or Edit ? (0:Delete, 1:Edit):&done | enable=255
= ip=0.0.0.0
> 1/1/0/1/// | &illegal |
= description=n\x0aas
> 1/1/0/1/ /*4 | Discription:n\nas\nDel or Edit ? (0:Delete, 1:Edit):&keepEnable this rule?<1>(0:Disable, 1:Enable):\
IP?<192.168.0.150>:MAC?<00:11:22:aa:bb:cc>:Description?<n>:&done | description=n\x00as
)");
  for (int i = 0; i < 32; ++i) {
    clients.desk.set("static_dhcp_table[" + std::to_string(i) + "].enable", "200");
  }
  hold(clients, R"(
> 1/0/ | 31:Enable:200	MAC:00:00:00:00:00:00	IP:0.0.0.0	Discription:\n\n\
Add new rule or Modify old rule ?(0:Add New, 1:Modify):&full |
)");
  clients.desk = {};
  clients.vacant = "enable=255";
  clients.list = "";
  hold(clients, client);
}

}  // namespace
}  // namespace tests
