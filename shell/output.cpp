#include "shell/output.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "platform/platform.h"

namespace shell {
namespace {

// Room for the list of all firewall rules, some 17,000 characters, so that it goes out in one write.
std::array<char, 20480> buffer;
std::size_t filled = 0;
bool lost = false;

}  // namespace

void flush_output() {
  if (filled > 0 && !lost) {
    lost = !platform::write_output({buffer.data(), filled});
  }
  filled = 0;
}

void put(std::string_view text) {
  for (;;) {
    const std::size_t taken = std::min(text.size(), buffer.size() - filled);
    std::copy_n(text.begin(), taken, buffer.begin() + filled);
    filled += taken;
    if (taken == text.size()) {
      return;
    }
    text.remove_prefix(taken);
    flush_output();
  }
}

void put(const char* text) {
  put(std::string_view(text));
}

void print(const char* format, ...) {
  // Room for the longest line with a whole input line or stored text in it.
  char line[1024];
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  if (length > 0) {
    put({line, std::min(static_cast<std::size_t>(length), sizeof line - 1)});
  }
}

bool output_is_lost() {
  return lost;
}

void reset_output() {
  filled = 0;
  lost = false;
}

}  // namespace shell
