#include <gtest/gtest.h>

#include <cstring>

#include "support/sheet.h"

namespace tests {
namespace {

TEST(Sip, Sheets) {
  const std::string basic = R"(== basic: 2 0 illegal
sip_port=5060 | SIP Port Number?<$>(1024~65535): | 1024..65535
session_timer=1800 | Session Timer?<$>(1~65535): | 1..65535
media_port_start=10000 | Media Port Start?<$>(1024~65535): | 1024..65535
media_port_end=20000 | Media Port End?<$>(1024~65535): | 1024..65535
rtcp_port=5005 | RTCP Port?<$>(1024~65535): | 1024..65535
sip_transport=1 | SIP Transport by?<$>(1:UDP,2:TCP): | [12]
sip_time_interval=500 | SIP Time Interval?<$>(100~1000): | 100..1000
invite_timeout=60 | Timeout for Invite?<$>(1~100): | 1..100
ring_back_timeout=180 | Timeout for Ring Back?<$>(1~1000): | 1..1000
release_timeout=5 | Timeout for Release?<$>(4~10): | 4..10
registration_retry_count=3 | Registration Retry Count?<$>(0~65535): | 0..65535
registration_retry_interval=30 | Registration Retry Interval?<$>(0~65535): | 0..65535
ping_interval=20 | PING Interval?<$>(0~65535): | 0..65535
sip_host_name=gateway | Host Name?<$>(MAX Character:35): | text 35 empties
)";
  hold(basic + R"(
> 5070//20000/19999/|5070//20001//|5070///9999/ | End?<20000>(1024~65535):&ports |
> 5070//20000/20000/ /*10 | &ending | sip_port=5070 media_port_start=20000
== account: 2 1 illegal
auth_expire_time=3600 | Authentication Expire Time?<$>(60~65535): | 60..65535
for # 0 1
sip_line[#].phone_enable=1 | Phone # Enable?<$>(0:Disable,1:Enable): | [01] as 1 ! 2 01
sip_line[#].phone_number=5 | Phone Number?<$>(MAX Character:15): | text 15 empties
sip_line[#].display_name=d | Display Name?<$>(MAX Character:35): | text 31 empties
sip_line[#].auth_user_name=u | Authentication User Name?<$>(MAX Character:35): | text 31 empties
sip_line[#].auth_password=pw | Authentication Password?<$>(MAX Character:23): | text 23 empties
sip_line[#].mwi_user_name=m | MWI User Name?<$>(MAX Character:35): | text 31 empties
sip_line[#].mwi_auth_user_name=ma | MWI Authentication User Name?<$>(MAX Character:35): | text 31 empties
sip_line[#].mwi_auth_password=mp | MWI Authentication Password?<$>(MAX Character:23): | text 23 empties
sip_line[#].mwi_refresh_timeout=9 | MWI Reflash Timeout?<$>(1~65535): | 60..65535
sip_line[#].p_asserted_enable=1 | P-Asserted Enable?<$>(0:Disable,1:Enable): | [01] as 1
sip_line[#].asserted_identity_uri=i | Asserted Identity URI?<$>(MAX Character:35): | text 31 empties
sip_line[#].asserted_identity_display_name=i | Asserted Identity Display Name?<$>(MAX Character:35): \
| text 32 empties
sip_server[#].sip_domain_name=s | SIP Domain Name?<$>(MAX Character:127): | text 127 empties
sip_server[#].registrar_address=r | Registar Server Address?<$>(MAX Character:63): | text 63 empties
sip_server[#].registrar_port=0 | Registar Server Port?<$>(1024~65535): | 1024..65535
sip_server[#].proxy_address=p | Proxy Server Address?<$>(MAX Character:63): | text 63 empties
sip_server[#].proxy_port=5060 | Proxy Server Port?<$>(1024~65535): | 1024..65535
sip_server[#].use_outbound_proxy=1 | Use Outbound Proxy for Session?<$>(0:Disable,1:Enable): | [01] as 1
sip_server[#].outbound_proxy_address=o | Outbound Proxy Server Address?<$>(MAX Character:63): | text 63 empties
sip_server[#].outbound_proxy_port=5062 | Outbound Proxy Server Port?<$>(1024~65535): | 1024..65535
sip_server[#].dns_srv_support=1 | DNS SRV support?<$>(0:Disable,1:Enable): | [01]
end
> /*10 0/ /*5 0/ /*10 0/ /*5 0// | &ending | sip_line[0].p_asserted_enable=0 sip_line[0].asserted_identity_uri= \
sip_line[0].asserted_identity_display_name= sip_server[0].use_outbound_proxy=0 \
sip_server[0].outbound_proxy_address= sip_server[0].outbound_proxy_port=0 sip_line[1].p_asserted_enable=0 \
sip_line[1].asserted_identity_uri= sip_line[1].asserted_identity_display_name= sip_server[1].use_outbound_proxy=0 \
sip_server[1].outbound_proxy_address= sip_server[1].outbound_proxy_port=0
== NAT traversal: 2 2 illegal
stun_enable=1 | STUN Enable?<$>(0:Disable,1:Enable): | [01] as 1
stun_server=old | STUN Server IP/URL?<$>: | text 63 empties
sip_upnp_enable=0
= sip_upnp_enable=1 > // | STUN Server IP/URL?<old>:&ending | sip_upnp_enable=0
> 0/2/ | &keepSTUN Enable?<1>(0:Disable,1:Enable):UPNP Enable?<1>(0:Disable,1:Enable):&illegal |
> 0// | UPNP Enable?<1>(0:Disable,1:Enable):&ending | stun_enable=0 stun_server=
> 2/|01/|x/ | STUN Enable?<1>(0:Disable,1:Enable):&illegal |
= stun_enable=0 > // | UPNP Enable?<0>(0:Disable,1:Enable):&ending | stun_server=
> /1/ | &ending | sip_upnp_enable=1 stun_server=
)");
  Desk without_flag;
  without_flag.failing = {"attach 1357"};
  hold(basic + "&ending=&dump&saved{cfgid: Permission denied}", without_flag);
}

// A line that is switched off is cleared, to the last byte, and not asked about.
TEST(Sip, ADisabledAccount) {
  Desk desk;
  std::memset(&desk.settings.sip_line, 'x', sizeof desk.settings.sip_line);
  std::memset(&desk.settings.sip_server, 'x', sizeof desk.settings.sip_server);
  visit(desk, 2, 1, "60\n0\n0\n");
  EXPECT_EQ(differences(Desk().set("auth_expire_time", "60").settings, desk.settings),
            "sip_line[0].reserved_278=xx sip_line[1].reserved_278=xx sip_server[0].reserved_259=x "
            "sip_server[1].reserved_259=x sip_server[0].reserved_329=xxx sip_server[1].reserved_329=xxx");
}

}  // namespace
}  // namespace tests
