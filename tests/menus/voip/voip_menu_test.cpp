#include <gtest/gtest.h>

#include <cstring>

#include "support/question_sheet.h"

namespace tests {
namespace {

constexpr int voip_menu = 3;

TEST(VoipMenu, CallService) {
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

TEST(VoipMenu, PhoneSetting) {
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

TEST(VoipMenu, E164FaxAndQos) {
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

// ---- Records behind an action menu ----

// What a visit shows, in short forms, and what it changed.
std::string told(Desk& desk, int item, const std::string& answers) {
  const std::string menu =
      " Action?\n0:add a phone number\n1:delete a phone number\n2:modify a phone number\n3:List phone "
      "number\nAction :";
  const std::pair<std::string, const char*> short_forms[] = {
      {(item == 7 ? "Phone Book" : "Call Screen") + menu, "<menu>"},
      {illegal_value, "<no>"},
      {saved_and_signalled, "<saved>"},
      {std::string(item == 7 ? 57 : 32, '-') + "\n", "<rule>"},
      {"Phone Book SpeedDial Digit?(0-9,10 = none):", "<new key>"},
      {"DialKey=?(0-9,10 = none):", "<key>"},
      {"phone number(Max 15 character):", "<number>"},
      {"note(Max 255 character):", "<note>"},
      {"Phone No.?\n0:Phone1 Incoming\n1:Phone1 Outgoing\n2:Phone2 Incoming\n3:Phone2 Outgoing\n:", "<list>"},
      {"input type(0: in, 1:out):", "<type>"},
      {"input Phone Number:", "<number>"},
      {"Phone Number List No:", "<entry>"}};
  const Visit seen = visit(desk, voip_menu, item, answers);
  std::string text = seen.shown + seen.changed;
  for (const auto& [whole, short_form] : short_forms) {
    text = replaced(text, whole, short_form);
  }
  return text;
}

TEST(PhoneBook, KeepsItsKeysApart) {
  Desk desk;
  desk.set("phone_book[0].phone_number", "100").set("phone_book[0].dial_key", "3");
  desk.set("phone_book[1].note", "left behind").set("phone_book[9].dial_key", "3");
  EXPECT_EQ(
      told(desk, 7,
           "3\n\n\n11\n3\n\n12a\n1234567890123456\n123456789012345\n\n00\n10\n5\n" + std::string(256, 'n') +
               "\ntwo\n0\n1\n1\nq\n4\nQ\n1\n\n50\n49\n1\n0\n2\n0\n0\n7\n7\nfirst\n"
               "2\n2\n7\n\n\n2\n1\n\n\n\n2\n1\n\n8\nq\n3\nq\n"),
      "<menu>\nPhone book\n<rule>No.0 | DialKey=3 | Phone number=100\nnote:\n<rule><rule><menu>\n"
      "<new key><no><new key><no><new key>\n<number><no><number><no><number><no><number>\n<note>\n<saved>"
      "<menu>\n<new key>\n<number>\n<note><no><note>\n<saved><menu>\n<new key>\n<number>\n<note>q:Exit\n"
      "<menu><no><menu><no><menu>\nNo=?(0-49):<no>No=?(0-49):<no>No=?(0-49):\n<saved><menu>\nNo=?(0-49):\n"
      "<saved><menu>\nNo=?(0-49):\ninput No error\n<menu>\n<new key>\n<number>\n<note>\n<saved>"
      "<menu>\nNo=?(0-49):\n<key>\n<number>\n<note>\n<saved><menu>\nNo=?(0-49):\n<key>\n<number>\n<note>\n"
      "<saved><menu>\nNo=?(0-49):\n<key>\n<number>\n<note>q:Exit\n<menu>\nPhone book\n"
      "<rule>No.0 | DialKey=None | Phone number=7\nnoto:first\n"
      "<rule>No.1 | DialKey=3 | Phone number=123456789012345\nnote:\n"
      "<rule>No.2 | DialKey=7 | Phone number=5\nnote:two\n<rule><rule><menu>q:Exit\n"
      "phone_book[0].dial_key=10 phone_book[1].dial_key=3 phone_book[2].dial_key=7 "
      "phone_book[9].dial_key=10 phone_book[0].phone_number=7 phone_book[1].phone_number=123456789012345 "
      "phone_book[2].phone_number=5 phone_book[0].note=first phone_book[1].note= phone_book[2].note=two");
}

TEST(PhoneBook, FullOfEntriesWithoutANul) {
  Desk desk;
  std::memset(&desk.settings.phone_book, 'x', sizeof desk.settings.phone_book);
  const std::string shown = told(desk, 7, "0\n3\n2\n49\n5\n\n\n1\n48\nq\n");
  EXPECT_TRUE(
      shown.starts_with("<menu>\nPhone book is full\n<menu>\nPhone book\n<rule>No.0 | DialKey=120 | Phone "
                        "number=" +
                        std::string(128, 'x') + "\nnote:" + std::string(259, 'x') + "\n<rule>No.1 "));
  EXPECT_TRUE(shown.ends_with("phone_book[49].dial_key=5 phone_book[48].phone_number= phone_book[48].note="));
  EXPECT_EQ(desk.settings.phone_book[48].note.bytes[1], 'x');
}

TEST(CallScreen, HoldsTenNumbersToAList) {
  Desk desk;
  for (int i = 20; i < 29; ++i) {
    desk.set("call_screen[" + std::to_string(i) + "].screen_list", "2");
  }
  const std::string sevens(130, '7');
  desk.set("call_screen[3].screen_number", sevens).set("call_screen[3].screen_list", "200");
  EXPECT_EQ(
      told(desk, 8,
           "\n\n4\n2\n\n10\n5\n\n1-2\n1234567890123456\n123456789012345\n0\n2\n0\n1\n4\n0\n3\n1\nq\n"
           "3\n2\n3\n\n2\n0\n3\n\n2\n0\n9\n9\n1\n2\n\n10\n8\n\n2\n1\n6\n3\nq\n3\n0\nq\n"),
      "Call_Screen 1\n<menu>\n<list><no><list><no><list>\n<type><no><type><no><type>\n"
      "<number><no><number><no><number><no><number>\n\n<saved><menu>\n<list>\n<type>\n<number>\n\n"
      "<menu><no><menu>\n<list>\n<type>\n<number>q:Exit\n<menu>\n<list>\n\nPhone2 Incoming List\n<rule>"
      "No.0 phone_number=\nNo.1 phone_number=\nNo.2 phone_number=\nNo.3 phone_number=\nNo.4 phone_number=\n"
      "No.5 phone_number=\nNo.6 phone_number=\nNo.7 phone_number=\nNo.8 phone_number=\n"
      "No.9 phone_number=123456789012345\n<rule>\n"
      "<menu>\n<list>\n\nPhone1 Incoming List\n<rule>No.3 phone_number=" +
          sevens +
          "\n<rule>\n<menu>\n<list>\n<entry>\n"
          "<number>\n<saved><menu>\n<list>\n<entry>\n<number>\n<saved><menu>\n<list>\n<entry><no><entry><no><"
          "entry>"
          "<saved><menu>\n<list>\n<type>\n<number>\n\n<saved><menu>\n<list>q:Exit\n<menu>\n<list>\n\n"
          "Phone1 Incoming List\n<rule>No.3 phone_number=777777777777777\n<rule>\n<menu>q:Exit\n"
          "call_screen[29].screen_list=2 call_screen[28].screen_type=1 call_screen[29].screen_type=5 "
          "call_screen[3].screen_number=777777777777777 call_screen[9].screen_number=9 "
          "call_screen[28].screen_number=6 call_screen[29].screen_number=123456789012345");
}

}  // namespace
}  // namespace tests
