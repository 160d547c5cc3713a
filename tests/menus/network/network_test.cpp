#include <gtest/gtest.h>

#include "support/session.h"

namespace tests {
namespace {

const std::string save = "{/opt/httpd/sbin/web_server dumpshare}";

TEST(WanSetting, AsksByTypeStoresItsFieldsOnlyAndReboots) {
  const std::string reboot = "Device will be reboot, please wait 60 seconds and re-connect!!\n\n";
  expect_visits(Desk(), 0, 0, save + reboot + "{/sbin/bbreboot &}{sleep 1}", R"(
=host_name=hub domain_name=lab wan_mac=00:11:22:aa:bb:cc wan_ping_enable=1 dns_mode=1 wan_type=9
=static_mtu=1500 primary_dns=8.8.8.8 static_ip=192.168.1.10 static_netmask=255.255.255.0
=pppoe_static_ip=1.2.3.4 l2tp_type=1 pptp_static_ip=1.2.3.4 pptp_netmask=255.0.0.0 pptp_gateway=1.2.3.1
=l2tp_static_ip=5.6.7.8 l2tp_netmask=255.0.0.0

>0/h*127/d/1/00:11:22:AA:bb:c1/0/512/10.0.0.1/255.128.0.0/10.0.0.2/1.1.1.1//
Please answer the question and use [enter] to keep original setting value\n\n
WAN Type?<9>(0:static IP 1:DHCP 2:PPPOE 3:PPTP 4:L2TP 5:BigPond):Host Name?<hub>(MAX Character:127):
domain Name?<lab>(MAX Character:127):WAN MAC Type?<0>(0:Use Default,1:Menual MAC):Set MAC<00:11:22:aa:bb:cc>:
Ping form WAN?<1>(0:Disable,1:Enable):MTU?<1500>(range 512~1500):IP?<192.168.1.10>:
Subnet Mask?<255.255.255.0>:Gateway?<0.0.0.0>:Primary DNS IP<8.8.8.8>:Secondary DNS IP<0.0.0.0>:$
!wan_mac_type=1 wan_mac=00:11:22:aa:bb:c1 host_name=h*127 domain_name=d wan_type=0 static_ip=10.0.0.1
!static_gateway=10.0.0.2 static_netmask=255.128.0.0 static_broadcast=10.127.255.255 static_mtu=512 dns_mode=0
!primary_dns=1.1.1.1 wan_ping_enable=0

>1/////1500/0//9.9.9.9/
MTU?<0>(range 512~1500):Set DNS?<1>(0:manually, 1:Auto):Primary DNS IP<8.8.8.8>:Secondary DNS IP<0.0.0.0>:$
!wan_mac=00:00:00:00:00:00 wan_type=1 dhcp_mtu=1500 dns_mode=0 secondary_dns=9.9.9.9

>2/////1492/u v/p/s/1/4.3.2.1/2/9999/1/
:MTU?<0>(range 512~1492):PPPoE User Name?<>(MAX Character:127):PPPoE Password?<>(MAX Character:127):
PPPoE Service Name?<>(MAX Character:127):PPPoE Type?<0>(0:Dynamic,1:Static):Static PPPoE IP?<1.2.3.4>:
Connect Type?<0>(0:Keep Alive,2:Manual On):Max Idle Time?<0>(0-9999):Set DNS?<1>(0:manually, 1:Auto):$
!wan_mac=00:00:00:00:00:00 wan_type=2 pppoe_user_name=u v pppoe_password=p pppoe_connect_type=2
!pppoe_max_idle_time=9999 pppoe_type=1 pppoe_static_ip=4.3.2.1 pppoe_service_name=s pppoe_mtu=1492

>2/////////9////
$
!wan_mac=00:00:00:00:00:00 wan_type=2 pppoe_type=9 pppoe_static_ip=0.0.0.0

>3/////1400/001/4.3.2.1/255.255.0.0/4.3.0.1/vpn/a/p/2/1//
:MTU?<0>(range 512~1400):PPTP Type?<0>(0:Dynamic IP,1:Static IP):Static IP?<1.2.3.4>:Subnet Mask?<255.0.0.0>:
Gateway?<1.2.3.1>:PPTP Server IP or domain Name?<>(MAX Character:127):PPTP Account?<>(MAX Character:127):
PPTP Password?<>(MAX Character:127):Connect Type?<0>(0:Keep Alive,2:Manual On):Max Idle Time?<0>(0-9999):
Set DNS?<1>(0:manually, 1:Auto):$
!wan_mac=00:00:00:00:00:00 wan_type=3 pptp_account=a pptp_password=p pptp_connect_type=2 pptp_max_idle_time=1
!pptp_server=vpn pptp_type=1 pptp_static_ip=4.3.2.1 pptp_netmask=255.255.0.0 pptp_gateway=4.3.0.1
!pptp_mtu=1400

>3/////////////
$
!wan_mac=00:00:00:00:00:00 wan_type=3 pptp_static_ip=0.0.0.0 pptp_netmask=0.0.0.0 pptp_gateway=0.0.0.0

>4/////512//4.3.2.1/255.255.0.0/4.3.0.1/vpn/a/p/2/1//
L2TP Type?<1>(0:Dynamic IP,1:Static IP):Static IP?<5.6.7.8>:Subnet Mask?<255.0.0.0>:Gateway?<0.0.0.0>:
L2TP Server IP or domain Name?<>(MAX Character:127):L2TP Account?<>(MAX Character:127):
L2TP Password?<>(MAX Character:127):Connect Type?<0>(0:Keep Alive,2:Manual On):Max Idle Time?<0>(0-9999):
Set DNS?<1>(0:manually, 1:Auto):$
!wan_mac=00:00:00:00:00:00 wan_type=4 l2tp_account=a l2tp_password=p l2tp_connect_type=2 l2tp_max_idle_time=1
!l2tp_server=vpn l2tp_static_ip=4.3.2.1 l2tp_netmask=255.255.0.0 l2tp_gateway=4.3.0.1 l2tp_mtu=512

>5/////a/p*63/1/b/
:BigPond Account?<>(MAX Character:63):BigPond Password?<>(MAX Character:63):
Auth Server?<0>(0:sm-server,1:dec-server):BigPond Server IP or domain Name?<>(MAX Character:127):$
!wan_mac=00:00:00:00:00:00 wan_type=5 bigpond_account=a bigpond_password=p*63 bigpond_auth_server=1
!bigpond_server=b

=host_name=gate\x0away wan_mac_type=200 l2tp_type=200 dns_mode=7 l2tp_connect_type=9
>4/x*128/y*511///////////
$
!wan_mac=00:00:00:00:00:00 host_name=gate wan_type=4 l2tp_static_ip=0.0.0.0 l2tp_netmask=0.0.0.0

>/////
(0:Disable,1:Enable):$
!wan_mac=00:00:00:00:00:00

>/x*128/
:Your input value is illegal!!\n\ndomain Name?<lab>(MAX Character:127):Bye Bye!!\n

>6/|00/|x/|1//////2/|1//////01/|4///////////////x/
:Your select is wrong!!\n\n

>0///2/|0///1/00-11-22-33-44-55/|0////2/|0/////1501/|0/////511/|0//////1.2.3/|0///////255.255.0.255/|
>0////////0.0.0.0/|0/////////x/|0//////////1.2.3.256/|1/////1501/|1/////511/|1//////0/0.0.0.0/|2/////1493/|
>2/////511/|2//////u*128/|2/////////10/|2/////////1/1.2.3/|2//////////1/|2///////////10000/|3/////1401/|
>3/////511/|3//////2/|3//////1//255.0.255.0/|4/////1401/|4////////s*128/|4///////x/|4/////////0.0.0.0/|
>4/////////////1/|4//////////////-1/|5/////a*64/|5///////2/
:Your input value is illegal!!\n\n
)");
}

TEST(LanSetting, EndsTheLoginMovesAStrayPoolAndRefusesInItsOwnWords) {
  const std::string restart = "Device will be restart, please re-connect!!\n\n";
  expect_visits(Desk(), 0, 1, save + restart + "{/etc/init.d/reset_lan.sh > /dev/null 2>&1}Bye Bye!!\n", R"(
=lan_ip=192.168.1.1 lan_netmask=255.255.255.0 lan_broadcast=192.168.1.255 dns_proxy_enable=1
=dhcp_start_ip=192.168.1.100 dhcp_end_ip=192.168.1.200

>//7/q/q/
Lan IP:<192.168.1.1>\nLan MASK:<255.255.255.0>\nDNS PROXY Enable:<1>(0:disable,1:enable)\n\n
Please answer the question and use [enter] to keep original setting value\n\nLan IP<192.168.1.1>:
Lan MASK<255.255.255.0>:DNS PROXY Enable?<1>(0:disable,1:enable):$
!dns_proxy_enable=7

>10.0.0.1/255.128.0.0/0/
(0:disable,1:enable):{/etc/init.d/udhcpd.sh stop}$
!lan_ip=10.0.0.1 lan_netmask=255.128.0.0 lan_broadcast=10.127.255.255 dns_proxy_enable=0
!dhcp_start_ip=10.0.0.100 dhcp_end_ip=10.0.0.200

=dhcp_end_ip=10.1.1.9
>///
(0:disable,1:enable):{/etc/init.d/udhcpd.sh stop}$
!dhcp_end_ip=192.168.1.9

=lan_ip=0.0.0.0
>/|192.168.1/
Lan IP<0.0.0.0>:Lan IP Error\n

=lan_netmask=255.0.255.0
>//|/255.255.0.255/|/0.0.0.0/
Lan MASK<255.0.255.0>:Lan MASK Error\n

>192.168.2.1//12/|//x/
:Lan DNS PROXY Setting Error\n
)");
}

TEST(DhcpSetting, TheServerAndItsStaticClients) {
  expect_visits(Desk(), 0, 2, save + "{/etc/init.d/udhcpd.sh restart > /dev/null}Setting Save!!\n\n", R"(
=lan_ip=192.168.0.1 lan_netmask=255.255.255.0 dhcp_server_enable=1 dhcp_lease_time=86400
=dhcp_start_ip=192.168.0.100 dhcp_end_ip=192.168.0.200 static_dhcp_table[0].mac=00:11:22:aa:bb:cc
=static_dhcp_table[0].enable=1 static_dhcp_table[0].ip=192.168.0.150 static_dhcp_table[0].description=nas
=static_dhcp_table[1].description=was

>0/////
What item do you want to configure? (0:DHCP SERVER Setting, 1:Static DHCP Client):
Please answer the question and use [enter] to keep original setting value\n\n
DHCP Server Enable:<1>(0:Disable, 1:Enable)\nDHCP Server Start IP:<192.168.0.100>\n
DHCP Server End IP:<192.168.0.200>\nDHCP IP Lease Time:<1 Day>\n\nDHCP Server Enable?<1>(0:Disable, 1:Enable):
DHCP Server Start IP?<192.168.0.100>(The IP must have same Netword ID with Lan IP):
DHCP Server End IP?<192.168.0.200>(The IP must have same Netword ID with Lan IP):
0:1 Hour\n1:2 Hours\n2:3 Hours\n3:1 Day\n4:2 Days\n5:3 Days\n6:1 Week\nDHCP IP Lease Time?<1 Day>:$

>0/0/192.168.0.10/192.168.0.20/6/
Time?<1 Day>:{/opt/httpd/sbin/web_server dumpshare}{/etc/init.d/udhcpd.sh stop > /dev/null}Setting Save!!\n\n
!dhcp_server_enable=0 dhcp_start_ip=192.168.0.10 dhcp_end_ip=192.168.0.20 dhcp_lease_time=604800

=dhcp_lease_time=5
>0/////
DHCP IP Lease Time?<>:Your select is wrong!!\n\n

>/|2/|00/|0/2/|0////7/|0////03/|1/2/|1//|1/0/2/|1/1/1/|1/1/32/|1/1//|1/1/0/10/|1/1/0/x0/|1/1/0//|1/1/0/1/2/
:Your select is wrong!!\n\n

=lan_netmask=255.255.0.0
>0//192.168.0.200/192.168.1.100/|0//192.168.0.201//
:IP Range Error!!\n\n

=lan_ip=192.168.1.1
>0///|0//192.168.1.9/192.168.0.9/|0//192.168.1.9/0.0.0.0/|0//x/
:Your input value is illegal!!\n\n

>1/0//192.168.0.200/00:11:22:aa:bb:dd//
0:Enable:1	MAC:00:11:22:aa:bb:cc	IP:192.168.0.150	Discription:nas\n\n
Add new rule or Modify old rule ?(0:Add New, 1:Modify):Enable this rule?<0>(0:Disable, 1:Enable):
IP?<0.0.0.0>:MAC?<00:00:00:00:00:00>:Description?:$
!static_dhcp_table[1].enable=0 static_dhcp_table[1].mac=00:11:22:aa:bb:dd
!static_dhcp_table[1].ip=192.168.0.200

=static_dhcp_table[0].description=n\x0aas
>1/1/0/1x/0/10.0.0.1/00:11:22:aa:bb:c1/p*31/
What item do you want to configure? (0-31):0:Enable:1	MAC:00:11:22:aa:bb:cc	IP:192.168.0.150	Discription:
n\nas\nDel or Edit ? (0:Delete, 1:Edit):
Please answer the question and use [enter] to keep original setting value\n\n
Enable this rule?<1>(0:Disable, 1:Enable):IP?<192.168.0.150>:MAC?<00:11:22:aa:bb:cc>:Description?<n>:$
!static_dhcp_table[0].enable=0 static_dhcp_table[0].mac=00:11:22:aa:bb:c1 static_dhcp_table[0].ip=10.0.0.1
!static_dhcp_table[0].description=p*31

>1/1/00/0x1/
:$
!static_dhcp_table[0].enable=255

=static_dhcp_table[0].ip=0.0.0.0
>1/1/0/1///|1/1/0/1//0.0.0.0/|1/1/0/1//1.1.1.1/00:11:22:33:44:5g/|1/1/0/1/0/1.1.1.1//x*32/|1/0///|
>1/0//192.168.0.100/|1/0//192.168.0.201/|1/0//192.168.0.101//|1/0//192.168.0.200/00:11:22:aa:bb:dd/p*32/
:Your input value is illegal!!\n\n
)");
  Desk full;
  for (auto& client : full.settings.dhcp.static_dhcp_table) {
    client.enable = 200;
    client.description.bytes.fill('d');  // without its NUL
  }
  expect_visits(full, 0, 2, std::string(32, 'd'), R"(
>1/0/
31:Enable:200	MAC:00:00:00:00:00:00	IP:0.0.0.0	Discription:$\n\nAdd new rule or Modify old rule ?(0:
Add New, 1:Modify):No more space to creat new rule!!\n\n
)");
}

}  // namespace
}  // namespace tests
