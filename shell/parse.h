// Judging and converting what was typed.
//
// The texts are lines as read_line() leaves them: the last character is the newline, and several rules are
// stated on "every character but the last". A NUL is a character like any other, and no digit.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "config/values.h"

namespace shell {

// True when every character but the last is a decimal digit; so for a bare newline.
bool is_all_digits(std::string_view text);

constexpr std::int64_t beyond_32_bits = std::int64_t{1} << 32;
// The number with which the text begins, blanks and a sign before it allowed; 0 when it begins with none. One
// whose digits do not fit 32 bits counts as that, with its sign.
std::int64_t leading_number(std::string_view text);
// The same. Nothing when it does not fit 32 bits, or is negative.
std::optional<std::uint32_t> decimal_value(std::string_view text);

// The number that such a line of digits is; 0 for a bare newline. Nothing when the line holds anything else
// or the number does not fit 32 bits.
std::optional<std::uint32_t> whole_number(std::string_view line);

constexpr bool in_range(std::uint32_t value, std::uint32_t low, std::uint32_t high) {
  return low <= value && value <= high;
}

// True when no octet of `start` exceeds the same octet of `end`. This is stricter than an order of addresses:
// 192.168.0.200 to 192.168.1.5 does not ascend.
bool ip_range_ascending(config::Ipv4 start, config::Ipv4 end);

// A run of ones from the left, at least one of them in the first octet.
bool is_valid_netmask(config::Ipv4 mask);

// Four decimal fields of at most three digits, each at most 255; an empty field counts as 0. 0.0.0.0 on
// failure, so that address itself is refused by every caller.
config::Ipv4 parse_ipv4(std::string_view text, char separator);

// Six two-digit hexadecimal pairs, 18 characters with the newline. Nothing for any other text.
std::optional<config::Mac> parse_mac(std::string_view text, char separator);

// 0 to 15, or 255 for a character that is no hexadecimal digit.
std::uint8_t hex_nibble(char digit);
// The two characters are not checked.
std::uint8_t hex_byte(char high, char low);

}  // namespace shell
