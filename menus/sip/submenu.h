#pragma once

#include "shell/menu.h"

namespace menus::sip {

extern const shell::Submenu submenu;

}  // namespace menus::sip
