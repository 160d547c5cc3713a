// Standard output, gathered in one buffer. It is flushed when the console is about to wait for input, to
// start another program, to pause or to end, and when the buffer is full; at no other time.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

#include "config/values.h"

namespace shell {

// A number, right-aligned in so many columns or as wide as it is. Above the signed range it shows negative.
struct Number {
  constexpr Number(std::integral auto number, std::uint8_t columns = 0, char before = ' ')
      : value(static_cast<std::int32_t>(number)), width(columns), fill(before) {}

  std::int32_t value;
  std::uint8_t width;
  char fill;
};

// A text, left-aligned in so many columns; what does not fit is cut.
struct Cell {
  std::string_view text;
  std::uint8_t width;
};

// Texts are of any length.
void put(std::string_view text);
void put(const char* text);
void put(char character);
void put(Number number);
void put(const Cell& cell);
void put(config::Ipv4 address);
// Each octet right-aligned in three columns.
void put_in_columns(config::Ipv4 address);
void put(const config::Mac& mac);
// One behind the other.
template <typename First, typename Second, typename... More>
[[gnu::always_inline]] inline void put(const First& first, const Second& second, const More&... more) {
  put(first);
  put(second);
  (put(more), ...);
}

void flush_output();

// True once the other end has gone: what is printed after that is dropped, and the next read_line() ends the
// console.
bool output_is_lost();

// A session starts with nothing gathered and nothing lost.
void reset_output();

}  // namespace shell
