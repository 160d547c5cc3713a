#include <gtest/gtest.h>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

// The questions of one type of connection, behind those that all have, and visits.
void hold_wan(const string& type, const string& rows, const string& visits = "") {
  hold("== WAN type " + type + ": 0 0 illegal\nwan_type=" + type +
       R"( | WAN Type?<$>(0:static IP 1:DHCP 2:PPPOE 3:PPTP \
4:L2TP 5:BigPond): | [012345] as )" +
       type + R"( -> &select
host_name=hub | Host Name?<$>(MAX Character:127): | text 127 keeps
domain_name=lab | domain Name?<$>(MAX Character:127): | text 127 keeps
wan_mac_type=1 | WAN MAC Type?<$>(0:Use Default,1:Menual MAC): | [01] as 1
wan_mac=00:11:22:aa:bb:cc | Set MAC<$>: | mac
wan_ping_enable=1 | Ping form WAN?<$>(0:Disable,1:Enable): | [01]
&ending=&dumpDevice will be reboot, please wait 60 seconds and re-connect!!\n\n{/sbin/bbreboot &}{sleep 1}
)" + rows +
       visits);
}

TEST(Network, Wan) {
  const string dns =
      "primary_dns=0.0.0.0 | Primary DNS IP<$>: | ip\nsecondary_dns=8.8.8.8 | Secondary DNS IP<$>: | ip\n";
  const string asked_dns = "dns_mode=0 | Set DNS?<$>(0:manually, 1:Auto): | [01] as 0 -> &select\n" + dns;
  hold_wan("0", R"(static_mtu=1400 | MTU?<$>(range 512~1500): | 512..1500
static_ip=10.0.0.7 | IP?<$>: | ip
static_netmask=255.128.0.0 | Subnet Mask?<$>: | mask
static_gateway=0.0.0.0 | Gateway?<$>: | ip
static_broadcast=10.127.255.255 | | >127.255.255.255 >255.255.255.255 >1.0.127.255 >0.1.2.1
)" + dns,
           R"(= static_broadcast=1.2.3.4 dns_mode=1
> /*12 | &ending | static_broadcast=10.127.255.255 dns_mode=0
= static_ip=192.168.1.10 static_netmask=255.255.255.0 wan_mac_type=200
> /*11 | &ending | static_broadcast=192.168.1.255 wan_mac=00:00:00:00:00:00
> ///0/// | Ping form WAN?<1>(0:Disable,1:Enable):MTU?<1400>(range 512~1500):IP?<192.168.1.10>:Bye Bye!!\n |
= wan_type=9 > /*6 | &ending |
)");
  hold_wan("1", "dhcp_mtu=0 | MTU?<$>(range 512~1500): | 512..1500\n" + asked_dns,
           R"(> /*7 1/ | &ending | dns_mode=1
= dns_mode=1 > /*8 | &ending |
> /*7 0/// | &ending | dns_mode=0
)");
  const string dialling = R"(ppp_connect_type=2 | Connect Type?<$>(0:Keep Alive,2:Manual On): | [02]
ppp_max_idle_time=60 | Max Idle Time?<$>(0-9999): | 0..9999
)" + asked_dns;
  hold_wan("2", R"(pppoe_mtu=1400 | MTU?<$>(range 512~1492): | 512..1492
pppoe_user_name=u | PPPoE User Name?<$>(MAX Character:127): | text 127
pppoe_password=p | PPPoE Password?<$>(MAX Character:127): | text 127
pppoe_service_name=s | PPPoE Service Name?<$>(MAX Character:127): | text 127
pppoe_type=1 | PPPoE Type?<$>(0:Dynamic,1:Static): | [0123456789] as 1
pppoe_static_ip=0.0.0.0 | Static PPPoE IP?<$>: | ip
)" + replaced(dialling, "ppp", "pppoe"),
           R"(= pppoe_static_ip=1.2.3.4
> /*10 0/ /*5 | &ending | pppoe_type=0 pppoe_static_ip=0.0.0.0
> /*10 9/ /*5 | &ending | pppoe_type=9 pppoe_static_ip=0.0.0.0
)");
  const string tunnel = R"(pptp_mtu=1300 | MTU?<$>(range 512~1400): | 512..1400
pptp_type=1 | PPTP Type?<$>(0:Dynamic IP,1:Static IP): | 1 01>1 firm ! 2 x -1
pptp_static_ip=1.2.3.4 | Static IP?<$>: | ip
pptp_netmask=0.0.0.0 | Subnet Mask?<$>: | mask
pptp_gateway=0.0.0.0 | Gateway?<$>: | ip
pptp_server=vpn | PPTP Server IP or domain Name?<$>(MAX Character:127): | text 127
pptp_account=a | PPTP Account?<$>(MAX Character:127): | text 127
pptp_password=p | PPTP Password?<$>(MAX Character:127): | text 127
)" + replaced(dialling, "ppp", "pptp") +
                        R"(= pptp_netmask=255.0.0.0 pptp_gateway=1.2.3.1
> /*7 00/ /*8 | &ending | pptp_type=0 pptp_static_ip=0.0.0.0 pptp_netmask=0.0.0.0 pptp_gateway=0.0.0.0
)";
  hold_wan("3", tunnel);
  hold_wan("4", replaced(replaced(tunnel, "pptp", "l2tp"), "PPTP", "L2TP"));
  hold_wan("5", R"(bigpond_account=a | BigPond Account?<$>(MAX Character:63): | text 63
bigpond_password=p | BigPond Password?<$>(MAX Character:63): | text 63
bigpond_auth_server=1 | Auth Server?<$>(0:sm-server,1:dec-server): | [01]
bigpond_server=b | BigPond Server IP or domain Name?<$>(MAX Character:127): | text 127
)");
}

TEST(Network, LanEndsTheLoginAndMovesAStrayPool) {
  hold(R"(== LAN: 0 1 kind
&opening=Lan IP:<192.168.1.1>\nLan MASK:<255.255.255.0>\nDNS PROXY Enable:<&list>(0:disable,1:enable)\n\n&keep
&list=1
&wild=255
&ending=&dumpDevice will be restart, please re-connect!!\n\n{/etc/init.d/reset_lan.sh > /dev/null 2>&1}Bye Bye!!\n
lan_broadcast=192.168.1.255 dhcp_start_ip=192.168.1.100 dhcp_end_ip=192.168.1.200
lan_ip=192.168.1.1 | Lan IP<$>: | ip as 192.168.1.9 -> Lan IP Error\n
lan_netmask=255.255.255.0 | Lan MASK<$>: | mask as 255.255.255.0 -> Lan MASK Error\n
dns_proxy_enable=1 | DNS PROXY Enable?<$>(0:disable,1:enable): | [0123456789] -> Lan DNS PROXY Setting Error\n
> 10.0.0.1/255.128.0.0/0/q/ | :{/etc/init.d/udhcpd.sh stop}&ending | lan_ip=10.0.0.1 lan_netmask=255.128.0.0 \
lan_broadcast=10.127.255.255 dns_proxy_enable=0 dhcp_start_ip=10.0.0.100 dhcp_end_ip=10.0.0.200
= dhcp_end_ip=10.1.1.9 > /// | :{/etc/init.d/udhcpd.sh stop}&ending | dhcp_end_ip=192.168.1.9
= dhcp_start_ip=10.1.1.9 > /// | :{/etc/init.d/udhcpd.sh stop}&ending | dhcp_start_ip=192.168.1.9
= lan_ip=0.0.0.0 > / | Lan IP<0.0.0.0>:Lan IP Error\n |
= lan_netmask=255.0.255.0 > // | Lan MASK<255.0.255.0>:Lan MASK Error\n |
)");
}

TEST(Network, DhcpServer) {
  hold(R"(== DHCP server: 0 2 kind
&opening=
&ending=&dump{/etc/init.d/udhcpd.sh restart > /dev/null}&saved
lan_ip=192.168.0.1 lan_netmask=255.255.255.0
- | What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client): | [01] as 0 required \
| &keepDHCP Server Enable:<1>(0:Disable, 1:Enable)\nDHCP Server Start IP:<192.168.0.100>\n\
DHCP Server End IP:<192.168.0.200>\nDHCP IP Lease Time:<1 Day>\n\n
dhcp_server_enable=1 | DHCP Server Enable?<$>(0:Disable, 1:Enable): | [01] as 1
dhcp_start_ip=192.168.0.100 | DHCP Server Start IP?<$>(The IP must have same Netword ID with Lan IP): \
| 192.168.0.1 192.168.0.254 firm ! 192.168.1.100 0.0.0.0 x 10.0.0.1
dhcp_end_ip=192.168.0.200 | DHCP Server End IP?<$>(The IP must have same Netword ID with Lan IP): \
| 192.168.0.1 192.168.0.254 firm ! 192.168.1.200 0.0.0.0 x \
| 0:1 Hour\n1:2 Hours\n2:3 Hours\n3:1 Day\n4:2 Days\n5:3 Days\n6:1 Week\n
dhcp_lease_time=86400 | DHCP IP Lease Time?<1 Day>: | 0>3600 1>7200 2>10800 3>86400 4>172800 5>259200 6>604800 firm \
! 7 03 x -> &select
> 0/0/ /*3 | &dump{/etc/init.d/udhcpd.sh stop > /dev/null}&saved | dhcp_server_enable=0
> 0//192.168.0.201// | &range |
= dhcp_lease_time=5 > 0/ /*4 | DHCP IP Lease Time?<>:&select |
= lan_netmask=255.255.0.0 > 0//192.168.0.200/192.168.1.100/|0//192.168.1.9/192.168.0.10/ | :&range |
= dhcp_start_ip=0.0.0.0 lan_netmask=0.0.0.0
> 0/// | Start IP?<0.0.0.0>(The IP must have same Netword ID with Lan IP):&illegal |
)");
}

TEST(Network, StaticDhcpClients) {
  const string rows = R"(
&opening=
&ending=&dump{/etc/init.d/udhcpd.sh restart > /dev/null}&saved
dhcp_server_enable=1 dhcp_start_ip=192.168.0.100 dhcp_end_ip=192.168.0.200
- | What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client): | [01] as 1 required | &keep&list\n
+ - | Add new rule or Modify old rule ?(0:Add New, 1:Modify): | 0..1 as 00 required -> &select
~ - | Add new rule or Modify old rule ?(0:Add New, 1:Modify): | 0..1 as 01 required -> &select
~ - | What item do you want to configure? (0-31): | 0..31 as 00 required ! 1 -> &select | &list
~ - | Del or Edit ? (0:Delete, 1:Edit): | 1 1x required ! 2 10 x -1 -> &select | &keep
enable=1 | Enable this rule?<$>(0:Disable, 1:Enable): | [01] firm enter>0
+ ip= | IP?<$>: | 192.168.0.101 192.168.0.200 ! 192.168.0.100 192.168.0.201 192.168.0.99 0.0.0.0 x
~ ip=192.168.0.150 | IP?<$>: | ip
mac=00:11:22:aa:bb:cc | MAC?<$>: | mac
+ description= | Description?: | text 31 enter
~ description=nas | Description?<$>: | text 31
)";
  hold("== add: 0 2 kind\n&record=static_dhcp_table[0].\n&vacant=enable=255" + rows);
  hold("== edit: 0 2 kind\n&record=static_dhcp_table[0]." + rows + R"(
&list=0:Enable:1	MAC:00:11:22:aa:bb:cc	IP:192.168.0.150	Discription:nas\n
&wild=0:Enable:1	MAC:ff:ff:ff:ff:ff:ff	IP:255.255.255.255	Discription:)" +
       string(32, '\xff') + R"(\n
> 1/1/0/0x/ | Del or Edit ? (0:Delete, 1:Edit):&ending | enable=255
= dhcp_server_enable=0 > 1/1/0/0/ | :&dump{/etc/init.d/udhcpd.sh stop > /dev/null}&saved | enable=255
= ip=0.0.0.0 > 1/1/0/1/// | &illegal |
= description=n\x0aas
> 1/1/0/1/ /*4 | Discription:n\nas\nDel or Edit ? (0:Delete, 1:Edit):&keepEnable this rule?<1>(0:Disable, 1:Enable):\
IP?<192.168.0.150>:MAC?<00:11:22:aa:bb:cc>:Description?<n>:&ending | description=n\x00as
)");
  Desk full;
  for (auto& client : full.settings.dhcp.static_dhcp_table) {
    client.enable = 200;
  }
  hold("== full: 0 2 kind\n> 1/0/ | Add new rule or Modify old rule ?(0:Add New, 1:Modify):&full |", full);
}

}  // namespace
}  // namespace tests
