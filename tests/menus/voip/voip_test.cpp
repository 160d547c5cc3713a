#include <gtest/gtest.h>

#include <cstring>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

TEST(Voip, Settings) {
  hold(R"(== call service: 3 1 again
call_service_enable=0 | Call Service Call Service Enable?<$>(0:Disable, 1:Enable): | [01] ! 00 Q
call_transfer_timeout=30 | Call Service  Transfer Timeout?<$>(10-100): | 10..100
call_hunting_enable=0 | Call Service  Hunting Enable?<$>(0:diable 1:enable): | [01]
call_hunting_timeout=60 | Call Service  Hunting Timeout?<$>(5~180): | 5..180 | call_hunting_timeout=$ \n
call_repeat_timeout=256 | Call Service  Repeat Timeout?<$>(1~300): | 1..300
for # 0 1
phone_call_service[#].Call_Transfer_Option=2 | Call Service Phone # Call_Transfer_Option?\n0:Restricted\n1:Allowd\n\
2:User Invovation Required\nCall_Transfer_Option?<$>: | 0..2
phone_call_service[#].call_forward_option=1 | Call Service Phone # call_forward_option?\n0:Restricted\n1:Allowd\n\
2:User Invovation Required\ncall_forward_option?<$>: | 0..2
phone_call_service[#].call_forward_always_uri=a\x0a | Call Service Phone # call_forward_always_uri?\n<$>\n: | line 126
phone_call_service[#].call_forward_busy_uri=\x0a | Call Service Phone # call_forward_busy_uri?\n<$>\n: | line 126
phone_call_service[#].call_forward_noans_uri= | Call Service Phone # call_forward_noans_uri?\n<$>\n: | line 126
phone_call_service[#].call_forward_noans_timeout=1 | Call Service Phone # call_forward_noans_timeout?<$(sec) >\
( 0~65535(sec) ): | 0 65535 70000>4464 ! 1a -1 4294967296
phone_call_service[#].call_dnd_enable=0 | Call Service Phone # call_dnd_enable?<$>( 0:disable, 1:enable ): | 0..1
phone_call_service[#].call_hotline_enable=0 | Call Service Phone # call_hotline_enable?<$>( 0:disable, 1:enable ): \
| 0..1
phone_call_service[#].call_hotline_number=5\x0a | Call Service Phone # call_hotline_number?\n<$>\n: | line 126
phone_call_service[#].call_repeat_enable=0 | Call Service Phone # call_repeat_enable?<$>( 0:disable, 1:enable ): \
| 0..1
== phone: 3 2 again
Tone_Setting=1 | Phone Setting Tone_Setting?\n0:Default\n1:Taiwan\n2:China\n3:US\n4:Japan\n5:India\n\
Tone_Setting?<$>: | [012345] | \n | ret==0\n
callerid_type=1 | Phone Setting callerid_type?\n0:Disable\n1:DTMF\n2:FSK Bellcore\n3:FSK ETSI\n4:JAPAN CLIP\n\
5:JAPAN JCLIP\n6:BT\ncallerid_type?<$>: | [0123456]
callerid_power_level=255 | Phone Setting callerid_power_level?<$>(0~20): | 0..20
callerid_baring=0 | Phone Setting callerid_baring?<$>(0:Before Ring, 1:After Ring): | 0..1
callerid_t1_alertsig=1 | Phone Setting callerid_t1_alertsig?0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n\
callerid_t1_alertsig?<$>: | [01234]
callerid_t2_alertsig=1 | Phone Setting callerid_t2_alertsig?\n0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n\
callerid_t2_alertsig?<$>: | [01234]
for # 0 1
phone_port[#].ring_impedance=2 | Phone # Setting ring_impedance?\n1:600 ohm\n2:900 ohm\n3:Japan (600 ohm + 1uF)\n\
4:900 ohm + 2.16uF\n5:CTR21\n6:Australia/New Zealand\n7:Slovakia/Slovenia/South Africa\n8:China\n\
ring_impedance?<$>: | [12345678]
phone_port[#].hook_flash_detect_ubound=5 | Phone # Setting hook_flash_detect_ubound?<$>(100-3000): | 100..3000
phone_port[#].hook_flash_detect_lbound=9 | Phone # Setting hook_flash_detect_lbound?<$>(100-3000): | 100..3000
phone_port[#].voice_tx_level=5 | Phone # Setting voice_tx_level?<$>(3,4,5,6,7): | 3..7
phone_port[#].voice_rx_level=5 | Phone # Setting voice_rx_level?<$>(3,4,5,6,7): | 3..7
end
> /*7 3000/100/ /*7 | &ending | phone_port[0].hook_flash_detect_ubound=3000 phone_port[0].hook_flash_detect_lbound=100
== E.164: 3 3 again
e164_call_enable=0 | E.164 Setting Call Enable?<$>(0:Disable, 1:Enable): | [01]
== fax: 3 4 again
&opening=
for # 0 1
fax_port[#].t38_option=200 | FAX Setting Phone # T.38 Option?\n0:Voice\n1:T38_FAX_RELAY\n2:VOICE_AND_T38_FAX_RELAY\n\
3:VOICE_AND_FAX_PASS_THROUGH\nT.38 Option?<$>: | 0..3
== QoS: 3 6 again
&opening=
&values=0:Normal-Service\n 2:Minimize-Cost\n 4:Maximize-Reliability\n 8:Maximize-Throughput\n16:Minimize-Delay\n
qos_type=0 | QOS TOS/Diffserv Setting type?<$>(0:tos, 1:diffserve): | 0..1
sip_tos=3 | QOS TOS/Diffserv Setting sip_tos?<$>\n &valuessip_tos?<$>: | 0 2 4 8 16 abc>0 2x>2 0016>16 +4>4 -0>0 \
! 1 3 17 -2 5x 4294967298 18446744073709551618
rtp_tos=8 | QOS TOS/Diffserv Setting rtp_tos?<$>\n: &valuesrtp_tos?<$>: | 0 2 4 8 16 abc>0 2x>2 ! 1 3 17 -2 5x
pri_enable=0 | QOS TOS/Diffserv Setting pri_enable?<$>(0 tos, 1 diffserve): | 0..1
pri_voice=1 | QOS TOS/Diffserv Setting pri_voice?<$>(0-7): | 0..7
vlan_voice=4294967295 | QOS TOS/Diffserv Setting vlan_voice?<$>(0-1023): | 0..1023
pri_data=1 | QOS TOS/Diffserv Setting pri_data?<$>(0-7): | 0..7
vlan_data=1 | QOS TOS/Diffserv Setting vlan_data?<$>(0-1023): | 0..1023
)");
}

// ---- Records behind a menu of actions that comes back until q; it is their &list ----

const string actions = R"( Action?\n0:add a phone number\n1:delete a phone number\n2:modify a phone number\n)"
                       R"(3:List phone number\nAction :
&opening=&list\n
&leave=q\n
&left=&listq:Exit\n
)";

TEST(Voip, PhoneBook) {
  const string book = "&list=Phone Book" + actions, entry = R"(
+ dial_key= | Phone Book SpeedDial Digit?(0-9,10 = none): | 0..10
~ - | No=?(0-49): | 0..49 as 7 required
~ dial_key=10 | DialKey=?(0-9,10 = none): | 0..10
phone_number=100 | phone number(Max 15 character): | digits 15
note=n | note(Max 255 character): | text 255 enter>
)";
  hold("== add: 3 7 again\n" + book + "&choose=00\\n\n&record=phone_book[0].\n&vacant=phone_number=" + entry);
  hold("== modify: 3 7 again\n" + book + "&record=phone_book[7].\n&choose=2\\n\n" + entry +
       R"(> 4/q/|Q/q/|-1/q/|2x/q/|33/q/ | &illegal&left |
> 3/q/ | Action :\nPhone book\n-*57\nNo.7 &bar DialKey=None &bar Phone number=100\nnoto:n\n-*57\n-*57\n&left |
> 1/50//x/7/q/ | No=?(0-49):&illegalNo=?(0-49):&illegalNo=?(0-49):&illegalNo=?(0-49):\n&ending&listq:Exit\n \
| phone_number=\x0000 note=
> 1/49/q/|1/0/q/ | Action :\nNo=?(0-49):\n&ending&left |
> 1/q/q/ | No=?(0-49):q:Exit\n&left |
> 2/8/q/ | No=?(0-49):\ninput No error\n&left |
= phone_number= dial_key=3 phone_book[9].dial_key=3 phone_book[8].dial_key=4
> /3/5//q/ | note(Max 255 character):\n&ending&left | phone_book[0].dial_key=3 phone_book[0].phone_number=5 \
dial_key=10 phone_book[9].dial_key=10
= dial_key=3 phone_book[9].dial_key=3
> 2/7////q/ | note(Max 255 character):\n&ending&left | phone_book[9].dial_key=10
> 2/7/10///q/ | note(Max 255 character):\n&ending&left | dial_key=10
> 3/q/ | Phone book\n-*57\nNo.7 &bar DialKey=3 &bar Phone number=100\nnote:n\n-*57\n-*57\n&left |
)");
  Desk full;  // of texts without a NUL
  std::memset(&full.settings.phone_book, 'x', sizeof full.settings.phone_book);
  hold("== full: 3 7 again\n&record=phone_book[49].\n" + book +
           R"(> 0/q/ | Action :\nPhone book is full\n&left |
> 3/q/ | \nNo.49 &bar DialKey=120 &bar Phone number=x*128\nnote:x*259\n-*57\n-*57\n&left |
> 1/49/q/ | &ending&left | phone_number=\x00x*127 note=\x00x*258
)",
       full);
}

TEST(Voip, CallScreen) {
  const string screen = "&list=Call Screen" + actions + R"(&opening=Call_Screen 1\n&list\n
&which=Phone No.?\n0:Phone1 Incoming\n1:Phone1 Outgoing\n2:Phone2 Incoming\n3:Phone2 Outgoing\n:
)";
  Desk nine;
  for (int i = 20; i < 29; ++i) {
    nine.set("call_screen[" + std::to_string(i) + "].screen_list", "2");
  }
  const string add = "== add: 3 8 again\n" + screen + R"(&choose=0\n
&record=call_screen[29].
&vacant=screen_list=255
- | &which | 0..3 as 2
screen_list= | | >2
screen_type= | input type(0: in, 1:out): | 0..9
screen_number= | input Phone Number: | digits 15 | \n\n
)";
  hold(add, nine);
  hold("== full: 3 8 again\n" + screen + "> /2/1/5/q/ | input Phone Number:\\n\\n&left |",
       nine.set("call_screen[29].screen_list", "200"));
  hold("== modify: 3 8 again\n" + screen + R"(&choose=2\n
&record=call_screen[13].
- | &which | 0..3 as 1 required
- | Phone Number List No: | 0..9 as 3 required
screen_number=5 | input Phone Number: | digits 15 firm
> 4/q/|Q/q/|-1/q/|2x/q/ | &illegal&left |
> 1/1/10/x//9/q/ | &illegalPhone Number List No:&illegalPhone Number List No:&illegalPhone Number List No:&ending&left |
> 1/4//1/q/q/ | \nPhone Number List No:q:Exit\n&left |
= screen_number=7*130 screen_list=1 call_screen[10].screen_list=0 call_screen[19].screen_list=200
> 2/1/3//q/ | &ending&left | screen_number=7*15
> 1/1/3/q/ | &ending&left | screen_list=255
> 3/1/q/ | \n\nPhone1 Outgoing List\n-*32\nNo.0 phone_number=\nNo.3 phone_number=7*130\nNo.9 phone_number=\n-*32\n\n&left |
> 3/4/x//q/ | &illegal&which&illegal&which\n\nPhone1 Incoming List\n-*32\n-*32\n\n&left |
> 1/0/0/q/ | &which\nPhone Number List No:&ending&left |
> 3/2/q/ | :\n\nPhone2 Incoming List\n-*32\n-*32\n\n&left |
> 3/3/3/q/q/ | :\n\nPhone2 Outgoing List\n-*32\n-*32\n\n&list\n&whichq:Exit\n&left |
)");
}

}  // namespace
}  // namespace tests
