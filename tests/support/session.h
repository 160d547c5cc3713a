// Sessions as an administrator has them, on the fake device.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/device.h"

namespace tests {

// A device with a user admin/admin, an idle time-out of 300 seconds, all rule slots free and everything else
// 0.
struct Desk : Device {
  Desk();
  // Sets a field by its name in the field table, e.g. "sip_port" or "virtual_server_table[3].enable".
  Desk& set(std::string_view name, std::string_view value);
};

// Runs the console over the whole input, to its end, and returns the exit status.
int run_session(Device& device, std::string_view input);

// What one visit to a menu item did.
struct Visit {
  // From the item's first prompt on, up to the submenu that is shown again; commands and the like as "{...}".
  std::string shown;
  // The console came back to the submenu.
  bool returned;
  // "name=value" of every element that differs from before, separated by blanks.
  std::string changed;
  int status;
};

// What messages 0 and 2 look like, and how every voice and SIP dialogue ends.
inline const std::string keep_with_enter =
    "Please answer the question and use [enter] to keep original setting value\n\n";
inline const std::string illegal_value = "Your input value is illegal!!\n\n";
inline const std::string saved_and_signalled =
    "{/opt/httpd/sbin/web_server dumpshare}Setting Save!!\n\n{attach 1357}{voice change 1}";

// Enter, that many times.
inline std::string enters(int times) {
  return std::string(static_cast<std::size_t>(times), '\n');
}

// Logs in, opens the submenu and the item, types the answers (each ended by "\n") and closes the connection.
// Holds the visit to what is true of every dialogue: nothing is left open, and what was saved is what is
// stored.
Visit visit(Device& device, int submenu, int item, std::string_view answers);

// Visits in writing, each on its own copy of the desk, separated by empty lines. By a line's first character:
//   =name=value name=value  fields set before; without answers they are set for all visits that follow
//   >2/x*31/|//             answers, "/" after each; "x*31" is 31 times x; "|" parts answers that do the same
//   !name=value             everything that changes
// All other lines together are how `shown` ends, with "\n" for a line feed and "$" for `done`.
void expect_visits(Desk desk, int submenu, int item, const std::string& done, const std::string& script);

// The differences, as in Visit::changed. A difference behind a text's NUL, or in a reserved range, shows as
// well.
std::string differences(const config::ConfigurationSegment& before,
                        const config::ConfigurationSegment& after);

}  // namespace tests
