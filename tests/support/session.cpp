#include "support/session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "config/field_table.h"
#include "menus/advanced/submenu.h"
#include "menus/network/submenu.h"
#include "menus/sip/submenu.h"
#include "menus/status/submenu.h"
#include "menus/tools/submenu.h"
#include "menus/voip/submenu.h"
#include "shell/session.h"

namespace tests {
namespace {

constexpr shell::MenuTree menus = {
    &menus::network::submenu, &menus::advanced::submenu, &menus::sip::submenu,
    &menus::voip::submenu,    &menus::tools::submenu,    &menus::status::submenu,
};

std::string replaced(std::string text, std::string_view from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

}  // namespace

Desk::Desk() {
  login.idle_timeout = 300;
  settings.admin.admin_user_name.assign("admin");
  settings.admin.admin_password.assign("admin");
  for (const config::Field& field : config::field_table()) {
    if (field.count == 32 && field.name == "enable") {
      for (std::size_t i = 0; i < field.count; ++i) {
        config::field_bytes(field, i, settings)[0] = config::free_slot;
      }
    }
  }
  for (auto& list : settings.call_screen) {
    for (auto& entry : list) {
      entry.screen_list = config::free_slot;
    }
  }
  for (auto& entry : settings.phone_book) {
    entry.dial_key = config::PhoneBookEntry::no_dial_key;
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
  // One line at a time, as from a keyboard.
  while (!input.empty()) {
    const std::size_t length = std::min(input.find('\n'), input.size() - 1) + 1;
    device.input.emplace_back(input.substr(0, length));
    input.remove_prefix(length);
  }
  return run_to_exit([] { shell::run_console(menus); });
}

Visit visit(Device& device, int submenu, int item, std::string_view answers) {
  const config::ConfigurationSegment before = device.settings;
  const std::string path = std::to_string(submenu) + "\n" + std::to_string(item) + "\n";
  Visit visit{};
  visit.status = run_session(device, "admin\nadmin\n" + path + std::string(answers));
  constexpr std::size_t at_submenu = 3;
  const std::string& all = device.transcript;
  if (device.waits.size() <= at_submenu) {
    ADD_FAILURE() << "did not get to the submenu: " << all;
    return visit;
  }
  const std::string menu =
      all.substr(device.waits[at_submenu - 1], device.waits[at_submenu] - device.waits[at_submenu - 1]);
  const std::string goodbye = menu + "Bye Bye!!\n";
  visit.shown = all.substr(device.waits[at_submenu]);
  visit.returned = visit.shown.ends_with(goodbye);
  if (visit.returned) {
    visit.shown.erase(visit.shown.size() - goodbye.size());
  }
  visit.changed = differences(before, device.settings);
  EXPECT_EQ(device.open_descriptors, 0);
  EXPECT_EQ(device.attached_segments, 0);
  if (device.saved) {
    EXPECT_EQ(differences(*device.saved, device.settings), "") << "changed after it was saved";
  }
  return visit;
}

void expect_visits(Desk desk, int submenu, int item, const std::string& done, const std::string& script) {
  std::istringstream lines(script + "\n\n");
  std::string answers, changed, ending;
  Desk its_desk = desk;
  for (std::string line; std::getline(lines, line);) {
    for (std::size_t at = 0, digits = 0; (at = line.find('*')) != std::string::npos;) {
      const std::size_t times = std::stoul(line.substr(at + 1), &digits);
      line.replace(at, digits + 1, times - 1, line[at - 1]);
    }
    if (line.starts_with('=')) {
      std::istringstream fields(line.substr(1));
      for (std::string field; fields >> field;) {
        its_desk.set(field.substr(0, field.find('=')), field.substr(field.find('=') + 1));
      }
    } else if (line.starts_with('>')) {
      answers += replaced(line.substr(1), "/", "\n");
    } else if (line.starts_with('!')) {
      changed += (changed.empty() ? "" : " ") + line.substr(1);
    } else if (!line.empty()) {
      ending += replaced(replaced(line, "$", done), "\\n", "\n");
    } else {
      desk = answers.empty() ? its_desk : desk;
      std::istringstream alternatives(answers);
      for (std::string one; std::getline(alternatives, one, '|');) {
        Desk visited = its_desk;
        const Visit seen = visit(visited, submenu, item, one);
        EXPECT_TRUE(seen.shown.ends_with(ending)) << one << "\n" << seen.shown << "\nexpected:\n" << ending;
        EXPECT_EQ(seen.changed, changed) << one;
      }
      answers = changed = ending = "";
      its_desk = desk;
    }
  }
}

std::string differences(const config::ConfigurationSegment& before,
                        const config::ConfigurationSegment& after) {
  std::string found;
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count; ++i) {
      const auto old_bytes = config::field_bytes(field, i, before);
      const auto new_bytes = config::field_bytes(field, i, after);
      if (std::equal(old_bytes.begin(), old_bytes.end(), new_bytes.begin())) {
        continue;
      }
      const std::string old_value = config::field_value(field, i, before);
      const std::string new_value = config::field_value(field, i, after);
      found += (found.empty() ? "" : " ") + config::field_name(field, i) + "=" + new_value;
      found += old_value == new_value ? " (bytes behind it)" : "";
    }
  }
  return found;
}

}  // namespace tests
