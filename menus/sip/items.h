#pragma once

#include "shell/menu.h"

namespace menus::sip {

extern const shell::Submenu submenu;

void basic_setting();
void account_setting();
void nat_traversal();

}  // namespace menus::sip
