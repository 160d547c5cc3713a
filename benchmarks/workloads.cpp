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
      "0",           "2",    "gateway",    "example.org", "1",         "00:11:22:33:44:55",
      "1",           "1492", "subscriber", "word",        "isp0",      "1",
      "203.0.113.9", "0",    "120",        "0",           "192.0.2.53"};
  static const auto with = [](std::vector<std::string> lines, std::vector<std::string> more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
  };
  static const std::vector<Workload> all = {
      {.name = "login",
       .label = "start to first prompt",
       .opening = {"admin", "admin"},
       .round = {},
       .rounds = 0,
       .closing = {"q"},
       .repetitions = 400,
       .in_other_programs = true,
       .floor_goal = 1.05},
      // Into each submenu and back, with help, an empty line and lines that are no commands: 20 lines.
      {.name = "session",
       .label = "login, 10,000 menu lines, exit",
       .opening = {"admin", "admin"},
       .round = {"0", "q", "1", "help", "q", "2",    "q", "help", "3", "show",
                 "q", "4", "",  "q",    "5", "help", "q", "7",    "",  "x"},
       .rounds = 500,
       .closing = {"q"},
       .repetitions = 100,
       .in_other_programs = true,
       .floor_goal = 1,
       .script_goal = 20,
       .library_goal = 1},
      {.name = "wan_saved",
       .label = "WAN dialogue, saved and restarted",
       .opening = {"admin", "admin", "0"},
       .round = with(wan, {"192.0.2.54"}),
       .rounds = 1,
       .closing = {"q", "q"},
       .errand = "save_and_restart_device",
       .errand_at = 21,
       .repetitions = 20,
       .floor_goal = 1},
      {.name = "wan_refused",
       .label = "500 WAN dialogues, last answer refused",
       .opening = {"admin", "admin", "0"},
       .round = with(wan, {"0.0.0.0"}),
       .rounds = 500,
       .closing = {"q", "q"},
       .repetitions = 40,
       .floor_goal = 1.25},
      {.name = "lists",
       .label = "all eight lists, full tables, 10 times",
       .opening = {"admin", "admin", "1"},
       .round = {"10", "0", "10", "1", "10", "2", "10", "3", "10", "4", "10", "5", "10", "6", "10", "7"},
       .rounds = 10,
       .closing = {"q", "q"},
       .repetitions = 60,
       .floor_goal = 1.5},
      {.name = "call_log",
       .label = "call log of 100 records",
       .opening = {"admin", "admin", "5", "3"},
       .round = {},
       .rounds = 0,
       .closing = {"q", "q"},
       .errand = "fetch_call_log",
       .errand_at = 4,
       .repetitions = 60,
       .floor_goal = 1.15},
  };
  return all;
}

}  // namespace benchmarks
