#include <cstring>

#include "support/dialogue.h"

namespace tests::voip_test {

Dialogue dialogue_of(const string& label, const string& opening, const std::vector<Question>& questions = {}) {
  const Item item = {"VoIP Setting", label};
  Dialogue dialogue = {.item = item, .refusals = Refusals::ask_again, .opening = opening, .questions = questions};
  dialogue.ending = save_and_tell_daemon;
  return dialogue;
}

std::vector<Question> call_service_of_phone(std::size_t i) {
  auto& phone = fields.call_service.phone_call_service[i];
  const string of_phone = "Call Service Phone " + std::to_string(i) + " ";
  const string options = "0:Restricted\n1:Allowd\n2:User Invovation Required\n";
  const string off_on = "?<%d>( 0:disable, 1:enable ):";
  // Above the range that is shown the low 16 bits are stored.
  const Kind seconds = {{{"0"}, {"65535"}, {"70000", "4464"}}, {"1a", "-1", "4294967296"}};
  return {
      Question(phone.Call_Transfer_Option, 1 + i,
               of_phone + "Call_Transfer_Option?\n" + options + "Call_Transfer_Option?<%d>:", number(0, 2)),
      Question(phone.call_forward_option, 3 + i,
               of_phone + "call_forward_option?\n" + options + "call_forward_option?<%d>:", number(0, 2)),
      Question(phone.call_forward_always_uri, "a\\x0a", of_phone + "call_forward_always_uri?\n<%s>\n:", line(126)),
      Question(phone.call_forward_busy_uri, "\\x0a", of_phone + "call_forward_busy_uri?\n<%s>\n:", line(126)),
      Question(phone.call_forward_noans_uri, "", of_phone + "call_forward_noans_uri?\n<%s>\n:", line(126)),
      Question(phone.call_forward_noans_timeout, 256 + i,
               of_phone + "call_forward_noans_timeout?<%d(sec) >( 0~65535(sec) ):", seconds),
      Question(phone.call_dnd_enable, 5 + i, of_phone + "call_dnd_enable" + off_on, number(0, 1)),
      Question(phone.call_hotline_enable, 7 + i, of_phone + "call_hotline_enable" + off_on, number(0, 1)),
      Question(phone.call_hotline_number, "5\\x0a", of_phone + "call_hotline_number?\n<%s>\n:", line(126)),
      Question(phone.call_repeat_enable, 9 + i, of_phone + "call_repeat_enable" + off_on, number(0, 1)),
  };
}

TEST(Voip, CallService) {
  auto& service = fields.call_service;
  const std::vector<Question> questions = {
      Question(service.call_service_enable, 0,
               "Call Service Call Service Enable?<%d>(0:Disable, 1:Enable):", one_of("01")),
      Question(service.call_transfer_timeout, 30, "Call Service  Transfer Timeout?<%d>(10-100):", number(10, 100)),
      Question(service.call_hunting_enable, 1, "Call Service  Hunting Enable?<%d>(0:diable 1:enable):", one_of("01")),
      Question(service.call_hunting_timeout, 60, "Call Service  Hunting Timeout?<%d>(5~180):", number(5, 180),
               {.shown_behind = "call_hunting_timeout=%d \n"}),
      Question(service.call_repeat_timeout, 256, "Call Service  Repeat Timeout?<%d>(1~300):", number(1, 300)),
  };
  hold(dialogue_of("Call Service", keep_with_enter, questions + call_service_of_phone(0) + call_service_of_phone(1)));
}

std::vector<Question> signalling_of_phone(std::size_t i) {
  auto& port = fields.phone.phone_port[i];
  const string of_phone = "Phone " + std::to_string(i) + " Setting ";
  return {
      Question(port.ring_impedance, 2 + i,
               of_phone + "ring_impedance?\n1:600 ohm\n2:900 ohm\n3:Japan (600 ohm + 1uF)\n4:900 ohm + 2.16uF\n"
                          "5:CTR21\n6:Australia/New Zealand\n7:Slovakia/Slovenia/South Africa\n8:China\n"
                          "ring_impedance?<%d>:",
               one_of("12345678")),
      // The lower bound may lie above the upper one.
      Question(port.hook_flash_detect_ubound, 256 + i,
               of_phone + "hook_flash_detect_ubound?<%d>(100-3000):", number(100, 3000)),
      Question(port.hook_flash_detect_lbound, 3001 + i,
               of_phone + "hook_flash_detect_lbound?<%d>(100-3000):", number(100, 3000)),
      Question(port.voice_tx_level, 3 + i, of_phone + "voice_tx_level?<%d>(3,4,5,6,7):", number(3, 7)),
      Question(port.voice_rx_level, 5 + i, of_phone + "voice_rx_level?<%d>(3,4,5,6,7):", number(3, 7)),
  };
}

TEST(Voip, PhoneSetting) {
  auto& phone = fields.phone;
  const string signals = "0:No Alert\n1:DTAS\n2:RPAS\n3:LR\n4:LR-DTAS\n";
  const std::vector<Question> questions = {
      Question(phone.Tone_Setting, 1,
               "Phone Setting Tone_Setting?\n0:Default\n1:Taiwan\n2:China\n3:US\n4:Japan\n5:India\n"
               "Tone_Setting?<%d>:",
               one_of("012345"), {.shown_behind_enter = "ret==0"}),
      Question(phone.callerid_type, 2,
               "Phone Setting callerid_type?\n0:Disable\n1:DTMF\n2:FSK Bellcore\n3:FSK ETSI\n4:JAPAN CLIP\n"
               "5:JAPAN JCLIP\n6:BT\ncallerid_type?<%d>:",
               one_of("0123456")),
      Question(phone.callerid_power_level, 255, "Phone Setting callerid_power_level?<%d>(0~20):", number(0, 20)),
      Question(phone.callerid_baring, 0,
               "Phone Setting callerid_baring?<%d>(0:Before Ring, 1:After Ring):", number(0, 1)),
      Question(phone.callerid_t1_alertsig, 3,
               "Phone Setting callerid_t1_alertsig?" + signals + "callerid_t1_alertsig?<%d>:", one_of("01234")),
      Question(phone.callerid_t2_alertsig, 4,
               "Phone Setting callerid_t2_alertsig?\n" + signals + "callerid_t2_alertsig?<%d>:", one_of("01234")),
  };
  hold(dialogue_of("Phone Setting", keep_with_enter, questions + signalling_of_phone(0) + signalling_of_phone(1)));
}

TEST(Voip, E164AndFax) {
  Dialogue e164 = dialogue_of("E.164 Setting", keep_with_enter);
  e164.questions = {
      Question(fields.e164_call_enable, 0, "E.164 Setting Call Enable?<%d>(0:Disable, 1:Enable):", one_of("01"))};
  e164.device.failing = {"attach 1357"};  // the voice daemon cannot be told
  e164.ending = save + setting_saved + "{cfgid: Permission denied}";
  hold(e164);

  const string asked =
      " T.38 Option?\n0:Voice\n1:T38_FAX_RELAY\n2:VOICE_AND_T38_FAX_RELAY\n3:VOICE_AND_FAX_PASS_THROUGH\n"
      "T.38 Option?<%d>:";
  auto& ports = fields.fax_qos.fax_port;
  hold(dialogue_of("FAX Setting", "",
                   {Question(ports[0].t38_option, 200, "FAX Setting Phone 0" + asked, number(0, 3)),
                    Question(ports[1].t38_option, 1, "FAX Setting Phone 1" + asked, number(0, 3))}));
}

TEST(Voip, QosAndTos) {
  auto& qos = fields.fax_qos;
  const string setting = "QOS TOS/Diffserv Setting ";
  const string values =
      " 0:Normal-Service\n 2:Minimize-Cost\n 4:Maximize-Reliability\n 8:Maximize-Throughput\n16:Minimize-Delay\n";
  // The number with which an answer begins counts, and 0 where there is none.
  Kind tos;
  tos.accepted = {{"0"}, {"16"}, {"Q", "0"}, {"-0", "0"}, {"\a4", "0"}, {"2x", "2"}, {"\t \r+4", "4"}};
  tos.refused = {"1", "17", "\t\r -2", "5x", "4294967298"};
  const std::vector<Question> questions = {
      Question(qos.qos_type, 0, setting + "type?<%d>(0:tos, 1:diffserve):", number(0, 1)),
      Question(qos.sip_tos, 3, setting + "sip_tos?<%d>\n" + values + "sip_tos?<%d>:", tos),
      Question(qos.rtp_tos, 8, setting + "rtp_tos?<%d>\n:" + values + "rtp_tos?<%d>:", tos),
      Question(qos.pri_enable, 1, setting + "pri_enable?<%d>(0 tos, 1 diffserve):", number(0, 1)),
      Question(qos.pri_voice, 6, setting + "pri_voice?<%d>(0-7):", number(0, 7)),
      Question(qos.vlan_voice, 4294967295, setting + "vlan_voice?<%d>(0-1023):", number(0, 1023)),
      Question(qos.pri_data, 5, setting + "pri_data?<%d>(0-7):", number(0, 7)),
      Question(qos.vlan_data, 65536, setting + "vlan_data?<%d>(0-1023):", number(0, 1023)),
  };
  hold(dialogue_of("QOS/TOS Setting", "", questions));
}

// One action, and q when the menu is back. What is refused is asked for again.
Answers act(const string& number, const Answers& more = {}) {
  return Answers{{"Action :", number}} + more + Answers{{"Action :", "q"}};
}

string back(const string& title) {
  return title +
         " Action?\n0:add a phone number\n1:delete a phone number\n2:modify a phone number\n"
         "3:List phone number\nAction :q:Exit\n";
}

const string sevens(15, '7');

TEST(PhoneBook, EachAction) {
  const Item book = {"VoIP Setting", "Phone Book Setting"};
  const string done = back("Phone Book"), saved = save_and_tell_daemon + done, rule = string(57, '-') + "\n";
  const string note(255, 't');
  const Answers refused_once = {{"No=?", ""},           {"No=?", "50"},           {"No=?", "7"},
                                {"DialKey", "11"},      {"DialKey", "9"},         {"phone number", sevens + "7"},
                                {"phone number", "7a"}, {"phone number", sevens}, {"note", note + "t"},
                                {"note", note}};
  FactoryDevice device;
  device.set("phone_book[7].phone_number", "100").set("phone_book[7].note", "n\\x0a");
  device.set("phone_book[9].dial_key", "9");
  hold(book, device,
       {Visit(act("1", {{"No=?", "7"}}), "No=?(0-49):\n" + saved,
              "phone_book[7].phone_number=\\x0000 phone_book[7].note=\\x00\\x0a"),
        Visit(act("2", {{"No=?", "8"}}), "No=?(0-49):\ninput No error\n" + done),
        Visit(act("2", {{"No=?", "07"}, {"DialKey", "9"}, {"note", "q"}}), "note(Max 255 character):q:Exit\n" + done),
        Visit(act("2", refused_once), saved,
              "phone_book[9].dial_key=10 phone_book[7].dial_key=9 phone_book[7].phone_number=" + sevens +
                  " phone_book[7].note=" + note),
        Visit(act("3"), "Action :\nPhone book\n" + rule + "No.7 | DialKey=None | Phone number=100\nnoto:n\n\n" + rule +
                            rule + done)});
  // Whoever else has a key loses it, free entries as well. A new entry needs no note, but a key and a number.
  device.set("phone_book[0].note", "x").set("phone_book[7].dial_key", "255").set("phone_book[8].dial_key", "255");
  hold(book, device,
       {Visit(act("", {{"SpeedDial", ""}, {"SpeedDial", "3"}, {"phone number", ""}, {"phone number", "5"}}), saved,
              "phone_book[0].dial_key=3 phone_book[0].phone_number=5 phone_book[0].note="),
        Visit(act("2", {{"No=?", "7"}}), saved, "phone_book[8].dial_key=10")});
  // Full, of texts without an end.
  std::memset(&device.settings.phone_book, 'x', sizeof device.settings.phone_book);
  const string last = "Phone number=" + string(128, 'x') + "\nnote:" + string(259, 'x') + "\n";
  hold(book, device,
       {Visit(act("0"), "Action :\nPhone book is full\n" + done),
        Visit(act("3"), "No.49 | DialKey=120 | " + last + rule + rule + done)});
}

TEST(CallScreen, EachAction) {
  const Item screen = {"VoIP Setting", "Call Screen"};
  const string done = back("Call Screen"), saved = save_and_tell_daemon + done, rule = string(32, '-') + "\n";
  const Answers list_2 = {{"Phone No.", "2"}}, entry = {{"Phone No.", "1"}, {"List No:", "3"}};
  const Answers refused = {{"input type", "10"}, {"input type", "9"}, {"Phone Number:", ""}};
  const Answers number = {{"Phone Number:", sevens + "7"}, {"Phone Number:", sevens}};
  const string without_end(130, '7');
  FactoryDevice device;
  device.set("call_screen[10].screen_list", "0").set("call_screen[19].screen_list", "200");
  device.set("call_screen[13].screen_list", "1").set("call_screen[13].screen_number", without_end);
  device.set("call_screen[20].screen_list", "200");
  const auto lists = [&](const string& title, const string& entries) {
    return "3:Phone2 Outgoing\n:\n\n" + title + " List\n" + rule + entries + rule + "\n" + done;
  };
  const string outgoing = "No.0 phone_number=\nNo.3 phone_number=" + without_end + "\nNo.9 phone_number=\n";
  hold(screen, device,
       {Visit(act("", list_2 + refused + number), "input Phone Number:\n\n" + saved,
              "call_screen[21].screen_list=2 call_screen[21].screen_type=9 call_screen[21].screen_number=" + sevens),
        Visit(act("0", list_2 + Answers{{"input type", "q"}}), "q:Exit\n" + done),
        Visit(act("3", {{"Phone No.", "q"}}), "q:Exit\n" + done),
        Visit(act("1", entry), "Phone Number List No:" + saved, "call_screen[13].screen_list=255"),
        Visit(act("2", Answers{{"Phone No.", "4"}} + entry), saved, "call_screen[13].screen_number=" + sevens),
        Visit(act("2", {{"Phone No.", "1"}, {"List No:", "10"}, {"List No:", "4"}, {"Number:", "5"}}), saved,
              "call_screen[14].screen_number=5"),
        Visit(act("2", entry + Answers{{"Phone Number:", "q"}}), "input Phone Number:q:Exit\n" + done),
        Visit(act("3", {{"Phone No.", ""}}), lists("Phone1 Incoming", "")),
        Visit(act("3", {{"Phone No.", "1"}}), lists("Phone1 Outgoing", outgoing)),
        Visit(act("3", list_2), lists("Phone2 Incoming", "No.0 phone_number=\n")),
        Visit(act("3", {{"Phone No.", "3"}}), lists("Phone2 Outgoing", ""))});
  device.settings.call_screen[2] = {};  // full
  hold(screen, device,
       {Visit(act("0", list_2 + Answers{{"input type", "1"}, {"Phone Number:", "5"}}), "Number:\n\n" + done)});
}

}  // namespace tests::voip_test
