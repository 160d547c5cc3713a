#include "shell/output.h"

#include <algorithm>

#include "platform/platform.h"

namespace shell {
namespace {

// Room for the list of all firewall rules, some 17,000 characters, and for what a block of pasted answers
// brings: each goes out in one write.
std::array<char, 32768> buffer;
std::size_t filled;
bool lost;

// Room for so many characters, which is less than the whole buffer.
char* room_for(std::size_t size) {
  if (size > buffer.size() - filled) {
    flush_output();
  }
  return buffer.data() + filled;
}

void filled_to(const char* end) {
  filled = static_cast<std::size_t>(end - buffer.data());
}

// The last digit of the number.
char digit(unsigned number) {
  return static_cast<char>('0' + number % 10);
}

// These write where there is room, and return the end.

constexpr std::size_t longest_number = std::string_view("-2147483648").size();

// Twice as fast as std::to_chars, whose digits would have to be moved into their columns.
char* write(char* at, Number number) {
  const bool is_negative = number.value < 0;
  auto rest = static_cast<std::uint32_t>(number.value);
  rest = is_negative ? 0 - rest : rest;
  std::size_t size = is_negative ? 2 : 1;
  for (std::uint64_t power = 10; power <= rest; power *= 10) {
    ++size;
  }
  char* const end = at + std::max<std::size_t>(size, number.width);
  char* to = end;
  do {
    *--to = digit(rest);
    rest /= 10;
  } while (rest != 0);
  if (is_negative) {
    *--to = '-';
  }
  while (to != at) {
    *--to = number.fill;
  }
  return end;
}

enum class Octets : std::uint8_t { as_wide_as_they_are, in_three_columns };

constexpr std::size_t longest_address = 4 * std::string_view("255.").size();

// Not as four numbers, which takes twice as long: half of all numbers in the lists are octets.
char* write(char* at, config::Ipv4 address, Octets octets) {
  const bool aligned = octets == Octets::in_three_columns;
  for (const unsigned octet : address.octet) {
    if (octet >= 100 || aligned) {
      *at++ = octet >= 100 ? digit(octet / 100) : ' ';
    }
    if (octet >= 10 || aligned) {
      *at++ = octet >= 10 ? digit(octet / 10) : ' ';
    }
    *at++ = digit(octet);
    *at++ = '.';
  }
  return at - 1;
}

// Not inline: it is rarely needed, and put() much.
[[gnu::noinline]] void put_in_pieces(std::string_view text) {
  while (text.size() > buffer.size() - filled) {
    const std::size_t taken = buffer.size() - filled;
    text.copy(buffer.data() + filled, taken);
    filled = buffer.size();
    text.remove_prefix(taken);
    flush_output();
  }
  put(text);
}

}  // namespace

// Not inline: it is rarely needed, as is put_in_pieces().
[[gnu::noinline]] void flush_output() {
  if (filled > 0 && !lost) {
    lost = !platform::write_output({buffer.data(), filled});
  }
  filled = 0;
}

void put(std::string_view text) {
  if (text.size() > buffer.size() - filled) {
    put_in_pieces(text);
    return;
  }
  char* const at = buffer.data() + filled;
  filled += text.size();
  text.copy(at, text.size());
}

void put(const char* text) {
  put(std::string_view(text));
}

void put(char character) {
  *room_for(1) = character;
  ++filled;
}

void put(Number number) {
  filled_to(write(room_for(std::max<std::size_t>(longest_number, number.width)), number));
}

void put(const Cell& cell) {
  const std::string_view shown = cell.text.substr(0, cell.width);
  put(shown);
  const std::size_t left = cell.width - shown.size();
  filled_to(std::fill_n(room_for(left), left, ' '));
}

void put(config::Ipv4 address) {
  filled_to(write(room_for(longest_address), address, Octets::as_wide_as_they_are));
}

void put_in_columns(config::Ipv4 address) {
  filled_to(write(room_for(longest_address), address, Octets::in_three_columns));
}

void put(const config::Mac& mac) {
  constexpr char digits[] = "0123456789abcdef";
  char* at = room_for(3 * mac.byte.size());
  for (const std::uint8_t byte : mac.byte) {
    *at++ = digits[byte >> 4];
    *at++ = digits[byte & 15];
    *at++ = ':';
  }
  filled_to(at - 1);
}

bool output_is_lost() {
  return lost;
}

void reset_output() {
  filled = 0;
  lost = false;
}

}  // namespace shell
