// The device as the fake platform plays it, in memory. Every command is noted in the order in which it was run.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "config/login_record.h"
#include "config/segment.h"
#include "platform/platform.h"

namespace tests {

using std::string;
using namespace std::string_literals;
using Strings = std::vector<string>;

struct Device {
  config::LoginRecord login{};
  config::ConfigurationSegment settings{};
  std::uint32_t voice_change = 0;

  std::uint32_t clock = 1'000'000;   // in seconds; sleeping and waiting move it on
  std::uint32_t milliseconds = 990;  // of the second that has begun
  platform::LocalTime local_time{2010, 3, 15, 14, 30, 5};

  // What is typed, in the pieces in which it arrives; after the last one the connection is closed.
  std::deque<string> input;
  // Called whenever the console waits for input, before the piece is handed over; counts from 0.
  std::function<void(std::size_t wait)> on_wait = [](std::size_t) {};

  // All output, with "{...}" for everything else the console does, in order.
  string transcript;
  // Where in the transcript each wait for input happened.
  std::vector<std::size_t> waits;

  // What commands print, by command line; a command that is not here prints nothing.
  std::map<string, string> command_output;
  std::function<void(const string& command)> on_command = [](const string&) {};
  std::map<string, int> program_status;  // by path; 0 when it is not here
  std::map<string, string> files;
  // What was sent to the voice daemon, and what it answers to each; "refused" is an error to collect.
  Strings requests;
  std::function<Strings(const string& request)> on_datagram = [](const auto&) { return Strings(); };

  // The fields that answers were written to, in that order.
  std::vector<void*> written;

  std::optional<config::ConfigurationSegment> saved;
  int saves = 0;

  // Calls that fail: "attach 1234", "open PATH", "write PATH", "udp socket", "start PATH", "output", ...
  std::set<string> failing;

  // Calls that can fail are counted. The one with the number `fault`, from 1, fails, and `failed` is which that was.
  std::size_t chances = 0;
  std::size_t fault = 0;
  string failed;

  int open_descriptors = 0;
  int attached_segments = 0;
};

Device& device();
void use_device(Device& device);

// Runs `body` until it calls platform::exit_process(), and returns the status.
int run_to_exit(void (*body)());

}  // namespace tests
