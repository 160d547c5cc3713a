// The dialogues of the tools menu.
#pragma once

namespace menus::tools {

void day_time_menu();
void ddns_menu();
// A menu of its own; a factory reset does not come back from it.
void system_tools_menu();

}  // namespace menus::tools
