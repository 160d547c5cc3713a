#pragma once

#include "shell/menu.h"

namespace menus::voip {

extern const shell::Submenu submenu;

}  // namespace menus::voip
