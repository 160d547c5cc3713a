// The client by itself, and the two pages that ask through it.
#include "menus/status/voice_daemon.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "support/session.h"

namespace tests {
namespace {

using namespace menus::status;
using Strings = std::vector<std::string>;

struct DaemonDesk : Desk {
  explicit DaemonDesk(const Strings& replies = {}) {
    use_device(*this);
    on_datagram = [replies](const std::string& /*request*/) { return replies; };
  }
  std::string page(int item) {
    const Visit seen = visit(*this, 5, item, "");
    EXPECT_TRUE(seen.changed.empty() && seen.shown.starts_with("{udp 127...1:8118}"));
    return seen.shown.substr(seen.shown.find('}') + 1);
  }
};

// What a query of these commands returns, and the fields, "-" for a null one.
std::string query(const std::vector<const char*>& commands) {
  std::array<const char*, 3> fields = {"left", "over", ""};
  std::string seen = std::to_string(voice_daemon_query(commands, fields));
  for (const char* const field : fields) {
    seen += std::string(" ") + (field != nullptr ? field : "-");
  }
  EXPECT_EQ(device().open_descriptors, 0);
  return seen;
}

TEST(VoiceDaemon, CutsRepliesIntoLinesAndRefusesALongRequest) {
  const std::string endless = std::string(8190, 'a') + "bc";
  const Strings replies = {"a\n\nb\n",     "\n\n\na",        "",           "\n\n",
                           "1\n2\n3\n4\n", {"a\n\0b\nc", 6}, "\xff\r\n b", endless};
  const Strings results = {"2 a b -", "1 a - -", "1 - - -",       "1 - - -",
                           "3 1 2 3", "1 a - -", "2 \xff\r  b -", "1 " + endless.substr(0, 8191) + " - -"};
  for (std::size_t i = 0; i < replies.size(); ++i) {
    DaemonDesk desk({replies[i], "a datagram too many"});
    EXPECT_EQ(query({"get one", "get two 0 1"}), results[i]);
    EXPECT_EQ(desk.requests, Strings{"get one\nget two 0 1\n\n"});
  }
  DaemonDesk desk({"a"});
  const std::string fits(8189, 'x');
  EXPECT_EQ(query({(fits + "y").c_str()}), "-2 - - -");
  EXPECT_EQ(query({fits.c_str(), ""}), "-2 - - -");
  EXPECT_EQ(query({fits.c_str()}), "1 a - -");
  EXPECT_EQ(desk.requests, Strings{fits + "\n\n"});
}

TEST(VoiceDaemon, FailuresHaveTheirCodesAndEndInTime) {
  const Strings calls = {"udp socket", "udp bind", "udp connect", "udp send", "udp wait", "udp receive", ""};
  const Strings codes = {"-2 -1 - - -", "-3 -1 - - -", "-4 -1 - - -", "50 -3 - - -",
                         "50 -4 - - -", "50 -4 - - -", "50 -4 - - -"};
  for (std::size_t i = 0; i < calls.size(); ++i) {
    DaemonDesk desk;
    desk.failing = {calls[i]};
    const std::string queried = query({"get one"});
    EXPECT_LE(desk.clock, Desk().clock + 5);
    EXPECT_EQ(std::to_string(voice_daemon_open("127.0.0.1", 8118)) + " " + queried, codes[i]);
  }
  EXPECT_EQ(voice_daemon_open("127.0.0.256", 8118), -1);
  EXPECT_EQ(voice_daemon_send(-1, "get"), -1);
  for (const bool answered : {false, true}) {
    DaemonDesk late(answered ? Strings{"a"} : Strings{});
    late.refused_receives = 4;  // a second each
    EXPECT_EQ(query({"get one"}), answered ? "1 a - -" : "-4 - - -");
    EXPECT_EQ(late.transcript, answered ? "{udp 127...1:8118}" : "{udp 127...1:8118}{silence 1}");
  }
}

TEST(LineState, AsksOnceAndStaysInItsColumns) {
  std::string request, reply;
  for (std::size_t i = 0; i < 24; ++i) {
    request += std::string("get rtpstat") + (i < 12 ? "total" : "current");
    request +=
        Strings{"send", "recv", "lost"}[i % 3] + Strings{" 0 0\n", " 0 1\n", " 1 0\n", " 1 1\n"}[i / 3 % 4];
    reply += i == 19 ? "-7\n" : i == 20 ? "x\n" : i == 21 ? "4294967296\n" : std::to_string(i) + " packets\n";
  }
  DaemonDesk desk({reply + "w\n%s\xff nineteen bytes!\nz\n%s\xff of twenty bytes.\n"});
  EXPECT_EQ(desk.page(2),
            "\nPhone 1            |Phone 2            |Account 1          |Account 2\n"
            "-------------------+-------------------+-------------------+------------------\n"
            "w                  |%s\xff nineteen bytes!|z                  |%s\xff of twenty bytes\n"
            "\n     |       |RTP Send Packets   |RTP Recv Packets   |Packet loss\n"
            "Phone|Channel|    Total|  Current|    Total|  Current|    Total|  Current\n"
            "-----+-------+---------+---------+---------+---------+---------+--------------\n"
            "  1  |   0   |        0|       12|        1|       13|        2|       14\n"
            "     |   1   |        3|       15|        4|       16|        5|       17\n"
            "-----+-------+---------+---------+---------+---------+---------+--------------\n"
            "  2  |   0   |        6|       18|        7|       -7|        8|        0\n"
            "     |   1   |        9|2147483647|       10|       22|       11|       23\n\n");
  EXPECT_EQ(desk.requests,
            Strings{request + "get epstate 0\nget epstate 1\nget epregstate 0\nget epregstate 1\n\n"});
  const std::string cut_short = DaemonDesk({"1\n\n2\n"}).page(2);
  EXPECT_NE(cut_short.find("|                   |                   |"), std::string::npos);
  EXPECT_NE(cut_short.find("  1  |   0   |        1|        0|        2|        0|"), std::string::npos);
  EXPECT_EQ(DaemonDesk().page(2), "{silence 5}");
}

std::string call(const std::string& first_row, const std::string& second_row) {
  const std::string line = "------------------------------------------------------------------------------\n";
  return line + "Phone Num       |Durace time|phone|Reason\n" +
         "----------------+-----------+-----+-------------------------------------------\n" + first_row +
         line + "Call type|Call time           |Answer time         |Disconnect time     \n" +
         "---------+--------------------+--------------------+--------------------------\n" + second_row +
         line + "\n";
}

TEST(CallDetailRecords, ShowsWhatCameBeforeTheFetchEnded) {
  const std::string record = "0|555|20070608123456|0|2007060812345x|100f|65|0";
  const std::string shown =
      call("555             |         65|    1|User busy\n",
           "dial out |2007/06/08 12:34:56 |0                   |2007/06/08 12:34:5x \n");
  DaemonDesk odd(
      {"2", "|1|%s||\xff|-|x|2007|0|1||",
       "2|12345678901234567|123456789012345678901|" + std::string(40, 't') + "|-|10|1234567890123|99999",
       record});
  EXPECT_EQ(odd.page(3),
            "\n" +
                call("%s              |          0|    2|Callee pattern not matched with listed digitmap\n",
                     "call in  |\xff                   |-                   |x                   \n") +
                call("1234567890123456|  123456789| 1000|unknow reason\n",
                     "         |12345678901234567890|tttttttttttttttttttt|-                   \n"));
  EXPECT_EQ(odd.requests, Strings{"get calllog\n\n"});
  for (const std::string none : {"0", "-1", "", "many"}) {
    EXPECT_EQ(DaemonDesk({none, record}).page(3), "\n");
  }
  const std::string cut("0|1|2|3|4\0|1008|6|0", 19);
  const std::string bars(9000, '|');
  for (const std::string& bad :
       {std::string("0|1|2|3|4|1008|6"), std::string("0|1||3|4|1008|6|0"), record + "|9", cut, bars}) {
    EXPECT_EQ(DaemonDesk({"3", record, bad, record}).page(3), "\n" + shown) << bad;
  }
  EXPECT_EQ(DaemonDesk({"99999999999999999999", record, record}).page(3), "{silence 5}\n" + shown + shown);
  Strings many(500, record);
  many[0] = "100000";
  EXPECT_EQ(DaemonDesk(many).page(3).size(), 1 + 100 * shown.size());
  EXPECT_EQ(DaemonDesk().page(3), "{silence 5}\n");  // nothing of an earlier visit is left
}

}  // namespace
}  // namespace tests
