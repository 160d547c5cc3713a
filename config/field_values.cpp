// The values of fields as text, and back.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "config/field_table.h"

namespace config {
namespace {

using Kind = Field::Kind;

template <typename Number>
std::string decimal(std::span<const std::uint8_t> bytes) {
  Number number;
  std::memcpy(&number, bytes.data(), sizeof number);
  return std::to_string(number);
}

template <typename Number>
bool set_decimal(std::span<std::uint8_t> bytes, std::string_view value) {
  Number number{};
  const auto [end, error] = std::from_chars(value.begin(), value.end(), number);
  if (error != std::errc{} || end != value.end()) {
    return false;
  }
  std::memcpy(bytes.data(), &number, sizeof number);
  return true;
}

// Bytes separated by one character, as in addresses and MACs.
bool set_bytes(std::span<std::uint8_t> bytes, std::string_view value, char separator, int base) {
  std::array<std::uint8_t, sizeof(Mac)> parsed{};
  // Each number, the last one as well, is read with the separator behind it.
  const std::string text = std::string(value) + separator;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto [after, error] = std::from_chars(at, end, parsed[i], base);
    if (error != std::errc{} || *after != separator) {
      return false;
    }
    at = after + 1;
  }
  if (at != end) {
    return false;
  }
  std::copy_n(parsed.begin(), bytes.size(), bytes.begin());
  return true;
}

std::string escaped(std::span<const std::uint8_t> bytes) {
  std::string out;
  for (const std::uint8_t byte : bytes) {
    if (byte >= 0x20 && byte <= 0x7e && byte != '\\') {
      out += static_cast<char>(byte);
    } else {
      char code[sizeof "\\x00"];
      std::snprintf(code, sizeof code, "\\x%02x", byte);
      out += code;
    }
  }
  return out;
}

std::optional<std::string> unescaped(std::string_view value) {
  std::string out;
  while (!value.empty()) {
    if (value[0] != '\\') {
      out += value[0];
      value.remove_prefix(1);
      continue;
    }
    unsigned char byte = 0;
    if (value.size() < 4 || value[1] != 'x' ||
        std::from_chars(value.data() + 2, value.data() + 4, byte, 16).ptr != value.data() + 4) {
      return std::nullopt;
    }
    out += static_cast<char>(byte);
    value.remove_prefix(4);
  }
  return out;
}

}  // namespace

std::string field_value(const Field& field, std::size_t index, const ConfigurationSegment& segment) {
  const std::span<const std::uint8_t> bytes = field_bytes(field, index, segment);
  char text[sizeof "00:00:00:00:00:00"];
  switch (field.kind) {
    case Kind::u8:
      return std::to_string(bytes[0]);
    case Kind::u16:
      return decimal<std::uint16_t>(bytes);
    case Kind::u32:
      return decimal<std::uint32_t>(bytes);
    case Kind::i32:
      return decimal<std::int32_t>(bytes);
    case Kind::ipv4:
      std::snprintf(text, sizeof text, "%u.%u.%u.%u", bytes[0], bytes[1], bytes[2], bytes[3]);
      return text;
    case Kind::mac:
      std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", bytes[0], bytes[1], bytes[2],
                    bytes[3], bytes[4], bytes[5]);
      return text;
    case Kind::text:
      return escaped(
          bytes.first(static_cast<std::size_t>(std::find(bytes.begin(), bytes.end(), 0) - bytes.begin())));
    case Kind::letters:
    case Kind::reserved:
      return escaped(bytes);
  }
  return {};
}

bool set_field_value(const Field& field, std::size_t index, std::string_view value,
                     ConfigurationSegment& segment) {
  const std::span<std::uint8_t> bytes = field_bytes(field, index, segment);
  switch (field.kind) {
    case Kind::u8:
      return set_decimal<std::uint8_t>(bytes, value);
    case Kind::u16:
      return set_decimal<std::uint16_t>(bytes, value);
    case Kind::u32:
      return set_decimal<std::uint32_t>(bytes, value);
    case Kind::i32:
      return set_decimal<std::int32_t>(bytes, value);
    case Kind::ipv4:
      return set_bytes(bytes, value, '.', 10);
    case Kind::mac:
      return set_bytes(bytes, value, ':', 16);
    case Kind::text:
    case Kind::letters:
    case Kind::reserved: {
      const std::optional<std::string> text = unescaped(value);
      const bool exact = field.kind != Kind::text;
      if (!text || text->size() > bytes.size() || (exact && text->size() != bytes.size())) {
        return false;
      }
      std::fill(std::copy(text->begin(), text->end(), bytes.begin()), bytes.end(), std::uint8_t{0});
      return true;
    }
  }
  return false;
}

}  // namespace config
