#include "shell/parse.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace shell {
namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

}  // namespace

bool is_all_digits(std::string_view text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (!is_digit(text[i])) {
      return false;
    }
  }
  return true;
}

std::int64_t leading_number(std::string_view text) {
  while (!text.empty() && is_space(text.front())) {
    text.remove_prefix(1);
  }
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  std::uint32_t value = 0;
  const auto parsed = std::from_chars(text.begin(), text.end(), value);
  const std::int64_t number = parsed.ec == std::errc::result_out_of_range ? beyond_32_bits : value;
  return negative ? -number : number;
}

std::optional<std::uint32_t> decimal_value(std::string_view text) {
  const std::int64_t number = leading_number(text);
  return number < 0 || number == beyond_32_bits ? std::nullopt
                                                : std::optional(static_cast<std::uint32_t>(number));
}

std::optional<std::uint32_t> whole_number(std::string_view line) {
  std::uint32_t value = 0;
  const auto parsed = std::from_chars(line.begin(), line.end(), value);
  const bool is_refused = parsed.ec == std::errc::result_out_of_range || line.end() - parsed.ptr > 1;
  return is_refused ? std::nullopt : std::optional(value);
}

bool ip_range_ascending(config::Ipv4 start, config::Ipv4 end) {
  return std::equal(start.octet.begin(), start.octet.end(), end.octet.begin(), std::less_equal<>());
}

bool is_valid_netmask(config::Ipv4 mask) {
  // Of a contiguous mask the inverse, read as a number, is one less than a power of two.
  const std::uint32_t inverse = ~__builtin_bswap32(mask.word());
  return mask.octet[0] != 0 && (inverse & (inverse + 1)) == 0;
}

config::Ipv4 parse_ipv4(std::string_view text, char separator) {
  config::Ipv4 address{};
  std::size_t field = 0;
  std::size_t digits = 0;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == separator) {
      if (++field == address.octet.size()) {
        return {};
      }
      digits = 0;
      continue;
    }
    if (!is_digit(text[i]) || ++digits > 3) {
      return {};
    }
    const int value = 10 * address.octet[field] + (text[i] - '0');
    if (value > 255) {
      return {};
    }
    address.octet[field] = static_cast<std::uint8_t>(value);
  }
  return field == address.octet.size() - 1 ? address : config::Ipv4{};
}

std::optional<config::Mac> parse_mac(std::string_view text, char separator) {
  config::Mac mac;
  if (text.size() != 3 * mac.byte.size()) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < mac.byte.size(); ++i) {
    const char* const pair = &text[3 * i];
    const bool ends_well = i + 1 == mac.byte.size() || pair[2] == separator;
    if (hex_nibble(pair[0]) == 255 || hex_nibble(pair[1]) == 255 || !ends_well) {
      return std::nullopt;
    }
    mac.byte[i] = hex_byte(pair[0], pair[1]);
  }
  return mac;
}

std::uint8_t hex_nibble(char digit) {
  if (is_digit(digit)) {
    return static_cast<std::uint8_t>(digit - '0');
  }
  if (digit >= 'a' && digit <= 'f') {
    return static_cast<std::uint8_t>(digit - 'a' + 10);
  }
  if (digit >= 'A' && digit <= 'F') {
    return static_cast<std::uint8_t>(digit - 'A' + 10);
  }
  return 255;
}

std::uint8_t hex_byte(char high, char low) {
  return static_cast<std::uint8_t>(16 * hex_nibble(high) + hex_nibble(low));
}

}  // namespace shell
