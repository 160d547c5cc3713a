#pragma once

#include "shell/menu.h"

namespace menus::tools {

extern const shell::Submenu submenu;

void day_time_menu();
void ddns_menu();
// A menu of its own; a factory reset does not come back from it.
void system_tools_menu();

}  // namespace menus::tools
