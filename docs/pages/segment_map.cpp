// Prints docs/segment-map.md from the field table; with an argument the table itself, tab separated, for the
// picture.
#include <cstdio>
#include <string>

#include "config/field_table.h"

namespace {

using config::Field;

void append_row(std::string& out, const std::string& offset, const Field& field) {
  const std::string name(field.name),
      anchor = (field.table.empty() ? "" : std::string(field.table) + ".") + name;
  out += "| " + offset + " | " + std::to_string(field.width) + " | " +
         std::string(config::kind_name(field.kind)) + " | <a id=\"" + anchor + "\"></a>`" + name + "` |\n";
}

constexpr std::string_view columns = " | Bytes | Type | Name |\n|---|---|---|---|\n";

std::string segment_map() {
  std::string out =
      "# Map of the configuration segment\n"
      "\n"
      "![The segment to scale](pictures/segment.svg)\n"
      "\n"
      "System V shared memory, key " +
      std::to_string(config::ConfigurationSegment::key) + ", " +
      std::to_string(sizeof(config::ConfigurationSegment)) +
      " bytes, little-endian. Printed from the field table by\n"
      "`docs/pages/print`; a test fails when this file and the structs of `config/segment.h` differ.\n"
      "\n"
      "Types: `u8` to `i32` are integers; `IPv4` is four octets in the order in which the address is "
      "written; `MAC`\n"
      "is six bytes, first byte first; `text` ends with a NUL inside its bytes; `letters` fills its bytes; "
      "`reserved`\n"
      "bytes belong to other programs, the console never writes them.\n";
  std::string_view heading = "none yet";
  std::size_t record = 0;  // where the table's first record starts, with its first field
  for (const Field& field : config::field_table()) {
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

std::string fields() {
  std::string out;
  for (const Field& field : config::field_table()) {
    for (const std::string_view text : {field.block, field.table, config::kind_name(field.kind)}) {
      out += std::string(text) + "\t";
    }
    for (const std::size_t number : {field.offset, field.width, field.count}) {
      out += std::to_string(number) + "\t";
    }
    out += std::to_string(field.stride) + "\n";
  }
  return out;
}

}  // namespace

int main(int count, char** /*arguments*/) {
  return std::fputs((count > 1 ? fields() : segment_map()).c_str(), stdout) < 0 ? 1 : 0;
}
