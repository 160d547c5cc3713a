#pragma once

#include "shell/menu.h"

namespace menus::network {

extern const shell::Submenu submenu;

// Ends with a reboot of the device.
void wan_setting();
// Ends with the end of the login, unless an answer was refused.
void lan_setting();
void dhcp_setting();

}  // namespace menus::network
