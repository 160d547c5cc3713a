// The session around the dialogues: login, menus, lines.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>

#include "menus/menu_tree.h"
#include "shell/session.h"
#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

const string prompt = "[4830NT]#", goodbye = "Bye Bye!!\n", unknown = "This command is not define!\n";

// A menu of these items, and how to leave it.
string menu(const string& items) {
  return replaced(items, ",", "\n") + "\n" + string(78, '-') + "\nq:Exit\n\n";
}

const string main_menu =
    menu("0:Basic Network Setting,1:Advanced Network Setting,2:SIP setting,3:VoIP Setting,4:Tools,5:Status");
const string submenus[] = {
    menu("0:Wan Setting,1:Lan Setting,2:DHCP setting"),
    menu(R"(0:NAT Setting,1:Virtual Server Setting,2:Application Setting,3:UPNP Setting,4:Static Route Setting
5:MAC Filter,6:IP Filter,7:URL Filter,8:Domain Filter,9:Firewall Setting,10:Rule Summary)"),
    menu("0:Basic Setting,1:Account Setting,2:NAT Traversal"),
    menu(
        R"(0:Voice Setting,1:Call Service,2:Phone Setting,3:E.164 Setting,4:FAX Setting,5:General Dialing Setting
6:QOS/TOS Setting,7:Phone Book Setting,8:Call Screen)"),
    menu("2:Day/Time Setting,3:DDNS Setting,4:System Setting"),
    menu("0:Device Infomation,1:Log,2:Line State,3:Call Detailed Record")};

// What is shown behind the login until the connection is closed, or the console ends.
string shown(Device& desk, const string& typed) {
  EXPECT_EQ(run_session(desk, "admin\nadmin\n" + typed), 1);
  const string login = "Username:Password:" + main_menu + prompt;
  return desk.transcript.starts_with(login) ? desk.transcript.substr(login.size()) : "not in: " + desk.transcript;
}

TEST(Menus, ObeyEveryLine) {
  using namespace std::string_literals;
  const std::pair<string, string> anywhere[] = {
      {"99,HELP,helq,help ,Q,qq,x,2 , 2,-1,1x,100,002,010,12345,a1,2\0,hel\0,\0"s, unknown},
      {"98", "This command is not implement!\n"},
      {",11,89,92,97", ""}};
  std::vector<std::pair<string, string>> said(std::begin(anywhere), std::end(anywhere));
  said.insert(said.end(), {{"6,9,10,93", ""}, {"91,help", main_menu}});
  for (int i = 0; i < 6; ++i) {
    said.insert(said.end(), {{std::to_string(i), submenus[i]}, {i == 0 ? "90" : "q", main_menu}});
  }
  said.insert(said.end(), {{"4,0", submenus[4]}, {"q", main_menu}, {"03,0,5,9,09,10,91,help", submenus[3]}});
  said.insert(said.end(), std::begin(anywhere), std::end(anywhere));
  string typed, expected;
  for (const auto& [lines, answer] : said) {
    std::istringstream each(lines);
    for (string line; std::getline(each, line, ',');) {
      typed += line + "\n";
      expected += answer + prompt;
    }
  }
  for (const string quit : {"q\n", "90\n"}) {  // "90" at either level
    Desk desk;
    EXPECT_EQ(shown(desk, typed + "q\n" + quit + "x\n"), expected + main_menu + prompt + goodbye);
  }
}

TEST(Menus, EveryLineRenewsTheLoginAndALateOneEndsIt) {
  const string ended = "\nConnection Time Out!! Please Re-Login!!\n" + goodbye;
  std::istringstream cases("300 299 1  300 300 0  300 5000 0  0 0 0");
  for (std::uint32_t idle, waited, goes_on; cases >> idle >> waited >> goes_on;) {
    Desk desk;
    desk.login.idle_timeout = idle;
    desk.on_wait = [&](std::size_t wait) { desk.clock += wait == 2 ? waited : 0; };
    EXPECT_EQ(shown(desk, "\nq\n"), goes_on == 1 ? prompt + goodbye : ended) << waited;
    EXPECT_EQ(desk.login.expiry_time, goes_on == 1 ? desk.clock + 300 : 1'000'000 + idle);
  }
  Desk slow;  // in a dialogue nobody looks at the clock
  slow.on_wait = [&](std::size_t wait) { slow.clock += wait == 5 ? 5000 : 0; };
  EXPECT_NE(visit(slow, 2, 0, string(14, '\n')).find("Setting Save!!"), string::npos);
  Desk taken_over;
  taken_over.on_wait = [&](std::size_t wait) {
    config::Ipv4& holder = taken_over.login.holder_address;
    holder = wait == 3 ? config::Ipv4{{127, 0, 0, 7}} : holder;
  };
  EXPECT_EQ(shown(taken_over, "2\nnonsense\n"), submenus[2] + prompt + ended);
}

TEST(Login, ClaimsTheRecordAndGivesItBack) {
  Desk desk;
  std::memset(&desk.login.reserved_8, 'r', sizeof desk.login.reserved_8);
  desk.login.reserved_28 = 4;
  config::LoginRecord expected = desk.login;
  desk.on_wait = [&](std::size_t wait) {
    EXPECT_TRUE(desk.transcript.ends_with(Strings{"Username:", "Username:Password:", prompt}[wait]));
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
  const string n31(31, 'n');
  std::istringstream cases("admin admin yes admin adminx no admin admi no admin Admin no admin - no - - yes - x no " +
                           n31 + " " + n31 + " yes " + n31 + " " + n31 + "anything yes " + n31 + " " + string(30, 'n') +
                           " no " + n31 + "x " + n31 + "y yes " + n31 + " " + string(512, 'n') + " yes");
  for (string stored, typed, matches; cases >> stored >> typed >> matches;) {
    // A line of 512 characters has no room for its line end.
    const string line = replaced(typed, "-", "") + (typed.size() == 512 ? "" : "\n");
    for (const bool name : {true, false}) {
      Desk desk;
      desk.set(name ? "admin_user_name" : "admin_password", replaced(stored, "-", ""));
      run_session(desk, name ? line + "admin\n" : "admin\n" + line);
      const string result = matches == "yes" ? main_menu + prompt : "Username or Password Error\n";
      EXPECT_EQ(desk.transcript, "Username:Password:" + result + goodbye) << stored << " " << typed;
    }
  }
}

TEST(Login, IsGuardedBeforeItAndAfterThePassword) {
  std::istringstream cases("127 300 1 1  7 300 100 1  7 300 0 0  127 300 -1 0  127 0 100 0  0 300 100 0");
  for (unsigned octet, idle, left, blocked; cases >> octet >> idle >> left >> blocked;) {
    const auto last = static_cast<std::uint8_t>(octet == 0 ? 0 : 9);
    for (const bool before : {true, false}) {  // taken before the console is started, or at the password
      Desk desk;
      const config::LoginRecord taken = {
          {{static_cast<std::uint8_t>(octet), last, last, last}}, desk.clock + left, {}, idle, 5, 6};
      desk.login = before ? taken : desk.login;
      desk.on_wait = [&](std::size_t wait) { desk.login = wait == 1 && !before ? taken : desk.login; };
      EXPECT_EQ(run_session(desk, "admin\nadmin\n"), 1);
      const string refused = "Duplex Login with " + std::to_string(octet) + ".9.9.9\n";
      EXPECT_EQ(desk.transcript == (before ? "" : "Username:Password:") + refused, blocked == 1);
      EXPECT_EQ(desk.login.holder_address.octet[0], blocked == 1 ? octet : 0);
    }
  }
}

TEST(Session, EndsBeforeAnyPromptWithoutItsSegments) {
  const std::map<string, string> cases = {{"attach 1234", "1{cfgid: Permission denied}"},
                                          {"attach 1234 memory", "1{cfgid: Invalid argument}"},
                                          {"attach 5678", "0{cfgid: Permission denied}"},
                                          {"attach 5678 memory", "0"}};
  for (const auto& [failing, end] : cases) {
    Desk desk;
    desk.failing = {failing};
    const int status = run_session(desk, "admin\nadmin\nq\n");
    EXPECT_EQ(std::to_string(status) + desk.transcript, end) << failing;
  }
}

TEST(Session, ReadsNoMoreWhenItsOutputIsLost) {
  const string port = "2\n0\n5070" + string(14, '\n'), timer = "0\n\n77" + string(13, '\n');
  Desk desk;
  desk.on_wait = [&](std::size_t wait) { desk.failing.insert(wait == 2 ? "output" : ""); };
  EXPECT_EQ(run_session(desk, "admin\nadmin\n" + port), 1);
  EXPECT_EQ(desk.waits.size(), 3U);
  EXPECT_TRUE(desk.login.holder_address.is_zero() && !desk.saved);
  // Of a pasted block the dialogue that finds it out, when it saves, is the last one.
  Desk pasted;
  use_device(pasted);
  pasted.input = {"admin\n", "admin\n", port + timer};
  pasted.on_wait = [&](std::size_t wait) { pasted.failing.insert(wait == 2 ? "output" : ""); };
  EXPECT_EQ(run_to_exit([] { shell::run_console(menus::menu_tree); }), 1);
  EXPECT_EQ(differences(Desk().settings, pasted.settings), "sip_port=5070");
}

TEST(Session, ReadsLinesWithBackspacesAndAnyLength) {
  hold(R"(== lines: 2 2 illegal
stun_enable=1 stun_server=old
> /a_%s%n/ | &ending | stun_server=a_%s%n
> /x*511/|/x*512 | &illegal&ending | stun_server=
)"
       "> /ab\bc/|/\b\bac/|/c\bac/|/abc\b\b\bac/ | &ending | stun_server=ac\n"
       "> /a\b\b/ | &ending |\n"  // nothing left: an empty answer
       "> /\xff\tb\r/ | &ending | stun_server=\\xff\\x09b\\x0d\n" +
       string("> /a\0b/ | &ending | stun_server=a\n", 33));
  Desk desk;  // 5,000 characters are nine lines of 512 and one of 392
  string refused;
  for (int i = 0; i < 10; ++i) {
    refused += unknown + prompt;
  }
  EXPECT_EQ(shown(desk, string(5000, 'x') + "\nq\n"), refused + goodbye);
}

}  // namespace
}  // namespace tests
