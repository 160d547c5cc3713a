#pragma once

#include "shell/menu.h"

namespace menus::voip {

extern const shell::Submenu submenu;

void call_service();
void phone_setting();
void e164_setting();
void fax_setting();
void qos_tos_setting();
void phone_book();
void call_screen();

}  // namespace menus::voip
