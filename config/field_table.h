// Every field of the configuration segment by name: where it lies, how wide it is and how it is encoded.
//
// The list is derived from the structs of config/segment.h and checked against the offsets that the device's
// other programs rely on. The desk's web server stores settings by it, the tests name what changed by it, and
// docs/segment-map.md is printed from it. It is not part of the console.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "config/segment.h"

namespace config {

struct Field {
  enum class Kind : std::uint8_t {
    u8,
    u16,
    u32,
    i32,
    ipv4,
    mac,
    text,      // NUL-terminated within its width
    letters,   // exactly `width` characters, no NUL
    reserved,  // not a field of the console's
  };

  std::string_view block;  // the member of the segment that has it
  std::string_view table;  // empty for a single field
  std::string_view name;
  std::size_t offset;  // of the first element, from the start of the segment
  Kind kind;
  std::size_t width;   // bytes of one element
  std::size_t count;   // 1 for a single field
  std::size_t stride;  // bytes from one element to the next
};

// All fields and reserved ranges. Together they cover each byte of the segment once.
std::span<const Field> field_table();

std::string_view kind_name(Field::Kind kind);

// "sip_port", "virtual_server_table[3].public_port".
std::string field_name(const Field& field, std::size_t index);

// The bytes of one element.
std::span<const std::uint8_t> field_bytes(const Field& field, std::size_t index,
                                          const ConfigurationSegment& segment);
std::span<std::uint8_t> field_bytes(const Field& field, std::size_t index, ConfigurationSegment& segment);

// The value as text on one line: numbers in decimal, addresses and MACs as they are typed, texts with every
// byte outside 0x20..0x7e, and the backslash, as \xHH.
std::string field_value(const Field& field, std::size_t index, const ConfigurationSegment& segment);

// Sets an element from such a text. False, with nothing written, when the text is no value of the field's
// kind or does not fit it.
bool set_field_value(const Field& field, std::size_t index, std::string_view value,
                     ConfigurationSegment& segment);

struct FieldElement {
  const Field* field;
  std::size_t index;
};
// The element with that name; reserved ranges have names too. Nothing for an unknown name.
std::optional<FieldElement> find_field(std::string_view name);
// The element that has the byte at this offset from the start of the segment.
FieldElement field_at(std::size_t offset);

}  // namespace config
