#pragma once

#include "shell/menu.h"

namespace menus::tools {

extern const shell::Submenu submenu;

}  // namespace menus::tools
