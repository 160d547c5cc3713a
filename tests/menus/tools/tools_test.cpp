#include <gtest/gtest.h>

#include "support/dialogue.h"

namespace tests {
namespace {

using std::string;

const Item day_time = {"Tools", "Day/Time Setting"};
const string zones =
    "0-(GMT-12:00) Enewetak, Kwajalein       1-(GMT-11:00) Midway Island, Samoa    \n"
    "2-(GMT-10:00) Hawaii                    3-(GMT-09:00) Alaska                  \n"
    "4-(GMT-08:00) Pacific Time              5-(GMT-07:00) Arizona, Mountain Time  \n"
    "6-(GMT-06:00) Central Time,Mexico City  7-(GMT-05:00) Eastern Time, Indiana   \n"
    "8-(GMT-04:00) Atlantic Time             9-(GMT-03:00) Brasilia, Buenos Aires  \n"
    "10-(GMT-02:00) Mid-Atlantic             11-(GMT-01:00) Azores, Cape Verde Is.  \n"
    "12-(GMT) GMT, Dublin, London            13-(GMT+01:00) Amsterdam, Berlin, Rome \n"
    "14-(GMT+02:00) Athens, Cairo, Israel    15-(GMT+03:00) Baghdad, Kuwait, Moscow \n"
    "16-(GMT+04:00) Abu Dhabi, Muscat        17-(GMT+05:00) Islamabad, Karachi      \n"
    "18-(GMT+06:00) Dhaka, Colombo           19-(GMT+07:00) Bangkok,Hanoi,Jakarta   \n"
    "20-(GMT+08:00) Beijing,Singapore,Taipei 21-(GMT+09:00) Osaka, Tokyo, Seoul     \n"
    "22-(GMT+10:00) Melbourne, Sydney, Guam  23-(GMT+11:00) Magadan, Soloman Is.    \n"
    "24-(GMT+12:00) Auckland, Wellington     \nSelect Time Zone (0-24): ";
const string starts_ntp = save + silently("/etc/init.d/ntp.sh config");

// What is no number in range is passed over, and the next line read without another question.
TEST(DayTime, SetByHand) {
  Desk desk;
  desk.local_time = {1970, 2, 3, 4, 5, 6};
  const string asked =
      "Year  (1970)  <2006-2020>:Month (2)  <1-12>:Day   (3)  <1-31>:Hour  (4)  <0-23>:"
      "Minute(5)  <0-59>:Second(6)  <0-59>:";
  const Answers lowest = {{"Year", "2005"}, {"", "2006"}, {"Month", "0"},  {"", "1"}, {"Day", "0"},     {"", "1"},
                          {"Hour", "-1"},   {"", "0"},    {"Minute", "x"}, {"", "0"}, {"Second", "0x"}, {"", "0"}};
  const Answers highest = {{"Year", "2021"}, {"", "2020"}, {"Month", "13"},  {"", "12"}, {"Day", "32"},    {"", "31"},
                           {"Hour", "24"},   {"", "23"},   {"Minute", "60"}, {"", "59"}, {"Second", "60"}, {"", "59"}};
  hold(day_time, desk,
       {Visit({{"Set By", "0x"}}, zones + asked + starts_ntp + "{/bin/date 020304051970.06}" + setting_saved),
        Visit(lowest, asked + starts_ntp + "{/bin/date 010100002006.00}" + setting_saved),
        Visit(highest, asked + starts_ntp + "{/bin/date 123123592020.59}" + setting_saved)});
}

// Mode and zone are stored at once, whatever becomes of the rest.
TEST(DayTime, SetByATimeServer) {
  const string asked = zones + "NTP Server Address<old>:", done = asked + starts_ntp + setting_saved;
  const string longest(127, 'n'), cut = "ntp_server=old\\x00name";
  Desk desk;
  hold(day_time, desk.set("ntp_server", "old"),
       {Visit({{"Set By", "2"}}, "Date Time Set By <0>(0: Manual, 1: NTP Time Server):" + wrong_choice),
        Visit({{"Set By", "x1"}}, "NTP Time Server):" + wrong_choice),
        Visit({{"Set By", "10"}, {"Zone", "25"}, {"Address", " a b "}},
              "Time Zone : 0-(GMT-12:00) Enewetak, Kwajalein\n" + done,
              "date_time_set_by=1 ntp_server=\\x20a\\x20b\\x20")});
  desk.set("date_time_set_by", "1").set("ntp_server", "old\\x0aname").set("time_zone", "23");
  hold(day_time, desk,
       {Visit({{"Zone", "24"}}, "Time Zone : 23-(GMT+11:00) Magadan, Soloman Is.\n" + done, "time_zone=24 " + cut),
        Visit({{"Zone", "x"}, {"Address", longest}}, done, "ntp_server=" + longest),
        Visit({{"Zone", "0"}, {"Address", longest + "n"}}, asked + illegal_value, "time_zone=0 " + cut),
        Visit({{"Set By", "0"}}, starts_ntp + "{/bin/date 031514302010.05}" + setting_saved, "date_time_set_by=0")});
  // Other programs may store anything.
  hold(day_time, desk.set("time_zone", "25"), {Visit({}, "Time Zone : 25-\n" + done, cut)});
  hold(day_time, desk.set("date_time_set_by", "7"), {Visit({}, "NTP Time Server):" + save + setting_saved)});
}

TEST(Ddns, IsRestartedOrStopped) {
  auto& ddns = fields.ddns;
  const string stops = save + silently("/etc/init.d/ddns.sh stop");
  Dialogue dialogue = {.item = {"Tools", "DDNS Setting"}, .opening = ""};
  dialogue.questions = {
      Question(ddns.ddns_enable, 1, "DDNS Enable?<%d>(0:Disable,1:Enable):", one_of("01"), {.only = {"1"}}),
      Question(ddns.ddns_server_type, 2,
               "DDNS Server Type?<%d>(0:dyndns, 1:no-ip, 2:easydns, 3:quarlddns):", one_of("0123")),
      Question(ddns.ddns_user_name, "me", "User Name?<%s>:", text(31)),
      Question(ddns.ddns_password, "pw", "Password?<%s>:", text(31)),
      Question(ddns.ddns_host, "h.example", "Host?<%s>:", text(127)),
  };
  dialogue.ending = stops + silently("/etc/init.d/ddns.sh start") + setting_saved;
  hold(dialogue);
  Desk desk = desk_of(dialogue);
  hold(dialogue.item, desk, {Visit({{"DDNS Enable", "0"}}, "1:Enable):" + stops + setting_saved, "ddns_enable=0")});
  hold(dialogue.item, desk.set("ddns_enable", "2"), {Visit({}, "Host?<h.example>:" + stops + setting_saved)});
}

const Item system_setting = {"Tools", "System Setting"};

TEST(SystemTools, NestedMenuAndPing) {
  const string shown =
      "0:Ping command\n1:Factory Default\n[4830NT]#[4830NT]#[4830NT]#[4830NT]#PING Destination : [4830NT]#";
  const Answers nothing = {{"]#", "2"}, {"]#", "abc"}, {"]#", "4294967296"}, {"]#", "00"}, {"PING", ""}};
  hold(system_setting, Desk(), {Visit(nothing, shown), Visit(nothing + Answers{{"]#", "quit"}}, shown)});
  const std::map<int, string> told = {{0, "PING Success."}, {254, "Request timed out."}, {255, "Error: ping broken!"}};
  for (const auto& [status, result] : told) {
    Desk desk;
    desk.program_status["/bin/ping"] = status;
    const string ping = "{/bin/ping [ping] [-c] [1] [q;`reboot` -x\"]}" + result;
    hold(system_setting, desk,
         {Visit({{"]#", "0"}, {"PING", "q;`reboot` -x\""}}, "PING Destination : " + ping + "\n[4830NT]#")});
  }
}

TEST(SystemTools, FactoryResetWritesThePartitionOrGoesBackToTheMenu) {
  const string question = "Factory Default Setting:\nSet defice configuration to Factory default setting? <yes>/<NO>";
  for (const string no : {"Yes", "YES", "ye", ""}) {
    hold(system_setting, Desk(), {Visit({{"]#", "01"}, {"<yes>/<NO>", no}}, question + menu_prompt)});
  }
  const string defaults = "/opt/webctrl/meta/metafile.dat.default", partition = "/dev/mtdblock/5";
  const string x(504, 'x'), menu = "\n[4830NT]#";
  const string done = "System reboot ...\n{sync}{sleep 1}{setsid /sbin/bbreboot [bbreboot]}Bye Bye!!\n";
  // What the file holds, the call that fails, what is shown, what the partition holds then.
  const string cases[][4] = {
      {"a=1\nb#ver.2\nlast", "", done, "a=1\nlast"},
      // Pieces of 510 characters: one that ends with a marker, one without, and one that begins with a marker.
      {x + "1#ver." + x + "123456#ver.\nnext\n", "", done, x + "123456next\n"},
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
    const string seen = visit(desk, system_setting, {{"]#", "1"}, {"<yes>/<NO>", "yesterday"}});
    EXPECT_TRUE(seen.ends_with("<yes>/<NO>" + ending)) << content << failing << "\n" << seen;
    EXPECT_EQ(desk.files[partition], written) << content << failing;
  }
}

}  // namespace
}  // namespace tests
