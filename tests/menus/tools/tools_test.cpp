#include <gtest/gtest.h>

#include "support/session.h"

namespace tests {
namespace {

const std::string save = "{/opt/httpd/sbin/web_server dumpshare}";

TEST(DayTime, PassesOverBadAnswersAndSetsTheClock) {
  Desk desk;
  desk.local_time = {1970, 1, 1, 0, 0, 9};
  expect_visits(desk, 4, 2, save + "{/etc/init.d/ntp.sh config > /dev/null 2>&1}", R"(
=time_zone=12
>0x/24//13/abc//31/24/23/60/0/59/
22-(GMT+10:00) Melbourne, Sydney, Guam  23-(GMT+11:00) Magadan, Soloman Is.    \n
24-(GMT+12:00) Auckland, Wellington     \nSelect Time Zone (0-24): Year  (1970)  <2006-2020>:
Month (1)  <1-12>:Day   (1)  <1-31>:Hour  (0)  <0-23>:Minute(0)  <0-59>:Second(9)  <0-59>:
${/bin/date 013123001970.59}Setting Save!!\n\n
!time_zone=24

=date_time_set_by=1 time_zone=1
>0/0/2005/2021/2020/2/1/9/5/7/
:${/bin/date 020109052020.07}Setting Save!!\n\n
!date_time_set_by=0 time_zone=0

=ntp_server=old\x0aname
>10/25/pool of time/|1/-1/pool of time/|1x/a/pool of time/
Select Time Zone (0-24): NTP Server Address<old>:$Setting Save!!\n\n
!date_time_set_by=1 ntp_server=pool of time

=date_time_set_by=1
>//n*127/
:$Setting Save!!\n\n
!ntp_server=n*127

>1/20/n*128/
NTP Server Address<>:Your input value is illegal!!\n\n
!date_time_set_by=1 time_zone=20

>2/|x0/|21/
Date Time Set By <0>(0: Manual, 1: NTP Time Server):Your select is wrong!!\n\n

=date_time_set_by=7
>/
Date Time Set By <7>(0: Manual, 1: NTP Time Server):{/opt/httpd/sbin/web_server dumpshare}Setting Save!!\n\n
)");
  desk.set("time_zone", "200");
  const std::string shown = visit(desk, 4, 2, enters(8)).shown;
  EXPECT_NE(shown.find(":Time Zone : 200-\n0-(GMT-12:00) Enewetak, Kwajalein       1-(GMT-11:00) Midway"),
            shown.npos);
}

TEST(Ddns, AsksByTheSwitchAndRefusesWithoutAWrite) {
  expect_visits(Desk(), 4, 3, save + "{/etc/init.d/ddns.sh stop > /dev/null 2>&1}", R"(
=ddns_enable=1 ddns_server_type=2 ddns_user_name=me ddns_password=pw ddns_host=h.example

>1/3/u*31/ a b /h*127/
DDNS Enable?<1>(0:Disable,1:Enable):DDNS Server Type?<2>(0:dyndns, 1:no-ip, 2:easydns, 3:quarlddns):
User Name?<me>:Password?<pw>:Host?<h.example>:${/etc/init.d/ddns.sh start > /dev/null 2>&1}Setting Save!!\n\n
!ddns_server_type=3 ddns_user_name=u*31 ddns_password= a b  ddns_host=h*127

>0/
DDNS Enable?<1>(0:Disable,1:Enable):$Setting Save!!\n\n
!ddns_enable=0

=ddns_enable=200 ddns_password=p\x0aw
>/////
Password?<p>:Host?<h.example>:$Setting Save!!\n\n
!ddns_password=p

>2/|10/|/4/|/01/
:Your select is wrong!!\n\n

>/0/u*32/|///p*32/|//new//h*128/
:Your input value is illegal!!\n\n
)");
}

TEST(SystemTools, TheNestedMenuAndPing) {
  expect_visits(Desk(), 4, 4, "[4830NT]#", R"(
>2/abc/4294967296/00///|2/abc/4294967296/00//q/|2/abc/4294967296/00//quit/
0:Ping command\n1:Factory Default\n$$$$PING Destination : $

>1/Yes//|01/YES//|1/y//|1///
$Factory Default Setting:\nSet defice configuration to Factory default setting? <yes>/<NO>$
)");
  const std::pair<int, std::string> results[] = {{0, "PING Success."},
                                                 {1, "Request timed out."},
                                                 {130, "Request timed out."},
                                                 {255, "Error: ping broken!"}};
  for (const auto& [status, result] : results) {
    Desk desk;
    desk.program_status["/bin/ping"] = status;
    expect_visits(desk, 4, 4, result, R"(
>0/q;`reboot` -x"//
]#PING Destination : {/bin/ping [ping] [-c] [1] [q;`reboot` -x"]}$\n[4830NT]#
)");
  }
}

TEST(SystemTools, FactoryResetWritesThePartitionOrGoesBackToTheMenu) {
  const std::string defaults = "/opt/webctrl/meta/metafile.dat.default", partition = "/dev/mtdblock/5";
  const std::string x(504, 'x'), menu = "\n[4830NT]#";
  const std::string done = "System reboot ...\n{sync}{sleep 1}{setsid /sbin/bbreboot [bbreboot]}Bye Bye!!\n";
  const struct {
    std::string content, failing, ending, written;
  } cases[] = {
      {"a=1\nb#ver.2\nlast", "", done, "a=1\nlast"},
      // In pieces of 510 characters, the marker is behind the first one, across both, or within it.
      {x + "123456#ver.\nnext\n", "", done, x + "123456next\n"},
      {x + "1234#ver.\nnext\n", "", done, x + "1234#ver.\nnext\n"},
      {x + "1#ver.67\nnext\n", "", done, "67\nnext\n"},
      {"", "", defaults + ": No data available" + menu, "old"},
      {"#ver.2\n", "", defaults + ": No data available" + menu, "old"},
      {"a\n", "open " + defaults, defaults + ": Permission denied" + menu, "old"},
      {"a\n", "read " + defaults, defaults + ": Input/output error" + menu, "old"},
      {"a\n", "open " + partition, partition + ": Permission denied" + menu, "old"},
      {"a\n", "write " + partition, partition + ": No space left on device" + menu, ""},
      {"a\n", "close " + partition, partition + ": Input/output error" + menu, "a\n"},
  };
  for (const auto& reset : cases) {
    Desk desk;
    desk.files = {{defaults, reset.content}, {partition, "old"}};
    desk.failing = {reset.failing};
    const Visit seen = visit(desk, 4, 4, "1\nyesterday\n\n");
    EXPECT_TRUE(seen.shown.ends_with("<yes>/<NO>" + reset.ending)) << seen.shown;
    EXPECT_EQ(desk.files[partition], reset.written);
    EXPECT_TRUE(seen.changed.empty() && !desk.saved);
  }
}

}  // namespace
}  // namespace tests
