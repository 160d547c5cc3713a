#include "stored_settings.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "config/field_table.h"
#include "flash.h"
#include "printable.h"

namespace desk {
namespace {

using config::ConfigurationSegment;

// The complaint about a line that cannot be used, or nothing.
const char* apply_line(std::string_view line, ConfigurationSegment& segment) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) {
    return "is not name=value";
  }
  std::string name(line.substr(0, equals));
  const std::string_view value = line.substr(equals + 1);
  const std::size_t every = name.find("[*]");
  if (every != std::string::npos) {
    name[every + 1] = '0';
  }
  const std::optional<config::FieldElement> element = config::find_field(name);
  if (!element || element->field->kind == config::Field::Kind::reserved) {
    return "names no setting";
  }
  const std::size_t first = element->index;
  const std::size_t end = every == std::string::npos ? first + 1 : element->field->count;
  for (std::size_t i = first; i < end; ++i) {
    if (!config::set_field_value(*element->field, i, value, segment)) {
      return "has no value of its setting's kind";
    }
  }
  return nullptr;
}

// How many lines were used. A missing file has none.
std::size_t apply_file(const char* path, ConfigurationSegment& segment) {
  std::ifstream file(path);
  if (!file && errno != ENOENT) {
    std::fprintf(stderr, "%s cannot be read: %s\n", path, std::strerror(errno));
  }
  std::size_t used = 0;
  std::string line;
  for (std::size_t number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') {
      continue;
    }
    if (const char* const complaint = apply_line(line, segment)) {
      std::fprintf(stderr, "%s, line %zu %s and is skipped: %s\n", path, number, complaint,
                   printable(line, 60).c_str());
    } else {
      ++used;
    }
  }
  return used;
}

}  // namespace

bool load_settings(const char* partition, const char* defaults, ConfigurationSegment& segment) {
  segment = {};
  const std::size_t from_factory = apply_file(defaults, segment);
  return apply_file(partition, segment) + from_factory > 0;
}

bool store_settings(const char* partition, const ConfigurationSegment& segment) {
  std::string text = "#ver." FIRMWARE_VERSION "\n";
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count && field.kind != config::Field::Kind::reserved; ++i) {
      text += config::field_name(field, i) + '=' + config::field_value(field, i, segment) + '\n';
    }
  }
  return replace_contents(partition, text);
}

}  // namespace desk
