#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/session.h"

namespace tests {
namespace {

constexpr int sip_menu = 2;
constexpr int account_setting = 1;

// Line 0 with everything on; line 1 disabled.
struct AccountDesk : Desk {
  AccountDesk() {
    set("auth_expire_time", "3600");
    line("phone_enable", "1").line("phone_number", "100").line("display_name", "Desk");
    line("auth_user_name", "user").line("auth_password", "secret").line("p_asserted_enable", "1");
    line("asserted_identity_uri", "sip:a@b").line("asserted_identity_display_name", "A B");
    line("mwi_user_name", "mwi").line("mwi_auth_user_name", "mwiauth").line("mwi_auth_password", "mwipass");
    line("mwi_refresh_timeout", "60");
    server("sip_domain_name", "sip.test").server("registrar_address", "reg.test");
    server("registrar_port", "5060").server("use_outbound_proxy", "1").server("proxy_address", "proxy.test");
    server("proxy_port", "5062").server("outbound_proxy_address", "out.test");
    server("outbound_proxy_port", "5064").server("dns_srv_support", "1");
  }
  AccountDesk& line(const std::string& field, const char* value) {
    set("sip_line[0]." + field, value);
    return *this;
  }
  AccountDesk& server(const std::string& field, const char* value) {
    set("sip_server[0]." + field, value);
    return *this;
  }
};

TEST(SipAccountSetting, ShowsOneLineWholeAndNothingOfTheDisabledOne) {
  AccountDesk desk;
  const Visit kept = visit(desk, sip_menu, account_setting, enters(23));
  EXPECT_EQ(
      kept.shown,
      keep_with_enter +
          "Authentication Expire Time?<3600>(60~65535):Phone 0 Enable?<1>(0:Disable,1:Enable):"
          "Phone Number?<100>(MAX Character:15):Display Name?<Desk>(MAX Character:35):"
          "Authentication User Name?<user>(MAX Character:35):"
          "Authentication Password?<secret>(MAX Character:23):MWI User Name?<mwi>(MAX Character:35):"
          "MWI Authentication User Name?<mwiauth>(MAX Character:35):"
          "MWI Authentication Password?<mwipass>(MAX Character:23):MWI Reflash Timeout?<60>(1~65535):"
          "P-Asserted Enable?<1>(0:Disable,1:Enable):Asserted Identity URI?<sip:a@b>(MAX Character:35):"
          "Asserted Identity Display Name?<A B>(MAX Character:35):SIP Domain Name?<sip.test>(MAX "
          "Character:127):"
          "Registar Server Address?<reg.test>(MAX Character:63):Registar Server Port?<5060>(1024~65535):"
          "Proxy Server Address?<proxy.test>(MAX Character:63):Proxy Server Port?<5062>(1024~65535):"
          "Use Outbound Proxy for Session?<1>(0:Disable,1:Enable):"
          "Outbound Proxy Server Address?<out.test>(MAX Character:63):"
          "Outbound Proxy Server Port?<5064>(1024~65535):DNS SRV support?<1>(0:Disable,1:Enable):"
          "Phone 1 Enable?<0>(0:Disable,1:Enable):" +
          saved_and_signalled);
  EXPECT_EQ(kept.changed, "");
}

TEST(SipAccountSetting, WhatASwitchTurnsOffIsCleared) {
  const std::string identity = "asserted_identity_uri= sip_line[0].asserted_identity_display_name=";
  struct {
    std::string answers;
    std::string changed;
  } const cases[] = {
      {"60\n0\n\n",
       "sip_line[0].phone_enable=0 sip_line[0].phone_number= sip_line[0].display_name= "
       "sip_line[0].auth_user_name= sip_line[0].auth_password= sip_line[0].p_asserted_enable=0 sip_line[0]." +
           identity +
           " sip_line[0].mwi_user_name= sip_line[0].mwi_auth_user_name= sip_line[0].mwi_auth_password= "
           "sip_line[0].mwi_refresh_timeout=0 auth_expire_time=60 sip_server[0].sip_domain_name= "
           "sip_server[0].registrar_address= sip_server[0].registrar_port=0 "
           "sip_server[0].use_outbound_proxy=0 sip_server[0].proxy_address= sip_server[0].proxy_port=0 "
           "sip_server[0].outbound_proxy_address= sip_server[0].outbound_proxy_port=0 "
           "sip_server[0].dns_srv_support=0"},
      {enters(10) + "0\n" + enters(10), "sip_line[0].p_asserted_enable=0 sip_line[0]." + identity},
      {enters(18) + "0\n" + enters(2),
       "sip_server[0].use_outbound_proxy=0 sip_server[0].outbound_proxy_address= "
       "sip_server[0].outbound_proxy_port=0"},
  };
  for (const auto& off : cases) {
    AccountDesk desk;
    const Visit seen = visit(desk, sip_menu, account_setting, off.answers);
    EXPECT_EQ(seen.changed, off.changed);
    EXPECT_TRUE(seen.shown.ends_with(saved_and_signalled)) << seen.shown;
  }
}

TEST(SipAccountSetting, StoresEveryAnswerOfALineThatWasDisabled) {
  Desk desk;
  const Visit seen = visit(desk, sip_menu, account_setting,
                           "65535\n0\n1\n5\nD\nu\npw\nm\nma\nmp\n65535\n1\nuri\nid\nd\nr\n65535\np\n1024\n1\n"
                           "o\n01024\n1\n");
  EXPECT_EQ(seen.changed,
            "sip_line[1].phone_enable=1 sip_line[1].phone_number=5 sip_line[1].display_name=D "
            "sip_line[1].auth_user_name=u sip_line[1].auth_password=pw sip_line[1].p_asserted_enable=1 "
            "sip_line[1].asserted_identity_uri=uri sip_line[1].asserted_identity_display_name=id "
            "sip_line[1].mwi_user_name=m sip_line[1].mwi_auth_user_name=ma sip_line[1].mwi_auth_password=mp "
            "sip_line[1].mwi_refresh_timeout=65535 auth_expire_time=65535 sip_server[1].sip_domain_name=d "
            "sip_server[1].registrar_address=r sip_server[1].registrar_port=65535 "
            "sip_server[1].use_outbound_proxy=1 sip_server[1].proxy_address=p sip_server[1].proxy_port=1024 "
            "sip_server[1].outbound_proxy_address=o sip_server[1].outbound_proxy_port=1024 "
            "sip_server[1].dns_srv_support=1");
}

// Each text at the limit and one above it; a field's own size is a limit behind an announced 35.
TEST(SipAccountSetting, TextsFillTheirFieldsAndTooLongOnesEmptyThem) {
  struct {
    int kept;
    const char* name;
    std::size_t max;
  } const cases[] = {
      {2, "sip_line[0].phone_number", 15},
      {3, "sip_line[0].display_name", 31},
      {4, "sip_line[0].auth_user_name", 31},
      {5, "sip_line[0].auth_password", 23},
      {6, "sip_line[0].mwi_user_name", 31},
      {7, "sip_line[0].mwi_auth_user_name", 31},
      {8, "sip_line[0].mwi_auth_password", 23},
      {11, "sip_line[0].asserted_identity_uri", 31},
      {13, "sip_server[0].sip_domain_name", 127},
      {12, "sip_line[0].asserted_identity_display_name", 32},
      {14, "sip_server[0].registrar_address", 63},
      {16, "sip_server[0].proxy_address", 63},
      {19, "sip_server[0].outbound_proxy_address", 63},
  };
  for (const auto& text : cases) {
    for (const std::size_t length : {text.max, text.max + 1}) {
      AccountDesk desk;
      const std::string typed(length, 't');
      const bool fits = length == text.max;
      const Visit seen =
          visit(desk, sip_menu, account_setting, enters(text.kept) + typed + enters(23 - text.kept));
      EXPECT_EQ(seen.changed, std::string(text.name) + "=" + (fits ? typed : ""));
      EXPECT_EQ(seen.shown.find(illegal_value) == std::string::npos, fits) << text.name;
    }
  }
}

TEST(SipAccountSetting, RefusedAnswersLeaveBothLinesAsTheyWere) {
  struct {
    int kept;
    const char* answer;
  } const cases[] = {
      {0, "59\n"},    {0, "65536\n"}, {1, "2\n"},  {1, "01\n"},   {9, "30\n"}, {9, "65536\n"}, {10, "x\n"},
      {15, "1023\n"}, {17, "0\n"},    {18, "2\n"}, {20, "80a\n"}, {21, "3\n"}, {22, "9\n"},
  };
  for (const auto& refused : cases) {
    AccountDesk desk;
    const Visit seen = visit(desk, sip_menu, account_setting, enters(refused.kept) + refused.answer);
    EXPECT_TRUE(seen.shown.ends_with(illegal_value) && seen.returned) << refused.kept << seen.shown;
    EXPECT_EQ(seen.changed, "");
  }
}

TEST(SipAccountSetting, FieldsFilledByOthersAreKeptToTheLastByte) {
  Desk desk;
  std::memset(&desk.settings.sip_line, 0xff, sizeof desk.settings.sip_line);
  std::memset(&desk.settings.sip_server, 0xff, sizeof desk.settings.sip_server);
  desk.set("auth_expire_time", "1");
  const Visit kept = visit(desk, sip_menu, account_setting, enters(43));
  EXPECT_EQ(kept.changed, "");
  EXPECT_NE(kept.shown.find("MWI Authentication Password?<" + std::string(25, '\xff') + ">("),
            std::string::npos);
  EXPECT_TRUE(kept.shown.ends_with("DNS SRV support?<255>(0:Disable,1:Enable):" + saved_and_signalled));
}

TEST(SipNatTraversal, StunAndUpnpExcludeEachOther) {
  constexpr int nat_traversal = 2;
  const std::string longest(63, 's');
  const std::string stun = keep_with_enter + "STUN Enable?<1>(0:Disable,1:Enable):";
  const std::string server = stun + "STUN Server IP/URL?<old>:";
  const std::string upnp = stun + "UPNP Enable?<1>(0:Disable,1:Enable):";
  struct {
    std::string answers;
    std::string shown;
    std::string changed;
  } const cases[] = {
      {"\n\n", server + saved_and_signalled, "sip_upnp_enable=0"},
      {"1\n" + longest + "\n", server + saved_and_signalled, "stun_server=" + longest + " sip_upnp_enable=0"},
      {"1\n" + longest + "s\n", server + illegal_value + saved_and_signalled,
       "stun_server= sip_upnp_enable=0"},
      {"0\n\n", upnp + saved_and_signalled, "stun_enable=0 stun_server="},
      {"0\n0\n", upnp + saved_and_signalled, "stun_enable=0 stun_server= sip_upnp_enable=0"},
      {"0\n2\n", upnp + illegal_value, ""},
      {"2\n", stun + illegal_value, ""},
      {"01\n", stun + illegal_value, ""},
  };
  for (const auto& nat : cases) {
    Desk desk;
    desk.set("stun_enable", "1").set("stun_server", "old").set("sip_upnp_enable", "1");
    const Visit seen = visit(desk, sip_menu, nat_traversal, nat.answers);
    EXPECT_EQ(seen.shown, nat.shown);
    EXPECT_EQ(seen.changed, nat.changed) << nat.answers;
  }
}

}  // namespace
}  // namespace tests
