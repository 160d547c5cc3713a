// What is measured: sessions, as the lines an administrator types.
#pragma once

#include <string>
#include <vector>

namespace benchmarks {

struct Workload {
  const char* name;   // of the floor that replays it, and of its transcript
  const char* label;  // in the table
  std::vector<std::string> opening;
  std::vector<std::string> round;  // typed `rounds` times; leaves the console where it found it
  int rounds;
  std::vector<std::string> closing;
  const char* errand = "nothing";  // the function of floor.c that does what the console does besides
  int errand_at = 0;               // after which line
  int repetitions = 0;             // how often console and floor are measured
  bool in_other_programs = false;  // the script and the library program have it as well
  // 0: none. At most so many times the floor, at least so many times ahead of the others.
  double floor_goal = 0;
  double script_goal = 0;
  double library_goal = 0;

  std::vector<std::string> lines() const;
};

// By their places in the table.
enum Which { login_only, session, wan_saved, wan_refused, lists, call_log };
const std::vector<Workload>& workloads();

}  // namespace benchmarks
