#include <gtest/gtest.h>

#include <string>

#include "support/session.h"

namespace tests {
namespace {

constexpr int sip_menu = 2;
constexpr int basic_setting = 0;

struct SipDesk : Desk {
  SipDesk() {
    set("sip_port", "5060").set("session_timer", "1800").set("media_port_start", "10000");
    set("media_port_end", "20000")
        .set("rtcp_port", "5005")
        .set("sip_transport", "1")
        .set("sip_time_interval", "500");
    set("invite_timeout", "60").set("ring_back_timeout", "180").set("release_timeout", "4");
    set("registration_retry_count", "3").set("registration_retry_interval", "30").set("ping_interval", "20");
    set("sip_host_name", "gateway");
  }
};

TEST(SipBasicSetting, ShowsEveryValueAndSavesBeforeItSignals) {
  SipDesk desk;
  const Visit kept = visit(desk, sip_menu, basic_setting, enters(14));
  EXPECT_EQ(
      kept.shown,
      "Please answer the question and use [enter] to keep original setting value\n\n"
      "SIP Port Number?<5060>(1024~65535):Session Timer?<1800>(1~65535):"
      "Media Port Start?<10000>(1024~65535):Media Port End?<20000>(1024~65535):RTCP Port?<5005>(1024~65535):"
      "SIP Transport by?<1>(1:UDP,2:TCP):SIP Time Interval?<500>(100~1000):Timeout for Invite?<60>(1~100):"
      "Timeout for Ring Back?<180>(1~1000):Timeout for Release?<4>(4~10):Registration Retry "
      "Count?<3>(0~65535):"
      "Registration Retry Interval?<30>(0~65535):PING Interval?<20>(0~65535):"
      "Host Name?<gateway>(MAX Character:35):"
      "{/opt/httpd/sbin/web_server dumpshare}Setting Save!!\n\n{attach 1357}{voice change 1}");
  EXPECT_EQ(kept.changed, "");
  EXPECT_TRUE(kept.returned);
}

TEST(SipBasicSetting, StoresEveryAnswer) {
  SipDesk desk;
  const Visit all = visit(desk, sip_menu, basic_setting,
                          "65535\n1\n1024\n01024\n65535\n2\n1000\n100\n1000\n10\n65535\n0\n65535\n" +
                              std::string(35, 'h') + "\n");
  EXPECT_EQ(
      all.changed,
      "sip_port=65535 session_timer=1 media_port_start=1024 media_port_end=1024 rtcp_port=65535 "
      "sip_transport=2 sip_time_interval=1000 invite_timeout=100 ring_back_timeout=1000 release_timeout=10 "
      "registration_retry_count=65535 registration_retry_interval=0 ping_interval=65535 sip_host_name=" +
          std::string(35, 'h'));
}

TEST(SipBasicSetting, RefusedAnswersLeaveEverythingAsItWas) {
  struct {
    int kept;  // prompts answered with Enter before
    const char* answer;
    const char* message;
  } const cases[] = {
      {0, "1023\n", "Your input value is illegal!!\n\n"},
      {0, "65536\n", "Your input value is illegal!!\n\n"},
      {0, "5060x\n", "Your input value is illegal!!\n\n"},
      {0, "4294972356\n", "Your input value is illegal!!\n\n"},  // 5060 + 2^32
      {1, "0\n", "Your input value is illegal!!\n\n"},
      {2, "20001\n\n", "Port Range Error!!\n\n"},
      {3, "9999\n", "Port Range Error!!\n\n"},
      {5, "3\n", "Your input value is illegal!!\n\n"},
      {5, "01\n", "Your input value is illegal!!\n\n"},
      {6, "99\n", "Your input value is illegal!!\n\n"},
      {7, "101\n", "Your input value is illegal!!\n\n"},
      {8, "0\n", "Your input value is illegal!!\n\n"},
      {9, "3\n", "Your input value is illegal!!\n\n"},
      {9, "11\n", "Your input value is illegal!!\n\n"},
      {12, "-1\n", "Your input value is illegal!!\n\n"},
  };
  for (const auto& refused : cases) {
    SipDesk desk;
    const Visit seen = visit(desk, sip_menu, basic_setting, enters(refused.kept) + refused.answer);
    EXPECT_TRUE(seen.shown.ends_with(refused.message) && seen.returned) << refused.answer << seen.shown;
    EXPECT_EQ(seen.changed, "") << refused.answer;
    EXPECT_FALSE(desk.saved || desk.voice_change != 0) << refused.answer;
  }
}

TEST(SipBasicSetting, HostNameIsCutAtItsNewlineAndEmptiedByALongAnswer) {
  SipDesk desk;
  desk.set("sip_host_name", "gate\\x0away");
  const Visit left = visit(desk, sip_menu, basic_setting, enters(13));
  EXPECT_TRUE(left.shown.ends_with("Host Name?<gate>(MAX Character:35):Bye Bye!!\n")) << left.shown;
  EXPECT_EQ(left.changed, "sip_host_name=gate");
  EXPECT_EQ(left.status, 1);
  EXPECT_FALSE(desk.saved);

  SipDesk second;
  second.set("sip_host_name", std::string(40, 'u'));  // another program left out the NUL
  const Visit emptied =
      visit(second, sip_menu, basic_setting, "5070\n" + enters(12) + std::string(36, 'x') + "\n");
  EXPECT_NE(emptied.shown.find("Host Name?<" + std::string(40, 'u') +
                               ">(MAX Character:35):Your input value is illegal!!\n\n{"),
            std::string::npos);
  EXPECT_EQ(emptied.changed, "sip_port=5070 sip_host_name=");
}

TEST(SipBasicSetting, AFlagThatCannotBeHadIsReportedBehindTheMessage) {
  SipDesk desk;
  desk.failing = {"attach 1357"};
  const Visit seen = visit(desk, sip_menu, basic_setting, enters(14));
  EXPECT_TRUE(seen.shown.ends_with("Setting Save!!\n\n{cfgid: Permission denied}")) << seen.shown;
  EXPECT_TRUE(seen.returned);
}

}  // namespace
}  // namespace tests
