// These pages change no setting.
#pragma once

#include "shell/menu.h"

namespace menus::status {

extern const shell::Submenu submenu;

void device_information();
void log_viewer();
void line_state();
void call_detail_records();

}  // namespace menus::status
