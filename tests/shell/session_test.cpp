#include "support/session.h"

#include <gtest/gtest.h>

#include <string>

namespace tests {
namespace {

constexpr config::Ipv4 console = {{127, 0, 0, 1}};

TEST(Session, AsksForBothAndClaimsTheRecord) {
  Desk desk;
  desk.login.reserved_8 = {1, 2, 3};
  desk.login.reserved_28 = 4;
  desk.on_wait = [&](std::size_t wait) {
    if (wait == 2) {
      EXPECT_EQ(desk.login.holder_address, console);
      EXPECT_EQ(desk.login.expiry_time, desk.clock + 300);
      EXPECT_EQ(desk.login.holder_tag, -9);
    } else if (wait < 2) {
      EXPECT_TRUE(desk.login.holder_address.is_zero());
      EXPECT_EQ(desk.transcript, wait == 0 ? "Username:" : "Username:Password:");
    }
  };
  EXPECT_EQ(run_session(desk, "admin\nadmin\nq\n"), 1);
  EXPECT_TRUE(desk.login.holder_address.is_zero());
  EXPECT_EQ(desk.login.idle_timeout, 300U);
  EXPECT_EQ(desk.login.reserved_8, (std::array<std::uint32_t, 3>{1, 2, 3}));
  EXPECT_EQ(desk.login.reserved_28, 4U);
  EXPECT_EQ(desk.attached_segments, 0);
}

TEST(Session, ComparesAtMost31CharactersOfNameAndPassword) {
  const std::string n31(31, 'n');
  struct {
    std::string stored;  // the whole field when it is 32 long
    std::string typed;
    bool matches;
  } const cases[] = {
      {"admin", "admin", true},
      {"admin", "adminx", false},
      {"admin", "admi", false},
      {"admin", "Admin", false},
      {"admin", "", false},
      {"", "", true},
      {"", "x", false},
      {n31, n31, true},
      {n31, n31 + "anything", true},
      {n31, n31.substr(1), false},
      {n31 + "x", n31 + "y", true},
      {n31, n31 + std::string(481, 'z'), true},
  };
  for (const auto& c : cases) {
    for (const char* const field : {"admin_user_name", "admin_password"}) {
      const bool name = field[6] == 'u';
      Desk desk;
      desk.set(field, c.stored);
      // A line of 512 characters has no room for its newline: what follows is the next line.
      const std::string newline = c.typed.size() == 512 ? "" : "\n";
      run_session(desk, (name ? c.typed + newline + "admin\n" : "admin\n" + c.typed + newline));
      const bool in = desk.transcript.find("[4830NT]#") != std::string::npos;
      EXPECT_EQ(in, c.matches) << field << " " << c.stored << " " << c.typed;
      if (!in) {
        EXPECT_EQ(desk.transcript, "Username:Password:Username or Password Error\nBye Bye!!\n");
      }
    }
  }
}

TEST(Session, GuardsTheLogin) {
  struct {
    config::Ipv4 holder;
    std::uint32_t idle;
    std::int32_t expires_in;
    bool blocked;
  } const cases[] = {
      {console, 300, 1, true},
      {{{192, 168, 1, 7}}, 300, 100, true},
      {{{192, 168, 1, 7}}, 300, 0, false},
      {console, 300, -1, false},
      {console, 0, 100, false},
      {{}, 300, 100, false},
  };
  for (const auto& c : cases) {
    Desk desk;
    desk.login.holder_address = c.holder;
    desk.login.idle_timeout = c.idle;
    desk.login.expiry_time = desk.clock + static_cast<std::uint32_t>(c.expires_in);
    EXPECT_EQ(run_session(desk, "admin\nadmin\n"), 1);
    const std::string refused =
        c.holder == console ? "Duplex Login with 127.0.0.1\n" : "Duplex Login with 192.168.1.7\n";
    EXPECT_EQ(desk.transcript == refused, c.blocked) << desk.transcript;
    EXPECT_EQ(desk.login.holder_address, c.blocked ? c.holder : config::Ipv4{});
  }
}

TEST(Session, GuardsTheLoginAgainAfterThePassword) {
  Desk desk;
  desk.on_wait = [&](std::size_t wait) {
    if (wait == 1) {
      desk.login.holder_address = {{10, 0, 0, 200}};
      desk.login.expiry_time = desk.clock + 10;
    }
  };
  EXPECT_EQ(run_session(desk, "admin\nadmin\nq\n"), 1);
  EXPECT_EQ(desk.transcript, "Username:Password:Duplex Login with 10.0.0.200\n");
  EXPECT_EQ(desk.login.holder_address, (config::Ipv4{{10, 0, 0, 200}}));
}

TEST(Session, EndsBeforeAnyPromptWithoutItsSegments) {
  struct {
    const char* failing;
    int status;
    const char* shown;
  } const cases[] = {
      {"attach 1234", 1, "{cfgid: Permission denied}"},
      {"attach 1234 memory", 1, "{cfgid: Invalid argument}"},
      {"attach 5678", 0, "{cfgid: Permission denied}"},
      {"attach 5678 memory", 0, ""},
  };
  for (const auto& c : cases) {
    Desk desk;
    desk.failing = {c.failing};
    EXPECT_EQ(run_session(desk, "admin\nadmin\nq\n"), c.status) << c.failing;
    EXPECT_EQ(desk.transcript, c.shown) << c.failing;
  }
}

TEST(Session, EndOfInputEndsTheConsoleAnywhere) {
  const std::string whole = "admin\nadmin\n2\n0\n5070\n\n";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    Desk desk;
    EXPECT_EQ(run_session(desk, whole.substr(0, length)), 1);
    EXPECT_TRUE(desk.transcript.ends_with("Bye Bye!!\n")) << length;
    EXPECT_TRUE(desk.login.holder_address.is_zero());
    EXPECT_EQ(desk.attached_segments, 0);
    EXPECT_EQ(desk.settings.sip.sip_port, 0);
  }
  // A partial line is dropped: "q" alone does not quit, it is never obeyed.
  Desk partial;
  partial.set("sip_port", "1111");
  EXPECT_EQ(visit(partial, 2, 0, enters(13) + "name").changed, "");
}

TEST(Session, LosingTheOutputEndsTheConsole) {
  Desk desk;
  desk.on_wait = [&](std::size_t wait) {
    if (wait == 2) {
      desk.failing = {"output"};
    }
  };
  EXPECT_EQ(run_session(desk, "admin\nadmin\n2\n0\n5070\n" + enters(13)), 1);
  EXPECT_EQ(desk.waits.size(), 3U) << "it read on after the answer could not be shown";
  EXPECT_TRUE(desk.login.holder_address.is_zero());
  EXPECT_FALSE(desk.saved);
}

TEST(Session, ReadsLinesWithBackspacesAndAnyLength) {
  struct {
    std::string typed;
    std::string stored;  // as the SIP host name, "(" where message 2 is shown
  } const cases[] = {
      {"ab\bc\n", "ac"},
      {"\b\bab\n", "ab"},
      {"a\b\b\n", "old"},  // nothing left: an empty answer
      {"abc\b\b\bxy\n", "xy"},
      {std::string("a\0b\n", 4), "a"},
      {" a\tb\r\n", " a\\x09b\\x0d"},
      {"\xff%s%n\n", "\\xff%s%n"},
      {std::string(511, 'x') + "\n", ""},
      {std::string(512, 'x'), ""},
  };
  for (const auto& c : cases) {
    Desk desk;
    desk.set("sip_host_name", "old");
    const Visit seen = visit(desk, 2, 0, enters(13) + c.typed);
    EXPECT_EQ(seen.changed, c.stored == "old" ? "" : "sip_host_name=" + c.stored) << c.typed;
    EXPECT_TRUE(seen.returned);
  }
  // 5,000 characters are nine lines of 512 and one of 392.
  Desk desk;
  run_session(desk, "admin\nadmin\n" + std::string(5000, 'x') + "\nq\n");
  std::size_t refused = 0;
  for (std::size_t at = 0; (at = desk.transcript.find("not define!", at)) != std::string::npos; ++at) {
    ++refused;
  }
  EXPECT_EQ(refused, 10U);
}

}  // namespace
}  // namespace tests
