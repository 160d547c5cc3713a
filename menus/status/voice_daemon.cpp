#include "menus/status/voice_daemon.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/platform.h"
#include "shell/parse.h"

namespace menus::status {
namespace {

constexpr std::uint64_t patience_milliseconds = 5000;

// Of the one-shot query: the reply overwrites its request.
std::array<char, voice_daemon_buffer_size> exchange_buffer;

int exchange(int daemon, std::span<const char* const> commands) {
  std::size_t needed = 2;
  for (const std::string_view command : commands) {
    needed += command.size() + 1;
  }
  if (needed > exchange_buffer.size()) {
    return -2;
  }
  char* end = exchange_buffer.data();
  for (const std::string_view command : commands) {
    end = std::copy(command.begin(), command.end(), end);
    *end++ = '\n';
  }
  *end++ = '\n';
  if (voice_daemon_send(daemon, {exchange_buffer.data(), end}) < 0) {
    return -3;
  }
  return voice_daemon_receive(daemon, exchange_buffer) < 0 ? -4 : 0;
}

}  // namespace

int voice_daemon_open(const char* address, std::uint16_t port) {
  const std::optional<std::uint32_t> word = platform::parse_address(address);
  if (!word) {
    return -1;
  }
  platform::Descriptor socket(platform::open_udp_socket());
  if (!socket.is_open()) {
    return -2;
  }
  if (platform::bind_udp_to_any(socket.number()) < 0) {
    return -3;
  }
  if (platform::connect_udp(socket.number(), *word, port) < 0) {
    return -4;
  }
  return socket.release();
}

int voice_daemon_send(int descriptor, std::string_view text) {
  if (descriptor < 0) {
    return -1;
  }
  const auto length = static_cast<std::ptrdiff_t>(text.size());
  return platform::send_datagram(descriptor, text) == length ? static_cast<int>(length) : -2;
}

int voice_daemon_receive(int descriptor, std::span<char> buffer) {
  const std::uint64_t start = platform::wall_clock_milliseconds();
  for (;;) {
    // First without a wait: the records of a call log arrive faster than they are read.
    const std::ptrdiff_t got = platform::receive_datagram(descriptor, buffer.first(buffer.size() - 1));
    if (got >= 0) {
      buffer[static_cast<std::size_t>(got)] = '\0';
      return static_cast<int>(got);
    }
    // A clock that is set back meanwhile counts as out of time as well: the unsigned difference is huge then.
    const std::uint64_t waited = platform::wall_clock_milliseconds() - start;
    if (waited >= patience_milliseconds) {
      return -1;
    }
    const int ready = platform::wait_readable(descriptor, static_cast<int>(patience_milliseconds - waited));
    if (ready <= 0) {
      return ready < 0 ? -3 : -4;
    }
  }
}

// Not strtok_r(), for which three more pages of the C library would come into view.
int split_fields(char* text, const char* separators, std::span<const char*> fields) {
  const auto next_separator = [separators](char* from) {
    char* next = ::strchrnul(from, *separators);
    for (const char* other = separators + 1; *other != '\0'; ++other) {
      next = std::min(next, ::strchrnul(from, *other));
    }
    return next;
  };
  fields[0] = nullptr;
  std::size_t count = 0;
  while (count < fields.size() && *text != '\0') {
    char* const end = next_separator(text);
    if (end != text) {
      fields[count++] = text;
    }
    text = end;
    if (*text != '\0') {
      *text++ = '\0';
    }
  }
  return static_cast<int>(std::max<std::size_t>(count, 1));
}

int voice_daemon_query(std::span<const char* const> commands, std::span<const char*> fields) {
  std::fill(fields.begin(), fields.end(), nullptr);
  platform::Descriptor daemon(voice_daemon_open(voice_daemon_address, voice_daemon_port));
  if (!daemon.is_open()) {
    return -1;
  }
  const int result = exchange(daemon.number(), commands);
  return result < 0 ? result : split_fields(exchange_buffer.data(), "\n", fields);
}

int field_number(const char* field) {
  const std::int64_t number = field == nullptr ? 0 : shell::leading_number(field);
  return static_cast<int>(std::clamp<std::int64_t>(number, INT_MIN, INT_MAX));
}

}  // namespace menus::status
