#include "voice/call_log.h"

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <string_view>

#include "flash.h"

namespace desk {
namespace {

constexpr std::size_t longest_line = 120;

// YYYYMMDDhhmmss, or "0" for a time that never came. The device's clock shows UTC.
std::string stamp(std::time_t time) {
  std::tm parts{};
  char text[15];
  if (time == 0 || gmtime_r(&time, &parts) == nullptr ||
      std::strftime(text, sizeof text, "%Y%m%d%H%M%S", &parts) == 0) {
    return "0";
  }
  return text;
}

std::string line_of(const Call& call) {
  char reason[9];
  std::snprintf(reason, sizeof reason, "%04x", call.reason);
  const std::time_t duration = call.answered == 0 ? 0 : call.ended - call.answered;
  return (call.incoming ? "1|" : "0|") + call.number + '|' + stamp(call.started) + '|' +
         stamp(call.answered) + '|' + stamp(call.ended) + '|' + reason + '|' + std::to_string(duration) +
         '|' + std::to_string(call.phone) + '\n';
}

// A line cut off by a loss of power, or another program's: eight fields with something in each of them.
bool is_call(std::string_view line) {
  return line.size() <= longest_line && std::count(line.begin(), line.end(), '|') == 7 &&
         !line.starts_with('|') && !line.ends_with('|') && line.find("||") == std::string_view::npos &&
         std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

}  // namespace

void add_to_call_log(const char* partition, const Call& call) {
  const std::string line = line_of(call);
  if (append_line(partition, line)) {
    return;
  }
  tidy_call_log(partition);  // a chip may be full
  append_line(partition, line);
}

bool replace_call_log(const char* partition, std::span<const Call> oldest_first) {
  std::string lines;
  for (const Call& call : oldest_first) {
    lines += line_of(call);
  }
  return replace_text(partition, lines);
}

std::vector<std::string> latest_calls(const char* partition) {
  std::vector<std::string> lines;
  std::istringstream text(read_text(partition));
  for (std::string line; std::getline(text, line);) {
    if (is_call(line)) {
      lines.push_back(line);
    }
  }
  std::reverse(lines.begin(), lines.end());
  lines.resize(std::min(lines.size(), longest_call_log));
  return lines;
}

void tidy_call_log(const char* partition) {
  const std::vector<std::string> newest_first = latest_calls(partition);
  std::string lines;
  for (auto line = newest_first.rbegin(); line != newest_first.rend(); ++line) {
    lines += *line + '\n';
  }
  if (!lines.empty()) {
    replace_text(partition, lines);
  }
}

}  // namespace desk
