// The encodings that the segment's fields share. All are plain bytes without padding or constructors, so that
// a struct of them can lie in shared memory.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace config {

static_assert(std::endian::native == std::endian::little, "the segment is little-endian");

// The four octets in the order in which an address is written.
struct Ipv4 {
  std::array<std::uint8_t, 4> octet;

  constexpr bool operator==(const Ipv4& other) const { return word() == other.word(); }
  constexpr bool is_zero() const { return word() == 0; }
  // First octet in the lowest eight bits, as the word lies in memory.
  constexpr std::uint32_t word() const { return std::bit_cast<std::uint32_t>(octet); }
  static constexpr Ipv4 from_word(std::uint32_t word) {
    return {std::bit_cast<std::array<std::uint8_t, 4>>(word)};
  }
};

// Bit by bit, the same in either byte order.
constexpr Ipv4 operator&(Ipv4 a, Ipv4 b) {
  return Ipv4::from_word(a.word() & b.word());
}
constexpr Ipv4 operator|(Ipv4 a, Ipv4 b) {
  return Ipv4::from_word(a.word() | b.word());
}
constexpr Ipv4 operator~(Ipv4 a) {
  return Ipv4::from_word(~a.word());
}

struct Mac {
  std::array<std::uint8_t, 6> byte;

  // First byte in the lowest eight bits, as they lie in memory.
  std::uint64_t word() const {
    std::uint64_t word{};
    std::memcpy(&word, this, sizeof *this);
    return word;
  }
  static Mac from_word(std::uint64_t word) {
    Mac mac;
    std::memcpy(&mac, &word, sizeof mac);
    return mac;
  }
};

// ---- Texts in fixed buffers ----
// Another program may have left a buffer without its NUL: nothing here reads or writes outside the buffer.

// The characters before the first NUL, or the whole buffer when it holds none. The buffer may have no bytes,
// but not the address nullptr.
inline std::string_view text_in(std::span<const char> buffer) {
  return {buffer.data(), ::strnlen(buffer.data(), buffer.size())};
}

// Replaces the buffer's contents by `text`, NUL-padded to the buffer's end. A text that does not fit with its
// NUL is cut; callers refuse such a text before they come here. A NUL in `text` ends what is read back.
inline void put_text(std::span<char> buffer, std::string_view text) {
  const std::string_view kept = text.substr(0, buffer.size() - 1);
  // `text` may lie in the buffer itself.
  const auto end = std::copy(kept.begin(), kept.end(), buffer.begin());
  std::fill(end, buffer.end(), '\0');
}

// Cuts the stored text at its first newline: that newline becomes a NUL, nothing else changes. Returns the
// length of the text that remains.
inline std::size_t strip_newline(std::span<char> buffer) {
  const std::string_view text = text_in(buffer);
  const std::size_t newline = text.find('\n');
  if (newline == std::string_view::npos) {
    return text.size();
  }
  buffer[newline] = '\0';
  return newline;
}

// A text of at most N-1 characters and its NUL.
template <std::size_t N>
struct Text {
  std::array<char, N> bytes;

  std::string_view view() const { return text_in(bytes); }
  void assign(std::string_view text) { put_text(bytes, text); }
};

}  // namespace config
