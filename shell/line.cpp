#include "shell/line.h"

#include <algorithm>
#include <array>

#include "config/values.h"
#include "platform/platform.h"
#include "shell/output.h"
#include "shell/session.h"

namespace shell {
namespace {

constexpr std::size_t input_line_size = 512;

// One byte more than a line can fill: as a text the line always ends inside the buffer.
std::array<char, input_line_size + 1> line;
std::size_t length = 0;

// What has arrived and not been read. A pasted block of answers costs one read.
std::array<char, 4096> arrived;
std::size_t arrived_at = 0;
std::size_t arrived_end = 0;

// Not inline: read_line() would save registers for it each time, and needs it once in many lines.
[[gnu::noinline]] void wait_for_more() {
  flush_output();
  arrived_at = 0;
  arrived_end = output_is_lost() ? 0 : platform::read_input(arrived);
  if (arrived_end == 0) {
    end_console();
  }
}

}  // namespace

std::size_t read_line() {
  if (output_is_lost()) {
    end_console();  // what was typed ahead answers questions that nobody sees
  }
  length = 0;
  while (length < input_line_size) {
    if (arrived_at == arrived_end) {
      wait_for_more();
    }
    const char* const from = &arrived[arrived_at];
    char* const to = &line[length];
    const std::size_t most = std::min(arrived_end - arrived_at, input_line_size - length);
    std::size_t taken = 0;
    while (taken < most && from[taken] != '\n' && from[taken] != '\b') {
      to[taken] = from[taken];
      ++taken;
    }
    arrived_at += taken;
    length += taken;
    if (taken == most) {
      continue;
    }
    ++arrived_at;
    if (from[taken] == '\n') {
      line[length] = '\n';
      break;
    }
    length -= length > 0 ? 1 : 0;
  }
  return length;
}

std::string_view line_text() {
  return {line.data(), length + (line[length] == '\n' ? 1 : 0)};
}

std::span<char> line_buffer() {
  return line;
}

std::string_view typed_text() {
  return config::text_in(std::span(line).first(length));
}

std::size_t line_length() {
  return length;
}

bool line_is_q() {
  return length == 1 && line[0] == 'q';
}

std::optional<std::uint32_t> single_digit() {
  return length == 1 ? leading_digit() : std::nullopt;
}

std::optional<std::uint32_t> leading_digit() {
  const bool is_digit = line[0] >= '0' && line[0] <= '9';
  return is_digit ? std::optional(static_cast<std::uint32_t>(line[0] - '0')) : std::nullopt;
}

void reset_input() {
  arrived_at = arrived_end = 0;
}

}  // namespace shell
