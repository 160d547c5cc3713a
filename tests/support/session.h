// Sessions as an administrator has them, on the fake device.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/device.h"

namespace tests {

// ---- What the console says in many places; "{...}" is what it does ----

inline const string keep_with_enter = "Please answer the question and use [enter] to keep original setting value\n\n";
inline const string wrong_choice = "Your select is wrong!!\n\n";
inline const string illegal_value = "Your input value is illegal!!\n\n";
inline const string setting_saved = "Setting Save!!\n\n";
inline const string ip_range_error = "IP Range Error!!\n\n";
inline const string table_full = "No more space to creat new rule!!\n\n";
inline const string menu_prompt = "[4830NT]#";
inline const string save = "{uninterrupted /opt/httpd/sbin/web_server dumpshare}";
inline const string save_and_tell_daemon = save + setting_saved + "{attach 1357}{voice change 1}";

// The command as the transcript has it when its output goes nowhere.
string silently(const string& command);

string replaced(string text, std::string_view what, std::string_view by);

template <typename Element>
std::vector<Element> operator+(std::vector<Element> list, const std::vector<Element>& more) {
  list.insert(list.end(), more.begin(), more.end());
  return list;
}

// A device with a user admin/admin, an idle time-out of 300 seconds, all slots free and everything else 0.
struct FactoryDevice : Device {
  FactoryDevice();
  // Sets a field by its name in the field table, e.g. "sip_port" or "virtual_server_table[3].enable".
  FactoryDevice& set(std::string_view name, std::string_view value);
};

// Runs the console over the whole input, to its end, and returns the exit status.
int run_session(Device& device, std::string_view input);

struct Item {
  string submenu, label;
};

// What is typed at the first question from here on that shows these words.
struct Answer {
  string question, typed;
};
using Answers = std::vector<Answer>;

// Logs in, opens the submenu and the item, answers, and closes the connection when the submenu is shown again or, in
// the first form, when all is typed. Holds the visit to what is true of every dialogue: nothing is left open, and what
// was saved is what is stored. Returns what is shown from the item's first words up to the submenu, or to "Bye Bye!!\n"
// when the console did not get there.
string visit_typing(Device& device, const Item& item, const string& lines);
// Enter at every question that is not named. Each one named has to be asked.
string visit(Device& device, const Item& item, const Answers& answers);

// "name=value" of every element that differs, separated by blanks; in reserved ranges and behind a NUL as well.
string differences(const config::ConfigurationSegment& before, const config::ConfigurationSegment& after);

}  // namespace tests
