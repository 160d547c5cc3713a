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

// Beside each other, so that they share a page of memory.
struct {
  std::size_t length;
  // One more than a line can fill: as a text the line always ends inside.
  std::array<char, input_line_size + 1> bytes;
} line;

// What has arrived and not been read. A pasted block of answers costs one read.
struct {
  std::size_t begin;
  std::size_t end;
  std::array<char, 4096> bytes;
} arrived;

// Not inline: read_line() would save registers for it each time, and needs it once in many lines.
[[gnu::noinline]] void wait_for_more() {
  flush_output();
  arrived.begin = 0;
  arrived.end = output_is_lost() ? 0 : platform::read_input(arrived.bytes);
  if (arrived.end == 0) {
    end_console();
  }
}

}  // namespace

std::size_t read_line() {
  if (output_is_lost()) {
    end_console();  // what was typed ahead answers questions that nobody sees
  }
  line.length = 0;
  while (line.length < input_line_size) {
    if (arrived.begin == arrived.end) {
      wait_for_more();
    }
    const char* const from = &arrived.bytes[arrived.begin];
    char* const to = &line.bytes[line.length];
    const std::size_t most = std::min(arrived.end - arrived.begin, input_line_size - line.length);
    std::size_t taken = 0;
    while (taken < most && from[taken] != '\n' && from[taken] != '\b') {
      to[taken] = from[taken];
      ++taken;
    }
    arrived.begin += taken;
    line.length += taken;
    if (taken == most) {
      continue;
    }
    ++arrived.begin;
    if (from[taken] == '\n') {
      line.bytes[line.length] = '\n';
      break;
    }
    line.length -= line.length > 0 ? 1 : 0;
  }
  return line.length;
}

std::string_view line_text() {
  return {line.bytes.data(), line.length + (line.bytes[line.length] == '\n' ? 1 : 0)};
}

std::span<char> line_buffer() {
  return line.bytes;
}

std::string_view typed_text() {
  return config::text_in(std::span(line.bytes).first(line.length));
}

std::size_t line_length() {
  return line.length;
}

bool line_is_q() {
  return line.length == 1 && line.bytes[0] == 'q';
}

std::optional<std::uint32_t> single_digit() {
  return line.length == 1 ? leading_digit() : std::nullopt;
}

std::optional<std::uint32_t> leading_digit() {
  const bool is_digit = line.bytes[0] >= '0' && line.bytes[0] <= '9';
  return is_digit ? std::optional(static_cast<std::uint32_t>(line.bytes[0] - '0')) : std::nullopt;
}

void reset_input() {
  arrived.begin = arrived.end = 0;
}

}  // namespace shell
