// The session around the dialogues: login, menus, lines.
#include <gtest/gtest.h>

#include <cstring>

#include "menus/menu_tree.h"
#include "shell/session.h"
#include "support/dialogue.h"

namespace tests {
namespace {

using std::string;
using namespace std::string_literals;

const string goodbye = "Bye Bye!!\n", unknown = "This command is not define!\n";

// A menu of these items, and how to leave it.
string menu(const string& items) {
  return items + "\n" + string(78, '-') + "\nq:Exit\n\n";
}

const string main_menu = menu(R"(0:Basic Network Setting
1:Advanced Network Setting
2:SIP setting
3:VoIP Setting
4:Tools
5:Status)");
const string submenus[] = {
    menu("0:Wan Setting\n1:Lan Setting\n2:DHCP setting"),
    menu("0:NAT Setting\n1:Virtual Server Setting\n2:Application Setting\n3:UPNP Setting\n4:Static Route Setting\n"
         "5:MAC Filter\n6:IP Filter\n7:URL Filter\n8:Domain Filter\n9:Firewall Setting\n10:Rule Summary"),
    menu("0:Basic Setting\n1:Account Setting\n2:NAT Traversal"),
    menu("0:Voice Setting\n1:Call Service\n2:Phone Setting\n3:E.164 Setting\n4:FAX Setting\n"
         "5:General Dialing Setting\n6:QOS/TOS Setting\n7:Phone Book Setting\n8:Call Screen"),
    menu("2:Day/Time Setting\n3:DDNS Setting\n4:System Setting"),
    menu("0:Device Infomation\n1:Log\n2:Line State\n3:Call Detailed Record")};

// What is shown behind the login until the connection is closed, or the console ends.
string shown(Desk& desk, const string& typed) {
  EXPECT_EQ(run_session(desk, "admin\nadmin\n" + typed), 1);
  const string login = "Username:Password:" + main_menu + menu_prompt;
  return desk.transcript.starts_with(login) ? desk.transcript.substr(login.size()) : "not in: " + desk.transcript;
}

// ---- Menus ----

// Each of the lines, typed behind `way_in`, which shows `screen`; up to the first that is not obeyed.
void each(const Strings& lines, const string& answer, const string& way_in = "", const string& screen = "") {
  for (std::size_t i = 0; i < lines.size() && !testing::Test::HasFailure(); ++i) {
    Desk desk;
    EXPECT_EQ(shown(desk, way_in + lines[i] + "\n"), screen + answer + menu_prompt + goodbye) << way_in << lines[i];
  }
}

TEST(Menus, ObeyEveryLine) {
  const auto at_any_menu = [](const string& menu, const string& way_in, const string& screen) {
    each({"99", "HELP", "helq", "help ", "Q", "qq", "x", "2 ", " 2"}, unknown, way_in, screen);
    each({"-1", "1x", "100", "002", "12345", "a1", "2\0"s, "\0"s}, unknown, way_in, screen);
    each({"98"}, "This command is not implement!\n", way_in, screen);
    each({"", "11", "89", "92", "97"}, "", way_in, screen);
    each({"help", "91"}, menu, way_in, screen);
  };
  at_any_menu(main_menu, "", "");
  each({"6", "9", "10"}, "");
  for (const std::size_t number : {0U, 1U, 2U, 3U, 4U, 5U}) {
    const string way_in = std::to_string(number) + "\n", screen = submenus[number] + menu_prompt;
    at_any_menu(submenus[number], way_in, screen);
    each({"q", "90"}, main_menu, way_in, screen);
  }
  each({"0", "00", "5", "9", "09", "10"}, submenus[3], "3\n", submenus[3] + menu_prompt);
  Desk typed_90;
  EXPECT_EQ(shown(typed_90, "90\nx\n"), goodbye);
}

TEST(Menus, EveryLineRenewsTheLoginAndALateOneEndsIt) {
  const string ended = "\nConnection Time Out!! Please Re-Login!!\n" + goodbye;
  struct Wait {
    std::uint32_t idle_timeout, waited;
    bool goes_on;
  };
  for (const auto& [idle_timeout, waited, goes_on] :
       {Wait{300, 299, true}, Wait{300, 300, false}, Wait{300, 5000, false}, Wait{0, 0, false}}) {
    Desk desk;
    desk.login.idle_timeout = idle_timeout;
    desk.on_wait = [&, seconds = waited](std::size_t wait) { desk.clock += wait == 2 ? seconds : 0; };
    EXPECT_EQ(shown(desk, "\nq\n"), goes_on ? menu_prompt + goodbye : ended) << waited;
    EXPECT_EQ(desk.login.expiry_time, goes_on ? desk.clock + 300 : 1'000'000 + idle_timeout) << waited;
  }
  Desk slow;  // in a dialogue nobody looks at the clock
  slow.on_wait = [&](std::size_t wait) { slow.clock += wait == 5 ? 5000 : 0; };
  visit_typing(slow, {"SIP setting", "Basic Setting"}, string(15, '\n'));
  EXPECT_TRUE(slow.saved && slow.transcript.ends_with(ended));
  Desk taken_over;
  taken_over.on_wait = [&](std::size_t wait) {
    config::Ipv4& holder = taken_over.login.holder_address;
    holder = wait == 3 ? config::Ipv4{{127, 0, 0, 7}} : holder;
  };
  EXPECT_EQ(shown(taken_over, "2\nnonsense\n"), submenus[2] + menu_prompt + ended);
}

// ---- Login ----

TEST(Login, ClaimsTheRecordAndGivesItBack) {
  Desk desk;
  std::memset(&desk.login.reserved_8, 'r', sizeof desk.login.reserved_8);
  desk.login.reserved_28 = 4;
  config::LoginRecord expected = desk.login;
  desk.on_wait = [&](std::size_t wait) {
    EXPECT_TRUE(desk.transcript.ends_with(Strings{"Username:", "Username:Password:", menu_prompt}[wait]));
    EXPECT_EQ(std::memcmp(&expected, &desk.login, sizeof expected), 0);
    if (wait == 1) {
      expected = {{{127, 0, 0, 1}}, desk.clock + 300, expected.reserved_8, 300, -9, 4};
    }
  };
  EXPECT_EQ(shown(desk, "q\n"), goodbye);
  expected.holder_address = {};
  EXPECT_EQ(std::memcmp(&expected, &desk.login, sizeof expected), 0);
}

TEST(Login, ComparesAtMost31CharactersOfNameAndPassword) {
  const string n31(31, 'n'), n512(512, 'n');
  struct Login {
    string stored, typed;
    bool matches;
  };
  for (const auto& [stored, typed, matches] :
       {Login{"admin", "admin", true}, Login{"admin", "adminx", false}, Login{"admin", "admi", false},
        Login{"admin", "Admin", false}, Login{"admin", "", false}, Login{"", "", true}, Login{"", "x", false},
        Login{"q", "q", true}, Login{n31, n31, true}, Login{n31, n31 + "anything", true},
        Login{n31, string(30, 'n'), false}, Login{n31 + "x", n31 + "y", true}, Login{n31, n512, true}}) {
    const string line = typed + (typed == n512 ? "" : "\n");  // that one has no room for its line end
    for (const bool name : {true, false}) {
      Desk desk;
      desk.set(name ? "admin_user_name" : "admin_password", stored);
      run_session(desk, name ? line + "admin\n" : "admin\n" + line);
      const string result = matches ? main_menu + menu_prompt : "Username or Password Error\n";
      ASSERT_EQ(desk.transcript, "Username:Password:" + result + goodbye) << stored << " " << typed;
    }
  }
}

TEST(Login, IsGuardedBeforeItAndAfterThePassword) {
  const config::Ipv4 nobody{}, this_device{{127, 0, 0, 1}}, another{{7, 9, 8, 9}};
  struct Holder {
    config::Ipv4 address;
    std::uint32_t idle_timeout;
    int seconds_left;
    string refused;
  };
  for (const auto& [address, idle_timeout, seconds_left, refused] :
       {Holder{this_device, 300, 1, "Duplex Login with 127.0.0.1\n"},
        Holder{another, 300, 100, "Duplex Login with 7.9.8.9\n"}, Holder{another, 300, 0, ""},
        Holder{this_device, 300, -1, ""}, Holder{this_device, 0, 100, ""}, Holder{nobody, 300, 100, ""}}) {
    for (const bool before : {true, false}) {  // taken before the console is started, or at the password
      Desk desk;
      const std::uint32_t expiry_time = desk.clock + static_cast<std::uint32_t>(seconds_left);
      const config::LoginRecord taken = {address, expiry_time, {}, idle_timeout, 5, 6};
      desk.login = before ? taken : desk.login;
      desk.on_wait = [&](std::size_t wait) { desk.login = wait == 1 && !before ? taken : desk.login; };
      ASSERT_EQ(run_session(desk, "admin\nadmin\n"), 1);
      ASSERT_EQ(desk.transcript == (before ? "" : "Username:Password:") + refused, refused != "") << desk.transcript;
      ASSERT_EQ(desk.login.holder_address, refused.empty() ? nobody : address) << seconds_left;
    }
  }
}

// ---- Sessions ----

TEST(Session, EndsBeforeAnyPromptWithoutItsSegments) {
  const std::map<string, string> ends = {{"attach 1234", "1{cfgid: Permission denied}"},
                                         {"attach 1234 memory", "1{cfgid: Invalid argument}"},
                                         {"attach 5678", "0{cfgid: Permission denied}"},
                                         {"attach 5678 memory", "0"}};
  for (const auto& [call, end] : ends) {
    Desk desk;
    desk.failing = {call};
    EXPECT_EQ(std::to_string(run_session(desk, "admin\nadmin\nq\n")) + desk.transcript, end) << call;
  }
}

// Two dialogues, one that is left, and `q` between them: whichever way the lines arrive.
const string port = "2\n0\n5070" + string(14, '\n'), left = "3\n7\nq\nq\n", upnp = "2\n2\n0\n1\n";
const string lines = "admin\nadmin\n" + port + "q\n" + left + upnp + "q\nq\n";

TEST(Session, IsTheSameHoweverItsLinesArrive) {
  Desk typed, pasted, in_pieces;
  run_session(typed, lines);
  EXPECT_EQ(differences(Desk().settings, typed.settings), "sip_port=5070 sip_upnp_enable=1");
  pasted.input = {lines};
  for (const char character : lines) {
    in_pieces.input.push_back({character});
  }
  for (Desk* const desk : {&pasted, &in_pieces}) {
    EXPECT_EQ(run_session(*desk, ""), 1);
    EXPECT_TRUE(desk->transcript == typed.transcript) << (desk == &pasted ? "pasted" : "in pieces");
    EXPECT_EQ(differences(typed.settings, desk->settings), "");
  }
  EXPECT_EQ(pasted.waits.size(), 1U);
}

TEST(Session, ReadsNoMoreWhenItsOutputIsLost) {
  Desk desk, pasted;
  const auto loses_output = [](std::size_t wait) { device().failing.insert(wait == 2 ? "output" : ""); };
  desk.on_wait = pasted.on_wait = loses_output;
  EXPECT_EQ(run_session(desk, lines), 1);
  EXPECT_EQ(desk.waits.size(), 3U);
  EXPECT_TRUE(desk.login.holder_address.is_zero() && !desk.saved);
  // Of a pasted block the dialogue that finds it out, when it saves, is the last one.
  pasted.input = {"admin\n", "admin\n", port + "q\n" + upnp};
  EXPECT_EQ(run_session(pasted, ""), 1);
  EXPECT_EQ(differences(Desk().settings, pasted.settings), "sip_port=5070");
}

TEST(Session, ReadsLinesWithBackspacesAndAnyLength) {
  const auto stores = [](const string& typed, const string& server) {
    return Visit({{"STUN Server", typed}}, save_and_tell_daemon, server);
  };
  hold({"SIP setting", "NAT Traversal"}, Desk().set("stun_enable", "1").set("stun_server", "old"),
       {stores("a %s%n", "stun_server=a\\x20%s%n"), stores("ab\bc", "stun_server=ac"), stores("q", "stun_server=q"),
        stores("\b\bac", "stun_server=ac"), stores("abc\b\b\bac", "stun_server=ac"), stores("a\b\b", ""),
        stores("\xff\tb\r", "stun_server=\\xff\\x09b\\x0d"), stores("a\0b"s, "stun_server=a"),
        stores(string(511, 'x'), "stun_server=")});
  Desk desk;  // 1,500 characters are two lines of 512 and one of 476
  const string refused = unknown + menu_prompt;
  EXPECT_EQ(shown(desk, string(1500, 'x') + "\nq\n"), refused + refused + refused + goodbye);
}

}  // namespace
}  // namespace tests
