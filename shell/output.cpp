#include "shell/output.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "platform/platform.h"

namespace shell {
namespace {

// Room for the list of all firewall rules, some 17,000 characters, so that it goes out in one write.
std::array<char, 20480> buffer;
std::size_t filled = 0;
bool lost = false;

// Returns its end.
char* write_number(char* at, Number number) {
  std::array<char, 12> digits;
  const auto length = std::to_chars(digits.begin(), digits.end(), number.value).ptr - digits.begin();
  const std::ptrdiff_t blanks = std::max<std::ptrdiff_t>(number.width - length, 0);
  return std::copy_n(digits.begin(), length, std::fill_n(at, blanks, number.fill));
}

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

ValueText::ValueText(Number number) {
  length_ = static_cast<std::size_t>(write_number(text_.data(), number) - text_.data());
}

ValueText::ValueText(config::Ipv4 address, std::uint8_t columns) {
  char* end = text_.data();
  for (const std::uint8_t octet : address.octet) {
    end = write_number(end, {octet, columns});
    *end++ = '.';
  }
  length_ = static_cast<std::size_t>(end - text_.data()) - 1;
}

ValueText::ValueText(const config::Mac& mac) : length_(text_.size() - 1) {
  constexpr char digits[] = "0123456789abcdef";
  char* end = text_.data();
  for (const std::uint8_t byte : mac.byte) {
    *end++ = digits[byte >> 4];
    *end++ = digits[byte & 15];
    *end++ = ':';
  }
}

void put(char character) {
  put(std::string_view(&character, 1));
}

void put(Number number) {
  put(std::string_view(ValueText(number)));
}

void put(const Cell& cell) {
  constexpr std::string_view blanks = "                                        ";
  const std::string_view text = cell.text.substr(0, cell.width);
  put(text);
  put(blanks.substr(0, cell.width - text.size()));
}

void put(config::Ipv4 address) {
  put(std::string_view(ValueText(address)));
}

void put(const config::Mac& mac) {
  put(std::string_view(ValueText(mac)));
}

bool output_is_lost() {
  return lost;
}

void reset_output() {
  filled = 0;
  lost = false;
}

}  // namespace shell
