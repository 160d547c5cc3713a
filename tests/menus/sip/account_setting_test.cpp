#include <gtest/gtest.h>

#include <cstring>

#include "support/question_sheet.h"

namespace tests {
namespace {

constexpr int sip_menu = 2;
constexpr int account_setting = 1;

TEST(SipAccountSetting, BothLines) {
  hold_to_sheet(
      sip_menu, account_setting, false, keep_with_enter,
      "auth_expire_time=3600 | Authentication Expire Time?<3600>(60~65535): | 60 65535 | 59 65536\n",
      R"(sip_line[#].phone_enable=1 | Phone # Enable?<1>(0:Disable,1:Enable): | 1 | 2 01
sip_line[#].phone_number=5 | Phone Number?<5>(MAX Character:15): | n %15
sip_line[#].display_name=d | Display Name?<d>(MAX Character:35): | D %31
sip_line[#].auth_user_name=u | Authentication User Name?<u>(MAX Character:35): | U %31
sip_line[#].auth_password=pw | Authentication Password?<pw>(MAX Character:23): | P %23
sip_line[#].mwi_user_name=m | MWI User Name?<m>(MAX Character:35): | M %31
sip_line[#].mwi_auth_user_name=ma | MWI Authentication User Name?<ma>(MAX Character:35): | A %31
sip_line[#].mwi_auth_password=mp | MWI Authentication Password?<mp>(MAX Character:23): | P %23
sip_line[#].mwi_refresh_timeout=9 | MWI Reflash Timeout?<9>(1~65535): | 60 65535 | 30 59 65536
sip_line[#].p_asserted_enable=1 | P-Asserted Enable?<1>(0:Disable,1:Enable): | 1 | 2 x
sip_line[#].asserted_identity_uri=i | Asserted Identity URI?<i>(MAX Character:35): | I %31
sip_line[#].asserted_identity_display_name=i | Asserted Identity Display Name?<i>(MAX Character:35): | I %32
sip_server[#].sip_domain_name=s | SIP Domain Name?<s>(MAX Character:127): | S %127
sip_server[#].registrar_address=r | Registar Server Address?<r>(MAX Character:63): | R %63
sip_server[#].registrar_port=0 | Registar Server Port?<0>(1024~65535): | 01024>1024 65535 | 1023
sip_server[#].proxy_address=p | Proxy Server Address?<p>(MAX Character:63): | P %63
sip_server[#].proxy_port=5060 | Proxy Server Port?<5060>(1024~65535): | 1024 65535 | 0 65536
sip_server[#].use_outbound_proxy=1 | Use Outbound Proxy for Session?<1>(0:Disable,1:Enable): | 1 | 2
sip_server[#].outbound_proxy_address=o | Outbound Proxy Server Address?<o>(MAX Character:63): | O %63
sip_server[#].outbound_proxy_port=5062 | Outbound Proxy Server Port?<5062>(1024~65535): | 1024 65535 | 80a
sip_server[#].dns_srv_support=1 | DNS SRV support?<1>(0:Disable,1:Enable): | 0 1 | 3
)");
}

// Over two lines of x: kept, then with switches off.
TEST(SipAccountSetting, FieldsAreNeverLeftAndSwitchesClearWhatTheyTurnOff) {
  Desk desk;
  std::memset(&desk.settings.sip_line, 'x', sizeof desk.settings.sip_line);
  std::memset(&desk.settings.sip_server, 'x', sizeof desk.settings.sip_server);
  const Visit kept = visit(desk, sip_menu, account_setting, enters(43));
  EXPECT_EQ(kept.changed, "");
  EXPECT_NE(kept.shown.find("MWI Authentication Password?<" + std::string(25, 'x') + ">("),
            std::string::npos);
  EXPECT_EQ(visit(desk, sip_menu, account_setting, enters(31) + "0\n" + enters(5) + "0\n\n").changed,
            "sip_line[1].p_asserted_enable=0 sip_line[1].asserted_identity_uri= "
            "sip_line[1].asserted_identity_display_name= sip_server[1].use_outbound_proxy=0 "
            "sip_server[1].outbound_proxy_address= sip_server[1].outbound_proxy_port=0");
  visit(desk, sip_menu, account_setting, "\n0\n0\n");
  EXPECT_EQ(differences(Desk().settings, desk.settings),
            "sip_line[0].reserved_278=xx sip_line[1].reserved_278=xx sip_server[0].reserved_259=x "
            "sip_server[1].reserved_259=x sip_server[0].reserved_329=xxx sip_server[1].reserved_329=xxx");
}

TEST(SipNatTraversal, StunAndUpnpExcludeEachOther) {
  const std::string longest(63, 's');
  const std::string server = "STUN Server IP/URL?<old>:";
  const std::string upnp = "UPNP Enable?<1>(0:Disable,1:Enable):";
  const std::string cases[][3] = {
      {"\n\n", server + saved_and_signalled, "sip_upnp_enable=0"},
      {"1\n" + longest + "\n", server + saved_and_signalled, "stun_server=" + longest + " sip_upnp_enable=0"},
      {"1\ns" + longest + "\n", server + illegal_value + saved_and_signalled,
       "stun_server= sip_upnp_enable=0"},
      {"0\n\n", upnp + saved_and_signalled, "stun_enable=0 stun_server="},
      {"0\n2\n", upnp + illegal_value, ""},
      {"2\n", illegal_value, ""}};
  for (const auto& [answers, shown, changed] : cases) {
    Desk desk;
    desk.set("stun_enable", "1").set("stun_server", "old").set("sip_upnp_enable", "1");
    const Visit seen = visit(desk, sip_menu, 2, answers);
    EXPECT_EQ(seen.shown, keep_with_enter + "STUN Enable?<1>(0:Disable,1:Enable):" + shown);
    EXPECT_EQ(seen.changed, changed) << answers;
  }
}

}  // namespace
}  // namespace tests
