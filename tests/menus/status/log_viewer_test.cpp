#include <gtest/gtest.h>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

// "from\n" down or up to "to\n".
string lines(int from, int to, const string& end = "\n") {
  return std::to_string(from) + end + (from == to ? "" : lines(from < to ? from + 1 : from - 1, to, end));
}

// Visits to a device with that snapshot under that name, or one that is made there, or a call that fails.
void hold_log(const string& visits, const string& log, const string& name = "/var/tmp/messages.tmp",
              const string& made_as = "", const string& failing = "") {
  Desk desk;
  desk.files = {{"/var/tmp/messages", "the log\n"}, {name, log}};
  desk.failing = {failing};
  desk.on_command = [&](const string& /*command*/) { device().files[made_as] = log; };
  hold("== log: 5 1 kind\n&r=" + string(65, '-') +
           "\\n\n&end=&rhaven't other log message\\n\\n\\n\n&no=can't read log file\\n\n" +
           "&asked=&rq:Exit , other:Continue:&r\n" + visits,
       desk);
}

TEST(LogViewer, ShowsTheNewestFirstInPages) {
  const string odd_line("a\0b %s%n\n", 9), full_line(507, 'x');
  hold_log("> | &r&end |", "debug\na debug b\nnodebugging\n");
  hold_log("> | &rdebu g\\ny\\nx\\n&end |", "x\nnodebugging\ny\ndebu g\n");
  hold_log("> | &r" + lines(20, 1, "\\n") + "&end |", "debug\n" + lines(1, 20) + "debug\n");
  hold_log("> qq/Q/ | &r" + lines(41, 22, "\\n") + "&asked" + lines(21, 2, "\\n") + "&asked1\\n&end |",
           lines(1, 41));
  hold_log("> /q/ | &r" + lines(45, 26, "\\n") + "&asked" + lines(25, 6, "\\n") + "&askedq:Exit\\n |",
           lines(1, 45));
  hold_log("> | &r\xff no end" + odd_line + "&end |", odd_line + "\n\xff no end");
  hold_log("> | &rug\\n" + full_line + "deb&end |", full_line + "debug\n");  // read in pieces of 510
}

TEST(LogViewer, FindsItsSnapshotUnderEitherNameOrMakesIt) {
  const string made =
      "{cat /var/tmp/messages &bar awk {'print $1,$2,$3,$5,$7,$8,$9,$10,$11,$12,$13,$14'} > "
      "/tmp/messages.tmp}";
  for (const string name : {"/var/tmp/messages.tmp", "/tmp/messages.tmp"}) {
    hold_log("> | &rhere\\n&end |", "here\n", name);
    hold_log("> | " + made + "&rhere\\n&end |", "here\n", "", name);
    hold_log("> | &no |", "", "", name, "open /var/tmp/messages");
  }
  hold_log("> | " + made + "&no |", "", "", "");
}

}  // namespace
}  // namespace tests
