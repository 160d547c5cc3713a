// Standard output, gathered in one buffer. It is flushed when the console is about to wait for input, to
// start another program, to pause or to end, and when the buffer is full; at no other time.
#pragma once

#include <array>
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
  std::uint8_t width;  // 12 at most
  char fill;
};

// A text, left-aligned in so many columns; what does not fit is cut.
struct Cell {
  std::string_view text;
  std::uint8_t width;  // 40 at most
};

// A value as the menus show it: -1, 192.168.1.1, 00:11:22:aa:bb:cc.
class ValueText {
 public:
  explicit ValueText(Number number);
  // Each octet right-aligned in so many columns.
  explicit ValueText(config::Ipv4 address, std::uint8_t columns = 0);
  explicit ValueText(const config::Mac& mac);
  operator std::string_view() const { return {text_.data(), length_}; }

 private:
  std::array<char, 16 + 2> text_;
  std::size_t length_;
};

// Texts are of any length.
void put(std::string_view text);
void put(const char* text);
void put(char character);
void put(Number number);
void put(const Cell& cell);
void put(config::Ipv4 address);
void put(const config::Mac& mac);
// One behind the other.
template <typename... Parts>
[[gnu::always_inline]] inline void put(const Parts&... parts) requires(sizeof...(parts) > 1) {
  (put(parts), ...);
}

void flush_output();

// True once the other end has gone: what is printed after that is dropped, and the next read_line() ends the
// console.
bool output_is_lost();

// A session starts with nothing gathered and nothing lost.
void reset_output();

}  // namespace shell
