#include <string>

#include "config/field_table.h"

namespace config {
namespace {

void append_row(std::string& out, const std::string& offset, const Field& field) {
  out += "| " + offset + " | " + std::to_string(field.width) + " | " + std::string(kind_name(field.kind)) +
         " | `" + std::string(field.name) + "` |\n";
}

constexpr std::string_view columns = " | Bytes | Type | Name |\n|---|---|---|---|\n";

}  // namespace

std::string segment_map() {
  std::string out =
      "# Map of the configuration segment\n"
      "\n"
      "System V shared memory, key " +
      std::to_string(ConfigurationSegment::key) + ", " + std::to_string(sizeof(ConfigurationSegment)) +
      " bytes, little-endian. Printed from the field table by the program\n"
      "`segment_map`; a test fails when this file and the structs of `config/segment.h` differ.\n"
      "\n"
      "Types: `u8` to `i32` are integers; `IPv4` is four octets in the order in which the address is "
      "written; `MAC`\n"
      "is six bytes, first byte first; `text` ends with a NUL inside its bytes; `letters` fills its bytes; "
      "`reserved`\n"
      "bytes belong to other programs, the console never writes them.\n";
  std::string_view heading = "none yet";
  std::size_t record = 0;  // where the table's first record starts, with its first field
  for (const Field& field : field_table()) {
    if (field.table != heading) {
      heading = field.table;
      record = field.offset;
      if (heading.empty()) {
        out += "\n| Offset" + std::string(columns);
      } else {
        out += "\n## `" + std::string(heading) + "`: " + std::to_string(field.count) + " records of " +
               std::to_string(field.stride) + " bytes from " + std::to_string(field.offset) +
               "\n\n| In the record" + std::string(columns);
      }
    }
    append_row(out,
               heading.empty() ? std::to_string(field.offset) : "+" + std::to_string(field.offset - record),
               field);
  }
  return out;
}

}  // namespace config
