#include "shell/output.h"
#include "shell/session.h"
#include "support/dialogue.h"

namespace tests::shell_test {

const string goodbye = "Bye Bye!!\n", unknown = "This command is not define!\n";

const string leave = string(78, '-') + "\nq:Exit\n\n";
const string main_menu =
    "0:Basic Network Setting\n1:Advanced Network Setting\n2:SIP setting\n3:VoIP Setting\n4:Tools\n5:Status\n" + leave;
const string tools_menu = "2:Day/Time Setting\n3:DDNS Setting\n4:System Setting\n" + leave;

// What is shown behind the login until the connection is closed, or the console ends.
string shown(FactoryDevice& device, const string& typed) {
  EXPECT_EQ(run_session(device, "admin\nadmin\n" + typed), 1);
  const string login = "Username:Password:" + main_menu + menu_prompt;
  return device.transcript.starts_with(login) ? device.transcript.substr(login.size()) : "not in: " + device.transcript;
}

// Each of the lines, typed at the main menu or behind `way_in`, which shows `screen`.
void each(const Strings& lines, const string& answer, const string& way_in = "", const string& screen = "") {
  for (const string& line : lines) {
    FactoryDevice device;
    EXPECT_EQ(shown(device, way_in + line + "\n"), screen + answer + menu_prompt + goodbye) << way_in << line;
  }
}

TEST(Menus, ObeyEveryLine) {
  const auto at_either_level = [](const string& menu, const string& way_in, const string& screen) {
    each({"99", "helq", "help ", "help\0"s, "Q", "qq", "2 ", " 2", "-1", "002", "2\0"s}, unknown, way_in, screen);
    each({"98"}, "This command is not implement!\n", way_in, screen);
    each({"", "11", "89", "92", "97"}, "", way_in, screen);
    each({"help", "91"}, menu, way_in, screen);
  };
  at_either_level(main_menu, "", "");
  each({"6", "10"}, "");
  const string screen = tools_menu + menu_prompt;
  at_either_level(tools_menu, "4\n", screen);
  each({"q", "90"}, main_menu, "4\n", screen);
  each({"0", "01", "5", "10"}, tools_menu, "4\n", screen);  // nothing is behind these numbers
}

TEST(Menus, EveryLineRenewsTheLoginUnlessItIsLateOrTaken) {
  const string ended = "\nConnection Time Out!! Please Re-Login!!\n" + goodbye;
  for (const std::uint32_t waited : {299U, 300U}) {
    FactoryDevice device;
    device.on_wait = [&](std::size_t wait) { device.clock += wait == 2 ? waited : 0; };
    EXPECT_EQ(shown(device, "\nq\n"), waited == 299 ? menu_prompt + goodbye : ended);
    EXPECT_EQ(device.login.expiry_time, waited == 299 ? device.clock + 300 : 1'000'300);
    EXPECT_EQ(device.login.holder_tag, -9);
  }
  FactoryDevice taken;
  taken.on_wait = [&](std::size_t wait) {
    config::Ipv4& holder = taken.login.holder_address;
    holder = wait == 2 ? config::Ipv4{{127, 0, 0, 7}} : holder;
  };
  EXPECT_EQ(shown(taken, "nonsense\n"), ended);
}

TEST(Login, ComparesAtMost31CharactersOfNameAndPassword) {
  const string n31(31, 'n');
  const Answers stored_and_typed = {{"admin", "adminx"}, {"Admin", "admin"},     {"", ""},
                                    {"q", "q"},          {n31, string(30, 'n')}, {n31 + "x", n31 + "y"}};
  for (const auto& [stored, typed] : stored_and_typed) {
    const bool matches = stored.substr(0, 31) == typed.substr(0, 31);
    for (const bool name : {true, false}) {
      FactoryDevice device;
      device.set(name ? "admin_user_name" : "admin_password", stored);
      run_session(device, name ? typed + "\nadmin\n" : "admin\n" + typed + "\n");
      const string result = matches ? main_menu + menu_prompt : "Username or Password Error\n";
      EXPECT_EQ(device.transcript, "Username:Password:" + result + goodbye) << stored << " " << typed;
    }
  }
}

TEST(Login, IsGuardedBeforeItAndAfterThePassword) {
  config::LoginRecord taken = {{{7, 9, 8, 9}}, 1'000'001, {}, 300, 5, 6};
  config::LoginRecord expired = taken, endless = taken, given_back = taken;
  expired.expiry_time = 1'000'000;
  endless.idle_timeout = 0;
  given_back.holder_address = {};
  for (const config::LoginRecord* const login : {&taken, &expired, &endless, &given_back}) {
    for (const bool before : {true, false}) {  // it is so before the console is started, or from the password on
      FactoryDevice device;
      device.login = before ? *login : device.login;
      device.on_wait = [&](std::size_t wait) { device.login = wait == 1 && !before ? *login : device.login; };
      run_session(device, "admin\nadmin\n");
      const string refused = (before ? "" : "Username:Password:") + "Duplex Login with 7.9.8.9\n"s;
      EXPECT_EQ(device.transcript == refused, login == &taken) << device.transcript;
      EXPECT_EQ(device.login.holder_address.is_zero(), login != &taken);
    }
  }
}

TEST(Output, IsWrittenBeforeSomethingDoesNotFit) {
  const auto goes_behind = [](const string& all, const auto& one, const string& shown) {
    FactoryDevice device;
    use_device(device);
    shell::put(all);
    shell::put(one);
    EXPECT_TRUE(device.transcript.starts_with(all)) << shown;
    shell::flush_output();
    EXPECT_TRUE(device.transcript == all + shown) << shown;
  };
  const string full(32768, 'x');
  goes_behind(full, 'c', "c");
  goes_behind(full.substr(2), "text", "text");
  goes_behind(full.substr(15), config::Ipv4{{255, 255, 255, 255}}, "255.255.255.255");
  goes_behind(full.substr(10), shell::Number(INT32_MIN), "-2147483648");
  goes_behind(full.substr(17), config::Mac{}, "00:00:00:00:00:00");
  goes_behind(full, shell::Cell{"cell", 5}, "cell ");
}

TEST(Session, EndsBeforeAnyPromptWithoutItsSegments) {
  for (const auto& [call, end] : Answers{{"attach 1234", "1{cfgid: Permission denied}"},
                                         {"attach 1234 memory", "1{cfgid: Invalid argument}"},
                                         {"attach 5678", "0{cfgid: Permission denied}"},
                                         {"attach 5678 memory", "0"}}) {
    FactoryDevice device;
    device.failing = {call};
    EXPECT_EQ(std::to_string(run_session(device, "admin\nadmin\nq\n")) + device.transcript, end) << call;
  }
}

TEST(Session, ReadsNoMoreWhenItsOutputIsLost) {
  const string port = "2\n0\n5070" + string(14, '\n'), upnp = "q\n2\n2\n0\n1\n";
  FactoryDevice typed, pasted;
  const auto loses_output = [](std::size_t wait) { device().failing.insert(wait == 2 ? "output" : ""); };
  typed.on_wait = pasted.on_wait = loses_output;
  run_session(typed, "admin\nadmin\n" + port + upnp);
  EXPECT_TRUE(typed.waits.size() == 3 && typed.login.holder_address.is_zero() && !typed.saved);
  // Of a pasted block, which is one read, the dialogue that finds it out, when it saves, is the last one.
  pasted.input = {"admin\n", "admin\n", port + upnp};
  run_session(pasted, "");
  EXPECT_EQ(pasted.waits.size(), 3U);
  EXPECT_EQ(differences(FactoryDevice().settings, pasted.settings), "sip_port=5070");
}

TEST(Session, ReadsLinesWithBackspacesAndAnyLength) {
  const auto stores = [](const string& typed, const string& server) {
    return Visit({{"STUN Server", typed}}, save_and_tell_daemon, server);
  };
  hold({"SIP setting", "NAT Traversal"}, FactoryDevice().set("stun_enable", "1").set("stun_server", "old"),
       {stores("a %s%n", "stun_server=a\\x20%s%n"), stores("\b\bac", "stun_server=ac"), stores("a\b\b", ""),
        stores("abc\b\bx", "stun_server=ax"), stores("\xff\tb\r", "stun_server=\\xff\\x09b\\x0d"),
        stores("a\0b"s, "stun_server=a")});
  FactoryDevice device;  // 1,500 characters are two lines of 512 and one of 476
  const string refused = unknown + menu_prompt;
  EXPECT_EQ(shown(device, string(100, 'x') + "\b" + string(1401, 'x') + "\nq\n"),
            refused + refused + refused + goodbye);
}

}  // namespace tests::shell_test
