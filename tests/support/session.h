// Sessions as an administrator has them, on the fake device.
#pragma once

#include <string>
#include <string_view>

#include "shell/menu.h"
#include "support/device.h"

namespace tests {

// The real one, as in main.cpp.
extern const shell::MenuTree menus;

// A device with a user admin/admin, an idle time-out of 300 seconds, all slots free and everything else 0.
struct Desk : Device {
  Desk();
  // Sets a field by its name in the field table, e.g. "sip_port" or "virtual_server_table[3].enable".
  Desk& set(std::string_view name, std::string_view value);
};

// Runs the console over the whole input, to its end, and returns the exit status.
int run_session(Device& device, std::string_view input);

// Logs in, opens the submenu and the item, types the answers (each ended by "\n") and closes the connection.
// Holds the visit to what is true of every dialogue: nothing is left open, and what was saved is what is
// stored. Returns what is shown from the item's first prompt on, commands and the like as "{...}", up to the
// submenu that is shown again; it ends with "Bye Bye!!\n" when the console did not get back to it.
std::string visit(Device& device, int submenu, int item, std::string_view answers);

// "name=value" of every element that differs, separated by blanks; in reserved ranges and behind a NUL as
// well.
std::string differences(const config::ConfigurationSegment& before,
                        const config::ConfigurationSegment& after);

}  // namespace tests
