#include "stored_settings.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "config/field_table.h"
#include "config/firmware.h"
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

// How many lines were used.
std::size_t apply_text(const char* path, std::string_view text, ConfigurationSegment& segment) {
  std::size_t used = 0;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const bool whole = line.size() < text.size();
    text.remove_prefix(line.size() + (whole ? 1 : 0));
    if (whole && (line.empty() || line[0] == '#')) {
      continue;
    }
    if (const char* const complaint = whole ? apply_line(line, segment) : "was cut off") {
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
  const std::size_t from_factory = apply_text(defaults, read_text(defaults), segment);
  const std::string written = read_text(partition);
  return apply_text(partition, written.empty() ? read_copy(partition) : written, segment) + from_factory > 0;
}

bool store_settings(const char* partition, const char* defaults, const ConfigurationSegment& segment) {
  const auto factory = std::make_unique<ConfigurationSegment>();
  apply_text(defaults, read_text(defaults), *factory);
  std::string text = std::string("#ver.") + config::firmware_version + "\n";
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count && field.kind != config::Field::Kind::reserved; ++i) {
      const std::string value = config::field_value(field, i, segment);
      if (value != config::field_value(field, i, *factory)) {
        text += config::field_name(field, i) + '=' + value + '\n';
      }
    }
  }
  return store_copy(partition, text);
}

}  // namespace desk
