// Records the console's sessions, holds the other programs' output against it, and measures all of them.
//
//   measure names DIRECTORY      the sessions' names
//   measure record DIRECTORY     writes each session as DIRECTORY/NAME/transcript.h, for floor.c
//   measure check DIRECTORY      memory, and whether floor and script say what the console says
//   measure times DIRECTORY      the table; whether every goal is reached
//
// DIRECTORY has the programs: console, floor_NAME, menu.ash, menu_libcli, busybox and strace. Each runs with
// a socket as its standard input and output.
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/personality.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "benchmarks/device.h"
#include "benchmarks/workloads.h"

namespace benchmarks {
namespace {

using Command = std::vector<std::string>;

// ---- One run of one program ----

double cpu_microseconds(pid_t process) {
  clockid_t clock;
  timespec used{};
  if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &used) != 0) {
    fail("processor time");
  }
  return static_cast<double>(used.tv_sec) * 1e6 + static_cast<double>(used.tv_nsec) / 1e3;
}

class Run {
 public:
  explicit Run(const Command& command) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) < 0) {
      fail("socketpair");
    }
    connection_ = ends[0];
    // The program shall never wait for us.
    const int room = 1 << 24;
    setsockopt(ends[0], SOL_SOCKET, SO_SNDBUFFORCE, &room, sizeof room);
    setsockopt(ends[1], SOL_SOCKET, SO_SNDBUFFORCE, &room, sizeof room);
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
      arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    char* const environment[] = {nullptr};
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, ends[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, ends[1], STDOUT_FILENO);
    if (posix_spawn(&process_, arguments[0], &files, nullptr, arguments.data(), environment) != 0) {
      fail(arguments[0]);
    }
    posix_spawn_file_actions_destroy(&files);
    close(ends[1]);
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run() { close(connection_); }

  void type(const std::string& text) {
    if (send(connection_, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size())) {
      fail("typing");
    }
  }

  // What is said until it has been quiet for so long, `first` at the beginning.
  std::string heard(int first, int quiet) {
    std::string text;
    pollfd one{connection_, POLLIN, 0};
    while (poll(&one, 1, text.empty() ? first : quiet) > 0 && drain(text)) {
    }
    return text;
  }

  // Waits for the first prompt. Returns the processor time until the program waits for its first line.
  double first_prompt() {
    pollfd one{connection_, POLLIN, 0};
    poll(&one, 1, -1);
    for (double before = -1, now = 0;; before = now) {
      now = cpu_microseconds(process_);
      if (now == before) {
        return now;
      }
      pause_microseconds(50);
    }
  }

  // In KiB: the most memory that it has had so far, and what is its own alone.
  struct Memory {
    int peak, own;
  };
  Memory memory() const {
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    Memory found{};
    for (std::string name; status >> name;) {
      if (name == "VmHWM:") {
        status >> found.peak;
      } else if (name == "RssAnon:") {
        status >> found.own;
      }
    }
    return found;
  }

  // Hears it out. Returns the processor time of the program itself, without the programs it has started.
  double to_the_end(std::string& said) {
    shutdown(connection_, SHUT_WR);
    siginfo_t ended{};
    while (waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOWAIT | WNOHANG) == 0 &&
           ended.si_pid == 0) {
      pause_microseconds(200);
      while (drain(said)) {
      }
    }
    const double used = cpu_microseconds(process_);
    waitpid(process_, nullptr, 0);
    while (drain(said)) {
    }
    return used;
  }

 private:
  static void pause_microseconds(long microseconds) {
    const timespec pause{0, 1000 * microseconds};
    nanosleep(&pause, nullptr);
  }

  bool drain(std::string& text) const {
    static std::vector<char> block(1 << 16);
    const ssize_t got = recv(connection_, block.data(), block.size(), MSG_DONTWAIT);
    if (got > 0) {
      text.append(block.data(), static_cast<std::size_t>(got));
    }
    return got > 0;
  }

  int connection_ = -1;
  pid_t process_ = -1;
};

struct Figures {
  double start;
  double whole;
  std::string said;
};

Figures run_session(const Command& command, const std::string& typed) {
  Run run(command);
  Figures figures{};
  figures.start = run.first_prompt();
  run.type(typed);
  figures.whole = run.to_the_end(figures.said);
  return figures;
}

// ---- Recording ----

std::string c_literal(const std::string& text) {
  std::string literal = "\"";
  for (const char character : text) {
    if (character == '\n') {
      literal += "\\n\"\n    \"";
    } else {
      literal += (character == '"' || character == '\\' ? "\\" : "") + std::string(1, character);
    }
  }
  return literal + "\"";
}

// What is said at first and then after each line, as the console says it to somebody who types slowly.
std::vector<std::string> listen(const Command& console, const Workload& workload) {
  constexpr int first = 2000;
  constexpr int quiet = 20;
  constexpr int quiet_at_errand = 1200;
  Run run(console);
  std::vector<std::string> said = {run.heard(first, quiet)};
  for (const std::string& line : workload.lines()) {
    run.type(line + "\n");
    const bool errand = static_cast<int>(said.size()) == workload.errand_at;
    said.push_back(run.heard(first, errand ? quiet_at_errand : quiet));
  }
  run.to_the_end(said.back());
  return said;
}

void record(const Workload& workload, const Command& console, const std::string& path) {
  Workload once = workload;
  once.rounds = std::min(workload.rounds, 1);
  const std::vector<std::string> said = listen(console, once);
  std::map<std::string, std::size_t> number_of;
  std::string texts, turns;
  const auto turn = [&](std::size_t at) {
    const auto [known, fresh] = number_of.emplace(said[at], number_of.size());
    if (fresh) {
      texts += "    " + c_literal(said[at]) + ",\n";
    }
    turns += std::to_string(known->second) + ",";
  };
  const std::size_t before = workload.opening.size() + 1;
  for (std::size_t i = 0; i < before; ++i) {
    turn(i);
  }
  for (int i = 0; i < workload.rounds; ++i) {
    for (std::size_t at = 0; at < workload.round.size(); ++at) {
      turn(before + at);
    }
  }
  for (std::size_t at = before + once.rounds * workload.round.size(); at < said.size(); ++at) {
    turn(at);
  }
  std::ofstream file(path);
  file << "enum { LINES = " << workload.lines().size() << ", ERRAND_AT = " << workload.errand_at << " };\n"
       << "#define ERRAND " << workload.errand << "\n"
       << "static const char *const said[] = {\n"
       << texts << "};\n"
       << "static const unsigned char turn[] = {" << turns << "};\n";
}

// ---- The programs side by side ----

using Programs = std::vector<Command>;
enum WhichProgram : std::size_t { console, floor_program, script, library };

Programs programs_for(const Workload& workload, const std::string& directory) {
  Programs programs = {{directory + "/console"}, {directory + "/floor_" + workload.name}};
  if (workload.in_other_programs) {
    programs.push_back({directory + "/busybox", "ash", directory + "/menu.ash"});
    programs.push_back({directory + "/menu_libcli"});
  }
  return programs;
}

std::string typed_in(const Workload& workload) {
  std::string typed;
  for (const std::string& line : workload.lines()) {
    typed += line + "\n";
  }
  return typed;
}

// A library has its own way of putting things: it is not held to the console's.
bool says_the_same(const Workload& workload, const std::string& directory) {
  const std::string typed = typed_in(workload);
  const Programs programs = programs_for(workload, directory);
  const std::string expected = run_session(programs[console], typed).said;
  bool same = true;
  for (std::size_t at = floor_program; at < std::min<std::size_t>(programs.size(), library); ++at) {
    if (run_session(programs[at], typed).said != expected) {
      std::printf("%s: %s does not say what the console says\n", workload.name, programs[at][0].c_str());
      same = false;
    }
  }
  return same;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Runs the programs side by side, so that what else the machine does meets all of them.
std::vector<double> measure(const Workload& workload, const std::string& directory) {
  const Programs programs = programs_for(workload, directory);
  const std::string typed = typed_in(workload);
  const bool start_only = workload.rounds == 0 && workload.errand_at == 0;
  std::vector<std::vector<double>> times(programs.size());
  for (int i = 0; i < workload.repetitions; ++i) {
    for (std::size_t at = 0; at < programs.size(); ++at) {
      if (at < script || i % 8 == 0) {
        const Figures figures = run_session(programs[at], typed);
        times[at].push_back(start_only ? figures.start : figures.whole);
      }
    }
  }
  std::vector<double> medians;
  std::transform(times.begin(), times.end(), std::back_inserter(medians), median);
  return medians;
}

// Prints the row. Returns whether its goals are reached.
bool show_times(const Workload& workload, const std::string& directory) {
  const std::vector<double> times = measure(workload, directory);
  const double ratio = times[console] / times[floor_program];
  bool reached = workload.floor_goal == 0 || ratio <= workload.floor_goal;
  std::printf("%-39s %8.0f %9.0f %6.2f", workload.label, times[console], times[floor_program], ratio);
  if (workload.in_other_programs) {
    const double script_ratio = times[script] / times[console];
    const double library_ratio = times[library] / times[console];
    reached = reached && script_ratio >= workload.script_goal && library_ratio >= workload.library_goal;
    std::printf(" %9.0f %6.2f %9.0f %6.2f", times[script], script_ratio, times[library], library_ratio);
  }
  std::printf("%s\n", reached ? "" : "  GOAL MISSED");
  std::fflush(stdout);
  return reached;
}

// ---- System calls ----

// Of a session in which the first `lines` menu lines are typed one by one, each when the answer to the one
// before has been heard.
int system_calls(Command command, const std::string& directory, int lines) {
  const std::string trace = directory + "/trace";
  command.insert(command.begin(), {directory + "/strace", "-qq", "-o", trace});
  Run run(command);
  const auto answer = [&run] { run.heard(2000, 20); };
  answer();
  const Workload& typed = workloads()[session];
  for (const std::string& line : typed.opening) {
    run.type(line + "\n");
    answer();
  }
  for (int i = 0; i < lines; ++i) {
    run.type(typed.round[static_cast<std::size_t>(i) % typed.round.size()] + "\n");
    answer();
  }
  std::string rest;
  run.to_the_end(rest);
  std::ifstream calls(trace);
  return static_cast<int>(std::count(std::istreambuf_iterator<char>(calls), {}, '\n'));
}

bool show_system_calls(const std::string& directory) {
  constexpr int few = 10;
  constexpr int many = 50;
  constexpr double goal = 2;
  std::vector<double> per_prompt;
  for (const Command& program : programs_for(workloads()[session], directory)) {
    const int calls = system_calls(program, directory, many) - system_calls(program, directory, few);
    per_prompt.push_back(static_cast<double>(calls) / (many - few));
  }
  const bool reached = per_prompt[console] <= goal;
  // The floor flushes nothing on its way, so that this is no interactive program's figure.
  std::printf("%-39s %8.2f %9s %6s %9.2f %6s %9.2f %6s%s\n", "system calls per interactive prompt",
              per_prompt[console], "", "", per_prompt[script], "", per_prompt[library], "",
              reached ? "" : "  GOAL MISSED");
  return reached;
}

// ---- Memory ----

Run::Memory memory_behind(const std::string& program, const std::vector<std::string>& lines) {
  Run run({program});
  run.heard(2000, 20);
  for (const std::string& line : lines) {
    run.type(line + "\n");
    run.heard(2000, 20);
  }
  return run.memory();
}

// What comes into view during a session are pages of the C library and of the settings, which are there for
// everybody: then only what is the console's own counts.
bool show_memory(const std::string& directory) {
  constexpr double peak_goal = 1.15;
  constexpr int own_goal = 48;
  // Where a program's pages lie has its part in how many the kernel brings into view: always at the same
  // place.
  if (personality(ADDR_NO_RANDOMIZE) < 0) {
    std::puts("Memory is measured where a program may be told where it lies.");
    return true;
  }
  std::vector<std::string> lines = {"admin", "admin"};
  for (const Which which : {lists, wan_refused}) {
    const Workload& typed = workloads()[which];
    lines.push_back(typed.opening.back());
    lines.insert(lines.end(), typed.round.begin(), typed.round.end());
    lines.emplace_back("q");
  }
  const Run::Memory empty = memory_behind(directory + "/empty", {}),
                    first = memory_behind(directory + "/console", {}),
                    last = memory_behind(directory + "/console", lines);
  const double ratio = static_cast<double>(first.peak) / empty.peak;
  const bool reached = ratio <= peak_goal && last.own - empty.own <= own_goal;
  std::printf("%-39s %8d %9d %6.2f  (floor: an empty program)\n%-39s %8d %9d%s\n",
              "memory at the first prompt, KiB", first.peak, empty.peak, ratio,
              "of that its own, after lists and dialogues", last.own, empty.own,
              reached ? "" : "  GOAL MISSED");
  return reached;
}

int run(const std::string& what, const std::string& directory) {
  if (what == "names") {
    for (const Workload& workload : workloads()) {
      std::puts(workload.name);
    }
    return 0;
  }
  set_up_segments();
  start_voice_daemon();
  // Once, so that each further run finds stored what it stores.
  run_session({directory + "/console"}, typed_in(workloads()[wan_saved]));
  if (what == "times") {
    std::printf(
        "Processor time in microseconds, medians of interleaved runs; programs it starts are not counted.\n"
        "ratio: console to floor. ahead: how many times the console is faster.\n\n"
        "%-39s %8s %9s %6s %9s %6s %9s %6s\n",
        "", "console", "floor", "ratio", "ash", "ahead", "libcli", "ahead");
  }
  bool good = true;
  for (const Workload& workload : workloads()) {
    if (what == "record") {
      record(workload, {directory + "/console"}, directory + "/" + workload.name + "/transcript.h");
    } else if (what == "check") {
      good = says_the_same(workload, directory) && good;
    } else {
      good = show_times(workload, directory) && good;
    }
  }
  if (what == "times") {
    good = show_system_calls(directory) && good;
  }
  if (what == "check") {
    good = show_memory(directory) && good;
  }
  return good ? 0 : 1;
}

}  // namespace
}  // namespace benchmarks

int main(int count, char* arguments[]) {
  if (count != 3) {
    std::fprintf(stderr, "usage: measure names|record|check|times DIRECTORY\n");
    return 2;
  }
  return benchmarks::run(arguments[1], arguments[2]);
}
