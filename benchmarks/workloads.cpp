#include "benchmarks/workloads.h"

namespace benchmarks {

std::vector<std::string> Workload::lines() const {
  std::vector<std::string> all = opening;
  for (int i = 0; i < rounds; ++i) {
    all.insert(all.end(), round.begin(), round.end());
  }
  all.insert(all.end(), closing.begin(), closing.end());
  return all;
}

const std::vector<Workload>& workloads() {
  // PPPoE with a fixed address: the longest way through the dialogue, up to its last question.
  static const std::vector<std::string> wan = {
      "0",    "2",    "gateway", "example.org", "1", "00:11:22:33:44:55", "1",   "1492", "subscriber",
      "word", "isp0", "1",       "203.0.113.9", "0", "120",               "0",   "192.0.2.53"};
  static const auto with = [](std::vector<std::string> lines, std::vector<std::string> more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
  };
  // Into each submenu and back, with help, an empty line and a line that is no command.
  static const std::vector<Workload> all = {
      {"login", "start to first prompt", {"admin", "admin"}, {}, 0, {"q"}, "nothing", 0, 300},
      {"session",
       "login, 10,000 menu lines, exit",
       {"admin", "admin"},
       {"0", "q", "1", "help", "q", "2", "q", "help", "3", "show", "q", "4", "", "q", "5", "help", "q", "7", "", "x"},
       500,
       {"q"},
       "nothing",
       0,
       60},
      {"wan_saved",
       "full WAN dialogue, saved and restarted",
       {"admin", "admin", "0"},
       with(wan, {"192.0.2.54"}),
       1,
       {"q", "q"},
       "save_and_restart_device",
       21,
       6},
      {"wan_refused",
       "500 WAN dialogues, last answer refused",
       {"admin", "admin", "0"},
       with(wan, {"0.0.0.0"}),
       500,
       {"q", "q"},
       "nothing",
       0,
       40},
      {"lists",
       "all eight lists, full tables, 10 times",
       {"admin", "admin", "1"},
       {"10", "0", "10", "1", "10", "2", "10", "3", "10", "4", "10", "5", "10", "6", "10", "7"},
       10,
       {"q", "q"},
       "nothing",
       0,
       100},
      {"call_log",
       "call log of 100 records",
       {"admin", "admin", "5", "3"},
       {},
       0,
       {"q", "q"},
       "fetch_call_log",
       4,
       100},
  };
  return all;
}

}  // namespace benchmarks
