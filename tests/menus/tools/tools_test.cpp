#include <gtest/gtest.h>

#include "support/sheet.h"

namespace tests {
namespace {

using std::string;

// Mode and zone are stored at once, so that these are no questions of a sheet.
TEST(Tools, DayAndTime) {
  Desk desk;
  desk.local_time = {1970, 1, 1, 0, 0, 9};
  hold(R"(== day and time: 4 2 kind
&ending=&dump{/etc/init.d/ntp.sh config > /dev/null 2>&1}
time_zone=12
> 0x/24//13/abc//31/24/23/60/0/59/ | 22-(GMT+10:00) Melbourne, Sydney, Guam  23-(GMT+11:00) Magadan, Soloman Is.    \n\
24-(GMT+12:00) Auckland, Wellington     \nSelect Time Zone (0-24): Year  (1970)  <2006-2020>:Month (1)  <1-12>:\
Day   (1)  <1-31>:Hour  (0)  <0-23>:Minute(0)  <0-59>:Second(9)  <0-59>:&ending{/bin/date 013123001970.59}&saved | time_zone=24
= date_time_set_by=1 time_zone=1
> 0/0/2005/2021/2020/0/2/0/32/1/24/9/60/5/-1/7/ | :&ending{/bin/date 020109052020.07}&saved | date_time_set_by=0 time_zone=0
> 0/25/2006/12/31/23/59/60/0/ | :&ending{/bin/date 123123592006.00}&saved | date_time_set_by=0
= date_time_set_by=1 ntp_server=old\x0aname > /24/n*127/ | &ending&saved | time_zone=24 ntp_server=n*127
> /20/n*128/ | NTP Server Address<old>:&illegal | time_zone=20 ntp_server=old\x00name
> // | Select Time Zone (0-24): NTP Server Address<old>:Bye Bye!!\n | ntp_server=old\x00name
= ntp_server=old
> 10/25/pool_of_time/|1/-1/pool_of_time/|1x/a/pool_of_time/|1//pool_of_time/ | Address<old>:&ending&saved \
| date_time_set_by=1 ntp_server=pool_of_time
> 1/// | NTP Server Address<old>:&ending&saved | date_time_set_by=1
> 2/|x0/|21/|-1/ | Date Time Set By <0>(0: Manual, 1: NTP Time Server):&select |
= date_time_set_by=7 > / | Date Time Set By <7>(0: Manual, 1: NTP Time Server):&dump&saved |
= time_zone=200 date_time_set_by=1 > / | 1: NTP Time Server):Time Zone : 200-\n\
0-(GMT-12:00) Enewetak, Kwajalein       1-(GMT-11:00) Midway Island, Samoa    \n\
2-(GMT-10:00) Hawaii                    3-(GMT-09:00) Alaska                  \n\
4-(GMT-08:00) Pacific Time              5-(GMT-07:00) Arizona, Mountain Time  \n\
6-(GMT-06:00) Central Time,Mexico City  7-(GMT-05:00) Eastern Time, Indiana   \n\
8-(GMT-04:00) Atlantic Time             9-(GMT-03:00) Brasilia, Buenos Aires  \n\
10-(GMT-02:00) Mid-Atlantic             11-(GMT-01:00) Azores, Cape Verde Is.  \n\
12-(GMT) GMT, Dublin, London            13-(GMT+01:00) Amsterdam, Berlin, Rome \n\
14-(GMT+02:00) Athens, Cairo, Israel    15-(GMT+03:00) Baghdad, Kuwait, Moscow \n\
16-(GMT+04:00) Abu Dhabi, Muscat        17-(GMT+05:00) Islamabad, Karachi      \n\
18-(GMT+06:00) Dhaka, Colombo           19-(GMT+07:00) Bangkok,Hanoi,Jakarta   \n\
20-(GMT+08:00) Beijing,Singapore,Taipei 21-(GMT+09:00) Osaka, Tokyo, Seoul     \n\
22-(GMT+10:00) Melbourne, Sydney, Guam  23-(GMT+11:00) Magadan, Soloman Is.    \n\
24-(GMT+12:00) Auckland, Wellington     \nSelect Time Zone (0-24): Bye Bye!!\n |
)",
       desk);
}

TEST(Tools, Ddns) {
  hold(R"(== DDNS: 4 3 kind
&opening=
&stop=&dump{/etc/init.d/ddns.sh stop > /dev/null 2>&1}
&ending=&stop{/etc/init.d/ddns.sh start > /dev/null 2>&1}&saved
ddns_enable=1 | DDNS Enable?<$>(0:Disable,1:Enable): | [01] as 1 ! 10
ddns_server_type=2 | DDNS Server Type?<$>(0:dyndns, 1:no-ip, 2:easydns, 3:quarlddns): | [0123]
ddns_user_name=me | User Name?<$>: | text 31
ddns_password=pw | Password?<$>: | text 31
ddns_host=h.example | Host?<$>: | text 127
> 0/ | DDNS Enable?<1>(0:Disable,1:Enable):&stop&saved | ddns_enable=0
> ///_a_b_// | &ending | ddns_password=_a_b_
= ddns_enable=200 > /*5 | Host?<h.example>:&stop&saved |
)");
}

TEST(Tools, TheNestedMenuAndPing) {
  const string nested = "== system: 4 4 kind\n&ending=[4830NT]#\n";
  hold(nested + R"(> 2/abc/4294967296/00///|2/abc/4294967296/00//q/|2/abc/4294967296/00//quit/ \
| 0:Ping command\n1:Factory Default\n&ending&ending&ending&endingPING Destination : &ending |
> 1/Yes//|01/YES//|1/y//|1/// | &endingFactory Default Setting:\n\
Set defice configuration to Factory default setting? <yes>/<NO>&ending |
)");
  const std::map<int, string> results = {
      {0, "PING Success."}, {1, "Request timed out."}, {130, "Request timed out."}, {255, "Error: ping broken!"}};
  for (const auto& [status, result] : results) {
    Desk desk;
    desk.program_status["/bin/ping"] = status;
    hold(nested + "> 0/q;`reboot`_-x\"// | ]#PING Destination : {/bin/ping [ping] [-c] [1] [q;`reboot` -x\"]}" +
             result + "\\n&ending |",
         desk);
  }
}

TEST(Tools, FactoryResetWritesThePartitionOrGoesBackToTheMenu) {
  const string defaults = "/opt/webctrl/meta/metafile.dat.default", partition = "/dev/mtdblock/5";
  const string x(504, 'x'), menu = "\n[4830NT]#";
  const string done = "System reboot ...\n{sync}{sleep 1}{setsid /sbin/bbreboot [bbreboot]}Bye Bye!!\n";
  // What the file holds, the call that fails, what is shown, what the partition holds then.
  const string cases[][4] = {
      {"a=1\nb#ver.2\nlast", "", done, "a=1\nlast"},
      // In pieces of 510 characters, the marker is behind the first one, across both, or within it.
      {x + "123456#ver.\nnext\n", "", done, x + "123456next\n"},
      {x + "1234#ver.\nnext\n", "", done, x + "1234#ver.\nnext\n"},
      {x + "1#ver.67\nnext\n", "", done, "67\nnext\n"},
      {"", "", defaults + ": There are no settings in it" + menu, "old"},
      {"#ver.2\n", "", defaults + ": There are no settings in it" + menu, "old"},
      {"a\n", "open " + defaults, defaults + ": Permission denied" + menu, "old"},
      {"a\n", "read " + defaults, defaults + ": Input/output error" + menu, "old"},
      {"a\n", "open " + partition, partition + ": Permission denied" + menu, "old"},
      {"a\n", "write " + partition, partition + ": No space left on device" + menu, ""},
      {"a\n", "close " + partition, partition + ": Input/output error" + menu, "a\n"},
  };
  for (const auto& [content, failing, ending, written] : cases) {
    Desk desk;
    desk.files = {{defaults, content}, {partition, "old"}};
    desk.failing = {failing};
    const string seen = visit(desk, 4, 4, "1\nyesterday\n\n");
    EXPECT_TRUE(seen.ends_with("<yes>/<NO>" + ending)) << seen;
    EXPECT_EQ(desk.files[partition], written);
    EXPECT_TRUE(differences(Desk().settings, desk.settings).empty() && !desk.saved);
  }
}

}  // namespace
}  // namespace tests
