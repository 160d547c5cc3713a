// The call log: one line per finished call, the oldest first, in a flash partition. A line is what a query is
// answered with: type|number|call time|answer time|disconnect time|reason|duration|phone. What cannot be
// written is told on standard error and lost; calls go on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <span>
#include <string>
#include <vector>

namespace desk {

constexpr const char* call_log_partition = "/dev/mtdblock/6";
constexpr std::size_t longest_call_log = 1000;

struct Call {
  bool incoming;
  std::string number;
  std::time_t started;
  std::time_t answered;  // 0 when nobody answered
  std::time_t ended;
  unsigned reason;
  std::size_t phone;
};

void add_to_call_log(const char* partition, const Call& call);
// False when it could not be written.
bool replace_call_log(const char* partition, std::span<const Call> oldest_first);
// The lines of the latest calls, the newest first. Lines that are none of ours are left out.
std::vector<std::string> latest_calls(const char* partition);
// Leaves the latest calls in the partition, and nothing else.
void tidy_call_log(const char* partition);

}  // namespace desk
