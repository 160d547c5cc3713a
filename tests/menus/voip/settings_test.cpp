// The VoIP items that ask for settings one after the other.
#include <gtest/gtest.h>

#include <cstring>

#include "support/question_sheet.h"

namespace tests {
namespace {

constexpr int voip_menu = 3;

TEST(VoipSettings, CallService) {
  hold_to_sheet(
      voip_menu, 1, true, keep_with_enter,
      R"(call_service_enable=0 | Call Service Call Service Enable?<0>(0:Disable, 1:Enable): | 1 | 2 01 Q
call_transfer_timeout=30 | Call Service  Transfer Timeout?<30>(10-100): | 10 100 | 9 101 -10
call_hunting_enable=0 | Call Service  Hunting Enable?<0>(0:diable 1:enable): | 1 | 00 2
call_hunting_timeout=60 | Call Service  Hunting Timeout?<60>(5~180): | 5 180 | 4 181 \
  | call_hunting_timeout=60 \n
call_repeat_timeout=256 | Call Service  Repeat Timeout?<256>(1~300): | 1 300 | 0 301
)",
      R"(phone_call_service[#].Call_Transfer_Option=2 | Call Service Phone # @?\n0:Restricted\n\
  1:Allowd\n2:User Invovation Required\n@?<2>: | 0 01>1 | 3 a
phone_call_service[#].call_forward_option=1 | Call Service Phone # @?\n0:Restricted\n\
  1:Allowd\n2:User Invovation Required\n@?<1>: | 0 2 | 3
phone_call_service[#].call_forward_always_uri=a\x0a | Call Service Phone # @?\n<a\n>\n: | 100 %126 | %127 %500
phone_call_service[#].call_forward_busy_uri=\x0a | Call Service Phone # @?\n<\n>\n: | b@b
phone_call_service[#].call_forward_noans_uri=\x0a | Call Service Phone # @?\n<\n>\n: | qq
phone_call_service[#].call_forward_noans_timeout=1 | Call Service Phone # @?<1(sec) >( 0~65535(sec) ): \
  | 0 70000>4464 | 1a 4294967296
phone_call_service[#].call_dnd_enable=0 | Call Service Phone # @?<0>( 0:disable, 1:enable ): | 01>1 | 2
phone_call_service[#].call_hotline_enable=0 | Call Service Phone # @?<0>( 0:disable, 1:enable ): | 1 | 2
phone_call_service[#].call_hotline_number=5\x0a | Call Service Phone # @?\n<5\n>\n: | 6
phone_call_service[#].call_repeat_enable=0 | Call Service Phone # @?<0>( 0:disable, 1:enable ): | 01>1 | 2
)");
  Desk desk;
  std::memset(&desk.settings.call_service, 0xff, sizeof desk.settings.call_service);
  const Visit kept = visit(desk, voip_menu, 1, enters(3) + "5\n" + enters(21));
  EXPECT_EQ(kept.changed, "call_hunting_timeout=5");
  EXPECT_NE(kept.shown.find("<255>(5~180):call_hunting_timeout=5 \nCall"), std::string::npos);
  EXPECT_NE(kept.shown.find("number?\n<" + std::string(128, '\xff') + ">\n:\n"), std::string::npos);
}

TEST(VoipSettings, PhoneSetting) {
  hold_to_sheet(
      voip_menu, 2, true, keep_with_enter,
      R"(Tone_Setting=1 | Phone Setting @?\n0:Default\n1:Taiwan\n2:China\n3:US\n4:Japan\n5:India\n@?<1>: \
  | 0 5 | 6 05 | ret==0\n
callerid_type=1 | Phone Setting @?\n0:Disable\n1:DTMF\n2:FSK Bellcore\n3:FSK ETSI\n4:JAPAN CLIP\n\
  5:JAPAN JCLIP\n6:BT\n@?<1>: | 0 6 | 7
callerid_power_level=255 | Phone Setting @?<255>(0~20): | 0 20 | 21
callerid_baring=0 | Phone Setting @?<0>(0:Before Ring, 1:After Ring): | 1 | 2
callerid_t1_alertsig=1 | Phone Setting @?0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n@?<1>: | 0 4 | 5
callerid_t2_alertsig=1 | Phone Setting @?\n0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n@?<1>: | 0 4 | 5 04
)",
      R"(phone_port[#].ring_impedance=2 | Phone # Setting @?\n1:600 ohm\n2:900 ohm\n3:Japan (600 ohm + 1uF)\n\
  4:900 ohm + 2.16uF\n5:CTR21\n6:Australia/New Zealand\n7:Slovakia/Slovenia/South Africa\n8:China\n\
  @?<2>: | 1 8 | 0 9 08
phone_port[#].hook_flash_detect_ubound=5 | Phone # Setting @?<5>(100-3000): | 0100>100 3000 | 99 3001
phone_port[#].hook_flash_detect_lbound=5 | Phone # Setting @?<5>(100-3000): | 3000 100 | 99 3001
phone_port[#].voice_tx_level=5 | Phone # Setting @?<5>(3,4,5,6,7): | 3 7 | 2 8
phone_port[#].voice_rx_level=5 | Phone # Setting @?<5>(3,4,5,6,7): | 3 7 | 2 8
)");
}

TEST(VoipSettings, E164FaxAndQos) {
  hold_to_sheet(voip_menu, 3, true, keep_with_enter,
                "e164_call_enable=0 | E.164 Setting Call Enable?<0>(0:Disable, 1:Enable): | 1 | 2 01\n");
  hold_to_sheet(voip_menu, 4, true, "", "",
                R"(fax_port[#].t38_option=200 | FAX Setting Phone # T.38 Option?\n0:Voice\n1:T38_FAX_RELAY\n\
  2:VOICE_AND_T38_FAX_RELAY\n3:VOICE_AND_FAX_PASS_THROUGH\nT.38 Option?<200>: | 0 03>3 | 4 x
)");
  hold_to_sheet(voip_menu, 6, true, "",
                R"(qos_type=0 | QOS TOS/Diffserv Setting type?<0>(0:tos, 1:diffserve): | 01>1 | 2
sip_tos=3 | QOS TOS/Diffserv Setting @?<3>\n 0:Normal-Service\n 2:Minimize-Cost\n \
  4:Maximize-Reliability\n 8:Maximize-Throughput\n16:Minimize-Delay\n@?<3>: | abc>0 16 | 3 -2 4294967298
rtp_tos=8 | QOS TOS/Diffserv Setting @?<8>\n: 0:Normal-Service\n 2:Minimize-Cost\n \
  4:Maximize-Reliability\n 8:Maximize-Throughput\n16:Minimize-Delay\n@?<8>: | 2x>2 4 | 1 17 5x
pri_enable=0 | QOS TOS/Diffserv Setting pri_enable?<0>(0 tos, 1 diffserve): | 1 | 2
pri_voice=1 | QOS TOS/Diffserv Setting pri_voice?<1>(0-7): | 0 7 | 8
vlan_voice=4294967295 | QOS TOS/Diffserv Setting vlan_voice?<-1>(0-1023): | 0 1023 | 1024
pri_data=1 | QOS TOS/Diffserv Setting pri_data?<1>(0-7): | 0 7 | 8
vlan_data=1 | QOS TOS/Diffserv Setting vlan_data?<1>(0-1023): | 0 1023 | 1024 1a
)");
}

}  // namespace
}  // namespace tests
