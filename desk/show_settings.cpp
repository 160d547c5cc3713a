// Prints stored settings by name: a field, a record of a table ("virtual_server_table[0]") or a whole table;
// all of them without a name. The device's scripts read their settings with it, and so does a person at the
// desk.
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "config/field_table.h"
#include "stored_settings.h"

namespace {

// "sip_line" and "sip_line[0]" lead to "sip_line[0].phone_number"; "sip_l" does not.
bool leads_to(std::string_view wanted, std::string_view name) {
  return name.starts_with(wanted) && (wanted.empty() || name.size() == wanted.size() ||
                                      name[wanted.size()] == '.' || name[wanted.size()] == '[');
}

bool show(std::string_view wanted, const config::ConfigurationSegment& settings) {
  bool found = false;
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count && field.kind != config::Field::Kind::reserved; ++i) {
      const std::string name = config::field_name(field, i);
      if (leads_to(wanted, name)) {
        std::printf("%s=%s\n", name.c_str(), config::field_value(field, i, settings).c_str());
        found = true;
      }
    }
  }
  return found;
}

}  // namespace

int main(int count, char* arguments[]) {
  if (count < 3) {
    std::fputs("usage: show_settings PARTITION DEFAULTS [NAME...]\n", stderr);
    return 2;
  }
  const auto settings = std::make_unique<config::ConfigurationSegment>();
  if (!desk::load_settings(arguments[1], arguments[2], *settings)) {
    std::fprintf(stderr, "No settings are stored in %s or %s.\n", arguments[1], arguments[2]);
    return 1;
  }
  int status = 0;
  if (count == 3) {
    show("", *settings);
  }
  for (int i = 3; i < count; ++i) {
    if (!show(arguments[i], *settings)) {
      std::fprintf(stderr, "No setting is called %s; docs/segment-map.md lists all names.\n", arguments[i]);
      status = 1;
    }
  }
  return status;
}
