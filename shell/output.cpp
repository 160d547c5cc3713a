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

// Room for so many characters, few enough for an empty buffer.
char* room_for(std::size_t size) {
  if (size > buffer.size() - filled) {
    flush_output();
  }
  return buffer.data() + filled;
}

void filled_to(const char* end) {
  filled = static_cast<std::size_t>(end - buffer.data());
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

void put(char character) {
  *room_for(1) = character;
  ++filled;
}

void put(Number number) {
  constexpr std::size_t longest = 12;
  char* const at = room_for(longest);
  char* const end = std::to_chars(at, at + longest, number.value).ptr;
  const std::ptrdiff_t blanks = std::max<std::ptrdiff_t>(number.width - (end - at), 0);
  std::copy_backward(at, end, end + blanks);
  std::fill_n(at, blanks, number.fill);
  filled_to(end + blanks);
}

void put(const Cell& cell) {
  const std::string_view text = cell.text.substr(0, cell.width);
  put(text);
  const std::size_t blanks = cell.width - text.size();
  filled_to(std::fill_n(room_for(blanks), blanks, ' '));
}

void put_columns(config::Ipv4 address, std::uint8_t columns) {
  for (const std::uint8_t octet : address.octet) {
    put(Number(octet, columns));
    put('.');
  }
  --filled;
}

void put(config::Ipv4 address) {
  put_columns(address, 0);
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
