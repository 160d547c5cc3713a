#pragma once

#include "shell/menu.h"

namespace menus::advanced {

extern const shell::Submenu submenu;

}  // namespace menus::advanced
