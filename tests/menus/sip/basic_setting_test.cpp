#include <gtest/gtest.h>

#include "support/question_sheet.h"

namespace tests {
namespace {

constexpr int sip_menu = 2;
constexpr int basic_setting = 0;

TEST(SipBasicSetting, EveryQuestion) {
  hold_to_sheet(
      sip_menu, basic_setting, false, keep_with_enter,
      R"(sip_port=5060 | SIP Port Number?<5060>(1024~65535): | 1024 65535 | 1023 65536 5060x 4294972356
session_timer=1800 | Session Timer?<1800>(1~65535): | 1 65535 | 0
media_port_start=10000 | Media Port Start?<10000>(1024~65535): | 01024>1024 65535 | 1023
media_port_end=20000 | Media Port End?<20000>(1024~65535): | 1024 65535 | 65536
rtcp_port=5005 | RTCP Port?<5005>(1024~65535): | 1024 65535 | 1023
sip_transport=1 | SIP Transport by?<1>(1:UDP,2:TCP): | 1 2 | 0 3 01
sip_time_interval=500 | SIP Time Interval?<500>(100~1000): | 100 1000 | 99 1001
invite_timeout=60 | Timeout for Invite?<60>(1~100): | 1 100 | 0 101
ring_back_timeout=180 | Timeout for Ring Back?<180>(1~1000): | 1 1000 | 0 1001
release_timeout=5 | Timeout for Release?<5>(4~10): | 4 10 | 3 11
registration_retry_count=3 | Registration Retry Count?<3>(0~65535): | 0 65535 | 65536
registration_retry_interval=30 | Registration Retry Interval?<30>(0~65535): | 0 65535 | x
ping_interval=20 | PING Interval?<20>(0~65535): | 0 65535 | -1
sip_host_name=gateway | Host Name?<gateway>(MAX Character:35): | g %35
)");
}

TEST(SipBasicSetting, AMediaRangeMustNotDescend) {
  for (const char* answers : {"5070\n\n20000\n19998\n", "5070\n\n\n1024\n", "5070\n\n1025\n\n"}) {
    Desk desk;
    desk.set("media_port_start", "1025").set("media_port_end", "1024");
    const Visit seen = visit(desk, sip_menu, basic_setting, answers);
    EXPECT_TRUE(seen.shown.ends_with("(1024~65535):Port Range Error!!\n\n") && seen.returned) << seen.shown;
    EXPECT_TRUE(seen.changed.empty() && !desk.saved && desk.voice_change == 0);
  }
}

TEST(SipBasicSetting, ForeignHostNamesAndAFlagThatCannotBeHad) {
  Desk desk;
  desk.set("sip_host_name", "gate\\x0away");
  EXPECT_EQ(visit(desk, sip_menu, basic_setting, enters(13)).changed, "sip_host_name=gate");
  EXPECT_TRUE(desk.transcript.ends_with("Host Name?<gate>(MAX Character:35):Bye Bye!!\n") && !desk.saved);

  Desk second;
  second.set("sip_host_name", std::string(40, 'u'));  // another program left out the NUL
  second.failing = {"attach 1357"};
  const Visit seen =
      visit(second, sip_menu, basic_setting, "5070\n" + enters(12) + std::string(36, 'x') + "\n");
  EXPECT_TRUE(
      seen.shown.ends_with("Host Name?<" + std::string(40, 'u') + ">(MAX Character:35):" + illegal_value +
                           "{/opt/httpd/sbin/web_server dumpshare}Setting Save!!\n\n{cfgid: Permission "
                           "denied}"));
  EXPECT_EQ(seen.changed, "sip_port=5070 sip_host_name=");
}

}  // namespace
}  // namespace tests
