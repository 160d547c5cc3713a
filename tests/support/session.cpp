#include "support/session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "config/field_table.h"
#include "menus/menu_tree.h"
#include "shell/session.h"

namespace tests {
namespace {

// The number in front of the label.
string number_of(const string& label, std::string_view lines) {
  const std::size_t at = lines.find(":" + label + "\n"), line = lines.rfind('\n', at) + 1;
  EXPECT_NE(at, string::npos) << "no menu has \"" << label << "\"";
  return string(lines.substr(line, at - line));
}

// What leads to the item, and the screen of its submenu with the prompt below.
struct Way {
  string typed, submenu;

  explicit Way(const Item& item) {
    const string number = number_of(item.submenu, menus::menu_tree.lines);
    const shell::Submenu& menu = *menus::menu_tree.targets.at(std::stoul(number));
    typed = "admin\nadmin\n" + number + "\n" + number_of(item.label, menu.lines) + "\n";
    submenu = string(menu.lines) + string(78, '-') + "\nq:Exit\n\n" + menu_prompt;
  }
};

constexpr std::size_t waits_on_the_way = 4;

}  // namespace

string silently(const string& command) {
  return "{" + command + " > /dev/null 2>&1}";
}

string replaced(string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

FactoryDevice::FactoryDevice() {
  login.idle_timeout = 300;
  set("admin_user_name", "admin").set("admin_password", "admin");
  for (const config::Field& field : config::field_table()) {
    const bool is_free = field.name == "enable" || field.name == "screen_list";
    for (std::size_t i = 0; i < field.count && (is_free || field.name == "dial_key"); ++i) {
      set(config::field_name(field, i), is_free ? "255" : "10");
    }
  }
}

FactoryDevice& FactoryDevice::set(std::string_view name, std::string_view value) {
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
  return run_to_exit([] { shell::run_console(menus::menu_tree); });
}

string visit_typing(Device& device, const Item& item, const string& lines) {
  const Way way(item);
  run_session(device, way.typed + lines);
  EXPECT_EQ(differences(device.saved.value_or(device.settings), device.settings), "") << "changed after the save";
  EXPECT_EQ(device.open_descriptors + device.attached_segments, 0) << "something is left open";
  const string shown = device.transcript.substr(device.waits.at(waits_on_the_way - 1));
  const string end = way.submenu + "Bye Bye!!\n";
  return shown.substr(0, shown.size() - (shown.ends_with(end) ? end.size() : 0));
}

string visit(Device& device, const Item& item, const Answers& answers) {
  const string submenu = Way(item).submenu;
  auto next = answers.begin();
  device.on_wait = [&, others = device.on_wait](std::size_t wait) {
    others(wait);
    const string asked = device.transcript.substr(wait == 0 ? 0 : device.waits[wait - 1]);
    // A question nobody answers rightly would be asked for ever.
    if (wait >= waits_on_the_way && wait <= 300 && !asked.ends_with(submenu)) {
      const bool named = next != answers.end() && asked.find(next->question) != string::npos;
      device.input.push_back((named ? next++->typed : "") + "\n");
    }
  };
  const string shown = visit_typing(device, item, "");
  EXPECT_TRUE(next == answers.end()) << "never asked: " << next->question;
  return shown;
}

string differences(const config::ConfigurationSegment& before, const config::ConfigurationSegment& after) {
  string found;
  const bool some = std::memcmp(&before, &after, sizeof before) != 0;
  for (const config::Field& field : config::field_table()) {
    for (std::size_t i = 0; i < field.count && some; ++i) {
      const auto old_bytes = config::field_bytes(field, i, before), new_bytes = config::field_bytes(field, i, after);
      if (!std::equal(old_bytes.begin(), old_bytes.end(), new_bytes.begin())) {
        found += found.empty() ? "" : " ";
        found += config::field_name(field, i) + "=" + config::field_value(field, i, after);
      }
    }
  }
  return found;
}

}  // namespace tests
