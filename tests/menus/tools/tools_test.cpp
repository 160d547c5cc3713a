#include "support/dialogue.h"

namespace tests::tools_test {

const Item day_time = {"Tools", "Day/Time Setting"};
const string starts_ntp = save + silently("/etc/init.d/ntp.sh config");

// What is no number in range is passed over, and the next line read without another question.
TEST(DayTime, SetByHand) {
  FactoryDevice device;
  device.local_time = {1970, 2, 3, 4, 5, 6};
  const Answers first = {{"Year", "2005"}, {"", "0x"}, {"", "2006"},  {"Month", "0"},  {"", "1"},
                         {"Day", "0"},     {"", "1"},  {"Hour", "0"}, {"Minute", "0"}, {"Second", "0"}};
  const Answers last = {{"Year", "2021"}, {"", "2020"}, {"Month", "13"},  {"", "12"}, {"Day", "32"},    {"", "31"},
                        {"Hour", "24"},   {"", "23"},   {"Minute", "60"}, {"", "59"}, {"Second", "60"}, {"", "59"}};
  hold(day_time, device,
       {Visit({{"Set By", "0x"}}, starts_ntp + "{/bin/date 020304051970.06}" + setting_saved),
        Visit(first, "Second(6)  <0-59>:" + starts_ntp + "{/bin/date 010100002006.00}" + setting_saved),
        Visit(last, "Second(6)  <0-59>:" + starts_ntp + "{/bin/date 123123592020.59}" + setting_saved)});
}

// Mode and zone are stored at once, whatever becomes of the rest.
TEST(DayTime, SetByATimeServer) {
  const string done = "Zone (0-24): NTP Server Address<old>:" + starts_ntp + setting_saved;
  const string server(127, 'n'), cut = "date_time_set_by=1 ntp_server=old\\x00name";
  FactoryDevice device;
  device.set("ntp_server", "old\\x0aname").set("time_zone", "23");
  hold(day_time, device,
       {Visit({{"Set By", "2"}}, "Date Time Set By <0>(0: Manual, 1: NTP Time Server):" + wrong_choice),
        Visit({{"Set By", "10"}, {"Time Zone : 23-(GMT+11:00) Magadan, Soloman Is.\n0-", "24"}}, done,
              "time_zone=24 " + cut),
        Visit({{"Set By", "1"}, {"Zone", "25"}, {"Address", server}}, done, "date_time_set_by=1 ntp_server=" + server),
        Visit({{"Set By", "1"}, {"Zone", "0"}, {"Address", server + "n"}}, illegal_value, "time_zone=0 " + cut)});
  hold(day_time, device.set("time_zone", "25"), {Visit({{"Set By", "1"}, {"Time Zone : 25-\n0-", "x"}}, done, cut)});
  hold(day_time, device.set("date_time_set_by", "7"), {Visit({}, "NTP Time Server):" + save + setting_saved)});
}

TEST(Ddns, IsRestartedOrStopped) {
  const string stops = save + silently("/etc/init.d/ddns.sh stop");
  Dialogue dialogue = {.item = {"Tools", "DDNS Setting"}, .opening = ""};
  dialogue.questions = {
      Question(fields.ddns.ddns_enable, 1, "DDNS Enable?<%d>(0:Disable,1:Enable):", one_of("01"), {.only = {"1"}}),
      Question(fields.ddns.ddns_server_type, 2,
               "DDNS Server Type?<%d>(0:dyndns, 1:no-ip, 2:easydns, 3:quarlddns):", one_of("0123")),
      Question(fields.ddns.ddns_user_name, "me", "User Name?<%s>:", text(31)),
      Question(fields.ddns.ddns_password, "pw", "Password?<%s>:", text(31)),
      Question(fields.ddns.ddns_host, "h.example", "Host?<%s>:", text(127)),
  };
  dialogue.ending = stops + silently("/etc/init.d/ddns.sh start") + setting_saved;
  hold(dialogue.item, hold(dialogue).set("ddns_enable", "2"),
       {Visit({}, "Host?<h.example>:" + stops + setting_saved),
        Visit({{"DDNS Enable", "0"}}, "1:Enable):" + stops + setting_saved, "ddns_enable=0")});
}

const Item system_setting = {"Tools", "System Setting"};

TEST(SystemTools, NestedMenuAndPing) {
  const Answers nothing = {{"]#", "2"}, {"]#", "abc"}, {"]#", "00"}, {"PING", ""}};
  const string shown = "\n[4830NT]#[4830NT]#[4830NT]#PING Destination : [4830NT]#";
  hold(system_setting, FactoryDevice(), {Visit(nothing, shown), Visit(nothing + Answers{{"]#", "quit"}}, shown)});
  const std::map<int, string> told = {{0, "PING Success."}, {254, "Request timed out."}, {255, "Error: ping broken!"}};
  for (const auto& [status, result] : told) {
    FactoryDevice device;
    device.program_status["/bin/ping"] = status;
    const string ping = "{/bin/ping [ping] [-c] [1] [q;`reboot` -x\"]}" + result;
    hold(system_setting, device,
         {Visit({{"]#", "0"}, {"PING", "q;`reboot` -x\""}}, "PING Destination : " + ping + "\n[4830NT]#")});
  }
}

TEST(SystemTools, FactoryResetWritesThePartitionOrGoesBackToTheMenu) {
  const string question = "Factory Default Setting:\nSet defice configuration to Factory default setting? <yes>/<NO>";
  hold(system_setting, FactoryDevice(), {Visit({{"]#", "01"}, {"<yes>/<NO>", "Yes"}}, question + menu_prompt)});
  const string defaults = "/opt/webctrl/meta/metafile.dat.default", partition = "/dev/mtdblock/5";
  const string x(504, 'x'), menu = "\n[4830NT]#";
  const string done = "System reboot ...\n{sync}{sleep 1}{setsid /sbin/bbreboot [bbreboot]}Bye Bye!!\n";
  // What the file holds, the call that fails, what is shown, what the partition holds then.
  const string cases[][4] = {
      // Pieces of 510 characters: one that ends with a marker, one without, and one that begins with a marker.
      {x + "1#ver." + x + "123456#ver.\nlast", "", done, x + "123456last"},
      {"#ver.2\n", "", defaults + ": There are no settings in it" + menu, "old"},
      {"a\n", "open " + defaults, defaults + ": Permission denied" + menu, "old"},
      {"a\n", "read " + defaults, defaults + ": Input/output error" + menu, "old"},
      {"a\n", "open " + partition, partition + ": Permission denied" + menu, "old"},
      {"a\n", "write " + partition, partition + ": No space left on device" + menu, ""},
      {"a\n", "flush " + partition, partition + ": Input/output error" + menu, "a\n"},
      {"a\n", "close " + partition, partition + ": Input/output error" + menu, "a\n"},
  };
  for (const auto& [content, failing, ending, written] : cases) {
    FactoryDevice device;
    device.files = {{defaults, content}, {partition, "old"}};
    device.failing = {failing};
    const string seen = visit(device, system_setting, {{"]#", "1"}, {"<yes>/<NO>", "yesterday"}});
    EXPECT_TRUE(seen.ends_with("<yes>/<NO>" + ending)) << content << failing << "\n" << seen;
    EXPECT_EQ(device.files[partition], written) << content << failing;
  }
}

}  // namespace tests::tools_test
