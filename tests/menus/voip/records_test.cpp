// The phone book and the call screen: records behind an action menu.
#include <gtest/gtest.h>

#include <cstring>

#include "support/question_sheet.h"

namespace tests {
namespace {

// What a visit shows, in short forms, and what it changed.
std::string told(Desk& desk, int item, const std::string& answers) {
  const std::string actions =
      " Action?\n0:add a phone number\n1:delete a phone number\n2:modify a phone number\n3:List phone "
      "number\n";
  const std::pair<std::string, const char*> short_forms[] = {
      {(item == 7 ? "Phone Book" : "Call Screen") + actions + "Action :", "<menu>"},
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
  const Visit seen = visit(desk, 3, item, answers);
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
  const std::string shown = told(desk, 7, "0\n3\n2\n49\n5\n\n\nq\n");
  EXPECT_TRUE(
      shown.starts_with("<menu>\nPhone book is full\n<menu>\nPhone book\n<rule>No.0 | DialKey=120 | Phone "
                        "number=" +
                        std::string(128, 'x') + "\nnote:" + std::string(259, 'x') + "\n<rule>No.1 "));
  EXPECT_TRUE(shown.ends_with("<saved><menu>q:Exit\nphone_book[49].dial_key=5")) << shown;
}

TEST(CallScreen, HoldsTenNumbersToAList) {
  Desk desk;
  for (int i = 20; i < 29; ++i) {
    desk.set("call_screen[" + std::to_string(i) + "].screen_list", "2");
  }
  desk.set("call_screen[3].screen_number", std::string(130, '7')).set("call_screen[3].screen_list", "200");
  EXPECT_EQ(
      told(desk, 8,
           "\n\n4\n2\n\n10\n5\n\n1-2\n1234567890123456\n123456789012345\n0\n2\n0\n1\n4\n0\n3\n1\nq\n"
           "3\n2\n3\n\n2\n0\n3\n\n2\n0\n9\n9\n1\n2\n\n10\n8\n\n2\n1\n6\n3\nq\n3\n0\nq\n"),
      "Call_Screen 1\n<menu>\n<list><no><list><no><list>\n<type><no><type><no><type>\n<number><no><number>"
      "<no><number><no><number>\n\n<saved><menu>\n<list>\n<type>\n<number>\n\n<menu><no><menu>\n<list>\n<"
      "type>\n"
      "<number>q:Exit\n<menu>\n<list>\n\nPhone2 Incoming List\n<rule>No.0 phone_number=\n"
      "No.1 phone_number=\nNo.2 phone_number=\nNo.3 phone_number=\nNo.4 phone_number=\nNo.5 phone_number=\n"
      "No.6 phone_number=\nNo.7 phone_number=\nNo.8 phone_number=\nNo.9 "
      "phone_number=123456789012345\n<rule>\n"
      "<menu>\n<list>\n\nPhone1 Incoming List\n<rule>No.3 phone_number=" +
          std::string(130, '7') +
          "\n<rule>\n"
          "<menu>\n<list>\n<entry>\n<number>\n<saved><menu>\n<list>\n<entry>\n<number>\n<saved>"
          "<menu>\n<list>\n<entry><no><entry><no><entry><saved><menu>\n<list>\n<type>\n<number>\n\n<saved>"
          "<menu>\n<list>q:Exit\n<menu>\n<list>\n\nPhone1 Incoming List\n<rule>No.3 "
          "phone_number=777777777777777\n"
          "<rule>\n<menu>q:Exit\ncall_screen[29].screen_list=2 call_screen[28].screen_type=1 "
          "call_screen[29].screen_type=5 call_screen[3].screen_number=777777777777777 "
          "call_screen[9].screen_number=9 call_screen[28].screen_number=6 "
          "call_screen[29].screen_number=123456789012345");
}

}  // namespace
}  // namespace tests
