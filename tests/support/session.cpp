#include "support/session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "config/field_table.h"
#include "menus/advanced/submenu.h"
#include "menus/network/submenu.h"
#include "menus/sip/submenu.h"
#include "menus/status/submenu.h"
#include "menus/tools/submenu.h"
#include "menus/voip/submenu.h"
#include "shell/session.h"

namespace tests {

const shell::MenuTree menus = {&menus::network::submenu, &menus::advanced::submenu, &menus::sip::submenu,
                               &menus::voip::submenu,    &menus::tools::submenu,    &menus::status::submenu};

Desk::Desk() {
  login.idle_timeout = 300;
  set("admin_user_name", "admin").set("admin_password", "admin");
  for (const config::Field& field : config::field_table()) {
    const bool is_free = field.name == "enable" || field.name == "screen_list";
    for (std::size_t i = 0; i < field.count && (is_free || field.name == "dial_key"); ++i) {
      set(config::field_name(field, i), is_free ? "255" : "10");
    }
  }
}

Desk& Desk::set(std::string_view name, std::string_view value) {
  const auto element = config::find_field(name);
  EXPECT_TRUE(element && config::set_field_value(*element->field, element->index, value, settings))
      << name << "=" << value;
  return *this;
}

int run_session(Device& device, std::string_view input) {
  use_device(device);
  while (!input.empty()) {  // a line at a time, as from a keyboard
    const std::size_t length = std::min(input.find('\n'), input.size() - 1) + 1;
    device.input.emplace_back(input.substr(0, length));
    input.remove_prefix(length);
  }
  return run_to_exit([] { shell::run_console(menus); });
}

std::string visit(Device& device, int submenu, int item, std::string_view answers) {
  const std::string path = std::to_string(submenu) + "\n" + std::to_string(item) + "\n";
  run_session(device, "admin\nadmin\n" + path + std::string(answers));
  const std::size_t submenu_shown = device.waits.at(2), begin = device.waits.at(3);
  const std::string menu = device.transcript.substr(submenu_shown, begin - submenu_shown) + "Bye Bye!!\n";
  const std::string shown = device.transcript.substr(begin);
  EXPECT_EQ(device.open_descriptors + device.attached_segments, 0);
  EXPECT_EQ(differences(device.saved.value_or(device.settings), device.settings), "")
      << "changed after it was saved";
  return shown.substr(0, shown.size() - (shown.ends_with(menu) ? menu.size() : 0));
}

std::string differences(const config::ConfigurationSegment& before,
                        const config::ConfigurationSegment& after) {
  std::string found;
  const bool some = std::memcmp(&before, &after, sizeof before) != 0;
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count && some; ++i) {
      const auto old_bytes = config::field_bytes(field, i, before),
                 new_bytes = config::field_bytes(field, i, after);
      if (!std::equal(old_bytes.begin(), old_bytes.end(), new_bytes.begin())) {
        const std::string value = config::field_value(field, i, after);
        found += (found.empty() ? "" : " ") + config::field_name(field, i) + "=" + value;
        found += value == config::field_value(field, i, before) ? " (bytes behind it)" : "";
      }
    }
  }
  return found;
}

}  // namespace tests
