#include <gtest/gtest.h>

#include <string>

#include "support/session.h"

namespace tests {
namespace {

const std::string rule =
    "------------------------------------------------------------------------------\nq:Exit\n\n";
const std::string prompt = "[4830NT]#";
const std::string main_menu =
    "0:Basic Network Setting\n1:Advanced Network Setting\n2:SIP setting\n3:VoIP "
    "Setting\n4:Tools\n5:Status\n" +
    rule;
const std::string sip_menu = "0:Basic Setting\n1:Account Setting\n2:NAT Traversal\n" + rule;
const std::string voip_menu =
    "0:Voice Setting\n1:Call Service\n2:Phone Setting\n3:E.164 Setting\n4:FAX Setting\n"
    "5:General Dialing Setting\n6:QOS/TOS Setting\n7:Phone Book Setting\n8:Call Screen\n" +
    rule;
const std::string undefined = "This command is not define!\n";
const std::string missing = "This command is not implement!\n";
const std::string login = "Username:Password:" + main_menu;
const std::string goodbye = "Bye Bye!!\n";

std::string transcript(Device& desk, const std::string& lines) {
  EXPECT_EQ(run_session(desk, "admin\nadmin\n" + lines), 1);
  return desk.transcript;
}

TEST(Menu, ShowsTheWholeTree) {
  Desk desk;
  EXPECT_EQ(
      transcript(desk, "0\nq\n1\nq\n2\nq\n3\nq\n4\nq\n5\nq\nq\n"),
      login + prompt + "0:Wan Setting\n1:Lan Setting\n2:DHCP setting\n" + rule + prompt + main_menu + prompt +
          "0:NAT Setting\n1:Virtual Server Setting\n2:Application Setting\n3:UPNP Setting\n"
          "4:Static Route Setting\n5:MAC Filter\n6:IP Filter\n7:URL Filter\n8:Domain Filter\n"
          "9:Firewall Setting\n10:Rule Summary\n" +
          rule + prompt + main_menu + prompt + sip_menu + prompt + main_menu + prompt + voip_menu + prompt +
          main_menu + prompt + "2:Day/Time Setting\n3:DDNS Setting\n4:System Setting\n" + rule + prompt +
          main_menu + prompt + "0:Device Infomation\n1:Log\n2:Line State\n3:Call Detailed Record\n" + rule +
          prompt + main_menu + prompt + goodbye);
}

TEST(Menu, ObeysEveryLineAtTheMainMenu) {
  const std::string quits = "quits";
  struct {
    std::string line;
    std::string shown;
  } const cases[] = {
      {"", ""},
      {"2", sip_menu},
      {"02", sip_menu},
      {"6", ""},
      {"9", ""},
      {"89", ""},
      {"92", ""},
      {"93", ""},
      {"97", ""},
      {"98", missing},
      {"99", undefined},
      {"91", main_menu},
      {"help", main_menu},
      {"HELP", undefined},
      {"helq", undefined},
      {"Q", undefined},
      {"x", undefined},
      {"2 ", undefined},
      {" 2", undefined},
      {"-1", undefined},
      {"1x", undefined},
      {"100", undefined},
      {"002", undefined},
      {"12345", undefined},
      {"help ", undefined},
      {"q", quits},
      {"90", quits},
      {"qq", undefined},
      {std::string("2\0", 2), undefined},
      {std::string("hel\0", 4), undefined},
      {std::string("\0", 1), undefined},
  };
  for (const auto& c : cases) {
    Desk desk;
    const std::string after = c.shown == quits ? goodbye : c.shown + prompt + goodbye;
    EXPECT_EQ(transcript(desk, c.line + "\n"), login + prompt + after) << c.line;
  }
}

TEST(Menu, ObeysEveryLineInASubmenu) {
  struct {
    std::string line;
    std::string shown;
  } const cases[] = {
      {"", ""},          {"9", voip_menu}, {"09", voip_menu},  {"10", voip_menu},   {"11", ""},
      {"89", ""},        {"92", ""},       {"97", ""},         {"98", missing},     {"99", undefined},
      {"0", voip_menu},  {"5", voip_menu}, {"91", voip_menu},  {"help", voip_menu}, {"q", main_menu},
      {"90", main_menu}, {"Q", undefined}, {"100", undefined}, {"010", undefined},  {"a1", undefined},
  };
  for (const auto& c : cases) {
    Desk desk;
    EXPECT_EQ(transcript(desk, "3\n" + c.line + "\n"),
              login + prompt + voip_menu + prompt + c.shown + prompt + goodbye)
        << c.line;
  }
  Desk desk;
  EXPECT_EQ(transcript(desk, "4\n0\n"),
            login + prompt + "2:Day/Time Setting\n3:DDNS Setting\n4:System Setting\n" + rule + prompt +
                "2:Day/Time Setting\n3:DDNS Setting\n4:System Setting\n" + rule + prompt + goodbye);
}

TEST(Menu, EveryLineRenewsTheLoginAndALateOneEndsIt) {
  struct {
    std::uint32_t idle;
    std::uint32_t waited;
    bool goes_on;
  } const cases[] = {{300, 299, true}, {300, 300, false}, {300, 5000, false}, {0, 0, false}};
  for (const auto& c : cases) {
    Desk desk;
    desk.login.idle_timeout = c.idle;
    desk.on_wait = [&](std::size_t wait) { desk.clock += wait == 2 ? c.waited : 0; };
    const std::string ended = "\nConnection Time Out!! Please Re-Login!!\n" + goodbye;
    EXPECT_EQ(transcript(desk, "\nq\n"), login + prompt + (c.goes_on ? prompt + goodbye : ended)) << c.waited;
    EXPECT_EQ(desk.login.expiry_time, c.goes_on ? desk.clock + 300 : 1'000'000 + c.idle);
  }
  // In a dialogue nobody looks at the clock.
  Desk desk;
  desk.on_wait = [&](std::size_t wait) { desk.clock += wait == 5 ? 5000 : 0; };
  EXPECT_NE(visit(desk, 2, 0, enters(14)).shown.find("Setting Save!!"), std::string::npos);
}

TEST(Menu, ALoginTakenOverEndsAtTheNextLine) {
  Desk desk;
  desk.on_wait = [&](std::size_t wait) {
    if (wait == 3) {
      desk.login.holder_address = {{192, 168, 1, 77}};
    }
  };
  EXPECT_EQ(transcript(desk, "2\nnonsense\n"),
            login + prompt + sip_menu + prompt + "\nConnection Time Out!! Please Re-Login!!\n" + goodbye);
}

}  // namespace
}  // namespace tests
