#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/session.h"

namespace tests {
namespace {

const std::string rule = "-----------------------------------------------------------------\n";
const std::string ended = rule + "haven't other log message\n\n\n";

// "from\n" down or up to "to\n".
std::string lines(int from, int to) {
  return std::to_string(from) + "\n" + (from == to ? "" : lines(from < to ? from + 1 : from - 1, to));
}

// A visit with that snapshot under that name, or one that is made there, or a call that fails.
std::string shown(const std::string& name, const std::string& log, const std::string& answers = "",
                  const std::string& made_as = "", const std::string& failing = "") {
  Desk desk;
  desk.files = {{"/var/tmp/messages", "the log\n"}, {name, log}};
  desk.failing = {failing};
  desk.on_command = [&](const std::string& /*command*/) { desk.files[made_as] = log; };
  const Visit seen = visit(desk, 5, 1, answers);
  EXPECT_TRUE(seen.returned && seen.changed.empty());
  return seen.shown;
}

TEST(LogViewer, ShowsTheNewestFirstInPages) {
  const std::string asked = rule + "q:Exit , other:Continue:" + rule;
  const std::string odd_line("a\0b %s%n\n", 9);
  const std::string full_line(510, 'x');
  const std::array<std::string, 3> cases[] = {
      {"debug\na debug b\nnodebugging\n", "", ended},
      {"x\nnodebugging\ny\ndebu g\n", "", "debu g\ny\nx\n" + ended},
      {"debug\n" + lines(1, 20) + "debug\n", "", lines(20, 1) + ended},
      {lines(1, 41), "qq\nQ\n", lines(41, 22) + asked + lines(21, 2) + asked + "1\n" + ended},
      {lines(1, 45), "\nq\n", lines(45, 26) + asked + lines(25, 6) + asked + "q:Exit\n"},
      {odd_line + "\n\xff no end", "", "\xff no end\n" + odd_line + ended},
      {full_line.substr(3) + "debug\n", "", "ug\n" + full_line.substr(3) + "deb" + ended},
  };
  for (const auto& [log, answers, entries] : cases) {
    EXPECT_EQ(shown("/var/tmp/messages.tmp", log, answers), rule + entries);
  }
}

TEST(LogViewer, FindsItsSnapshotUnderEitherNameOrMakesIt) {
  const std::string made =
      "{cat /var/tmp/messages | awk {'print $1,$2,$3,$5,$7,$8,$9,$10,$11,$12,$13,$14'} > /tmp/messages.tmp}";
  for (const std::string name : {"/var/tmp/messages.tmp", "/tmp/messages.tmp"}) {
    EXPECT_EQ(shown(name, "here\n"), rule + "here\n" + ended);
    EXPECT_EQ(shown("", "here\n", "", name), made + rule + "here\n" + ended);
    EXPECT_EQ(shown("", "", "", name, "open /var/tmp/messages"), "can't read log file\n");
  }
  EXPECT_EQ(shown("", "", ""), made + "can't read log file\n");
}

}  // namespace
}  // namespace tests
